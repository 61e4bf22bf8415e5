#include "scriptchoicecheck.h"

#include "propertynames.h"

#include <QRegularExpression>

#include <algorithm>

namespace Orbel
{

namespace prop = KV218::prop;

void ScriptChoiceCheck::Run()
{
    for (int i = 0; i < Tree.All().size(); ++i) {
        if (Tree.Is(i, Node::Call))
            CheckCall(i);
        else if (Tree.Is(i, Node::Assign, "="))
            CheckAssign(i);
    }
}

bool ScriptChoiceCheck::Compare(int choice, int other, bool isStrict)
{
    const EnumEntry *rows = Study.ChoicesOf(choice);
    double number = 0;
    if (!rows)
        return CompareSources(choice, other);
    return Study.NumberOf(other, &number) ? CompareNumber(*rows, other, number, isStrict) : TellChoice(*rows, other);
}

bool ScriptChoiceCheck::CompareNumber(const EnumEntry &rows, int other, double number, bool isStrict)
{
    const QString text = Tree.At(other).Text;
    const bool isThere = std::any_of(rows.Values.cbegin(), rows.Values.cend(), [number](const QString &value) {
        bool isNumber = false;
        return value.toDouble(&isNumber) == number && isNumber;
    });
    if (isThere && !isStrict)
        return false;
    Study.Tell(isThere ? Code::ScriptComparison : Code::ScriptChoice, other,
        isThere ? QStringLiteral("A choice is a text, which is never taken for the number %1").arg(text)
                : QStringLiteral("No row of \"%1\" has the value %2").arg(rows.Name, text));
    return true;
}

bool ScriptChoiceCheck::CompareSources(int parameter, int constant)
{
    const QString text = Study.ConstantOf(constant);
    if (text.isNull() || !Tree.Is(parameter, Node::Name) || !Study.Bindings.At(parameter).IsParameter)
        return false;
    const QVector<ScriptStudy::Source> sources = Study.ChoicesGivenTo(parameter);
    const bool isMeant = std::any_of(sources.cbegin(), sources.cend(),
        [&](const ScriptStudy::Source &source) { return source.Rows && source.Rows->Values.contains(text); });
    for (const ScriptStudy::Source &source : sources) {
        if (isMeant && source.Rows && !source.Rows->Values.contains(text) && !ToldSources.contains(source.Node)) {
            ToldSources.insert(source.Node);
            Study.Tell(Code::ScriptChoice, source.Node,
                QStringLiteral("This gives a choice of \"%1\", and the function asks for \"%2\" of another one")
                    .arg(source.Rows->Name, text));
        }
    }
    return isMeant;
}

bool ScriptChoiceCheck::TellChoice(const EnumEntry &rows, int constant)
{
    const QString text = Study.ConstantOf(constant);
    // An empty text asks whether anything is chosen.
    if (text.isEmpty() || rows.Values.contains(text))
        return false;
    static const QRegularExpression unwritable(QStringLiteral("[\"'\\\\\n]"));
    QStringList values;
    QString meant;
    for (const EnumRow &row : rows.Rows) {
        if (row.Value.contains(unwritable))
            continue;
        values.append(row.Value);
        if (row.DisplayName == text || (meant.isEmpty() && row.Identifier == text))
            meant = row.Value;
    }
    const QString told = QStringLiteral("No row of \"%1\" has the value \"%2\"").arg(rows.Name, text);
    const int place = Study.Script.PlaceOf(Tree.At(constant).Index + 1);
    if (!Tree.Is(constant, Node::QuotedText))
        Study.Tell(Code::ScriptChoice, constant, told + QStringLiteral(", which is one of another enumeration"));
    else if (meant.isEmpty())
        Study.Sink.AddMisspelt(Code::ScriptChoice, place, told, text, values);
    else
        Study.Sink.Add(Code::ScriptChoice, place,
            told + QStringLiteral(", which is not what scripts see; its value is \"%1\"").arg(meant),
            {place, text, meant.toHtmlEscaped()});
    return true;
}

void ScriptChoiceCheck::CheckCall(int call)
{
    const int function = Tree.Part(call, 0);
    const WidgetEntry *widget = Tree.Is(function, Node::Member) ? Study.WidgetOf(Tree.Part(function, 0)) : nullptr;
    if (!widget || Tree.At(call).Parts.size() != 2 || !widget->States(prop::EnumName)
        || Study.MaySet(*widget, prop::EnumName))
        return;
    const EnumEntry *rows = Study.Form.FindEnum(widget->TextOf(prop::EnumName));
    if (!rows || rows->Rows.isEmpty()
        || !IsAny(Tree.At(function).Text, {"setCurrentValue", "setFirstValueAsCurrent", "firstIndexOfValue"}))
        return;
    double number = 0;
    if (!Study.NumberOf(Tree.Part(call, 1), &number))
        TellChoice(*rows, Tree.Part(call, 1));
    else if (!rows->Values.contains(Study.CodeOf(Tree.Part(call, 1))))
        Study.Tell(Code::ScriptChoice, Tree.Part(call, 1),
            QStringLiteral("No row of \"%1\" has the value %2").arg(rows->Name, Study.CodeOf(Tree.Part(call, 1))));
}

void ScriptChoiceCheck::CheckAssign(int assignment)
{
    const int target = Tree.Part(assignment, 0);
    if (const EnumEntry *rows = Tree.Is(target, Node::Member) ? Study.ChoicesOf(target) : nullptr)
        TellChoice(*rows, Tree.Part(assignment, 1));
}

void CheckScriptChoices(const ScriptStudy &study)
{
    ScriptChoiceCheck(study).Run();
}

} // namespace Orbel
