#include "schemacommand.h"

#include "failure.h"
#include "schemawriter.h"

#include <QCommandLineParser>

#include <cstdio>

namespace Orbel
{

void SchemaCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(
        QStringLiteral("Prints the XML schema of form definitions, the file orbel.xsd, which editors use."));
}

int SchemaCommand::Run(const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        throw UsageFailure(
            QStringLiteral("there is one argument too many: \"%1\"").arg(parser.positionalArguments().constFirst()));
    std::fputs(FormSchema().constData(), stdout);
    return ekFine;
}

} // namespace Orbel
