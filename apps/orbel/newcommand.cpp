#include "newcommand.h"

#include "commandoptions.h"
#include "inputfile.h"
#include "messages.h"
#include "nearestnames.h"
#include "outputfile.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace Orbel
{

namespace
{

/// The first one is taken where none is named.
QStringList Kinds()
{
    return {QStringLiteral("form"), QStringLiteral("receiver"), QStringLiteral("audio"), QStringLiteral("scan")};
}

} // namespace

void NewCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(
        QStringLiteral("Prints a form definition to start from, with comments that tell what is what."));
    parser.addPositionalArgument(QStringLiteral("KIND"),
        QStringLiteral("What it is for: %1.").arg(Kinds().join(QLatin1String(", "))), QStringLiteral("[KIND]"));
    parser.addOption({{QStringLiteral("o"), Option::Output},
        QStringLiteral("The file to write, which must not be there yet."), QStringLiteral("FILE.orbel")});
}

int NewCommand::Run(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const QString kind = arguments.value(0, Kinds().constFirst());
    if (arguments.size() > 1)
        throw UsageFailure(QStringLiteral("there is one argument too many: \"%1\"").arg(arguments.at(1)));
    if (!Kinds().contains(kind))
        throw UsageFailure(QStringLiteral("there is no form for \"%1\"; nearest: %2")
                               .arg(kind, QuotedNames(NearestNames(kind, Kinds(), 1))));
    const QString path = parser.isSet(Option::Output) ? parser.value(Option::Output) : QStringLiteral("-");
    if (QFileInfo::exists(path))
        throw InputFailure(path, QStringLiteral("it is there already, and is left as it is"));
    WriteWhole(path, ReadFile(QStringLiteral(":/orbel/templates/%1.orbel").arg(kind)));
    return ekFine;
}

} // namespace Orbel
