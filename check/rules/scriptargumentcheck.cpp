#include "scriptargumentcheck.h"

namespace Orbel
{

void ScriptArgumentCheck::Run(ValueType type, bool isScriptBool)
{
    if (TellItself() || Value < 0 || type == ValueType::Text)
        return;
    const QString text = Study.ConstantOf(Value);
    if (type == ValueType::Bool)
        CheckBool(text, isScriptBool);
    else
        CheckNumber(text, type != ValueType::Double);
}

/// A control or a function where a value is wanted.
bool ScriptArgumentCheck::TellItself()
{
    const ScriptKind kind = Study.KindOf(Value);
    if (kind != ScriptKind::Control && kind != ScriptKind::Function)
        return false;
    const WidgetEntry *widget = Study.WidgetOf(Value);
    const QLatin1String property = widget ? widget->Info->delegate->valueProperty : QLatin1String();
    const QString name = Study.CodeOf(Value);
    Study.Tell(Code::ScriptArgument, Value,
        QStringLiteral("\"%1\" gets %2 itself, not a value")
            .arg(Wants, QLatin1String(kind == ScriptKind::Control ? "a control" : "a function")),
        property.isEmpty() || !Tree.Is(Value, Node::Name)
            ? Mend()
            : Mend{Study.PlaceOf(Value), name, name + QLatin1Char('.') + property});
    return true;
}

/// Texts that seem to be false, and are true where a truth value is wanted.
void ScriptArgumentCheck::CheckBool(const QString &text, bool isScriptBool)
{
    const bool seemsFalse = IsAny(text.trimmed().toLower(), {"false", "no", "off", "0"});
    if (!seemsFalse || (!isScriptBool && IsAny(text, {"false", "0"})))
        return;
    Study.Tell(Code::ScriptArgument, Value,
        QStringLiteral("The text \"%1\" counts as true for \"%2\"").arg(text, Wants),
        Tree.Is(Value, Node::QuotedText) ? Mend{Study.PlaceOf(Value), Study.CodeOf(Value), QStringLiteral("false")}
                                         : Mend());
}

void ScriptArgumentCheck::CheckNumber(const QString &text, bool isWhole)
{
    double number = 0;
    bool isNumber = false;
    text.trimmed().toDouble(&isNumber);
    if (Tree.Is(Value, Node::Binary, "+") && Study.KindOf(Value) == ScriptKind::Text)
        Study.Tell(
            Code::ScriptTextSum, Value, QStringLiteral("\"%1\" wants a number, and + puts texts together").arg(Wants));
    else if (!text.isNull() && !isNumber)
        Study.Tell(
            Code::ScriptArgument, Value, QStringLiteral("\"%1\" wants a number, and \"%2\" is none").arg(Wants, text));
    else if (isWhole && Study.NumberOf(Value, &number) && number != double(qint64(number)))
        Study.Tell(Code::ScriptArgument, Value,
            QStringLiteral("\"%1\" takes whole numbers, and %2 loses its rest").arg(Wants, Study.CodeOf(Value)));
}

} // namespace Orbel
