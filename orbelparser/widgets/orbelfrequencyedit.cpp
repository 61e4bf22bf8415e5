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
    ValueNode.Adopt(CreateValueNumericFloat(prop::Value, -1));
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
    FrequencyControl
        = new VCFrequency(layout->parentWidget(), "FrequencyControl", false, Form().GetSheetWidget(), true);
    FrequencyControl->SetWholeHertz(true);
    FrequencyControl->SetFrequency_ValuePath(ValueNode ? ValueNode->GetPathName() : QString());
    FrequencyControl->SetBandwidth_ValuePath(BandwidthPath());
    FrequencyControl->GetTuneButton()->hide();
    FrequencyControl->TuneByHovering(Form().IsHoverTuning());
    PropagateProperties(FrequencyControl);
    // Meant: an absent `enabled` locks the main form, as nowhere else.
    const bool enabled = property(prop::Enabled.data()).toBool() && !property(prop::ReadOnly.data()).toBool();
    FrequencyControl->EnableInput(enabled);
    if (!enabled) {
        FrequencyControl->DisableButtons();
        FrequencyControl->GetFrequencyButtonCtrl()->enable(false);
        FrequencyControl->GetHistoryButtonCtrl()->enable(false);
    }
    CreateLockButton();

    auto *container = new QWidget;
    container->setObjectName(QStringLiteral("FrequencyWidget"));
    auto *grid = new QGridLayout(container);
    grid->setObjectName(QStringLiteral("FrequencyGrid"));
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(FrequencyControl, 0, 0, 2, 2);
    grid->addWidget(LockButton, 1, 2, Qt::AlignVCenter);
    layout->addSpecial();
    layout->addWidget(container);
    layout->addGroup();
}

void OrbelFrequencyEdit::CreateLockButton()
{
    LockVisible = false;
    LockButton = new QPushButton;
    LockButton->setIcon(LockIcon(false));
    LockButton->setObjectName(QStringLiteral("LockFrequency"));
    LockButton->setCheckable(true);
    LockButton->setFlat(true);
    LockButton->setFixedSize(20, 18);
    LockButton->setVisible(LockVisible);
    KeepLockOpenToAnswers();
    connect(LockButton, &QPushButton::toggled, this, &OrbelFrequencyEdit::SlotLockButtonChecked);
}

void OrbelFrequencyEdit::CreatePlainForm(FloatGroupLayout *layout)
{
    LineEdit = new VCLineEdit(layout->parentWidget(), WidgetName().toUtf8().constData(), VCLineEdit::ekFrequency);
    LineEdit->SetWholeHertz(true);
    LineEdit->SetValueBase(ValueNode.get());
    SetOwnToolTip(LineEdit, {GetString(prop::LabelText, QString())});
    LineEdit->SetStepGrid(LimitsForNode().Step);
    PropagateProperties(LineEdit);
    layout->addWidget(LineEdit);
    layout->addGroup();
    connect(LineEdit, &VCLineEdit::signalTextEdited, this, &OrbelFrequencyEdit::SlotTextEdited);
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
    // The node does not notify this object, so that nobody else would emit the signal.
    Q_EMIT valueChanged(HertzOf(text));
}

QVector<Face> OrbelFrequencyEdit::GetFaces() const
{
    const auto bounds
        = [this] { return ValueNode ? FrequencyBounds(ValueNode->GetMin(), ValueNode->GetMax()) : QString(); };
    if (!FrequencyControl)
        return {{LineEdit.data(), {}, bounds}};
    return {{FrequencyControl.data()}, {FrequencyControl->focusProxy(), {}, bounds},
        {LockButton.data(), [] { return tr("lock"); }}};
}

void OrbelFrequencyEdit::EnableInput(bool enable, bool partial)
{
    const Call call(this);
    OrbelDelegate::EnableInput(enable, partial);
    if (!partial && LockButton)
        LockButton->setEnabled(enable);
}

void OrbelFrequencyEdit::setFocus()
{
    const Call call(this);
    if (FrequencyControl)
        FrequencyControl->setFocus();
    if (LineEdit)
        LineEdit->setFocus();
}

void OrbelFrequencyEdit::forceFinishEditing()
{
    // Meant: an edit in progress in the main form is not committed, so its text is not applied with the others.
    if (LineEdit)
        LineEdit->endEdit();
}

void OrbelFrequencyEdit::FinishEditing()
{
    const Call call(this);
    forceFinishEditing();
    if (FrequencyControl)
        FrequencyControl->endEdit();
}

void OrbelFrequencyEdit::NodesMoved()
{
    if (FrequencyControl)
        FrequencyControl->SetBandwidth_ValuePath(BandwidthPath());
}

QString OrbelFrequencyEdit::BandwidthPath() const
{
    return GetVTNodePath() + QLatin1String("/Bandwidth");
}

void OrbelFrequencyEdit::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (LockButton && LockVisible)
        ShowLockToolTip(property(prop::FrequencyLock.data()).toBool());
}

void OrbelFrequencyEdit::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (ValueNode)
        WritePropertyToNode(name, value);
    if (name == prop::FrequencyLock && LockButton)
        ShowLock(value.toBool());
    PropagateProperty(name, FrequencyControl);
    FreeInput(name, value);
    if (LineEdit && name == prop::SingleStep)
        LineEdit->SetStepGrid(LimitsForNode().Step);
    PropagateProperty(name, LineEdit);
    if (LockVisible && name == prop::Visible)
        PropagateProperty(name, LockButton);
}

/// To the control itself nothing changes when a lock ends that only the absence of `enabled` made.
void OrbelFrequencyEdit::FreeInput(const QString &name, const QVariant &value)
{
    if (!FrequencyControl || !IsDefined(name) || value.isNull())
        return;
    if (name == prop::Enabled && value.toBool())
        FrequencyControl->setEnabled(true);
    else if (name == prop::ReadOnly && !value.toBool())
        FrequencyControl->setReadOnly(false);
}

void OrbelFrequencyEdit::WritePropertyToNode(const QString &name, const QVariant &value)
{
    // Meant: limits reach the node as they are, though they are scaled when it is made.
    if (name == prop::Value)
        ValueNode->SetStringValue(value.toString(), this);
    else if (name == prop::Minimum)
        ValueNode->SetMin(value.toDouble(), this);
    else if (name == prop::Maximum)
        ValueNode->SetMax(value.toDouble(), this);
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
    if (!ValueNode)
        return QVariant();
    if (name == prop::Minimum && ValueNode->GetMin() > -none)
        return ValueNode->GetMin();
    if (name == prop::Maximum && ValueNode->GetMax() < none)
        return ValueNode->GetMax();
    return name == prop::Value ? QVariant(HeldHertz()) : QVariant();
}

QVariant OrbelFrequencyEdit::HostNumber(const QVariant &held) const
{
    return Orbel::Saturated<qint64>(std::trunc(held.toDouble()));
}

qint64 OrbelFrequencyEdit::HeldHertz() const
{
    return Orbel::Saturated<qint64>(std::trunc(ValueNode->GetValue()));
}

void OrbelFrequencyEdit::TakeNode()
{
    // A fraction that the definition states stays.
    if (ValueNode && GetStatedNumber(prop::Value) != ValueNode->GetValue())
        TakeNumber(prop::Value, HeldHertz());
}

void OrbelFrequencyEdit::ShowLockWithRow()
{
    LockButton->setVisible(FrequencyControl && !FrequencyControl->isHidden());
    HideIfCollapsed(LockButton);
}

/// Qt notifies nobody of a bool that is set to what it is: a script's answer would be lost. A number counts as another
/// value.
void OrbelFrequencyEdit::KeepLockOpenToAnswers()
{
    const QVariant locked = property(prop::FrequencyLock.data());
    if (locked.isValid())
        SetPropertyQuietly(prop::FrequencyLock, int(locked.toBool()));
}

void OrbelFrequencyEdit::ShowLock(bool locked)
{
    const QScopedValueRollback<bool> updating(LockUpdating, true);
    // Meant: once shown, the button goes with its row only.
    if (!std::exchange(LockVisible, true))
        ShowLockWithRow();
    LockButton->setChecked(locked);
    ShowLockToolTip(locked);
    LockButton->setIcon(LockIcon(locked));
}

void OrbelFrequencyEdit::ShowLockToolTip(bool locked)
{
    // Meant: the operator reads "range" here, though this is one frequency.
    LockButton->setToolTip(locked ? tr("Unlock frequency range") : tr("Lock frequency range"));
}

QString OrbelFrequencyEdit::SpellEdit(int, const QVariant &value) const
{
    return Orbel::FrequencyText::Write(value.toDouble(), 0, QLocale().decimalPoint());
}

void OrbelFrequencyEdit::NodeChanged(Observable *source, TChangeCode code)
{
    if (!ValueNode.TakeNotification(source, code))
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
    if (!LockButton || LockUpdating)
        return;
    const Call call(this);
    KeepLockOpenToAnswers();
    Q_EMIT si_lockButtonToggled(checked);
}

} // namespace KV218
