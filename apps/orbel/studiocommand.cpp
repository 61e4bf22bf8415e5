#include "studiocommand.h"

#include "commandoptions.h"
#include "inputfile.h"
#include "studiowindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>

namespace Orbel
{

static const QLatin1String Editor("editor");

void StudioCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Shows the form of a definition in the middle of a workbench, and shows it anew whenever the file is saved;\n"
        "values, edits, focus and groups stay. Around it stand findings, inspector, parameters, script and a\n"
        "simulated host, until the window is closed."));
    DefineFile(parser);
    DefineLanguage(parser);
    DefineComponent(parser);
    parser.addOption({Editor,
        QStringLiteral(
            "The editor for a double click on a finding, as \"kate --line {line} {file}\"; without it that of "
            "$VISUAL or $EDITOR, or the desktop's."),
        QStringLiteral("COMMAND")});
}

int StudioCommand::Run(const QCommandLineParser &parser)
{
    const QString path = Arguments(parser, 1).constFirst();
    ReadFile(path);
    // Where there is no display, the command runs on this platform.
    if (QGuiApplication::platformName() == QLatin1String("minimal"))
        throw Failure{ekInputAtFault, QStringLiteral("there is no display; \"orbel render\" draws a form without one")};
    SpeakLanguage(parser, path);
    QSettings settings(QStringLiteral("orbel"), QStringLiteral("studio"));
    Workbench bench(path, ComponentName(parser));
    StudioWindow window(bench, settings, parser.value(Editor));
    bench.Open();
    window.show();
    return QApplication::exec();
}

} // namespace Orbel
