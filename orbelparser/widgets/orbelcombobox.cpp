#include "orbelcombobox.h"

#include "floatgrouplayout.h"
#include "formdoor.h"
#include "newcontrol.h"
#include "typedvalue.h"
#include "valueselection.h"

#include <QCoreApplication>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KV218
{

namespace
{

/// The names of the rows are translated in the context of their enumeration, which several controls may share.
QByteArray ContextOf(const OrbelEnum &values)
{
    return values.GetName().toUtf8();
}

} // namespace

OrbelDelegate *NewComboBox(OrbelWidget *widget)
{
    return NewControl<OrbelComboBox>(widget);
}

OrbelComboBox::OrbelComboBox(OrbelWidget *widget) : BoundDelegate(widget) { }

QExplicitlySharedDataPointer<OrbelEnum> OrbelComboBox::FindEnum() const
{
    return Form().FindEnum(property(prop::EnumName.data()).toString());
}

void OrbelComboBox::CreateValueTree()
{
    Enum = FindEnum();
    ValueNode.Adopt(CreateValueSelection(prop::CurrentValue, Enum));
    if (ValueNode)
        ValueNode->SetTranslationNamespace(ContextOf(*Enum).constData(), this);
}

void OrbelComboBox::ResyncValueTree()
{
    const auto values = FindEnum();
    if (!ValueNode)
        Enum = values;
    if (!ValueNode || !values)
        return;
    Enum = values;
    const QString current = ValueNode->GetStringValue();
    ValueSelection rows(QString(), ekStateUsable);
    for (int i = 0; i < Enum->GetValueCount(); ++i) {
        const OrbelEnumValue &row = Enum->GetValueAt(i);
        rows.AddItem(row.GetDisplayName(), row.GetDoubleValue(i), i + 1, nullptr);
    }
    // Meant: the choice survives by its display name, and `currentValue` stays even when it does not.
    ValueNode->DeleteItems(this);
    if (ValueNode)
        ValueNode->SetTranslationNamespace(ContextOf(*Enum).constData(), this);
    if (ValueNode)
        ValueNode->AddItemsFrom(rows, this);
    if (ValueNode)
        ValueNode->SetStringValue(current, this);
}

void OrbelComboBox::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new VCComboBoxClassic(layout->parentWidget(), nullptr);
    Control->setObjectName(WidgetName());
    Control->SetValueSelection(ValueNode.get());
    SetOwnToolTip(Control, LabelOrTag());
    PropagateProperties(Control);
    layout->addWidget(Control);
    layout->addGroup();
}

void OrbelComboBox::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    WriteUnitAttribute(writer);
    writer.writeCharacters(CurrentValue);
    writer.writeEndElement();
}

void OrbelComboBox::ReadXml(QXmlStreamReader &reader)
{
    const QString text = reader.readElementText();
    SetPropertyAlways(prop::CurrentValue, text);
    // Meant: the text as it was read, even where the property has become a row's value text by now.
    Q_EMIT currentValueChanged(text);
}

/// Items of the application may have no row: then the property stays as it is.
void OrbelComboBox::TakeNode()
{
    if (!ValueNode || !Enum)
        return;
    const QString chosen = ValueNode->GetStringValue();
    const int own = firstIndexOfValue(GetString(prop::CurrentValue, QString()));
    const int row = Enum->firstIndexOfName(chosen);
    if (row >= 0 && (own < 0 || Enum->GetValueAt(own).GetDisplayName() != chosen))
        SetPropertyAlways(prop::CurrentValue, Enum->GetValueAt(row).GetValue());
}

void OrbelComboBox::PropertyChanged(const QString &name, const QVariant &value)
{
    // Before signals are emitted, whose slots may ask for the document.
    if (name == prop::CurrentValue)
        CurrentValue = value.toString();
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::CurrentValue && ValueNode) {
        const int index = firstIndexOfValue(value.toString());
        if (index >= 0)
            SelectRow(index);
        else if (value.canConvert<double>())
            SelectNumber(value.toDouble());
    }
    PropagateProperty(name, Control);
}

void OrbelComboBox::SelectRow(int index)
{
    ValueNode->Select(Enum->GetValueAt(index).GetDisplayName(), this);
}

/// Chooses what the node finds for a number, and makes the property agree. A miss leaves the property as it was set.
void OrbelComboBox::SelectNumber(double number)
{
    if (!ValueNode->Select(number, this, false) || !ValueNode)
        return;
    // Differs from a value that no row has; where there are no rows, the comparison ends the recursion.
    ChangeProperty(prop::CurrentValue, Enum->FindName(ValueNode->GetStringValue()).GetValue());
}

QString OrbelComboBox::SpellEdit(int, const QVariant &value) const
{
    const QByteArray name = value.toString().toUtf8();
    return Enum ? QCoreApplication::translate(ContextOf(*Enum).constData(), name.constData()) : value.toString();
}

/// The application may have given items that have no row.
QVariant OrbelComboBox::ValueOf(const QVariantList &edits) const
{
    const QString name = edits.value(0).toString();
    const int row = Enum ? Enum->firstIndexOfName(name) : -1;
    return row < 0 ? name : Enum->GetValueAt(row).GetValue();
}

bool OrbelComboBox::EditOf(const ValueBase &, const QVariant &value, QString *text, QString *error) const
{
    const QString wanted = value.toString();
    const int row = firstIndexOfValue(wanted);
    *text = row < 0 ? wanted : Enum->GetValueAt(row).GetDisplayName();
    QStringList names;
    for (long i = 0; i < ValueNode->GetItemCount(); ++i)
        names.append(ValueNode->GetItemIndex(i)->GetName());
    return names.contains(*text) || Refuse(QStringLiteral("\"%1\" is none of the choices").arg(wanted), error);
}

QVariant OrbelComboBox::TranslateEdit(const OrbelDelegate &former, const QVariant &value) const
{
    const auto *before = qobject_cast<const OrbelComboBox *>(&former);
    const int row = before && before->Enum && Enum ? before->Enum->firstIndexOfName(value.toString()) : -1;
    const int now = row < 0 ? -1 : Enum->firstIndexOfValue(before->Enum->GetValueAt(row).GetValue());
    return now < 0 ? value : QVariant(Enum->GetValueAt(now).GetDisplayName());
}

void OrbelComboBox::NodeChanged(Observable *subject, TChangeCode code)
{
    if (!ValueNode.TakeNotification(subject, code))
        return;
    // Meant: of rows with equal display names the first one counts, and then becomes the choice of the node too.
    const QString value = Enum->FindName(ValueNode->GetStringValue()).GetValue();
    if (!ChangeProperty(prop::CurrentValue, value))
        return;
    Q_EMIT currentValueChanged(value);
    setModified(true);
}

double OrbelComboBox::getCurrentValue() const
{
    return ValueNode ? ValueNode->GetCurrentValue() : 0.0;
}

bool OrbelComboBox::setMinValueGreaterThanOrEqualTo(double value)
{
    return ValueNode && ValueNode->Select(value, nullptr, false);
}

QString OrbelComboBox::itemValue(int index) const
{
    return Enum ? Enum->GetValueAt(index).GetValue() : QString();
}

int OrbelComboBox::firstIndexOfValue(QString value) const
{
    return Enum ? Enum->firstIndexOfValue(value) : -1;
}

} // namespace KV218
