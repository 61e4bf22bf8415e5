#include "spinlistdelegate.h"

#include "floatgrouplayout.h"
#include "formlimits.h"
#include "listelements.h"
#include "propertynames.h"
#include "spinbuilder.h"
#include "vcnumericfloatspin.h"

#include <algorithm>
#include <cmath>
#include <QVBoxLayout>

namespace KV218
{

template <class Node> SpinListDelegate<Node>::SpinListDelegate(OrbelWidget *widget) : OrbelDelegate(widget)
{
    static const QStringList names = GetDefinedProperties() + QStringList{prop::Prefix, prop::SpecialValueText};
    DefineProperties(names);
}

template <class Node> QVector<ValueBase *> SpinListDelegate<Node>::GetNodes() const
{
    QVector<ValueBase *> nodes;
    for (const Orbel::OwnedNode<Node> &node : ValueNodes)
        nodes.append(node.get());
    return nodes;
}

template <class Node> bool SpinListDelegate<Node>::IsNumber(const QString &name) const
{
    return name == prop::Value || OrbelDelegate::IsNumber(name);
}

template <class Node> void SpinListDelegate<Node>::LeaveWindow()
{
    if (!Container)
        return;
    // One of the controls may be about to lose the focus, which is why the form ends.
    if (QWidget *content = Container->parentWidget(); content && content->layout())
        content->layout()->removeWidget(Container);
    EndControl(Container);
}

template <class Node> void SpinListDelegate<Node>::CreateNodes(int count)
{
    for (int i = 0; i < qMin(count, limit::ListItems); ++i) {
        Node *node = nullptr;
        if constexpr (std::is_same_v<Node, ValueInt>)
            node = CreateValueNumericInt(prop::Value, i);
        else
            node = CreateValueNumericFloat(prop::Value, i);
        if (!node)
            continue;
        ValueNodes.emplace_back(this);
        ValueNodes.back().Adopt(node);
    }
}

template <class Node> QVector<VCNumericFloatSpin *> SpinListDelegate<Node>::CreateControls(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    auto *stack = new QVBoxLayout;
    stack->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    stack->setSpacing(0);
    stack->setContentsMargins(0, 0, 0, 0);
    Container = new QWidget;
    Container->setObjectName(WidgetName());
    Container->setLayout(stack);

    QVector<VCNumericFloatSpin *> spins;
    // Whoever is notified of a new control may withdraw a node.
    for (size_t i = 0; i < ValueNodes.size(); ++i) {
        const QString name = QStringLiteral("%1_%2").arg(WidgetName(), QString::number(spins.size()));
        VCNumericFloatSpin *spin = BuildSpin(*this, ValueNodes[i].get(), layout->parentWidget(), name);
        connect(spin, &VCNumericFloatSpin::signalTextEdited, this, [this] { MarkTyping(); });
        PropagateProperties(spin);
        if constexpr (std::is_same_v<Node, ValueInt>)
            SetIntTooltip(spin);
        else
            SetDoubleTooltip(spin);
        stack->addWidget(spin);
        spins.append(spin);
    }
    layout->addList();
    layout->addWidget(Container);
    layout->addGroup();
    return spins;
}

template <class Node> void SpinListDelegate<Node>::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const QString itemTag = GetString(prop::ParameterListItemTag, QString());
    WriteEntries(writer, GetXmlTagName(), itemTag, int(ValueNodes.size()), [&](int index) {
        WriteUnitAttribute(writer);
        writer.writeAttribute(attribute::Index, QString::number(index));
        writer.writeCharacters(ItemText(*ValueNodes[size_t(index)]));
    });
}

template <class Node> void SpinListDelegate<Node>::ReadXml(QXmlStreamReader &reader)
{
    ReadIndexedEntries(reader, [&](int index, const QString &text) {
        // Meant: a reading sets an item as the operator does, so that it marks the list modified.
        if constexpr (std::is_same_v<Node, ValueInt>)
            SetNumber(index, text.toInt());
        else
            SetNumber(index, FiniteText(text).toDouble());
        return true;
    });
}

template <class Node> void SpinListDelegate<Node>::NodeChanged(Observable *subject, TChangeCode code)
{
    const auto node = std::find_if(ValueNodes.begin(), ValueNodes.end(),
        [subject](const Orbel::OwnedNode<Node> &item) { return item.IsSubject(subject); });
    if (node == ValueNodes.end())
        return;
    if (node->TakeNotification(subject, code)) {
        EmitNumber(int(node - ValueNodes.begin()), (*node)->GetValue());
        setModified(true);
    } else if (!*node) {
        ValueNodes.erase(node);
    }
}

template <class Node> QString SpinListDelegate<Node>::SpellEdit(int, const QVariant &value) const
{
    return SpellNumber(*this, value.toDouble(), Container ? Container->findChild<VCNumericFloatSpin *>() : nullptr);
}

template <class Node> QList<VCNumericFloatSpin *> SpinListDelegate<Node>::Spins() const
{
    return Container ? Container->findChildren<VCNumericFloatSpin *>() : QList<VCNumericFloatSpin *>();
}

template <class Node> QVector<Face> SpinListDelegate<Node>::GetFaces() const
{
    QVector<Face> faces;
    for (VCNumericFloatSpin *spin : Spins())
        faces.append({spin, [item = faces.size() + 1] { return KV218::OrbelDelegate::tr("item %1").arg(item); },
            [this, spin] { return SpinBounds(*this, spin); }});
    return faces;
}

template <class Node> void SpinListDelegate<Node>::forceFinishEditing()
{
    const Call call(this);
    const auto spins = Spins();
    const QVector<QPointer<VCNumericFloatSpin>> controls(spins.begin(), spins.end());
    for (const QPointer<VCNumericFloatSpin> &spin : controls) {
        if (spin)
            spin->endEdit();
    }
}

template <class Node> typename SpinListDelegate<Node>::Number SpinListDelegate<Node>::GetNumber(int index) const
{
    return IsItem(index) ? ValueNodes[size_t(index)]->GetValue() : Number(0);
}

template <class Node> void SpinListDelegate<Node>::SetNumber(int index, Number number)
{
    if (IsItem(index) && std::isfinite(double(number)))
        ValueNodes[size_t(index)]->SetValue(number, nullptr);
}

template class SpinListDelegate<ValueInt>;
template class SpinListDelegate<ValueDouble>;

} // namespace KV218
