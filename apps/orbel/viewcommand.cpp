#include "viewcommand.h"

#include "commandoptions.h"
#include "formfile.h"
#include "idllinstance.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLibrary>

namespace
{

using CreateFunction = IDllInstance *(*)(const wchar_t *);
using DestroyFunction = void (*)(IDllInstance *);

/// Shows the form by way of the plug-in entry and runs until its window is closed.
void RunPlugin(const QString &path, const QString &option)
{
    // The library is in the process already; the loader gives it by its bare name, wherever it lies.
    QLibrary library(QStringLiteral(ORBEL_PLUGIN));
    const auto create = reinterpret_cast<CreateFunction>(library.resolve("LxCreate"));
    const auto destroy = reinterpret_cast<DestroyFunction>(library.resolve("LxDestroy"));
    IDllInstance *instance = create && destroy ? create(L"orbel view") : nullptr;
    if (!instance)
        throw InputFailure(library.fileName(), library.errorString());
    const QByteArray localPath = path.toLocal8Bit();
    const QByteArray localOption = option.toLocal8Bit();
    // The viewer expects its own arguments behind four of the frame.
    const char *arguments[] = {"orbel", "view", "", "", localPath.constData(), localOption.constData()};
    if (instance->Init(option.isEmpty() ? 5 : 6, arguments))
        QApplication::exec();
    destroy(instance);
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
    RunPlugin(file.GetPath(), option);
    return file.GetStatus();
}
