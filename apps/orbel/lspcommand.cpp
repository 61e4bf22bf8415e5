#include "lspcommand.h"

#include "checkprocess.h"
#include "serverconnection.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>

namespace Orbel
{

namespace
{

/// The end of a file's name that tells what it holds.
QString EndOf(OpenDocument::Kind kind)
{
    switch (kind) {
    case OpenDocument::List:
        return QStringLiteral(".xml");
    case OpenDocument::Template:
        return QStringLiteral(".orbelt");
    case OpenDocument::Definition:
        break;
    }
    return QStringLiteral(".orbel");
}

} // namespace

void LspCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Serves an editor by the Language Server Protocol over standard input and output: mistakes as one types,\n"
        "completion, explanations, definitions, renaming. docs/editors.md tells how editors are set up."));
    // Editors add it to whatever command they start.
    QCommandLineOption stdio(QStringLiteral("stdio"), QStringLiteral("Means nothing; there is no other way."));
    parser.addOption(stdio);
}

int LspCommand::Run(const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        throw UsageFailure(
            QStringLiteral("there is one argument too many: \"%1\"").arg(parser.positionalArguments().constFirst()));
    ServerConnection connection(fileno(stdin), fileno(stdout));
    connection.GetServer().SetRun(
        [&](const QByteArray &document, OpenDocument::Kind kind, const CheckProcess::Done &done) {
            new CheckProcess(document, EndOf(kind), done, &connection.GetServer());
        });
    return QApplication::exec();
}

} // namespace Orbel
