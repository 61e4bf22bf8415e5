#include "checkcommand.h"

#include "checkjson.h"
#include "checkrun.h"
#include "commandoptions.h"
#include "inputfile.h"
#include "messages.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

namespace Orbel
{

namespace
{

const QLatin1String Json("json");
const QLatin1String RunOption("run");
const QLatin1String RunHere("run-here");
const QLatin1String Params("params");
const QLatin1String Changed("changed");
const QLatin1String Codes("codes");

void PrintText(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

bool IsFormMissing(const Finding &finding)
{
    return finding.Code == QLatin1String("form-missing");
}

/// A definition under another name is taken for a component list, in which no form is found.
void TellName(const QByteArray &document, Findings &findings)
{
    const auto missing = std::find_if(findings.begin(), findings.end(), IsFormMissing);
    if (missing == findings.end())
        return;
    const Findings asForm = Check::Definition(document);
    if (std::none_of(asForm.cbegin(), asForm.cend(), IsFormMissing))
        missing->Text += QStringLiteral("; it is a definition, whose file name must end in \".orbel\"");
}

bool IsBefore(const Finding &a, const Finding &b)
{
    return a.Line < b.Line || (a.Line == b.Line && a.Column < b.Column);
}

} // namespace

void CheckCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Tells the mistakes in form definitions and component lists, one a line, in the order of the file:\n"
        "FILE:LINE:COLUMN: error|warning|note: text [code]. Ends with 1 when there are errors or warnings."));
    parser.addPositionalArgument(QStringLiteral("FILE..."),
        QStringLiteral("Form definitions, whose names end in \".orbel\", and component lists."),
        QStringLiteral("FILE..."));
    QCommandLineOption runHere(RunHere, QString(), QStringLiteral("KIND"));
    runHere.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({
        {Json, QStringLiteral("Prints an array of objects instead.")},
        {RunOption, QStringLiteral("Also builds the form and runs its script, for at most two seconds.")},
        {Params, QStringLiteral("A parameter document to check against the form; wants one FILE."),
            QStringLiteral("DOC.xml")},
        {Changed, QStringLiteral("A changed definition to check against the form; wants one FILE."),
            QStringLiteral("FILE")},
        {Codes, QStringLiteral("Explains all codes instead of checking.")},
        runHere,
    });
}

int CheckCommand::Run(const QCommandLineParser &parser)
{
    Parser = &parser;
    if (parser.isSet(Codes)) {
        if (parser.isSet(Json))
            throw UsageFailure(QStringLiteral("--codes prints a page, and does not go with --json"));
        PrintText(Check::Explanations());
        return ekFine;
    }
    if (parser.isSet(RunHere)) {
        PrintText(FindingsToJson(RunForms(parser.value(RunHere) == ListKind)));
        return ekFine;
    }
    const QStringList paths = Arguments(parser, INT_MAX);
    for (const QString &option : {QString(Params), QString(Changed)}) {
        if (parser.isSet(option) && (paths.size() > 1 || IsComponentList(paths.constFirst())))
            throw UsageFailure(QStringLiteral("--%1 wants exactly one form definition").arg(option));
    }
    for (const QString &path : paths) {
        try {
            CheckFile(path);
        } catch (const Failure &failure) {
            Complain(failure.Message);
            Status = failure.Status;
        }
    }
    Print();
    return Status;
}

void CheckCommand::CheckFile(const QString &path)
{
    const QByteArray document = ReadFile(path);
    const bool isList = IsComponentList(path);
    Findings findings = isList ? Check::ComponentList(document) : Check::Definition(document);
    if (isList)
        TellName(document, findings);
    if (Parser->isSet(RunOption)) {
        findings += RunInProcess(document, isList);
        std::stable_sort(findings.begin(), findings.end(), IsBefore);
    }
    Take(path, findings);
    for (const QString &option : {QString(Changed), QString(Params)}) {
        if (Parser->isSet(option))
            CheckAgainst(option, document);
    }
}

void CheckCommand::CheckAgainst(const QString &option, const QByteArray &form)
{
    const QString path = Parser->value(option);
    const auto check = option == Params ? Check::Parameters : Check::Changed;
    Take(path, check(ReadFile(path), form));
}

void CheckCommand::Take(const QString &path, const Findings &findings)
{
    for (const Finding &finding : findings)
        Lines.append({path, finding});
    if (!Check::IsClean(findings))
        Status = ekInputAtFault;
}

void CheckCommand::Print() const
{
    if (!Parser->isSet(Json)) {
        for (const Line &line : Lines)
            PrintText(QStringLiteral("%1:%2:%3: %4: %5 [%6]\n")
                          .arg(line.Path)
                          .arg(line.Found.Line)
                          .arg(line.Found.Column)
                          .arg(NameOf(line.Found.Level), line.Found.Text, line.Found.Code));
        return;
    }
    QJsonArray array;
    for (const Line &line : Lines)
        array.append(ToJson(line.Found, line.Path));
    PrintText(JsonText(array));
}

} // namespace Orbel
