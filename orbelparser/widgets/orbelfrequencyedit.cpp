#include "orbelfrequencyedit.h"

#include "floatgrouplayout.h"
#include "formdoor.h"
#include "frequencytext.h"
#include "newcontrol.h"
#include "saturate.h"
#include "sharedicon.h"
#include "vcbutton.h"
#include "vcminifrequency.h"
#include "wholehertz.h"

#include <QGridLayout>
#include <QLocale>
#include <QScopedValueRollback>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>
#include <utility>

namespace KV218
{

static QIcon LockIcon(bool locked)
{
    return SharedIcon(locked ? QStringLiteral("Locked") : QStringLiteral("Unlocked"));
}

OrbelDelegate *NewFrequencyEdit(OrbelWidget *widget)
{
    return NewControl<OrbelFrequencyEdit>(widget);
}

void OrbelFrequencyEdit::CreateValueTree()
{
    valueNode.Adopt(CreateValueNumericFloat(prop::Value, -1));
}

void OrbelFrequencyEdit::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    if (IsMainForm())
        CreateMainForm(layout);
    else
        CreatePlainForm(layout);
}

bool OrbelFrequencyEdit::IsMainForm() const
{
    const QVariant stated = property(prop::MainFreqEdit.data());
    if (stated.isValid() && stated.canConvert<bool>())
        return stated.toBool();
    // Meant: only this spelling of the element name makes a receiver's main frequency.
    return GetXmlTagName() == QLatin1String("Frequency");
}

void OrbelFrequencyEdit::CreateMainForm(FloatGroupLayout *layout)
{
    frequencyControl
        = new VCFrequency(layout->parentWidget(), "FrequencyControl", false, Form().GetSheetWidget(), true);
    frequencyControl->SetWholeHertz(true);
    frequencyControl->SetFrequency_ValuePath(valueNode ? valueNode->GetPathName() : QString());
    frequencyControl->SetBandwidth_ValuePath(BandwidthPath());
    frequencyControl->GetTuneButton()->hide();
    frequencyControl->TuneByHovering(Form().IsHoverTuning());
    PropagateProperties(frequencyControl);
    // Meant: an absent `enabled` locks the main form, as nowhere else.
    const bool enabled = property(prop::Enabled.data()).toBool() && !property(prop::ReadOnly.data()).toBool();
    frequencyControl->EnableInput(enabled);
    if (!enabled) {
        frequencyControl->DisableButtons();
        frequencyControl->GetFrequencyButtonCtrl()->enable(false);
        frequencyControl->GetHistoryButtonCtrl()->enable(false);
    }
    CreateLockButton();

    auto *container = new QWidget;
    container->setObjectName(QStringLiteral("FrequencyWidget"));
    auto *grid = new QGridLayout(container);
    grid->setObjectName(QStringLiteral("FrequencyGrid"));
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(frequencyControl, 0, 0, 2, 2);
    grid->addWidget(lockButton, 1, 2, Qt::AlignVCenter);
    layout->addSpecial();
    layout->addWidget(container);
    layout->addGroup();
}

void OrbelFrequencyEdit::CreateLockButton()
{
    lockVisible = false;
    lockButton = new QPushButton;
    lockButton->setIcon(LockIcon(false));
    lockButton->setObjectName(QStringLiteral("LockFrequency"));
    lockButton->setCheckable(true);
    lockButton->setFlat(true);
    lockButton->setFixedSize(20, 18);
    lockButton->setVisible(lockVisible);
    KeepLockOpenToAnswers();
    connect(lockButton, &QPushButton::toggled, this, &OrbelFrequencyEdit::SlotLockButtonChecked);
}

void OrbelFrequencyEdit::CreatePlainForm(FloatGroupLayout *layout)
{
    lineEdit = new VCLineEdit(layout->parentWidget(), WidgetName().toUtf8().constData(), VCLineEdit::ekFrequency);
    lineEdit->SetWholeHertz(true);
    lineEdit->SetValueBase(valueNode.get());
    SetOwnToolTip(lineEdit, {GetString(prop::LabelText, QString())});
    lineEdit->SetStepGrid(LimitsForNode().Step);
    PropagateProperties(lineEdit);
    layout->addWidget(lineEdit);
    layout->addGroup();
    connect(lineEdit, &VCLineEdit::signalTextEdited, this, &OrbelFrequencyEdit::SlotTextEdited);
}

void OrbelFrequencyEdit::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    writer.writeStartElement(GetXmlTagName());
    WriteUnitAttribute(writer);
    writer.writeCharacters(WholeHertz(property(prop::Value.data())));
    writer.writeEndElement();
}

void OrbelFrequencyEdit::ReadXml(QXmlStreamReader &reader)
{
    const QString text = FiniteText(reader.readElementText());
    SetPropertyAlways(prop::Value, text);
    // The node's news leave out this object, so that nobody else would tell.
    Q_EMIT valueChanged(HertzOf(text));
}

QVector<Face> OrbelFrequencyEdit::GetFaces() const
{
    const auto bounds
        = [this] { return valueNode ? FrequencyBounds(valueNode->GetMin(), valueNode->GetMax()) : QString(); };
    if (!frequencyControl)
        return {{lineEdit.data(), {}, bounds}};
    return {{frequencyControl.data()}, {frequencyControl->focusProxy(), {}, bounds},
        {lockButton.data(), [] { return tr("lock"); }}};
}

void OrbelFrequencyEdit::EnableInput(bool enable, bool partial)
{
    const Call call(this);
    OrbelDelegate::EnableInput(enable, partial);
    if (!partial && lockButton)
        lockButton->setEnabled(enable);
}

void OrbelFrequencyEdit::setFocus()
{
    const Call call(this);
    if (frequencyControl)
        frequencyControl->setFocus();
    if (lineEdit)
        lineEdit->setFocus();
}

void OrbelFrequencyEdit::forceFinishEditing()
{
    // Meant: an edit in progress in the main form is not committed, so its text is not applied with the others.
    if (lineEdit)
        lineEdit->endEdit();
}

void OrbelFrequencyEdit::FinishEditing()
{
    const Call call(this);
    forceFinishEditing();
    if (frequencyControl)
        frequencyControl->endEdit();
}

void OrbelFrequencyEdit::NodesMoved()
{
    if (frequencyControl)
        frequencyControl->SetBandwidth_ValuePath(BandwidthPath());
}

QString OrbelFrequencyEdit::BandwidthPath() const
{
    return GetVTNodePath() + QLatin1String("/Bandwidth");
}

void OrbelFrequencyEdit::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (lockButton && lockVisible)
        ShowLockToolTip(property(prop::FrequencyLock.data()).toBool());
}

void OrbelFrequencyEdit::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (valueNode)
        WritePropertyToNode(name, value);
    if (name == prop::FrequencyLock && lockButton)
        ShowLock(value.toBool());
    PropagateProperty(name, frequencyControl);
    FreeInput(name, value);
    if (lineEdit && name == prop::SingleStep)
        lineEdit->SetStepGrid(LimitsForNode().Step);
    PropagateProperty(name, lineEdit);
    if (lockVisible && name == prop::Visible)
        PropagateProperty(name, lockButton);
}

/// To the control itself nothing changes when a lock ends that only the absence of `enabled` made.
void OrbelFrequencyEdit::FreeInput(const QString &name, const QVariant &value)
{
    if (!frequencyControl || !IsDefined(name) || value.isNull())
        return;
    if (name == prop::Enabled && value.toBool())
        frequencyControl->setEnabled(true);
    else if (name == prop::ReadOnly && !value.toBool())
        frequencyControl->setReadOnly(false);
}

void OrbelFrequencyEdit::WritePropertyToNode(const QString &name, const QVariant &value)
{
    // Meant: limits reach the node as they are, though they are scaled when it is made.
    if (name == prop::Value)
        valueNode->SetStringValue(value.toString(), this);
    else if (name == prop::Minimum)
        valueNode->SetMin(value.toDouble(), this);
    else if (name == prop::Maximum)
        valueNode->SetMax(value.toDouble(), this);
    else
        return;
    TakeNode();
}

bool OrbelFrequencyEdit::IsNumber(const QString &name) const
{
    return name == prop::Value || OrbelDelegate::IsNumber(name);
}

QVariant OrbelFrequencyEdit::HeldNumber(const QString &name) const
{
    constexpr double none = 1e308;
    if (!valueNode)
        return QVariant();
    if (name == prop::Minimum && valueNode->GetMin() > -none)
        return valueNode->GetMin();
    if (name == prop::Maximum && valueNode->GetMax() < none)
        return valueNode->GetMax();
    return name == prop::Value ? QVariant(HeldHertz()) : QVariant();
}

QVariant OrbelFrequencyEdit::HostNumber(const QVariant &held) const
{
    return Orbel::Saturated<qint64>(std::trunc(held.toDouble()));
}

qint64 OrbelFrequencyEdit::HeldHertz() const
{
    return Orbel::Saturated<qint64>(std::trunc(valueNode->GetValue()));
}

void OrbelFrequencyEdit::TakeNode()
{
    // A fraction that the definition states stays.
    if (valueNode && GetStatedNumber(prop::Value) != valueNode->GetValue())
        TakeNumber(prop::Value, HeldHertz());
}

void OrbelFrequencyEdit::ShowLockWithRow()
{
    lockButton->setVisible(frequencyControl && !frequencyControl->isHidden());
    HideIfCollapsed(lockButton);
}

/// Qt tells nobody of a bool that is set to what it is: a script's answer would be lost. A number counts as another
/// value.
void OrbelFrequencyEdit::KeepLockOpenToAnswers()
{
    const QVariant locked = property(prop::FrequencyLock.data());
    if (locked.isValid())
        SetPropertyQuietly(prop::FrequencyLock, int(locked.toBool()));
}

void OrbelFrequencyEdit::ShowLock(bool locked)
{
    const QScopedValueRollback<bool> updating(lockUpdating, true);
    // Meant: once shown, the button goes with its row only.
    if (!std::exchange(lockVisible, true))
        ShowLockWithRow();
    lockButton->setChecked(locked);
    ShowLockToolTip(locked);
    lockButton->setIcon(LockIcon(locked));
}

void OrbelFrequencyEdit::ShowLockToolTip(bool locked)
{
    // Meant: the operator reads "range" here, though this is one frequency.
    lockButton->setToolTip(locked ? tr("Unlock frequency range") : tr("Lock frequency range"));
}

QString OrbelFrequencyEdit::SpellEdit(int, const QVariant &value) const
{
    return Orbel::FrequencyText::Write(value.toDouble(), 0, QLocale().decimalPoint());
}

void OrbelFrequencyEdit::NodeChanged(Observable *source, TChangeCode code)
{
    if (!valueNode.TakeNotification(source, code))
        return;
    const qint64 hertz = HeldHertz();
    if (!ChangeProperty(prop::Value, hertz))
        return;
    Q_EMIT valueChanged(hertz);
    Q_EMIT editingFinished();
    setModified(true);
}

void OrbelFrequencyEdit::SlotTextEdited(QString)
{
    MarkTyping();
}

void OrbelFrequencyEdit::SlotReturnPressed()
{
    const Call call(this);
    Q_EMIT returnPressed();
    Form().applyNow();
}

void OrbelFrequencyEdit::SlotLockButtonChecked(bool checked)
{
    // Meant: until somebody sets the property, the button shows neither the new icon nor the new tooltip.
    if (!lockButton || lockUpdating)
        return;
    const Call call(this);
    KeepLockOpenToAnswers();
    Q_EMIT si_lockButtonToggled(checked);
}

} // namespace KV218
