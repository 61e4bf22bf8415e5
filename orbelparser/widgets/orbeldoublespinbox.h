#pragma once

#include "floatspindelegate.h"
#include "propertynames.h"

namespace KV218
{

/// A field for a number with decimal places. Class names: `DoubleSpinBox` and, for the same control, `BaudRateSpinBox`.
/// Value property: `value`, a double in node units; `minimum`, `maximum` and `singleStep` are display units (node units
/// times `displayScalingFactor`). Parameter documents carry the value with `decimals` places.
class OrbelDoubleSpinBox : public FloatSpinDelegate
{
    Q_OBJECT

public:
    explicit OrbelDoubleSpinBox(OrbelWidget *widget);

    void ReadXml(QXmlStreamReader &reader) override;

Q_SIGNALS:
    void editingFinished();
    void returnPressed();
    void valueChanged(double);

public Q_SLOTS:
    void setDecimals(int value) { ChangeProperty(prop::Decimals, value); }
    void setDisplayScalingFactor(double value) { ChangeProperty(prop::DisplayScalingFactor, value); }
    void setMaximum(double value) { ChangeProperty(prop::Maximum, value); }
    void setMinimum(double value) { ChangeProperty(prop::Minimum, value); }
    void setPrefix(QString value) { ChangeProperty(prop::Prefix, value); }
    void setSingleStep(double value) { ChangeProperty(prop::SingleStep, value); }
    void setSpecialValueText(QString value) { ChangeProperty(prop::SpecialValueText, value); }
    void setSuffix(QString value) { ChangeProperty(prop::Suffix, value); }
    void setUnit(QString value) { ChangeProperty(prop::Unit, value); }
    void setValue(double value) { ChangeProperty(prop::Value, value); }
    void setWrapping(bool flag) { ChangeProperty(prop::Wrapping, flag); }
    void setFocus() override { FocusControl(); }
    void forceFinishEditing() override { FinishControl(); }

protected:
    void ShowBounds() override;
    QString DocumentText() const override;
    void EmitNumber(double number) override;
    void PropertyChanged(const QString &name, const QVariant &value) override;

private:
    // What a parameter document asks for at each writing.
    double Number = 0;
    int Decimals = 0;
};

} // namespace KV218
