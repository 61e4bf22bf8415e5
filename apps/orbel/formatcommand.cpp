#include "formatcommand.h"

#include "commandoptions.h"
#include "definitionlayout.h"
#include "inputfile.h"
#include "messages.h"
#include "outputfile.h"

#include <QCommandLineParser>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace Orbel
{

namespace
{

/// Each file as it stands, each folder as the definitions in it.
QStringList FilesOf(const QStringList &arguments)
{
    QStringList files;
    for (const QString &argument : arguments) {
        if (!QFileInfo(argument).isDir()) {
            files.append(argument);
            continue;
        }
        QStringList found;
        QDirIterator walk(argument, {QStringLiteral("*.orbel"), QStringLiteral("*.orbelt")}, QDir::Files,
            QDirIterator::Subdirectories);
        while (walk.hasNext())
            found.append(walk.next());
        std::sort(found.begin(), found.end());
        files += found;
    }
    return files;
}

/// From 1: the first line in which two texts differ.
int FirstDifference(const QByteArray &one, const QByteArray &other)
{
    const auto shorter = std::min(one.size(), other.size());
    const auto differs = std::mismatch(one.begin(), one.begin() + shorter, other.begin()).first;
    return 1 + int(std::count(one.begin(), differs, '\n'));
}

} // namespace

void FormatCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Brings definitions, templates and component lists into the one canonical layout, each in its file. Texts,\n"
        "scripts, comments and values, with them the definitions in a component list, stay as they stand, character "
        "by\n"
        "character. What is malformed is told with its place and left alone."));
    parser.addPositionalArgument(QStringLiteral("FILE..."),
        QStringLiteral("Files, or folders with all definitions and templates in them; what comes by a pipe, or by "
                       "standard input (\"-\"), is printed."),
        QStringLiteral("FILE..."));
    parser.addOption({Option::Check,
        QStringLiteral("Changes nothing, tells each file that is laid out otherwise, and ends with 1 then.")});
}

int FormatCommand::Run(const QCommandLineParser &parser)
{
    for (const QString &path : FilesOf(Arguments(parser, INT_MAX))) {
        try {
            Format(path, parser.isSet(Option::Check));
        } catch (const Failure &failure) {
            Complain(failure.Message);
            Status = failure.Status;
        }
    }
    return Status;
}

void FormatCommand::Format(const QString &path, bool isCheck)
{
    const QByteArray document = ReadFile(path);
    const DefinitionLayout layout = DefinitionLayout::OfFile(document);
    if (!layout.GetRefusal().isEmpty()) {
        const Finding &reason = layout.GetRefusal().constFirst();
        throw InputFailure(PlaceIn(path, reason.Line, reason.Column), reason.Text);
    }
    const bool isSame = layout.GetDocument() == document;
    const bool isPrinted = !QFileInfo(path).isFile();
    if (isCheck && !isSame) {
        const int line = FirstDifference(document, layout.GetDocument());
        std::printf("%s:%d: is laid out otherwise from here on\n", qPrintable(path), line);
        Status = ekInputAtFault;
    } else if (!isCheck && (!isSame || isPrinted)) {
        WriteWhole(isPrinted ? QStringLiteral("-") : path, layout.GetDocument());
    }
}

} // namespace Orbel
