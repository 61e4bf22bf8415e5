#include "orbeldelegate.h"

#include "assistive.h"
#include "devicenote.h"
#include "exceptionstop.h"
#include "floatgrouplayout.h"
#include "formdoor.h"
#include "formlimits.h"
#include "itreeitem.h"
#include "orbelwidget.h"
#include "propertynames.h"
#include "saturate.h"
#include "valueptr.h"
#include "xmlwalk.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QScopedValueRollback>
#include <QSet>
#include <QWidget>
#include <utility>

namespace KV218
{

namespace
{

/// What a control was told itself, where its Qt property tells the sum over its parents: a control in a window that is
/// not shown yet is not visible, and still not hidden.
QVariant OwnValue(const QObject *target, const char *name)
{
    const auto *widget = qobject_cast<const QWidget *>(target);
    if (widget && qstrcmp(name, prop::Visible.data()) == 0)
        return widget->testAttribute(Qt::WA_WState_ExplicitShowHide) ? QVariant(!widget->isHidden()) : QVariant();
    if (widget && qstrcmp(name, prop::Enabled.data()) == 0)
        return !widget->testAttribute(Qt::WA_ForceDisabled);
    return target->property(name);
}

/// Whether a variant is a number or a text of one that fits the type; QVariant itself cuts off what does not fit.
template <class Integer, class Wide> bool Fits(const QVariant &value, Wide wide)
{
    if (value.userType() == QMetaType::Double || value.userType() == QMetaType::Float) {
        const double number = value.toDouble();
        return number >= double(std::numeric_limits<Integer>::min())
            && number < double(std::numeric_limits<Integer>::max()) + 1;
    }
    return wide >= std::numeric_limits<Integer>::min() && wide <= std::numeric_limits<Integer>::max();
}

} // namespace

OrbelDelegate::OrbelDelegate(OrbelWidget *widget) : OwnerWidget(widget)
{
    static const QStringList common{prop::Enabled, prop::ReadOnly, prop::Visible, prop::ToolTip};
    DefineProperties(common);
}

OrbelDelegate::~OrbelDelegate() = default;

/// Whether a property that holds `before` may keep it for `value`. QVariant takes two doubles for one to 12 digits.
bool OrbelDelegate::IsSame(const QVariant &value, const QVariant &before)
{
    const auto isReal = [](const QVariant &variant) { return variant.userType() == QMetaType::Double; };
    if (!isReal(value) && !(isReal(before) && value.userType() != QMetaType::QString))
        return value == before;
    return value == before && value.toDouble() == before.toDouble();
}

void OrbelDelegate::Close()
{
    const Call call(this);
    Closed = true;
    blockSignals(true);
    if (ITreeItem *place = Entering && *Entering ? (*Entering)->GetDeleteObserver() : nullptr)
        place->SubjectDeleted();
    while (ValueBase *node = LastLiveNode())
        delete node;
    LeaveWindow();
}

/// A node that is destroyed notifies this, which drops it. One that is being destroyed already is deleted by whoever
/// began.
ValueBase *OrbelDelegate::LastLiveNode() const
{
    const auto nodes = GetNodes();
    const auto last = std::find_if(
        nodes.rbegin(), nodes.rend(), [](const ValueBase *node) { return node->GetState() != ekStateDeleted; });
    return last == nodes.rend() ? nullptr : *last;
}

void OrbelDelegate::End(OrbelDelegate *delegate)
{
    if (!delegate)
        return;
    const std::shared_ptr<FormLife> life = delegate->Life;
    delegate->Close();
    if (life)
        life->End(delegate);
    else
        delete delegate;
}

void OrbelDelegate::EndControl(QWidget *control)
{
    if (Life)
        Life->EndControl(control);
    else
        control->deleteLater();
}

void OrbelDelegate::CreateGUI(FloatGroupLayout *layout)
{
    const QString text = property(prop::LabelText.data()).toString();
    if (text.isEmpty())
        return;
    Label = layout->addLabel(Translate(text), QStringLiteral("label%1").arg(WidgetName()).toUtf8().constData());
    // Meant: an absent `visible` hides the label, though it leaves the control as it is.
    if (!property(prop::Visible.data()).toBool() || !IsDefined(prop::Visible))
        Label->setVisible(false);
}

void OrbelDelegate::LanguageChanged()
{
    const Call call(this);
    if (Closed)
        return;
    Retranslate();
    Assistive::PropertyChanged(this, prop::LabelText);
}

void OrbelDelegate::Retranslate()
{
    if (Label)
        Label->setText(GetTranslated(prop::LabelText));
    if (ToolTips)
        ToolTips->Retranslate(objectName());
}

void OrbelDelegate::RenewToolTips(const QString &former)
{
    const Call call(this);
    if (ToolTips)
        ToolTips->Replace(former, property(prop::LabelText.data()).toString(), objectName());
}

void OrbelDelegate::SetOwnToolTip(QWidget *control, const ToolTipText &text)
{
    if (!control)
        return;
    if (!ToolTips)
        ToolTips = std::make_unique<OwnToolTips>();
    ToolTips->Set(control, text, objectName());
}

OrbelDelegate::ToolTipText OrbelDelegate::LabelOrTag() const
{
    if (Label)
        return {property(prop::LabelText.data()).toString()};
    return {QString(), GetXmlTagName()};
}

void OrbelDelegate::ParseProperties(QXmlStreamReader &reader, bool custom)
{
    if (ListDepth >= limit::PropertyListDepth) {
        reader.raiseError(QStringLiteral("Property lists are nested too deeply"));
        return;
    }
    const QScopedValueRollback<int> deeper(ListDepth, ListDepth + 1);
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name == element::CustomProperties)
            ParseProperties(reader, true);
        else if (name == element::Property)
            return ParseProperty(reader, custom);
        // Meant: an unknown element is entered, so its end tag ends this list.
        return true;
    });
    if (!custom)
        ReadBackProperties();
}

/// Reads one `Property`; false when it holds no value element, which ends the list at its end tag.
bool OrbelDelegate::ParseProperty(QXmlStreamReader &reader, bool custom)
{
    const QString name = reader.attributes().value(attribute::Name).toString();
    if (!reader.readNextStartElement())
        return false;
    // Meant: numbers stay texts until a getter converts them; comparisons work on the text form.
    const bool isBool = reader.name() == element::Bool;
    const QString text = reader.readElementText();
    const QVariant value = isBool ? QVariant(text == QLatin1String("true")) : QVariant(text);
    if (custom)
        CustomProperties.insert(name, value);
    if (!custom || name == prop::ToolTip)
        SetPropertyAlways(name, value);
    reader.skipCurrentElement();
    return true;
}

void OrbelDelegate::ReadBackProperties()
{
    // Most controls lack most of them, and Qt searches longest for what is not there.
    const auto names = dynamicPropertyNames();
    const auto read = [&](QLatin1String name) {
        const auto isIt = [name](const QByteArray &known) { return HasLetters(known, name); };
        return std::any_of(names.begin(), names.end(), isIt) ? property(name.data()) : QVariant();
    };
    GenerateXml = read(prop::GenerateParameterXml).toBool();
    SetXmlPath(read(prop::ParameterXmlTag).toString());
    const QString mode = read(prop::ApplyMode).toString();
    if (mode == QLatin1String("ekInstantApplyMode"))
        ApplyMode = ekInstantApplyMode;
    else if (mode == QLatin1String("ekNormalApplyMode"))
        ApplyMode = ekNormalApplyMode;
    else
        ApplyMode = eApplyMode(0);
}

bool OrbelDelegate::ChangeProperty(const PropertyKey &name, const QVariant &value)
{
    // The new value stands on the left: a comparison of variants converts the right side to the left side's type.
    const QVariant before = property(name.data());
    if (IsSame(value, before))
        return false;
    const Call call(this);
    Store(name, value, before);
    return true;
}

void OrbelDelegate::SetPropertyAlways(const PropertyKey &name, const QVariant &value)
{
    // The change of a declared property comes with no event.
    const bool declared = metaObject()->indexOfProperty(name.data()) >= 0;
    const bool isReal = value.userType() == QMetaType::Double;
    const QVariant before = declared || isReal ? property(name.data()) : QVariant();
    const Call call(this);
    if (Store(name, value, before))
        return;
    // One that is not declared was equal, or Qt would have notified of it.
    const bool equal = !declared || (before.userType() == value.userType() && before == value);
    if (value.isValid() && equal) {
        QDynamicPropertyChangeEvent change(name.data());
        const QScopedValueRollback<bool> ownSet(OwnSet, true);
        QCoreApplication::sendEvent(this, &change);
    }
}

/// Sets the property; whether its event has come. `before`, which it held, counts for numbers alone.
bool OrbelDelegate::Store(const PropertyKey &name, const QVariant &value, const QVariant &before)
{
    // A host's event filter may set a property before this object sees the event of a set.
    SetInProgress *const outer = InProgress;
    SetInProgress set{&name, &value, false};
    {
        const QScopedValueRollback<SetInProgress *> inProgress(InProgress, &set);
        // Qt keeps the number that it has when the new one is nearly the same.
        if (value.userType() == QMetaType::Double && before == value && !IsSame(value, before))
            SetPropertyQuietly(name, QVariant());
        const QScopedValueRollback<bool> ownSet(OwnSet, true);
        setProperty(name.data(), value);
    }
    if (outer)
        outer->Value = nullptr;
    return set.Told;
}

void OrbelDelegate::SetPropertyQuietly(const PropertyKey &name, const QVariant &value)
{
    const QScopedValueRollback<bool> quiet(Quiet, true);
    setProperty(name.data(), value);
}

void OrbelDelegate::TakeNumber(const PropertyKey &name, const QVariant &held)
{
    bool isNumber = false;
    const QVariant own = property(name.data());
    const double stated = own.toDouble(&isNumber);
    // What the definition leaves out counts as 0.
    const bool states = isNumber || !own.isValid() || !std::isfinite(stated);
    if (states && stated != held.toDouble())
        SetPropertyAlways(name, held);
}

int OrbelDelegate::GetNearestInt(const PropertyKey &name, int defaultValue) const
{
    const double number = GetDouble(name, 0.0);
    const bool fits = Orbel::Saturated<int>(number) == std::llround(number);
    return fits ? GetInt(name, defaultValue) : Orbel::Saturated<int>(number);
}

double OrbelDelegate::GetStatedNumber(const PropertyKey &name) const
{
    bool isNumber = false;
    const QVariant own = property(name.data());
    const double stated = own.toDouble(&isNumber);
    return isNumber || !own.isValid() ? stated : qQNaN();
}

bool OrbelDelegate::IsNumber(const QString &name) const
{
    static const QSet<QString> numbers{prop::Minimum, prop::Maximum, prop::SingleStep, prop::Decimals,
        prop::DisplayScalingFactor, prop::RowCount, prop::ColumnCount, prop::SpacingsCount, prop::ItemCount,
        prop::ShiftCount};
    return numbers.contains(name);
}

QVariant OrbelDelegate::HeldNumber(const QString &) const
{
    return QVariant();
}

bool OrbelDelegate::IsNoNumber(const QString &name, const QVariant &value, bool isNumber) const
{
    const int type = value.userType();
    if (type == QMetaType::QString)
        return isNumber && !std::isfinite(value.toDouble());
    return type == QMetaType::Double && !std::isfinite(value.toDouble()) && (isNumber || HeldNumber(name).isValid());
}

QVariant &OrbelDelegate::StatedValue(const QString &name)
{
    const auto isIt = [&](const auto &entry) { return entry.first == name; };
    const auto found = std::find_if(Stated.begin(), Stated.end(), isIt);
    if (found != Stated.end())
        return found->second;
    Stated.append({name, QVariant()});
    return Stated.last().second;
}

QString OrbelDelegate::FiniteText(const QString &text)
{
    return std::isfinite(text.toDouble()) ? text : QStringLiteral("0");
}

void OrbelDelegate::DefineProperty(const QString &name)
{
    if (!IsDefined(name))
        DefinedProperties.append(name);
}

void OrbelDelegate::UndefineProperty(const QString &name)
{
    DefinedProperties.removeOne(name);
}

void OrbelDelegate::EnableProperty(const QString &name, bool enable, const QVariant *disabledValue)
{
    const QVariant own = property(PropertyKey(name).data());
    if (enable) {
        const Call call(this);
        DefineProperty(name);
        // Qt sends no event for a property that was not set and is not set now.
        if (own.isValid())
            SetPropertyAlways(name, own);
        else
            PropertyChanged(name, own);
        return;
    }
    if (!IsDefined(name))
        return;
    const Call call(this);
    if (disabledValue) {
        const QScopedValueRollback<const QString *> forced(Forced, own.isValid() ? nullptr : &name);
        SetPropertyAlways(name, *disabledValue);
    }
    UndefineProperty(name);
    SetPropertyAlways(name, own);
}

void OrbelDelegate::EnableInput(bool enable, bool)
{
    const QVariant disabled(false);
    EnableProperty(prop::Enabled, enable, &disabled);
}

void OrbelDelegate::setGroupVisible(bool flag)
{
    if (flag == GroupVisible)
        return;
    GroupVisible = flag;
    const QVariant hidden(false);
    EnableProperty(prop::Visible, flag, &hidden);
}

bool OrbelDelegate::event(QEvent *e)
{
    // A script may call deleteLater() on what it sees; the form owns its controls, and they stay.
    if (e->type() == QEvent::DeferredDelete)
        return true;
    if (e->type() != QEvent::DynamicPropertyChange || Quiet)
        return QObject::event(e);

    const Call call(this);
    // A set that is no own one is a script's, of which its engine does not tell.
    const Orbel::ExceptionStop::Zone zone(!std::exchange(OwnSet, false));
    const QByteArray key = static_cast<QDynamicPropertyChangeEvent *>(e)->propertyName();
    // The set that leads here knows name and value; others are looked up.
    const bool known = InProgress && InProgress->Name->Is(key);
    SetInProgress *const set = known ? std::exchange(InProgress, nullptr) : nullptr;
    const QVariant *given = known ? set->Value : nullptr;
    if (known)
        set->Told = true;
    if (!key.startsWith("_q_")) {
        const QString name = known ? set->Name->toString() : QString::fromLatin1(key);
        TakeProperty(name, given ? *given : property(key.constData()));
    }
    return QObject::event(e);
}

/// A property has got a value, which is not kept where it should be a number and is none.
void OrbelDelegate::TakeProperty(const QString &name, const QVariant &value)
{
    const bool isNumber = IsNumber(name);
    if (!IsNoNumber(name, value, isNumber)) {
        if (isNumber)
            StatedValue(name) = value;
        NoteSet(name);
        PropertyChanged(name, value);
        return;
    }
    const QVariant held = HeldNumber(name);
    const QVariant kept = held.isValid() ? held : StatedValue(name);
    SetPropertyQuietly(name, kept);
    if (kept.isValid()) {
        NoteSet(name);
        PropertyChanged(name, kept);
    }
}

void OrbelDelegate::Update(Observable *subject, TChangeCode code)
{
    const Call call(this);
    JoinAct(subject);
    if (code == ekChangeValue)
        Touch();
    NodeChanged(subject, code);
    LeaveToOthers(subject);
    if (Applied)
        Form().Note();
}

void OrbelDelegate::PropertyChanged(const QString &name, const QVariant &value)
{
    Assistive::PropertyChanged(this, name);
    if (Applied)
        Form().Note();
    if (name == prop::GenerateParameterXml)
        GenerateXml = value.toBool();
    else if (name == prop::Unit)
        Unit = property(prop::Unit.data()).toString();
    else if (name == prop::LabelText && Label)
        Label->setText(Translate(value.toString()));
    else if (name == prop::Visible && Label && IsDefined(name))
        Label->setVisible(value.toBool());
}

/// A definition that is read counts for none.
void OrbelDelegate::NoteSet(const QString &name)
{
    static constexpr QLatin1String values[]{
        prop::Value, prop::Checked, prop::CurrentValue, prop::StartFrequency, prop::StopFrequency};
    static constexpr QLatin1String states[]{
        prop::Text, prop::FrequencyLock, prop::ItemCount, prop::RowCount, prop::ColumnCount, prop::SpacingsCount};
    const auto isOneOf = [&name](const auto &names) {
        return std::any_of(std::begin(names), std::end(names), [&](QLatin1String each) { return name == each; });
    };
    const bool isState = isOneOf(states);
    if (ListDepth > 0 || (!isState && !isOneOf(values)) || !Form().isActive())
        return;
    Touched = true;
    if (isState && !SetSince.contains(name))
        SetSince.append(name);
}

void OrbelDelegate::PropagateProperty(const QString &name, QObject *target)
{
    if (!target || !IsDefined(name))
        return;
    const PropertyKey key(name);
    const QVariant value = property(key.data());
    if (value.isNull()) {
        GiveBack(name, target);
        return;
    }
    const QVariant before = OwnValue(target, key.data());
    if (Forced && name == *Forced)
        BeforeForced.insert({name, target}, !before.isValid() || before.toBool());
    if (!IsSame(value, before))
        target->setProperty(key.data(), value);
}

/// Not through a control's own setter, which might do more: free a field that was locked before, for instance.
void OrbelDelegate::GiveBack(const QString &name, QObject *target)
{
    const auto before = BeforeForced.constFind({name, target});
    auto *control = qobject_cast<QWidget *>(target);
    if (before == BeforeForced.constEnd() || !control)
        return;
    const bool state = *before;
    BeforeForced.erase(before);
    if (name == prop::Visible)
        control->setVisible(state);
    else
        control->setEnabled(state);
}

void OrbelDelegate::PropagateProperties(QObject *target)
{
    // A copy: a setter of a host's control may lead back here. It may delete the control, too.
    const QStringList names = DefinedProperties;
    const QPointer<QObject> alive(target);
    for (const QString &name : names) {
        if (!alive)
            return;
        const PropertyKey key(name);
        const QVariant value = property(key.data());
        // Qt resets a declared property that is given an invalid value; what is left out keeps the control's state.
        if (value.isValid())
            target->setProperty(key.data(), value);
    }
    HideIfCollapsed(alive);
}

void OrbelDelegate::PropagateState(QWidget *target)
{
    target->setVisible(GetBool(prop::Visible, true));
    target->setEnabled(GetBool(prop::Enabled, true));
}

void OrbelDelegate::HideIfCollapsed(QObject *target)
{
    if (!target || GroupVisible || IsDefined(prop::Visible))
        return;
    if (!property(prop::Visible.data()).isValid())
        BeforeForced.insert({prop::Visible, target}, true);
    target->setProperty(prop::Visible.data(), false);
}

bool OrbelDelegate::GetBool(const PropertyKey &name, bool defaultValue) const
{
    const QVariant value = property(name.data());
    return value.isNull() ? defaultValue : value.toBool();
}

int OrbelDelegate::GetInt(const PropertyKey &name, int defaultValue) const
{
    bool ok = false;
    const QVariant property = this->property(name.data());
    const qint64 value = property.toLongLong(&ok);
    return ok && Fits<int>(property, value) ? int(value) : defaultValue;
}

qint64 OrbelDelegate::GetInt64(const PropertyKey &name, qint64 defaultValue) const
{
    bool ok = false;
    const QVariant property = this->property(name.data());
    const qint64 value = property.toLongLong(&ok);
    return ok && Fits<qint64>(property, value) ? value : defaultValue;
}

quint64 OrbelDelegate::GetUInt64(const PropertyKey &name, quint64 defaultValue) const
{
    bool ok = false;
    const QVariant property = this->property(name.data());
    const quint64 value = property.toULongLong(&ok);
    return ok && Fits<quint64>(property, value) ? value : defaultValue;
}

double OrbelDelegate::GetDouble(const PropertyKey &name, double defaultValue) const
{
    return FiniteNumber(property(name.data()), defaultValue);
}

double OrbelDelegate::FiniteNumber(const QVariant &value, double defaultValue)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && std::isfinite(number) ? number : defaultValue;
}

QString OrbelDelegate::GetString(const PropertyKey &name, const QString &defaultValue) const
{
    const QString value = property(name.data()).toString();
    return value.isEmpty() ? defaultValue : value;
}

QString OrbelDelegate::GetTranslated(const PropertyKey &name) const
{
    return Translate(property(name.data()).toString());
}

QString OrbelDelegate::Translate(const QString &text) const
{
    return TranslateOf(objectName(), text);
}

QVariant OrbelDelegate::customProperty(QString name)
{
    return CustomProperties.value(name);
}

void OrbelDelegate::setCustomProperty(QString name, QVariant value)
{
    if (value == customProperty(name))
        return;
    const Call call(this);
    CustomProperties.insert(name, value);
    if (!CustomSetSince.contains(name) && Form().isActive())
        CustomSetSince.append(name);
    Q_EMIT customPropertyChanged(name, value);
}

bool OrbelDelegate::isEnabled() const
{
    return property(prop::Enabled.data()).toBool();
}

void OrbelDelegate::setEnabled(bool flag)
{
    SetPropertyAlways(prop::Enabled, flag);
}

void OrbelDelegate::setGenerateParameterXml(bool flag)
{
    SetPropertyAlways(prop::GenerateParameterXml, flag);
}

void OrbelDelegate::setReadOnly(bool flag)
{
    SetPropertyAlways(prop::ReadOnly, flag);
}

void OrbelDelegate::setVisible(bool flag)
{
    SetPropertyAlways(prop::Visible, flag);
}

void OrbelDelegate::setLabelText(QString text)
{
    ChangeProperty(prop::LabelText, text);
}

void OrbelDelegate::setFocus() { }

void OrbelDelegate::forceFinishEditing() { }

FormDoor OrbelDelegate::Form() const
{
    return FormDoor(OwnerWidget);
}

QString OrbelDelegate::WidgetName() const
{
    return OwnerWidget ? OwnerWidget->GetName() : QString();
}

} // namespace KV218
