#pragma once

#include "orbeldelegate.h"
#include "ownednode.h"
#include "propertynames.h"
#include "vclineedit.h"

#include <QPair>

namespace KV218
{

/// Start and stop of a frequency range, each with a node and a field of its own. Class name: `FrequencyRangeEdit`.
/// Value properties: `startFrequency` and `stopFrequency`, in Hz; each travels in a parameter element of its own, named
/// by `startFrequencyParameterXmlTag` and `stopFrequencyParameterXmlTag`. The bound that an operator moves past the
/// other one pushes it to a distance of 1 Hz. Without limits the range is 8 kHz to 26.5 GHz.
class ORBEL_EXPORT OrbelFrequencyRangeEdit : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelFrequencyRangeEdit(OrbelWidget *widget);

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    /// Reads the element only if it is one of the two; leaves any other one to the caller.
    void ReadXml(QXmlStreamReader &reader) override;
    ValueBase *GetVTValue() const override { return StartNode.get(); }
    void TakeNode() override;
    QVector<Face> GetFaces() const override;
    QString SpellEdit(int index, const QVariant &value) const override;
    bool EditsOf(const QVariant &value, QVariantList *edits, QString *error) const override;

    /// Start and stop in whole Hz, without fractions; both 0 before CreateValueTree() and once a node is withdrawn.
    QPair<qint64, qint64> getCurrentRange() const;

Q_SIGNALS:
    /// The operator finished an edit of one of the two fields.
    void editingFinished();
    /// The operator or a host changed the range; start and stop in Hz.
    void rangeChanged(qint64, qint64);
    /// Return was pressed in one of them.
    void returnPressed();
    /// For scripts; never emitted here, as the next one.
    void startFrequencyUnitChanged(QString);
    void stopFrequencyUnitChanged(QString);

public Q_SLOTS:
    /// These set the properties of their names; frequencies in Hz.
    void setStartFrequency(qint64 fValue) { ChangeProperty(prop::StartFrequency, fValue); }
    void setStopFrequency(qint64 fValue) { ChangeProperty(prop::StopFrequency, fValue); }
    void setStartFrequencyParameterXmlTag(QString sTag) { ChangeProperty(prop::StartFrequencyParameterXmlTag, sTag); }
    void setStopFrequencyParameterXmlTag(QString sTag) { ChangeProperty(prop::StopFrequencyParameterXmlTag, sTag); }
    void setStartFrequencyUnitScale(QString a_unitstring)
    {
        ChangeProperty(prop::StartFrequencyUnitScale, a_unitstring);
    }
    void setStartFrequencyUnitScale(quint64 a_value) { ChangeProperty(prop::StartFrequencyUnitScale, a_value); }
    void setStopFrequencyUnitScale(QString a_unitstring) { ChangeProperty(prop::StopFrequencyUnitScale, a_unitstring); }
    void setStopFrequencyUnitScale(quint64 a_value) { ChangeProperty(prop::StopFrequencyUnitScale, a_value); }
    void setMinimum(qint64 value) { ChangeProperty(prop::Minimum, value); }
    void setMaximum(qint64 value) { ChangeProperty(prop::Maximum, value); }
    void setUnitHidden(bool flag) { ChangeProperty(prop::UnitHidden, flag); }
    /// These three do nothing: there are no valid bands.
    void addValidBand(QString a_name, qint64 a_lowBound, qint64 a_highBound);
    void clearValidBands() { }
    void autosetUnitScale() { }
    /// Sets both bounds as they are, start first; in Hz.
    void setRange(qint64 a_startFrequency, qint64 a_stopFrequency);
    void setFocus() override;
    void forceFinishEditing() override;

protected:
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    QVector<ValueBase *> GetNodes() const override;
    QString SpellEditPart(int index) const override;
    bool IsNumber(const QString &name) const override;
    QVariant HeldNumber(const QString &name) const override;
    QVariant HostNumber(const QVariant &held) const override;

private Q_SLOTS:
    void SlotTextEdited(QString text = QString());
    void SlotReturnPressed();

private:
    void MakeNode(
        Orbel::OwnedNode<ValueDouble> &node, QLatin1String property, int index, double lowest, double highest);
    VCLineEdit *NewEdit(FloatGroupLayout *layout, const QString &suffix, ValueBase *node, const char *toolTip);
    void WriteNodes(const QString &name, const QVariant &value);
    void WriteLimits(void (ValueDouble::*set)(double, IObserver *), double ofStart, double ofStop);
    void Repair(bool startMoved);

    Orbel::OwnedNode<ValueDouble> StartNode{this};
    Orbel::OwnedNode<ValueDouble> StopNode{this};
    QPointer<VCLineEdit> StartEdit;
    QPointer<VCLineEdit> StopEdit;
};

} // namespace KV218
