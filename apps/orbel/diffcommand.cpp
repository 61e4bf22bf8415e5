#include "diffcommand.h"

#include "checkjson.h"
#include "commandoptions.h"
#include "inputfile.h"
#include "orbelcheck.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

namespace Orbel
{

namespace
{

/// Status of `diff` itself, which differs from the other subcommands': 1 means that something differs.
constexpr int Same = 0;
constexpr int Differs = 1;

ComparedFile::Kind KindOf(DocumentKind kind)
{
    switch (kind) {
    case DocumentKind::List:
        return ComparedFile::List;
    case DocumentKind::Template:
        return ComparedFile::Template;
    case DocumentKind::Definition:
        break;
    }
    return ComparedFile::Definition;
}

Findings FindingsOf(const InputFile &input)
{
    switch (input.Kind) {
    case DocumentKind::List:
        return Check::ComponentList(input.Bytes);
    case DocumentKind::Template:
        return Check::Template(input.Bytes);
    case DocumentKind::Definition:
        break;
    }
    return Check::Definition(input.Bytes);
}

/// A file that can be compared.
ComparedFile ReadForms(const QString &path)
{
    const InputFile input = ReadInput(path);
    static const QStringList unreadable{QStringLiteral("xml-malformed"), QStringLiteral("form-missing"),
        QStringLiteral("template-repeat"), QStringLiteral("template-value")};
    for (const Finding &finding : FindingsOf(input)) {
        if (unreadable.contains(finding.Code))
            throw InputFailure(PlaceIn(path, finding.Line, finding.Column), finding.Text);
    }
    return {input.Bytes, KindOf(input.Kind)};
}

QString Quoted(const QString &text)
{
    QString line = text;
    line.replace(QLatin1Char('\n'), QLatin1String("\\n")).replace(QLatin1Char('\r'), QLatin1String("\\r"));
    return QLatin1Char('"') + line + QLatin1Char('"');
}

int CountOfLines(const QString &text)
{
    return text.isEmpty() ? 0 : text.count(QLatin1Char('\n')) + 1;
}

/// Of a script the lines that go and come, of all else both values.
QString TextOf(const FormDifference &difference)
{
    const QString what = NameOf(difference.What);
    if (difference.Part == QLatin1String("script") && difference.What == FormDifference::Changed)
        return QStringLiteral("changed from here on, lines: %1 -> %2")
            .arg(CountOfLines(difference.Before))
            .arg(CountOfLines(difference.After));
    if (difference.What == FormDifference::Changed)
        return QStringLiteral("%1 -> %2").arg(Quoted(difference.Before), Quoted(difference.After));
    const QString value = difference.Before + difference.After;
    return value.isEmpty() || difference.Part == QLatin1String("script") ? what
                                                                         : what + QLatin1Char(' ') + Quoted(value);
}

} // namespace

void DiffCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Tells what differs between two form definitions, templates or component lists, by widget and property: one\n"
        "difference a line, with its place in B, or in A for what is gone. Layout, comments and the order of "
        "properties do not count. Ends with\n"
        "0 when nothing differs, 1 when something does, 2 when that cannot be told."));
    parser.addPositionalArgument(QStringLiteral("A"), QStringLiteral("The definition as it was (FILE)."));
    parser.addPositionalArgument(QStringLiteral("B"), QStringLiteral("The definition as it is (FILE)."));
    DefineFormat(parser, {QStringLiteral("text"), QStringLiteral("json")});
}

int DiffCommand::Run(const QCommandLineParser &parser)
{
    const QString format = Format(parser, {QStringLiteral("text"), QStringLiteral("json")});
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 2)
        throw UsageFailure(QStringLiteral("two definitions are wanted, A and B"));
    Before = arguments.constFirst();
    After = arguments.constLast();
    try {
        const ComparedFile before = ReadForms(Before);
        const ComparedFile after = ReadForms(After);
        if ((before.What == ComparedFile::List) != (after.What == ComparedFile::List))
            throw UsageFailure(QStringLiteral("a component list is compared with another one alone"));
        const QVector<FormDifference> differences = CompareForms(before, after);
        if (format == QLatin1String("json")) {
            PrintJson(differences);
        } else {
            for (const FormDifference &difference : differences)
                PrintLine(difference);
        }
        if (std::fflush(stdout) != 0)
            throw Failure{ekWrongUsage, QStringLiteral("what differs could not all be printed")};
        return differences.isEmpty() ? Same : Differs;
    } catch (Failure failure) {
        failure.Status = ekWrongUsage;
        throw failure;
    }
}

void DiffCommand::PrintLine(const FormDifference &difference) const
{
    const bool isGone = difference.What == FormDifference::Gone;
    QString who = difference.Part;
    if (!difference.Name.isEmpty())
        who += QStringLiteral(" \"%1\"").arg(difference.Name);
    if (!difference.Component.isEmpty() && difference.Part != QLatin1String("component"))
        who = QStringLiteral("component \"%1\": ").arg(difference.Component) + who;
    if (!difference.Detail.isEmpty())
        who += QLatin1String(": ") + difference.Detail;
    const QString line
        = QStringLiteral("%1:%2: %3: %4\n")
              .arg(isGone ? Before : After, QString::number(isGone ? difference.LineBefore : difference.LineAfter), who,
                  TextOf(difference));
    std::fputs(line.toUtf8().constData(), stdout);
}

void DiffCommand::PrintJson(const QVector<FormDifference> &differences) const
{
    QJsonArray array;
    for (const FormDifference &each : differences) {
        QJsonObject object{{QStringLiteral("change"), NameOf(each.What)}, {QStringLiteral("part"), each.Part},
            {QStringLiteral("name"), each.Name}, {QStringLiteral("detail"), each.Detail},
            {QStringLiteral("before"), each.Before}, {QStringLiteral("after"), each.After},
            {QStringLiteral("lineBefore"), each.LineBefore}, {QStringLiteral("lineAfter"), each.LineAfter}};
        if (!each.Component.isEmpty())
            object.insert(QStringLiteral("component"), each.Component);
        array.append(object);
    }
    std::fputs(JsonText(array).toUtf8().constData(), stdout);
}

} // namespace Orbel
