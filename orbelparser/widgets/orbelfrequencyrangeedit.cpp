#include "orbelfrequencyrangeedit.h"

#include "floatgrouplayout.h"
#include "formdoor.h"
#include "frequencytext.h"
#include "newcontrol.h"
#include "saturate.h"
#include "typedvalue.h"
#include "wholehertz.h"

#include <QLocale>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>
#include <limits>

namespace KV218
{

// What the range may span in Hz where the definition does not say.
static constexpr double LowestFrequency = 8000.0;
static constexpr double HighestFrequency = 26500000000.0;
static constexpr double LeastDistance = 1.0;

OrbelDelegate *NewFrequencyRangeEdit(OrbelWidget *widget)
{
    return NewControl<OrbelFrequencyRangeEdit>(widget);
}

OrbelFrequencyRangeEdit::OrbelFrequencyRangeEdit(OrbelWidget *widget) : OrbelDelegate(widget)
{
    static const QStringList names = GetDefinedProperties()
        + QStringList{prop::StartFrequency, prop::StartFrequencyParameterXmlTag, prop::StopFrequency,
            prop::StopFrequencyParameterXmlTag, prop::StartFrequencyUnitScale, prop::StopFrequencyUnitScale};
    DefineProperties(names);
}

void OrbelFrequencyRangeEdit::CreateValueTree()
{
    const double lowest = GetDouble(prop::Minimum, LowestFrequency);
    const double highest = GetDouble(prop::Maximum, HighestFrequency);
    MakeNode(StartNode, prop::StartFrequency, 1, lowest, highest - LeastDistance);
    MakeNode(StopNode, prop::StopFrequency, 2, lowest + LeastDistance, highest);
}

/// Meant: the limits count as they are, and replace those that were scaled for display when the node was made.
void OrbelFrequencyRangeEdit::MakeNode(
    Orbel::OwnedNode<ValueDouble> &node, QLatin1String property, int index, double lowest, double highest)
{
    node.Adopt(CreateValueNumericFloat(property, index));
    if (node)
        node->SetMinMax(lowest, highest, 1.0, this);
    if (node)
        node->SetValue(GetDouble(property, 0.0), this);
}

void OrbelFrequencyRangeEdit::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    StartEdit = NewEdit(layout, QStringLiteral("_StartFrequency"), StartNode.get(), QT_TR_NOOP("Start Frequency"));
    StopEdit = NewEdit(layout, QStringLiteral("_StopFrequency"), StopNode.get(), QT_TR_NOOP("Stop Frequency"));
    layout->addGroup();
    // Meant: passing through a field marks the form as modified, even when nothing was typed.
    for (VCLineEdit *edit : {StartEdit.data(), StopEdit.data()}) {
        connect(edit, &QLineEdit::editingFinished, this, [this] { SlotTextEdited(); });
        connect(edit, &VCLineEdit::signalTextFinallyChanged, this, [this] { SlotTextEdited(); });
    }
}

VCLineEdit *OrbelFrequencyRangeEdit::NewEdit(
    FloatGroupLayout *layout, const QString &suffix, ValueBase *node, const char *toolTip)
{
    const QByteArray name = (WidgetName() + suffix).toUtf8();
    auto *edit = new VCLineEdit(layout->parentWidget(), name.constData(), VCLineEdit::ekFrequency);
    edit->SetWholeHertz(true);
    edit->SetValueBase(node);
    SetOwnToolTip(edit, {QLatin1String(toolTip), QString(), QString(), staticMetaObject.className()});
    edit->SetStepGrid(GetDouble(prop::SingleStep, 1.0));
    PropagateProperties(edit);
    layout->addWidget(edit);
    return edit;
}

void OrbelFrequencyRangeEdit::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    // Meant: no unit, whatever the property says, and without a tag an element without a name.
    writer.writeTextElement(property(prop::StartFrequencyParameterXmlTag.data()).toString(),
        WholeHertz(property(prop::StartFrequency.data())));
    writer.writeTextElement(property(prop::StopFrequencyParameterXmlTag.data()).toString(),
        WholeHertz(property(prop::StopFrequency.data())));
}

void OrbelFrequencyRangeEdit::ReadXml(QXmlStreamReader &reader)
{
    if (reader.name() == property(prop::StartFrequencyParameterXmlTag.data()).toString())
        SetPropertyAlways(prop::StartFrequency, FiniteText(reader.readElementText()));
    else if (reader.name() == property(prop::StopFrequencyParameterXmlTag.data()).toString())
        SetPropertyAlways(prop::StopFrequency, FiniteText(reader.readElementText()));
}

QPair<qint64, qint64> OrbelFrequencyRangeEdit::getCurrentRange() const
{
    if (!StartNode || !StopNode)
        return {0, 0};
    return {Orbel::Saturated<qint64>(std::trunc(StartNode->GetValue())),
        Orbel::Saturated<qint64>(std::trunc(StopNode->GetValue()))};
}

QVector<Face> OrbelFrequencyRangeEdit::GetFaces() const
{
    const auto bounds = [](const Orbel::OwnedNode<ValueDouble> &node) {
        return [&node] { return node ? FrequencyBounds(node->GetMin(), node->GetMax()) : QString(); };
    };
    return {{StartEdit.data(), [] { return tr("start"); }, bounds(StartNode)},
        {StopEdit.data(), [] { return tr("stop"); }, bounds(StopNode)}};
}

void OrbelFrequencyRangeEdit::addValidBand(QString, qint64, qint64) { }

void OrbelFrequencyRangeEdit::setRange(qint64 a_startFrequency, qint64 a_stopFrequency)
{
    const Call call(this);
    ChangeProperty(prop::StartFrequency, a_startFrequency);
    ChangeProperty(prop::StopFrequency, a_stopFrequency);
}

void OrbelFrequencyRangeEdit::setFocus()
{
    const Call call(this);
    if (StartEdit)
        StartEdit->setFocus();
}

void OrbelFrequencyRangeEdit::forceFinishEditing()
{
    const Call call(this);
    if (StartEdit)
        StartEdit->endEdit();
    if (StopEdit)
        StopEdit->endEdit();
}

void OrbelFrequencyRangeEdit::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::StartFrequencyParameterXmlTag || name == prop::StopFrequencyParameterXmlTag)
        // Meant: the former tag stays on the list, so documents that use it are read, too.
        AddXmlTag(value.toString());
    else
        WriteNodes(name, value);
    for (VCLineEdit *edit : {StartEdit.data(), StopEdit.data()}) {
        if (edit && name == prop::SingleStep)
            edit->SetStepGrid(GetDouble(prop::SingleStep, 1.0));
    }
    PropagateProperty(name, StartEdit);
    PropagateProperty(name, StopEdit);
}

/// Meant: no bound pushes the other one here, so a script can set both in any order.
void OrbelFrequencyRangeEdit::WriteNodes(const QString &name, const QVariant &value)
{
    if (name == prop::StartFrequency && StartNode)
        StartNode->SetStringValue(value.toString(), this);
    else if (name == prop::StopFrequency && StopNode)
        StopNode->SetStringValue(value.toString(), this);
    else if (name == prop::Minimum)
        WriteLimits(&ValueDouble::SetMin, value.toDouble(), value.toDouble() + LeastDistance);
    else if (name == prop::Maximum)
        WriteLimits(&ValueDouble::SetMax, value.toDouble() - LeastDistance, value.toDouble());
    else
        return;
    TakeNode();
}

void OrbelFrequencyRangeEdit::WriteLimits(void (ValueDouble::*set)(double, IObserver *), double ofStart, double ofStop)
{
    if (StartNode)
        ((*StartNode).*set)(ofStart, this);
    if (StopNode)
        ((*StopNode).*set)(ofStop, this);
}

bool OrbelFrequencyRangeEdit::IsNumber(const QString &name) const
{
    return name == prop::StartFrequency || name == prop::StopFrequency || OrbelDelegate::IsNumber(name);
}

QVariant OrbelFrequencyRangeEdit::HeldNumber(const QString &name) const
{
    if (!StartNode || !StopNode)
        return QVariant();
    const auto [start, stop] = getCurrentRange();
    if (name == prop::StartFrequency)
        return start;
    if (name == prop::StopFrequency)
        return stop;
    if (name == prop::Minimum)
        return StartNode->GetMin();
    return name == prop::Maximum ? QVariant(StopNode->GetMax()) : QVariant();
}

QVariant OrbelFrequencyRangeEdit::HostNumber(const QVariant &held) const
{
    return Orbel::Saturated<qint64>(std::trunc(held.toDouble()));
}

void OrbelFrequencyRangeEdit::TakeNode()
{
    const QPair<QLatin1String, Orbel::OwnedNode<ValueDouble> *> bounds[]
        = {{prop::StartFrequency, &StartNode}, {prop::StopFrequency, &StopNode}};
    for (const auto &[name, node] : bounds) {
        // A fraction that the definition states stays.
        if (*node && GetStatedNumber(name) != (*node)->GetValue())
            TakeNumber(name, Orbel::Saturated<qint64>(std::trunc((*node)->GetValue())));
    }
}

QString OrbelFrequencyRangeEdit::SpellEdit(int, const QVariant &value) const
{
    return Orbel::FrequencyText::Write(value.toDouble(), 0, QLocale().decimalPoint());
}

/// The one bound would push the other. They are shown in whole Hz.
bool OrbelFrequencyRangeEdit::EditsOf(const QVariant &value, QVariantList *edits, QString *error) const
{
    if (!OrbelDelegate::EditsOf(value, edits, error))
        return false;
    const bool collide
        = edits->size() > 1 && std::trunc(edits->at(0).toDouble()) >= std::trunc(edits->at(1).toDouble());
    return !collide || Refuse(QStringLiteral("The start is not below the stop"), error);
}

QString OrbelFrequencyRangeEdit::SpellEditPart(int index) const
{
    return index == 0 ? tr("Start Frequency") : tr("Stop Frequency");
}

void OrbelFrequencyRangeEdit::NodeChanged(Observable *source, TChangeCode code)
{
    const bool startMoved = StartNode.TakeNotification(source, code);
    const bool stopMoved = !startMoved && StopNode.TakeNotification(source, code);
    if ((startMoved || stopMoved) && StartNode && StopNode)
        Repair(startMoved);
}

/// The bound that moved wins; the other one stands next to it.
void OrbelFrequencyRangeEdit::Repair(bool startMoved)
{
    auto [start, stop] = getCurrentRange();
    const bool collide = start >= stop;
    bool changed = false;
    if (collide && startMoved) {
        stop = start < std::numeric_limits<qint64>::max() ? start + 1 : start;
        changed = ChangeProperty(prop::StopFrequency, stop);
    } else if (collide) {
        start = stop > std::numeric_limits<qint64>::min() ? stop - 1 : stop;
        changed = ChangeProperty(prop::StartFrequency, start);
    }
    changed |= startMoved ? ChangeProperty(prop::StartFrequency, start) : ChangeProperty(prop::StopFrequency, stop);
    if (!changed)
        return;
    Q_EMIT rangeChanged(start, stop);
    Q_EMIT editingFinished();
    setModified(true);
}

QVector<ValueBase *> OrbelFrequencyRangeEdit::GetNodes() const
{
    QVector<ValueBase *> nodes;
    for (ValueDouble *node : {StartNode.get(), StopNode.get()}) {
        if (node)
            nodes.append(node);
    }
    return nodes;
}

void OrbelFrequencyRangeEdit::SlotTextEdited(QString)
{
    MarkTyping();
}

void OrbelFrequencyRangeEdit::SlotReturnPressed()
{
    const Call call(this);
    Q_EMIT returnPressed();
    Form().applyNow();
}

} // namespace KV218
