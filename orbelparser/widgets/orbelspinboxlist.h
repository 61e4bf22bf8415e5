#pragma once

#include "propertynames.h"
#include "spinlistdelegate.h"

namespace KV218
{

/// A list of whole numbers, one spin control each. Class name: `SpinBoxList`. Made at once with `itemCount` items, all
/// of the number `value`; unlike in a single spin control, properties set later change no item. Items are not reached
/// by a lock of input, a collapsed group, or setEnabled(), only by their nodes.
class OrbelSpinBoxList : public SpinListDelegate<ValueInt>
{
    Q_OBJECT

public:
    explicit OrbelSpinBoxList(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    using OrbelDelegate::isEnabled;
    using OrbelDelegate::setEnabled;

Q_SIGNALS:
    void editingFinished(int);
    void returnPressed(int);
    void valueChanged(int, int);

public Q_SLOTS:
    void setDisplayAdditiveOffset(int value) { ChangeProperty(prop::DisplayAdditiveOffset, value); }
    void setMaximum(int value) { ChangeProperty(prop::Maximum, value); }
    void setMinimum(int value) { ChangeProperty(prop::Minimum, value); }
    /// Stores the text in `value`; a prefix can only come from the definition.
    void setPrefix(QString value);
    void setSingleStep(int value) { ChangeProperty(prop::SingleStep, value); }
    void setSpecialValueText(QString value) { ChangeProperty(prop::SpecialValueText, value); }
    void setSuffix(QString value) { ChangeProperty(prop::Suffix, value); }
    void setUnit(QString value) { ChangeProperty(prop::Unit, value); }
    void setValue(int value) { ChangeProperty(prop::Value, value); }
    void setWrapping(bool flag) { ChangeProperty(prop::Wrapping, flag); }
    /// Does nothing.
    void setFocus() override;

public:
    /// Always false.
    Q_INVOKABLE bool isEnabled(int index) const;
    /// Does nothing.
    Q_INVOKABLE void setEnabled(int index, bool flag);
    /// 0 for an index out of range.
    Q_INVOKABLE int itemValue(int index) const { return GetNumber(index); }
    /// Sets an item as if the operator had, with signal and modified mark. An index out of range is ignored.
    Q_INVOKABLE void setItemValue(int index, int value) { SetNumber(index, value); }

protected:
    void EmitNumber(int index, int number) override;
    QString ItemText(const ValueInt &node) const override;
};

} // namespace KV218
