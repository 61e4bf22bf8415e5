#pragma once

#include "propertynames.h"
#include "spinlistdelegate.h"
#include "vcnumericfloatspin.h"

namespace KV218
{

/// A list of numbers with decimal places, one spin control each. Class names: `DoubleSpinBoxList` and, for the same
/// control, `ShiftList`. Made at once with `itemCount` items, or `shiftCount` where that is absent, all of the number
/// `value`; unlike in a single spin control, bounds and the like that are set later change no item.
class OrbelDoubleSpinBoxList : public SpinListDelegate<ValueDouble>
{
    Q_OBJECT

public:
    explicit OrbelDoubleSpinBoxList(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void EnableInput(bool enable, bool partial) override;

    using OrbelDelegate::isEnabled;
    using OrbelDelegate::setEnabled;

Q_SIGNALS:
    void editingFinished(int);
    void returnPressed(int);
    void valueChanged(int, double);
    /// Follows each valueChanged() with the same arguments.
    void shiftValueChanged(int, double);

public Q_SLOTS:
    void setDecimals(int value) { ChangeProperty(prop::Decimals, value); }
    void setDisplayScalingFactor(double value) { ChangeProperty(prop::DisplayScalingFactor, value); }
    void setItemCount(int value) { ChangeProperty(prop::ItemCount, value); }
    void setShiftCount(int value) { ChangeProperty(prop::ShiftCount, value); }
    void setMaximum(double value) { ChangeProperty(prop::Maximum, value); }
    void setMinimum(double value) { ChangeProperty(prop::Minimum, value); }
    void setPrefix(QString value) { ChangeProperty(prop::Prefix, value); }
    void setSingleStep(double value) { ChangeProperty(prop::SingleStep, value); }
    void setSpecialValueText(QString value) { ChangeProperty(prop::SpecialValueText, value); }
    void setSuffix(QString value) { ChangeProperty(prop::Suffix, value); }
    void setUnit(QString value) { ChangeProperty(prop::Unit, value); }
    void setValue(double value) { ChangeProperty(prop::Value, value); }
    void setWrapping(bool flag) { ChangeProperty(prop::Wrapping, flag); }
    void setFocus() override;

public:
    /// Whether the operator can use the item; false for an index out of range.
    Q_INVOKABLE bool isEnabled(int index) const;
    /// Enables or disables one item; while input is locked, at its release. An index out of range is ignored.
    Q_INVOKABLE void setEnabled(int index, bool flag);
    /// 0 for an index out of range.
    Q_INVOKABLE double itemValue(int index) const { return GetNumber(index); }
    /// Sets an item as if the operator had, with signals and modified mark. An index out of range is ignored.
    Q_INVOKABLE void setItemValue(int index, double value) { SetNumber(index, value); }
    /// The same as itemValue() and setItemValue().
    Q_INVOKABLE double shiftValue(int index) const { return GetNumber(index); }
    Q_INVOKABLE void setShiftValue(int index, double value) { SetNumber(index, value); }

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void EmitNumber(int index, double number) override;
    QString ItemText(const ValueDouble &node) const override;

private:
    struct Item {
        QPointer<VCNumericFloatSpin> Control;
        /// What setEnabled() last asked for.
        bool Enabled = true;
    };

    bool InputEnabled = true;
    QVector<Item> Items;
};

} // namespace KV218
