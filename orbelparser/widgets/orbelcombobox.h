#pragma once

#include "bounddelegate.h"
#include "orbelenum.h"
#include "propertynames.h"
#include "vccomboboxclassic.h"

namespace KV218
{

/// A choice among the rows of an enumeration of the form. Class name: `ComboBox`. Value property: `currentValue`, the
/// value text of the chosen row; the node and the screen have its display name. An unknown `enumName` leaves the
/// control empty and without a node.
class ORBEL_EXPORT OrbelComboBox : public BoundDelegate<ValueSelection, VCComboBoxClassic>
{
    Q_OBJECT

public:
    explicit OrbelComboBox(OrbelWidget *widget);

    void CreateValueTree() override;
    void ResyncValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    void TakeNode() override;
    QString SpellEdit(int index, const QVariant &value) const override;
    QVariant ValueOf(const QVariantList &edits) const override;
    /// A row is known by its value text, and where that is gone by its display name.
    QVariant TranslateEdit(const OrbelDelegate &former, const QVariant &value) const override;

    /// The number that the chosen row's value text states, or the row's index from 0 where it states none; 0 without an
    /// enumeration.
    double getCurrentValue() const;
    /// Chooses the row with the least number not below `value`, as if the operator had. False, and no change, when
    /// there is none.
    bool setMinValueGreaterThanOrEqualTo(double value);

Q_SIGNALS:
    /// The operator or a host chose the row with this value text, or a parameter document named it.
    void currentValueChanged(QString);

public Q_SLOTS:
    /// As setCurrentValue() with an empty text.
    void clearCurrentValue() { setCurrentValue(QString()); }
    /// Chooses the first row with that value text. Any other text counts as a number, 0 when it is none, and chooses
    /// the row with the least number not below.
    void setCurrentValue(QString value) { ChangeProperty(prop::CurrentValue, value); }
    /// Takes effect at the next ResyncValueTree().
    void setEnumName(QString value) { ChangeProperty(prop::EnumName, value); }
    void setDisplayUnknownValues(bool flag) { ChangeProperty(prop::DisplayUnknownValues, flag); }
    void setDisplayAsUnknown(bool flag) { ChangeProperty(prop::DisplayAsUnknown, flag); }
    // Meant: despite its name it chooses the value that it is given.
    void setFirstValueAsCurrent(QString value) { setCurrentValue(value); }
    void setFocus() override { FocusControl(); }

public:
    /// The value text of a row, counting from 0; empty out of range.
    Q_INVOKABLE QString itemValue(int index) const;
    /// The first row with that value text; -1 without one.
    Q_INVOKABLE int firstIndexOfValue(QString value) const;

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    bool EditOf(const ValueBase &node, const QVariant &value, QString *text, QString *error) const override;

private:
    QExplicitlySharedDataPointer<OrbelEnum> FindEnum() const;
    void SelectRow(int index);
    void SelectNumber(double number);

    /// Null when the form does not know the enumeration.
    QExplicitlySharedDataPointer<OrbelEnum> Enum;
    // What a parameter document asks for at each writing.
    QString CurrentValue;
};

} // namespace KV218
