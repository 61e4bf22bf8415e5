// The delegate's nodes in the value tree: their paths, their making, their limits, and the tooltips that tell these.

#include "orbeldelegate.h"

#include "formlimits.h"
#include "frequencyunit.h"
#include "itreeitem.h"
#include "orbelenum.h"
#include "propertynames.h"
#include "trace.h"
#include "tree.h"
#include "valueptr.h"
#include "valueselection.h"

#include <deque>
#include <limits>
#include <memory>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QWidget>

namespace KV218
{

namespace
{

// A bound at these values is none.
constexpr double LowestDouble = -1e308;
constexpr double HighestDouble = 1e308;

/// Where the last part of a path begins, or -1: a slash that leads the path separates nothing.
int LastPartIndex(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 1 ? -1 : slash + 1;
}

/// A bound as text, empty when it is the type's own bound.
template <class Integer> QString IntegerBound(Integer bound, Integer none)
{
    return bound == none ? QString() : QString::number(bound);
}

} // namespace

void OrbelDelegate::CreateValueTree() { }

ValueBase *OrbelDelegate::GetVTValue() const
{
    return nullptr;
}

void OrbelDelegate::NodeChanged(Observable *, TChangeCode) { }

QVector<ValueBase *> OrbelDelegate::GetNodes() const
{
    ValueBase *const node = GetVTValue();
    return node ? QVector<ValueBase *>{node} : QVector<ValueBase *>();
}

void OrbelDelegate::SetVTPath(const QString &path)
{
    const bool closed = path.isEmpty() || path.endsWith(QLatin1Char('/'));
    VTPath = closed ? path + GetXmlPath() : path + QLatin1Char('/') + GetXmlPath();
}

QString OrbelDelegate::GetVTNodePath() const
{
    const int name = LastPartIndex(VTPath);
    return name < 0 ? QString() : VTPath.left(name - 1);
}

QString OrbelDelegate::GetVTName() const
{
    const int name = LastPartIndex(VTPath);
    // Meant: without a slash the whole path is no name, so a lookup by it finds no node.
    return name < 0 ? QString() : VTPath.mid(name);
}

void OrbelDelegate::EnterValueTree(const QString &path)
{
    const Call call(this);
    const QString formerPath = VTPath;
    const QString formerName = GetVTName();
    SetVTPath(path);
    const bool moves = InValueTree && VTPath != formerPath;
    if (!InValueTree || (moves && GetNodes().isEmpty()))
        CreateValueTree();
    else if (moves)
        MoveNodes(formerName);
    InValueTree = true;
    // Whoever waited for a path may have ended the form before its node was in place.
    if (Closed)
        Close();
    else
        TakeNode();
}

void OrbelDelegate::MoveNodes(const QString &formerName)
{
    // Whoever waits for one of the paths may remove any of the nodes.
    std::deque<ValuePtr<ValueBase>> nodes;
    for (ValueBase *node : GetNodes())
        nodes.emplace_back().AttachNode(node);
    for (const ValuePtr<ValueBase> &alive : nodes) {
        ValueBase *node = alive.get();
        if (!node)
            continue;
        if (ITreeItem *place = node->GetDeleteObserver())
            place->SubjectDeleted();
        // Nodes of a list have their numbers behind the name, which a path of one part does not give.
        const QString name = node->GetName();
        const bool isNumbered = name.isEmpty() || name.startsWith(QLatin1Char('_'));
        if (formerName.isEmpty() ? isNumbered : name.startsWith(formerName))
            node->SetName(GetVTName() + name.mid(formerName.size()), this);
        EnterNode(node);
    }
    NodesMoved();
}

bool OrbelDelegate::EnterNode(ValueBase *&node)
{
    if (Closed)
        return false;
    bool entered = false;
    // Whoever waits for the path may remove the node, or end the form.
    ValuePtr<ValueBase> alive;
    alive.AttachNode(node);
    {
        const QScopedValueRollback<const ValuePtr<ValueBase> *> entering(Entering, &alive);
        entered = Tree::Instance()->AddNode(GetVTNodePath(), node);
    }
    node = alive.get();
    if (!entered && node) {
        const QString path = GetVTNodePath() + QLatin1Char('/') + node->GetName();
        TraceFailure(QStringLiteral("No node of a form can stand at %1: a path belongs to one form").arg(path),
            "orbeldelegate", __LINE__);
    }
    return entered && node && !Closed;
}

/// Enters a node that has no owner yet; null, and deleted, where that fails and it is not to be kept.
template <class Node> Node *OrbelDelegate::Enter(Node *node, bool keepRefused)
{
    // An exception of whoever waits for the path leaves no node behind.
    std::unique_ptr<Node> made(node);
    ValuePtr<ValueBase> alive;
    alive.AttachNode(node);
    ValueBase *entering = node;
    const auto letGo = qScopeGuard([&] {
        if (!alive)
            static_cast<void>(made.release());
    });
    const bool entered = EnterNode(entering);
    return alive && (entered || (keepRefused && !Closed)) ? made.release() : nullptr;
}

template <class Node> Node *OrbelDelegate::NewNumeric(const QString &name, int index)
{
    const QString suffix = index < 0 ? QString() : QStringLiteral("_%1").arg(index);
    auto *node = new Node(GetVTName() + suffix, ekStateUsable);
    node->SetTranslationNamespace(objectName().toLatin1().constData(), nullptr);
    ConfigureValueNumeric(node);
    if constexpr (std::is_same_v<Node, ValueInt>)
        node->SetValue(GetNearestInt(name, 0), nullptr);
    else
        node->SetValue(GetDouble(name, 0.0), nullptr);
    return Enter(node);
}

ValueBoolean *OrbelDelegate::CreateValueBoolean(const QString &name)
{
    auto *node = new ValueBoolean(GetVTName(), ekStateUsable);
    node->SetTranslationNamespace(objectName().toLatin1().constData(), nullptr);
    node->SetValue(property(name.toLatin1().constData()).toBool(), nullptr);
    return Enter(node);
}

ValueInt *OrbelDelegate::CreateValueNumericInt(const QString &name, int index)
{
    return NewNumeric<ValueInt>(name, index);
}

ValueDouble *OrbelDelegate::CreateValueNumericFloat(const QString &name, int index)
{
    return NewNumeric<ValueDouble>(name, index);
}

ValueString *OrbelDelegate::CreateValueString(const QString &name)
{
    auto *node = new ValueString(GetVTName(), ekStateUsable);
    node->SetTranslationNamespace(objectName().toLatin1().constData(), nullptr);
    node->SetValue(property(name.toLatin1().constData()).toString(), nullptr);
    // Meant: the one maker that keeps a node which the tree refuses, so a text control always has its node.
    return Enter(node, true);
}

ValueSelection *OrbelDelegate::CreateValueSelection(const QString &name, QExplicitlySharedDataPointer<OrbelEnum> values)
{
    if (!values)
        return nullptr;
    auto *node = new ValueSelection(GetVTName(), ekStateUsable);
    node->SetTranslationNamespace(objectName().toLatin1().constData(), nullptr);
    for (int i = 0; i < values->GetValueCount(); ++i) {
        const OrbelEnumValue &row = values->GetValueAt(i);
        node->AddItem(row.GetDisplayName(), row.GetDoubleValue(i), i + 1, nullptr);
    }
    const int current = values->firstIndexOfValue(property(name.toLatin1().constData()).toString());
    const OrbelEnumValue &start = values->GetValueAt(qMax(0, current));
    node->SetStringValue(start.GetDisplayName(), this);
    ChangeProperty(name, start.GetValue());
    return Enter(node);
}

OrbelDelegate::NodeLimits OrbelDelegate::LimitsForNode() const
{
    const double scale = GetDouble(prop::DisplayScalingFactor, 1.0);
    NodeLimits limits;
    limits.Minimum = GetDouble(prop::Minimum, LowestDouble);
    limits.Maximum = GetDouble(prop::Maximum, HighestDouble);
    if (limits.Minimum > LowestDouble)
        limits.Minimum /= scale;
    if (limits.Maximum < HighestDouble)
        limits.Maximum /= scale;
    limits.Step = GetDouble(prop::SingleStep, 1.0) / scale;
    return limits;
}

void OrbelDelegate::ConfigureValueNumeric(IValueNumeric *value)
{
    const NodeLimits limits = LimitsForNode();
    value->SetMin(limits.Minimum, this);
    value->SetMax(limits.Maximum, this);
    value->SetStep(limits.Step, this);
}

void OrbelDelegate::SetBoundsTooltip(QWidget *control, const QString &lowest, const QString &highest)
{
    SetOwnToolTip(control, OwnToolTips::WithBounds(property(prop::LabelText.data()).toString(), lowest, highest));
}

void OrbelDelegate::SetIntTooltip(QWidget *control)
{
    if (!control)
        return;
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    SetBoundsTooltip(control, IntegerBound(GetInt(prop::Minimum, lowest), lowest),
        IntegerBound(GetInt(prop::Maximum, highest), highest));
}

void OrbelDelegate::SetInt64Tooltip(QWidget *control)
{
    constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    constexpr qint64 highest = std::numeric_limits<qint64>::max();
    SetBoundsTooltip(control, IntegerBound(GetInt64(prop::Minimum, lowest), lowest),
        IntegerBound(GetInt64(prop::Maximum, highest), highest));
}

void OrbelDelegate::SetDoubleTooltip(QWidget *control)
{
    if (!control)
        return;
    const int decimals = qMin(limit::Decimals, property(prop::Decimals.data()).toInt());
    const double lowest = GetDouble(prop::Minimum, LowestDouble);
    const double highest = GetDouble(prop::Maximum, HighestDouble);
    SetBoundsTooltip(control, lowest > LowestDouble ? QString::number(lowest, 'f', decimals) : QString(),
        highest < HighestDouble ? QString::number(highest, 'f', decimals) : QString());
}

QString OrbelDelegate::formatString(double value, int decimals, const QString &suffix)
{
    QString text = QString::number(value, 'f', qMin(decimals, limit::Decimals));
    if (decimals > 0) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text + suffix;
}

QString OrbelDelegate::formatHertz(double hertz)
{
    // Meant: MHz is the greatest unit, so 3 GHz read 3000 MHz.
    const Orbel::FrequencyUnit *unit = std::begin(Orbel::FrequencyUnits) + 1;
    while (unit->Power > 0 && !(hertz > unit->Hertz))
        ++unit;
    return formatString(hertz / unit->Hertz, unit->Power + 3, QLatin1Char(' ') + QLatin1String(unit->Name));
}

} // namespace KV218
