#include "orbelcommand.h"

#include "checkcommand.h"
#include "classescommand.h"
#include "diffcommand.h"
#include "expandcommand.h"
#include "formatcommand.h"
#include "lspcommand.h"
#include "messages.h"
#include "nearestnames.h"
#include "newcommand.h"
#include "orbelversion.h"
#include "paramscommand.h"
#include "referencecommand.h"
#include "rendercommand.h"
#include "schemacommand.h"
#include "stringscommand.h"
#include "studiocommand.h"
#include "viewcommand.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <memory>

namespace Orbel
{

namespace
{

/// The options that Qt itself reads from a command line are meant for windows that show on a display.
enum Output { OnDisplay, WithoutDisplay };

template <class Command> std::unique_ptr<Subcommand> Make()
{
    return std::make_unique<Command>();
}

struct Row {
    const char *name;
    const char *summary;
    Output output;
    std::unique_ptr<Subcommand> (*make)();
};

// clang-format off
constexpr Row Table[] = {
    {"new",       "gives a form to start from",                          WithoutDisplay, Make<NewCommand>},
    {"view",      "shows a form in a window and prints what is applied", OnDisplay,      Make<ViewCommand>},
    {"studio",    "shows a form live while its author edits it",         OnDisplay,      Make<StudioCommand>},
    {"render",    "draws a form into a picture file",                    WithoutDisplay, Make<RenderCommand>},
    {"params",    "prints the parameter document of a form",             WithoutDisplay, Make<ParamsCommand>},
    {"check",     "tells the mistakes in form definitions",              WithoutDisplay, Make<CheckCommand>},
    {"diff",      "tells what differs between two form definitions",     WithoutDisplay, Make<DiffCommand>},
    {"expand",    "makes form definitions of templates",                 WithoutDisplay, Make<ExpandCommand>},
    {"format",    "brings form definitions into the canonical layout",   WithoutDisplay, Make<FormatCommand>},
    {"lsp",       "serves an editor that speaks the Language Server Protocol", WithoutDisplay, Make<LspCommand>},
    {"strings",   "writes the texts of forms into a file for translators", WithoutDisplay, Make<StringsCommand>},
    {"classes",   "lists the control classes",                           WithoutDisplay, Make<ClassesCommand>},
    {"schema",    "prints the XML schema of form definitions",           WithoutDisplay, Make<SchemaCommand>},
    {"reference", "writes a page for each control class",                WithoutDisplay, Make<ReferenceCommand>},
};
// clang-format on

QString Overview()
{
    QString text = QStringLiteral("Usage: orbel SUBCOMMAND [options] [FILE...]\n"
                                  "Turns XML form definitions into live parameter forms.\n\n"
                                  "Subcommands:\n");
    for (const Row &row : Table)
        text += QStringLiteral("  %1  %2\n").arg(QLatin1String(row.name), -9).arg(QLatin1String(row.summary));
    return text
        + QStringLiteral("\nOptions:\n"
                         "  -h, --help     tells this\n"
                         "  -v, --version  tells the version\n\n"
                         "\"orbel SUBCOMMAND --help\" tells the options of a subcommand.\n");
}

int Print(const QString &text)
{
    std::fputs(qPrintable(text), stdout);
    return ekFine;
}

const Row &FindRow(const QString &name)
{
    QStringList names;
    for (const Row &row : Table) {
        if (name == QLatin1String(row.name))
            return row;
        names.append(QLatin1String(row.name));
    }
    throw UsageFailure(QStringLiteral("there is no subcommand \"%1\"; nearest: %2")
                           .arg(name, QuotedNames(NearestNames(name, names, 1))));
}

/// Qt ends the process at once when there is no display; with a platform that shows nothing, a subcommand still gets to
/// say what is wrong with its input.
void ChoosePlatform(Output output)
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return;
    if (output == WithoutDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "minimal");
}

void Parse(QCommandLineParser &parser, const QStringList &arguments)
{
    if (!parser.parse(arguments))
        throw UsageFailure(parser.errorText());
}

int RunRow(const Row &row, int argc, char **argv)
{
    ChoosePlatform(row.output);
    // Qt names the program in the help of a subcommand by its first argument.
    QByteArray program = QByteArray("orbel ") + row.name;
    QStringList arguments{QString::fromLatin1(program)};
    for (int i = 2; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const std::unique_ptr<Subcommand> command = row.make();
    QCommandLineParser parser;
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Tells this."));
    parser.addOption(help);
    command->Define(parser);
    if (row.output == WithoutDisplay) {
        Parse(parser, arguments);
        command->Prepare(parser);
    }
    argv[1] = program.data();
    int count = row.output == OnDisplay ? argc - 1 : 1;
    QApplication application(count, argv + 1);
    if (row.output == OnDisplay)
        Parse(parser, QCoreApplication::arguments());
    return parser.isSet(help) ? Print(parser.helpText()) : command->Run(parser);
}

int Run(int argc, char **argv)
{
    const QString name = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (name == QLatin1String("-h") || name == QLatin1String("--help"))
        return Print(Overview());
    if (name == QLatin1String("-v") || name == QLatin1String("--version"))
        return Print(QStringLiteral("orbel " ORBEL_VERSION_STRING "\n"));
    if (name.isEmpty())
        throw UsageFailure(QStringLiteral("a subcommand is wanted; \"orbel --help\" lists them"));
    return RunRow(FindRow(name), argc, argv);
}

} // namespace

int RunOrbel(int argc, char **argv)
{
    RouteMessages();
    int status = ekFine;
    try {
        status = Run(argc, argv);
    } catch (const Failure &failure) {
        Complain(failure.Message);
        status = failure.Status;
    }
    // What is printed may be lost only now, on a disk that is full.
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return status;
    Complain(QStringLiteral("what was printed could not all be written"));
    return qMax<int>(status, ekInputAtFault);
}

} // namespace Orbel
