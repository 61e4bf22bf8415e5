#pragma once

#include "orbeldelegate.h"
#include "ownednode.h"
#include "propertynames.h"
#include "vcfrequency.h"
#include "vclineedit.h"

#include <QPushButton>

namespace KV218
{

/// One frequency in Hz. Class name: `FrequencyEdit`. Value property: `value`. The control is the full frequency control
/// with a lock button when `MainFreqEdit` says so or, where that is absent, when its parameter element is called
/// "Frequency"; otherwise a plain field. The lock button shows from the first change of `FrequencyLock` on; it does not
/// change by itself when it is clicked, but waits for the script to set that property.
class OrbelFrequencyEdit : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelFrequencyEdit(OrbelWidget *widget) : OrbelDelegate(widget) { }

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    ValueBase *GetVTValue() const override { return ValueNode.get(); }
    void TakeNode() override;
    QString SpellEdit(int index, const QVariant &value) const override;
    void FinishEditing() override;
    QVector<Face> GetFaces() const override;
    void EnableInput(bool enable, bool partial) override;

Q_SIGNALS:
    /// The operator clicked the lock button; `checked` is the state that is wanted. A handler that ends the form does
    /// so later: Qt's button goes on using itself.
    void si_lockButtonToggled(bool checked);
    void editingFinished();
    /// For scripts; never emitted here.
    void unitChanged(QString);
    void valueChanged(qint64);
    void returnPressed();

public Q_SLOTS:
    // Meant: from unitScale on these are stored and reach no control.
    void setValue(qint64 value) { ChangeProperty(prop::Value, value); }
    void setMinimum(qint64 value) { ChangeProperty(prop::Minimum, value); }
    void setMaximum(qint64 value) { ChangeProperty(prop::Maximum, value); }
    void setUnitScale(QString value) { ChangeProperty(prop::UnitScale, value); }
    void setUnitScale(quint64 value) { ChangeProperty(prop::UnitScale, value); }
    void setUnitHidden(bool flag) { ChangeProperty(prop::UnitHidden, flag); }
    void setUseHistory(bool flag) { ChangeProperty(prop::History, flag); }
    void setMaxHistoryLength(int value) { ChangeProperty(prop::MaxHistoryLength, value); }
    void setUseUniformHeights(bool flag) { ChangeProperty(prop::UniformHeights, flag); }
    void setDisplayOutOfRangeValues(bool flag) { ChangeProperty(prop::DisplayOutOfRangeValues, flag); }
    /// Does nothing.
    void autosetUnitScale() { }
    void setFocus() override;
    void forceFinishEditing() override;

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;
    void NodeChanged(Observable *subject, TChangeCode code) override;
    void NodesMoved() override;
    bool IsNumber(const QString &name) const override;
    QVariant HeldNumber(const QString &name) const override;
    QVariant HostNumber(const QVariant &held) const override;

private Q_SLOTS:
    void SlotTextEdited(QString text);
    void SlotReturnPressed();
    void SlotLockButtonChecked(bool checked);

private:
    bool IsMainForm() const;
    void CreateMainForm(FloatGroupLayout *layout);
    void CreatePlainForm(FloatGroupLayout *layout);
    void CreateLockButton();
    QString BandwidthPath() const;
    void ShowLock(bool locked);
    void ShowLockToolTip(bool locked);
    void ShowLockWithRow();
    void KeepLockOpenToAnswers();
    void FreeInput(const QString &name, const QVariant &value);
    void WritePropertyToNode(const QString &name, const QVariant &value);
    qint64 HeldHertz() const;

    Orbel::OwnedNode<ValueDouble> ValueNode{this};
    QPointer<VCFrequency> FrequencyControl;
    QPointer<VCLineEdit> LineEdit;
    QPointer<QPushButton> LockButton;
    bool LockVisible = false;
    bool LockUpdating = false;
};

} // namespace KV218
