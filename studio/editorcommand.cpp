#include "editorcommand.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace Orbel
{

namespace
{

struct Editor {
    const char *name;
    const char *words;
    bool isInTerminal;
};

// clang-format off
constexpr Editor Editors[] = {
    {"vi",            "+{line} {file}",          true},
    {"vim",           "+{line} {file}",          true},
    {"nvim",          "+{line} {file}",          true},
    {"nano",          "+{line} {file}",          true},
    {"gvim",          "--remote-silent +{line} {file}", false},
    {"emacs",         "+{line} {file}",          false},
    {"emacsclient",   "-n +{line} {file}",       false},
    {"gedit",         "+{line} {file}",          false},
    {"kate",          "--line {line} {file}",    false},
    {"kwrite",        "--line {line} {file}",    false},
    {"code",          "--goto {file}:{line}",    false},
    {"codium",        "--goto {file}:{line}",    false},
    {"subl",          "{file}:{line}",           false},
    {"qtcreator",     "-client {file}:{line}",   false},
};
// clang-format on

} // namespace

QString EditorCommand::Choose(const QString &stated)
{
    for (const QString &command : {stated, qEnvironmentVariable("VISUAL"), qEnvironmentVariable("EDITOR")}) {
        if (!command.trimmed().isEmpty())
            return command;
    }
    return QString();
}

QStringList EditorCommand::Words(const QString &command, const QString &file, int line)
{
    QStringList words = QProcess::splitCommand(command);
    if (words.isEmpty())
        return words;
    if (!command.contains(QLatin1String("{file}"))) {
        const QString name = QFileInfo(words.constFirst()).fileName();
        const auto isIt = [&](const Editor &editor) { return name == QLatin1String(editor.name); };
        const Editor *editor = std::find_if(std::begin(Editors), std::end(Editors), isIt);
        const bool isKnown = editor != std::end(Editors);
        words += isKnown ? QString::fromLatin1(editor->words).split(QLatin1Char(' '))
                         : QStringList{QStringLiteral("{file}")};
        if (isKnown && editor->isInTerminal)
            words = QStringList{QStringLiteral("x-terminal-emulator"), QStringLiteral("-e")} + words;
    }
    words.replaceInStrings(QStringLiteral("{line}"), QString::number(qMax(1, line)));
    words.replaceInStrings(QStringLiteral("{file}"), file);
    return words;
}

bool EditorCommand::Open(const QString &stated, const QString &file, int line)
{
    QStringList words = Words(Choose(stated), QFileInfo(file).absoluteFilePath(), line);
    if (words.isEmpty())
        return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()));
    const QString program = words.takeFirst();
    return QProcess::startDetached(program, words);
}

} // namespace Orbel
