#include "vcnumericfloatspin.h"

#include "editend.h"
#include "editquery.h"
#include "fieldnote.h"
#include "inputlock.h"
#include "keptcaret.h"
#include "outofview.h"
#include "sharedsizes.h"
#include "tree.h"
#include "typingundo.h"
#include "valuenumeric.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QLineEdit>
#include <QWheelEvent>

#include <cmath>
#include <limits>
#include <tuple>
#include <typeinfo>

namespace
{

/// What a hint of a box depends on: whether it is the smaller one, the height of its field, the numbers that it has
/// room for, and what stands around them.
using HintContent = std::tuple<bool, int, double, double, int, QString, QString, QString, QLocale, bool,
    QAbstractSpinBox::ButtonSymbols>;

Orbel::SharedSizes<HintContent> &Hints()
{
    static auto *const hints = new Orbel::SharedSizes<HintContent>;
    return *hints;
}

} // namespace

VCNumericFloatSpin::VCNumericFloatSpin(QWidget *parent, const char *name, bool keyboardTracking)
    : Orbel::TypedSpinBox(parent)
{
    setObjectName(QString::fromUtf8(name));
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(keyboardTracking);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString &text) {
        Typed = text;
        Late.RequestLater(&VCNumericFloatSpin::TellTyping);
    });
}

bool VCNumericFloatSpin::SetNumericValue(IValueNumeric *node)
{
    const bool bound = Node.Bind(node);
    if (bound) {
        Number.DropOwnLimits();
        ReadNode();
    }
    ShowNode();
    // A node of another type may step otherwise at its limits.
    update();
    return bound;
}

bool VCNumericFloatSpin::SetNumeric_ValuePath(const QString &path)
{
    return SetNumericValue(dynamic_cast<IValueNumeric *>(Tree::Instance()->GetNode(path)));
}

void VCNumericFloatSpin::setSuffix(const QString &suffix)
{
    if (suffix == this->suffix())
        return;
    QDoubleSpinBox::setSuffix(suffix);
    if (Node)
        ShowNode();
}

void VCNumericFloatSpin::setAdditionalPrecision(int places)
{
    Number.SetAdditionalPlaces(places);
    if (Node)
        ShowNodeAfterEdit();
}

void VCNumericFloatSpin::SetFactor(double factor)
{
    Number.SetFactor(factor);
    if (Node)
        ShowNode();
}

void VCNumericFloatSpin::disableStep(bool disable)
{
    StepDisabled = disable;
    update();
}

double VCNumericFloatSpin::minimum() const
{
    return Number.Minimum();
}

double VCNumericFloatSpin::maximum() const
{
    return Number.Maximum();
}

void VCNumericFloatSpin::setMinimum(double minimum)
{
    if (!(minimum < qInf()))
        return;
    Number.SetMinimum(minimum);
    ShowLimits();
}

void VCNumericFloatSpin::setMaximum(double maximum)
{
    if (!(maximum > -qInf()))
        return;
    Number.SetMaximum(maximum);
    ShowLimits();
}

/// Beyond a limit that was set here the number stands as it is, and the arrows may change alone.
void VCNumericFloatSpin::ShowLimits()
{
    update();
    ShowNodeAfterEdit();
}

void VCNumericFloatSpin::setValue(double number)
{
    if (std::isfinite(number))
        Put(number);
}

void VCNumericFloatSpin::setEnabled(bool enable)
{
    // The focus goes when the box is disabled already and commits nothing.
    if (enable || Orbel::Survives(this, [this] { LeaveEdit(); }))
        QDoubleSpinBox::setEnabled(enable);
}

void VCNumericFloatSpin::Update(Observable *subject, TChangeCode code)
{
    if (!Node.TakeNotification(subject, code))
        return;
    ReadNode();
    const KeptCaret caret(lineEdit(), prefix().size(), suffix().size(), !Orbel::OperatorAct::On(subject));
    ShowNodeAfterEdit();
}

QSize VCNumericFloatSpin::sizeHint() const
{
    return SharedHint(false, lineEdit()->sizeHint().height(), [this] { return Orbel::TypedSpinBox::sizeHint(); });
}

QSize VCNumericFloatSpin::minimumSizeHint() const
{
    return SharedHint(
        true, lineEdit()->minimumSizeHint().height(), [this] { return Orbel::TypedSpinBox::minimumSizeHint(); });
}

template <class Base> QSize VCNumericFloatSpin::SharedHint(bool isMinimum, int height, const Base &measure) const
{
    // What derives from this may spell its limits in its own way. The base class keeps what it has measured, and does
    // not hear of all that changes it.
    if (MeasuredItself || typeid(*this) != typeid(VCNumericFloatSpin))
        return measure();
    ensurePolished();
    const auto measureItself = [&] {
        MeasuredItself = true;
        return measure();
    };
    return Hints().Get(*this,
        {isMinimum, height, QDoubleSpinBox::minimum(), QDoubleSpinBox::maximum(), decimals(), prefix(), suffix(),
            specialValueText(), locale(), hasFrame(), buttonSymbols()},
        measureItself);
}

void VCNumericFloatSpin::stepBy(int steps)
{
    if (!HasStep())
        return;
    constexpr int pause = 1000; // milliseconds; steps without one, nor a typed number between them, are one change
    if (!LastStep.isValid() || LastStep.hasExpired(pause) || PendingNumber())
        StepSession = Orbel::OperatorAct::NewSession();
    LastStep.start();
    Late.After([this, steps] {
        const double from = PendingNumber().value_or(Number.Shown());
        Put(Number.Stepped(from, steps, Wraps()), StepSession);
        selectAll();
    });
}

bool VCNumericFloatSpin::event(QEvent *event)
{
    if (Orbel::LeavesUndoToForm(*lineEdit(), *event)) {
        event->ignore();
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride && IsPending()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    if (event->type() == EditQuery::Kind()) {
        event->setAccepted(IsPending());
        return true;
    }
    if (event->type() == Orbel::InputLock::Kind()) {
        DropEdit();
        return true;
    }
    // Nobody tells a box in another window than the active one that the focus has gone from it.
    if (event->type() == QEvent::WindowActivate && IsPending() && window()->focusWidget() != this)
        Late.RequestLater(&VCNumericFloatSpin::LeaveEdit);
    // The base class would not survive a commit that ends the box.
    if (Orbel::EndsEdit(*event) && !FinishEdit())
        return true;
    if (event->type() != QEvent::InputMethod)
        return Orbel::TypedSpinBox::event(event);
    bool handled = true;
    Late.After([&] { handled = Orbel::TypedSpinBox::event(event); });
    return handled;
}

QAbstractSpinBox::StepEnabled VCNumericFloatSpin::stepEnabled() const
{
    if (!HasStep() || isReadOnly())
        return StepNone;
    const double number = Number.Clamped(PendingNumber().value_or(Number.Shown()));
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, Wraps() || number < maximum());
    enabled.setFlag(StepDownEnabled, Wraps() || number > minimum());
    return enabled;
}

/// Commits before the focus moves: Qt would go on with the control that gets it.
bool VCNumericFloatSpin::focusNextPrevChild(bool next)
{
    return !FinishEdit() || Orbel::TypedSpinBox::focusNextPrevChild(next);
}

void VCNumericFloatSpin::changeEvent(QEvent *event)
{
    Orbel::TypedSpinBox::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        Hints().Clear();
}

void VCNumericFloatSpin::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && IsPending())
        ShowNode();
    else if (!Orbel::EndsEdit(*event) || !IsPending() || Finish())
        Late.After([this, event] { Orbel::TypedSpinBox::keyPressEvent(event); });
}

void VCNumericFloatSpin::mousePressEvent(QMouseEvent *event)
{
    Late.After([this, event] { Orbel::TypedSpinBox::mousePressEvent(event); });
}

void VCNumericFloatSpin::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || stepEnabled() == StepNone)
        event->ignore();
    else
        Late.After([this, event] { Orbel::TypedSpinBox::wheelEvent(event); });
}

void VCNumericFloatSpin::timerEvent(QTimerEvent *event)
{
    Late.After([this, event] { Orbel::TypedSpinBox::timerEvent(event); });
}

void VCNumericFloatSpin::focusOutEvent(QFocusEvent *event)
{
    const bool leaves = Orbel::LeavesField(*event);
    if (leaves)
        LastStep.invalidate();
    const bool refused = leaves && IsPending();
    if (!refused || Orbel::Survives(this, [this] { ShowNode(); }))
        Orbel::TypedSpinBox::focusOutEvent(event);
}

bool VCNumericFloatSpin::IsPending() const
{
    return (Typed != ShownText || NodeWaits) && Typed == lineEdit()->text();
}

/// What the operator has typed and not committed; nothing when the number is the one shown before.
std::optional<double> VCNumericFloatSpin::PendingNumber() const
{
    if (!IsPending())
        return {};
    const Orbel::TypedNumber typed = ReadText(lineEdit()->text());
    if (!typed.IsNumber() || (typed.Shown == Shown && !NodeWaits))
        return {};
    return typed.Shown;
}

bool VCNumericFloatSpin::HasStep() const
{
    return Node && !StepDisabled && Number.HasStep();
}

bool VCNumericFloatSpin::Wraps() const
{
    const bool integers = dynamic_cast<const ValueInt *>(Node.get());
    return wrapping() && Number.HasTwoEnds(integers ? std::numeric_limits<int>::max() : Orbel::ScaledNumber::Unlimited);
}

/// Commits what is pending, if it may be, and shows the node. False when somebody who heard of it has deleted the box.
bool VCNumericFloatSpin::FinishEdit()
{
    if (hasFocus() && !Late.After([] { QGuiApplication::inputMethod()->commit(); }))
        return false;
    const std::optional<double> number = PendingNumber();
    const bool mayCommit = Node && isEnabled() && !isReadOnly();
    if (number && mayCommit)
        return Put(*number);
    // What is no number stays, to be mended.
    if (!IsPending() || !mayCommit || IsReadable())
        ShowNode();
    return true;
}

/// Ends an edit, be it of a text that is no number.
void VCNumericFloatSpin::LeaveEdit()
{
    if (FinishEdit() && IsPending())
        ShowNode();
}

void VCNumericFloatSpin::DropEdit()
{
    if (hasFocus() && !Late.After([] { QGuiApplication::inputMethod()->reset(); }))
        return;
    const bool typed = IsPending() && Typed != ShownText;
    const QString text = cleanText();
    if (Orbel::Survives(this, [this] { ShowNode(); }) && typed)
        Orbel::FieldNote::TellDropped(this, text);
}

void VCNumericFloatSpin::TellTyping()
{
    // A text dropped into a box without the focus needs an end of its edit, too.
    const bool stays = hasFocus() || !IsPending() || Orbel::Survives(this, [this] { setFocus(Qt::OtherFocusReason); });
    if (stays)
        Q_EMIT signalTextEdited(lineEdit()->text());
}

/// Takes a number, shows it, and writes it if it is another one. False when the box is gone.
bool VCNumericFloatSpin::Put(double shown, int session)
{
    Session = session;
    const bool changes = Number.Put(shown);
    ShowNode();
    return !changes || Late.Request(&VCNumericFloatSpin::WriteNode);
}

void VCNumericFloatSpin::WriteNode()
{
    if (Node)
        Node.Write(
            this, [this] { Node->SetValue(Number.InNode(), this); }, Session);
}

void VCNumericFloatSpin::ReadNode()
{
    if (Node)
        Number.Take({Node->GetValue(), Node->GetMin(), Node->GetMax(), Node->GetStep()});
}

/// Whether the base class shows the number as it last did, so that it need not spell it again.
bool VCNumericFloatSpin::StandsAlready(double shown) const
{
    return shown == Given && QDoubleSpinBox::value() == Shown && lineEdit()->text() == ShownText;
}

/// setValue() of the base class, which in a box out of view asks for no repaint.
void VCNumericFloatSpin::SetNumber(double shown)
{
    if (!Orbel::IsOutOfView(this)) {
        QDoubleSpinBox::setValue(shown);
        return;
    }
    const double former = QDoubleSpinBox::value();
    {
        const Orbel::RepaintsNothing quiet(this, lineEdit());
        QDoubleSpinBox::setValue(shown);
    }
    if (QDoubleSpinBox::value() == former)
        return;
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    Q_EMIT valueChanged(lineEdit()->displayText());
    QT_WARNING_POP
    Q_EMIT textChanged(lineEdit()->displayText());
    Q_EMIT valueChanged(QDoubleSpinBox::value());
}

void VCNumericFloatSpin::ShowNode()
{
    const int places = Number.Places();
    // The base class clamps what it shows and has a special text for its minimum: a node outside of our own limits is
    // shown as it is. Infinity spares it the hundreds of digits of a limit that is none.
    const auto range = Number.OpenRange();
    const double shown = Number.Shown();
    const bool sameForm = places == decimals() && range == AppliedRange;
    const bool isFresh = ShownText.isNull() && QDoubleSpinBox::value() == 0;
    if (places != decimals())
        isFresh ? PrepareDecimals(places) : setDecimals(places);
    if (range != AppliedRange) {
        AppliedRange = range;
        setRange(range.first, range.second);
    }
    if (!sameForm || !StandsAlready(shown)) {
        SetNumber(shown);
        Shown = QDoubleSpinBox::value();
        ShownText = lineEdit()->text();
        // Whoever heard of the change may have set another number, which does not stand for this one.
        const bool isIt = Shown == shown || std::fabs(Shown - shown) * std::pow(10, decimals()) < 0.6; // units apart
        Given = isIt ? shown : qQNaN();
    } else if (HasStep() != ShownStep && !Orbel::IsOutOfView(this)) {
        // The arrows follow the step.
        update();
    }
    ShownStep = HasStep();
    NodeWaits = false;
    Typed = ShownText;
    ForgetReading();
    Orbel::ForgetTyping(lineEdit());
}

void VCNumericFloatSpin::ShowNodeAfterEdit()
{
    NodeWaits = IsPending();
    if (!NodeWaits)
        ShowNode();
    else if (Typed != ShownText)
        TellReading();
}
