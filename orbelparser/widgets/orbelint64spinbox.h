#pragma once

#include "floatspindelegate.h"
#include "propertynames.h"

namespace KV218
{

/// A field for a large whole number, such as a bandwidth in Hz, with a scale of units. Class names: `BandwidthEdit`
/// and, for the same control, `FrequencyOffsetEdit`. Value property: `value`, a text, qint64 or double as it was last
/// set, in node units. The node is a double: numbers beyond 2 to the power of 53 lose their low digits there.
/// `minimum`, `maximum` and `singleStep` are display units (node units times `displayScalingFactor`).
class OrbelInt64SpinBox : public FloatSpinDelegate
{
    Q_OBJECT

public:
    explicit OrbelInt64SpinBox(OrbelWidget *widget);

    void CreateValueTree() override;
    void ReadXml(QXmlStreamReader &reader) override;

Q_SIGNALS:
    void editingFinished();
    void unitChanged(QString);
    void valueChanged(qint64);

public Q_SLOTS:
    void setMaxHistoryLength(int value) { ChangeProperty(prop::MaxHistoryLength, value); }
    void setMaximum(qint64 value) { ChangeProperty(prop::Maximum, value); }
    void setMinimum(qint64 value) { ChangeProperty(prop::Minimum, value); }
    void setUnitHidden(bool flag) { ChangeProperty(prop::UnitHidden, flag); }
    /// Selects Hz, whatever the text.
    void setUnitScale(QString value);
    /// Hz in one display unit: 1000, 1000000 or 1000000000; any other number selects Hz.
    void setUnitScale(quint64 value) { ChangeProperty(prop::UnitScale, value); }
    void setUseHistory(bool flag) { ChangeProperty(prop::UseHistory, flag); }
    void setValue(qint64 value) { ChangeProperty(prop::Value, value); }
    void setSingleStep(qint64 value) { ChangeProperty(prop::SingleStep, value); }
    void setSuffix(QString value) { ChangeProperty(prop::Suffix, value); }
    void setWrapping(bool flag) { ChangeProperty(prop::Wrapping, flag); }
    void setFocus() override { FocusControl(); }
    void forceFinishEditing() override { FinishControl(); }

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void ShowBounds() override;
    void ShowFirstBounds() override;
    QString DocumentText() const override;
    void EmitNumber(double number) override;
    QVariant HostNumber(const QVariant &held) const override;

private:
    void ApplyUnitScale();
};

} // namespace KV218
