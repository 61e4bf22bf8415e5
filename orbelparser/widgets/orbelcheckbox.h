#pragma once

#include "bounddelegate.h"
#include "propertynames.h"
#include "vccheckbox.h"

namespace KV218
{

/// A box that the operator ticks. Class name: `CheckBox`. Value property: `checked`, a bool; parameter documents carry
/// the texts `checkedValue` ("true") and `uncheckedValue` ("false").
class OrbelCheckBox : public BoundDelegate<ValueBoolean, VCCheckBox>
{
    Q_OBJECT

public:
    explicit OrbelCheckBox(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    QString SpellEdit(int index, const QVariant &value) const override;

Q_SIGNALS:
    void toggled(bool);

public Q_SLOTS:
    void setChecked(bool checked) { ChangeProperty(prop::Checked, checked); }
    void setCheckedValue(QString checkedValue) { ChangeProperty(prop::CheckedValue, checkedValue); }
    void setUncheckedValue(QString uncheckedValue) { ChangeProperty(prop::UncheckedValue, uncheckedValue); }
    void setFocus() override { FocusControl(); }

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;

private:
    // What a parameter document asks for at each writing, and the texts that stand for both states there.
    bool IsChecked = false;
    QString CheckedText = QStringLiteral("true");
    QString UncheckedText = QStringLiteral("false");
};

} // namespace KV218
