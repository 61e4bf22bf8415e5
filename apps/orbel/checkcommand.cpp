#include "checkcommand.h"

#include "checkformats.h"
#include "checkjson.h"
#include "checkrun.h"
#include "commandoptions.h"
#include "expandedtemplate.h"
#include "inputfile.h"
#include "messages.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace Orbel
{

namespace
{

const QLatin1String RunOption("run");
const QLatin1String RunHere("run-here");
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
        QStringLiteral(
            "Form definitions, whose names end in \".orbel\", templates (\".orbelt\"), and component lists."),
        QStringLiteral("FILE..."));
    QCommandLineOption runHere(RunHere, QString(), QStringLiteral("KIND"));
    runHere.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({
        {Option::Json, QStringLiteral("Prints an array of objects: --format json.")},
        {RunOption, QStringLiteral("Also builds the form and runs its script, for at most two seconds.")},
        {Option::Params, QStringLiteral("A parameter document to check against the form; wants one FILE."),
            QStringLiteral("DOC.xml")},
        {Option::Changed, QStringLiteral("A changed definition to check against the form; wants one FILE."),
            QStringLiteral("FILE")},
        {Codes, QStringLiteral("Explains all codes instead of checking.")},
        runHere,
    });
    DefineFormat(parser, CheckFormats());
}

int CheckCommand::Run(const QCommandLineParser &parser)
{
    Parser = &parser;
    if (parser.isSet(Codes)) {
        if (parser.isSet(Option::Json))
            throw UsageFailure(QStringLiteral("--codes prints a page, and does not go with --json"));
        PrintText(Check::Explanations());
        return ekFine;
    }
    if (parser.isSet(RunHere)) {
        PrintText(FindingsToJson(RunForms(KindOf(parser.value(RunHere)))));
        return ekFine;
    }
    const QString format = parser.isSet(Option::Json) ? QString(Option::Json) : Format(parser, CheckFormats());
    const QStringList paths = Arguments(parser, INT_MAX);
    IsAlone = paths.size() == 1;
    for (const QString &path : paths) {
        try {
            CheckFile(path);
        } catch (const Failure &failure) {
            Complain(failure.Message);
            Status = failure.Status;
        }
    }
    PrintText(Formatted(Lines, format));
    return Status;
}

void CheckCommand::CheckFile(const QString &path)
{
    const InputFile input = WithTemplate(ReadInput(path));
    for (const QString &option : {QString(Option::Params), QString(Option::Changed)}) {
        if (Parser->isSet(option) && (!IsAlone || input.Kind != DocumentKind::Definition))
            throw UsageFailure(QStringLiteral("--%1 wants exactly one form definition").arg(option));
    }
    const bool isList = input.Kind == DocumentKind::List;
    const auto check = isList                  ? Check::ComponentList
        : input.Kind == DocumentKind::Template ? Check::Template
                                               : Check::Definition;
    Findings findings = check(input.Bytes);
    if (isList)
        TellName(input.Bytes, findings);
    if (Parser->isSet(RunOption)) {
        findings += RunInProcess(input);
        std::stable_sort(findings.begin(), findings.end(), IsBefore);
    }
    Take(input.Path, findings);
    for (const QString &option : {QString(Option::Changed), QString(Option::Params)}) {
        if (Parser->isSet(option))
            CheckAgainst(option, input.Bytes);
    }
}

/// Of a definition that is made from a template that template, so that places are those where its author writes.
InputFile CheckCommand::WithTemplate(const InputFile &input)
{
    const QString name = input.Kind == DocumentKind::Definition ? ExpandedTemplate::NamedIn(input.Bytes) : QString();
    const QString path = QDir::cleanPath(QFileInfo(input.Path).dir().filePath(name));
    const bool isAgainst = Parser->isSet(Option::Params) || Parser->isSet(Option::Changed);
    if (name.isEmpty() || isAgainst || !QFileInfo(path).isFile())
        return input;
    const InputFile source = ReadInput(path);
    if (source.Kind == DocumentKind::Template && ExpandedTemplate(source.Bytes, name).GetDefinition() == input.Bytes)
        return source;
    Complain(QStringLiteral("%1: it is no longer what its template %2 gives; \"orbel expand\" makes it anew")
                 .arg(input.Path, path));
    Status = ekInputAtFault;
    return input;
}

void CheckCommand::CheckAgainst(const QString &option, const QByteArray &form)
{
    const QString path = Parser->value(option);
    const auto check = option == Option::Params ? Check::Parameters : Check::Changed;
    Take(path, check(ReadFile(path), form));
}

void CheckCommand::Take(const QString &path, const Findings &findings)
{
    for (const Finding &finding : findings)
        Lines.append({path, finding});
    if (!Check::IsClean(findings))
        Status = ekInputAtFault;
}

} // namespace Orbel
