#include "scriptvalues.h"

#include "propertynames.h"

#include <algorithm>

namespace Orbel
{

namespace prop = KV218::prop;

QString ScriptValues::Misused(int node) const
{
    if (Study.KindOf(node) == ScriptKind::Control)
        return QStringLiteral("\"%1\" is the control itself, not its value").arg(Study.CodeOf(node));
    const bool isFunction = Study.KindOf(node) == ScriptKind::Function
        && (Tree.Is(node, Node::Member) || Study.Bindings.FunctionOf(node) >= 0);
    return isFunction ? QStringLiteral("\"%1\" is a function, and is not called").arg(Study.CodeOf(node)) : QString();
}

bool ScriptValues::TellMisused(int node, int other, Code code) const
{
    const QString misused = Misused(node);
    const ScriptKind against = Study.KindOf(other);
    const bool isOfItsKind = against == Study.KindOf(node) || against == ScriptKind::Nothing
        || against == ScriptKind::Object || Tree.Is(other, Node::Word, "null") || !Misused(other).isEmpty();
    // Two unknown things may be two controls.
    const bool isUnknown = against == ScriptKind::Any && code == Code::ScriptComparison;
    if (misused.isEmpty() || isOfItsKind || isUnknown)
        return false;
    const WidgetEntry *widget = Study.WidgetOf(node);
    const QLatin1String value = widget ? widget->Info->delegate->valueProperty : QLatin1String();
    const QString name = Study.CodeOf(node);
    Study.Tell(code, node, misused,
        value.isEmpty() || !Tree.Is(node, Node::Name)
            ? Mend()
            : Mend{Study.PlaceOf(node), name, name + QLatin1Char('.') + value});
    return true;
}

bool ScriptValues::IsNumberBy(int node) const
{
    const int function = Tree.At(node).Function;
    const WidgetEntry *widget = Tree.Is(node, Node::Member) ? Study.WidgetOf(Tree.Part(node, 0)) : nullptr;
    if (!widget || Tree.At(node).Text != prop::Value)
        return Study.ChoicesOf(node) == nullptr && !Tree.Is(node, Node::Member) && function != Tree.Root();
    const QVector<ScriptConnection> connections = Study.ConnectionsOf(function);
    return !connections.isEmpty() && Study.Bindings.CallsOf(function).isEmpty() && !Study.Bindings.RunsAtStart(function)
        && std::all_of(connections.cbegin(), connections.cend(),
            [&](const ScriptConnection &each) { return Study.WidgetOf(each.Control) == widget; });
}

bool IsNumberText(const QString &text)
{
    bool isNumber = text.trimmed().isEmpty();
    if (!isNumber)
        text.trimmed().toDouble(&isNumber);
    return isNumber || text.startsWith(QLatin1String("0x"));
}

} // namespace Orbel
