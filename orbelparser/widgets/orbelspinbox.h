#pragma once

#include "bounddelegate.h"
#include "propertynames.h"
#include "vcnumericfloatspin.h"

namespace KV218
{

/// A field for a whole number. Class name: `SpinBox`. Value property: `value`, an int in node units; `minimum`,
/// `maximum` and `singleStep` are display units (node units times `displayScalingFactor`) when the node is made, and
/// node units when they are set later. Parameter documents carry the value less `displayAdditiveOffset`.
class OrbelSpinBox : public BoundDelegate<ValueInt, VCNumericFloatSpin>
{
    Q_OBJECT

public:
    explicit OrbelSpinBox(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    void TakeNode() override;
    QVector<Face> GetFaces() const override;

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
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    bool IsNumber(const QString &name) const override;
    QVariant HeldNumber(const QString &name) const override;

private:
    void WritePropertyToNode(const QString &name);
};

} // namespace KV218
