#pragma once

#include "propertynames.h"
#include "spindelegate.h"

namespace KV218
{

/// A field for a whole number. Class name: `SpinBox`. Value property: `value`, an int in node units; `minimum`,
/// `maximum` and `singleStep` are display units (node units times `displayScalingFactor`) when the node is made, and
/// node units when they are set later. Parameter documents carry the value less `displayAdditiveOffset`.
class OrbelSpinBox : public SpinDelegate<ValueInt>
{
    Q_OBJECT

public:
    explicit OrbelSpinBox(OrbelWidget *widget);

    void CreateValueTree() override;
    void ReadXml(QXmlStreamReader &reader) override;
    void TakeNode() override;

Q_SIGNALS:
    void editingFinished();
    void returnPressed();
    void valueChanged(int);

public Q_SLOTS:
    void setDisplayAdditiveOffset(int value) { ChangeProperty(prop::DisplayAdditiveOffset, value); }
    void setMaximum(int value) { ChangeProperty(prop::Maximum, value); }
    void setMinimum(int value) { ChangeProperty(prop::Minimum, value); }
    void setPrefix(QString value) { ChangeProperty(prop::Prefix, value); }
    void setSingleStep(int value) { ChangeProperty(prop::SingleStep, value); }
    void setSpecialValueText(QString value) { ChangeProperty(prop::SpecialValueText, value); }
    void setSuffix(QString value) { ChangeProperty(prop::Suffix, value); }
    void setUnit(QString value) { ChangeProperty(prop::Unit, value); }
    void setValue(int value) { ChangeProperty(prop::Value, value); }
    void setWrapping(bool flag) { ChangeProperty(prop::Wrapping, flag); }
    void setFocus() override { FocusControl(); }
    void forceFinishEditing() override { FinishControl(); }

protected:
    QString ControlName() const override;
    void ShowBounds() override;
    QString DocumentText() const override;
    void EmitNumber(int number) override;
    bool WriteToNode(const QString &name, const QVariant &value) override;
    QVariant HeldNumber(const QString &name) const override;
    QVariant HostNumber(const QVariant &held) const override;
    double NodeNumber(double number) const override;
};

} // namespace KV218
