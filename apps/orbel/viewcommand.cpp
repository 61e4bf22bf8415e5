#include "viewcommand.h"

#include "commandoptions.h"
#include "formfile.h"
#include "idllinstance.h"

#include <QApplication>
#include <QCommandLineParser>

#ifdef ORBEL_PLUGIN
#include <QLibrary>
#else
#include "orbeltest.h"
#endif

#include <memory>

namespace Orbel
{

namespace
{

using Viewer = std::unique_ptr<IDllInstance, void (*)(IDllInstance *)>;

#ifdef ORBEL_PLUGIN
using CreateFunction = IDllInstance *(*)(const wchar_t *);
using DestroyFunction = void (*)(IDllInstance *);

/// By the plug-in entry.
Viewer MakeViewer()
{
    // The library is in the process already; the loader gives it by its bare name, wherever it lies.
    QLibrary library(QStringLiteral(ORBEL_PLUGIN));
    const auto create = reinterpret_cast<CreateFunction>(library.resolve("LxCreate"));
    const auto destroy = reinterpret_cast<DestroyFunction>(library.resolve("LxDestroy"));
    Viewer viewer(create && destroy ? create(L"orbel view") : nullptr, destroy);
    if (!viewer)
        throw InputFailure(library.fileName(), library.errorString());
    return viewer;
}
#else
Viewer MakeViewer()
{
    return Viewer(new KV218::OrbelTest(QStringLiteral("orbel view")), [](IDllInstance *viewer) { delete viewer; });
}
#endif

/// Shows the form and runs until its window is closed.
void RunViewer(const QString &path, const QString &option)
{
    const Viewer viewer = MakeViewer();
    const QByteArray localPath = path.toLocal8Bit();
    const QByteArray localOption = option.toLocal8Bit();
    // The viewer expects its own arguments behind four of the frame.
    const char *arguments[] = {"orbel", "view", "", "", localPath.constData(), localOption.constData()};
    if (viewer->Init(option.isEmpty() ? 5 : 6, arguments))
        QApplication::exec();
}

} // namespace

void ViewCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Shows the form of a definition file (.orbel) in a window, or the forms of a component list in tabs,\n"
        "until the window is closed. Each Apply prints the parameter document; what the form's script\n"
        "prints goes to standard error."));
    DefineFile(parser);
    DefineLanguage(parser);
    parser.addPositionalArgument(
        QStringLiteral("debug"), QStringLiteral("Attaches the script debugger."), QStringLiteral("[debug]"));
}

int ViewCommand::Run(const QCommandLineParser &parser)
{
    const QStringList arguments = Arguments(parser, 2);
    const QString option = arguments.value(1);
    if (!option.isEmpty() && option != QLatin1String("debug"))
        throw UsageFailure(QStringLiteral("the only word behind FILE is \"debug\", not \"%1\"").arg(option));
    const FormFile file(arguments.constFirst());
    // Where there is no display, the command runs on this platform.
    if (QGuiApplication::platformName() == QLatin1String("minimal"))
        throw Failure{ekInputAtFault, QStringLiteral("there is no display; \"orbel render\" draws a form without one")};
    SpeakLanguage(parser, file.GetPath());
    RunViewer(file.GetPath(), option);
    return file.GetStatus();
}

} // namespace Orbel
