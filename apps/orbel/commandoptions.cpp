#include "commandoptions.h"

#include "failure.h"

#include <QCommandLineParser>

namespace
{

QCommandLineOption ComponentOption()
{
    return QCommandLineOption(QStringLiteral("component"),
        QStringLiteral("The form of a component list to take; needed when the list has several."),
        QStringLiteral("NAME"));
}

} // namespace

void DefineFile(QCommandLineParser &parser)
{
    parser.addPositionalArgument(QStringLiteral("FILE"),
        QStringLiteral("A form definition, when its name ends in \".orbel\", or else a component list."));
}

QStringList Arguments(const QCommandLineParser &parser, int most)
{
    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        throw UsageFailure(QStringLiteral("a FILE is wanted"));
    if (arguments.size() > most)
        throw UsageFailure(QStringLiteral("there is one argument too many: \"%1\"").arg(arguments.at(most)));
    return arguments;
}

void DefineComponent(QCommandLineParser &parser)
{
    parser.addOption(ComponentOption());
}

QString ComponentName(const QCommandLineParser &parser)
{
    return parser.value(ComponentOption());
}
