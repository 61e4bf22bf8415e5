#include "expandcommand.h"

#include "commandoptions.h"
#include "expandedtemplate.h"
#include "inputfile.h"
#include "messages.h"
#include "outputfile.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace Orbel
{

namespace
{

/// The definition beside its template, of the same name.
QString DefinitionOf(const QString &path)
{
    return path.left(path.size() - 1);
}

/// How the definition names its template; empty for one that came by a pipe.
QString NameFrom(const QString &output, const QString &path)
{
    if (!QFileInfo(path).isFile())
        return QString();
    if (output == QLatin1String("-"))
        return QFileInfo(path).fileName();
    return QFileInfo(output).dir().relativeFilePath(QFileInfo(path).absoluteFilePath());
}

} // namespace

void ExpandCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Makes a plain form definition of each template, FILE.orbel of FILE.orbelt, in which groups of controls are\n"
        "repeated over a list or a range. Mistakes are told with their places in the template."));
    parser.addPositionalArgument(QStringLiteral("FILE..."),
        QStringLiteral("Templates, whose names end in \".orbelt\"."), QStringLiteral("FILE..."));
    parser.addOptions({
        {{QStringLiteral("o"), Option::Output}, QStringLiteral("The file to write, \"-\" to print; wants one FILE."),
            QStringLiteral("FILE.orbel")},
        {Option::Check,
            QStringLiteral("Writes nothing, tells each definition that is not what its template gives, and ends "
                           "with 1 then.")},
    });
}

int ExpandCommand::Run(const QCommandLineParser &parser)
{
    const QStringList paths = Arguments(parser, parser.isSet(Option::Output) ? 1 : INT_MAX);
    for (const QString &path : paths) {
        const bool isNamed = path.endsWith(QLatin1String(".orbelt"));
        if (!isNamed && (!parser.isSet(Option::Output) || QFileInfo(path).isFile()))
            throw UsageFailure(QStringLiteral("%1: the name of a template ends in \".orbelt\"").arg(path));
    }
    for (const QString &path : paths) {
        try {
            Expand(path, parser.isSet(Option::Output) ? parser.value(Option::Output) : DefinitionOf(path),
                parser.isSet(Option::Check));
        } catch (const Failure &failure) {
            Complain(failure.Message);
            Status = failure.Status;
        }
    }
    return Status;
}

void ExpandCommand::Expand(const QString &path, const QString &output, bool isCheck)
{
    const ExpandedTemplate expanded(ReadFile(path), NameFrom(output, path));
    for (const Finding &error : expanded.GetErrors()) {
        Complain(PlaceIn(path, error.Line, error.Column) + QLatin1String(": ") + error.Text);
        Status = ekInputAtFault;
    }
    if (!expanded.GetErrors().isEmpty())
        return;
    if (!isCheck)
        WriteWhole(output, expanded.GetDefinition());
    else if (ReadFile(output) != expanded.GetDefinition())
        throw InputFailure(output, QStringLiteral("it is not what %1 gives").arg(path));
}

} // namespace Orbel
