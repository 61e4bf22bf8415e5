#include "vcnumericfloatspin.h"

#include "decimalnumber.h"
#include "tree.h"
#include "typednumber.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QWheelEvent>

#include <cmath>

static constexpr double Unlimited = 1e308;
static constexpr int MostPlaces = 323; // what the base class takes

VCNumericFloatSpin::VCNumericFloatSpin(QWidget *parent, const char *name, bool keyboardTracking)
    : QDoubleSpinBox(parent)
{
    setObjectName(QString::fromUtf8(name));
    setFocusPolicy(Qt::StrongFocus);
    setKeyboardTracking(keyboardTracking);
}

bool VCNumericFloatSpin::SetNumericValue(IValueNumeric *node)
{
    const bool bound = Node.Bind(node);
    if (bound) {
        const ValueType type = Node.GetBase()->GetType();
        WholeNumbers = type == ekTypeInt || type == ekTypeInt64;
        OwnMinimum.reset();
        OwnMaximum.reset();
        ReadNode();
    }
    ShowNode();
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
    AdditionalPrecision = qBound(0, places, MostPlaces);
    if (Node)
        ShowNode();
}

void VCNumericFloatSpin::SetFactor(double factor)
{
    Factor = std::isfinite(factor) && factor != 0 ? factor : 1;
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
    const double ofNode = std::min(ToShown(Last.Min), ToShown(Last.Max));
    return std::max(ofNode, OwnMinimum.value_or(ofNode));
}

double VCNumericFloatSpin::maximum() const
{
    const double ofNode = std::max(ToShown(Last.Min), ToShown(Last.Max));
    return std::min(ofNode, OwnMaximum.value_or(ofNode));
}

void VCNumericFloatSpin::setMinimum(double minimum)
{
    if (std::isnan(minimum))
        return;
    OwnMinimum = minimum;
    ShowNode();
}

void VCNumericFloatSpin::setMaximum(double maximum)
{
    if (std::isnan(maximum))
        return;
    OwnMaximum = maximum;
    ShowNode();
}

void VCNumericFloatSpin::setValue(double number)
{
    if (!std::isnan(number))
        Put(ToNode(number));
}

void VCNumericFloatSpin::Update(Observable *subject, TChangeCode code)
{
    if (!Node.HasNews(subject, code))
        return;
    ReadNode();
    if (!IsPending())
        ShowNode();
}

QString VCNumericFloatSpin::textFromValue(double number) const
{
    QLocale plain = locale();
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    // Adding zero takes the sign from a zero.
    return plain.toString(number + 0.0, 'f', decimals());
}

double VCNumericFloatSpin::valueFromText(const QString &text) const
{
    return TypedShown(text).value_or(value());
}

QValidator::State VCNumericFloatSpin::validate(QString &text, int &) const
{
    const std::optional<double> number = TypedShown(text);
    if (!number)
        return ReadTypedNumber(WithoutAffixes(text), locale(), decimals()).State;
    const bool inside = *number >= minimum() && *number <= maximum();
    return inside ? QValidator::Acceptable : QValidator::Intermediate;
}

void VCNumericFloatSpin::stepBy(int steps)
{
    if (!Node || StepDisabled)
        return;
    const QPointer<VCNumericFloatSpin> self(this);
    Put(SteppedNumber(steps));
    if (self)
        selectAll();
}

bool VCNumericFloatSpin::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && IsPending()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QDoubleSpinBox::event(event);
}

QAbstractSpinBox::StepEnabled VCNumericFloatSpin::stepEnabled() const
{
    const bool hasStep = std::isfinite(Last.Step) && Last.Step != 0;
    if (!Node || StepDisabled || isReadOnly() || !hasStep)
        return StepNone;
    const Range range = NodeRange();
    const double number = range.Clamped(Scaled(PendingNumber().value_or(Last.Value)));
    const bool wraps = wrapping() && range.Lowest < range.Highest;
    const bool canRise = wraps || number < range.Highest;
    const bool canFall = wraps || number > range.Lowest;
    StepEnabled enabled = StepNone;
    enabled.setFlag(StepUpEnabled, Factor > 0 ? canRise : canFall);
    enabled.setFlag(StepDownEnabled, Factor > 0 ? canFall : canRise);
    return enabled;
}

void VCNumericFloatSpin::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && IsPending()) {
        ShowNode();
        return;
    }
    const QPointer<VCNumericFloatSpin> self(this);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        CommitTyped();
    if (self)
        Writer.After([=] { QDoubleSpinBox::keyPressEvent(event); });
}

void VCNumericFloatSpin::mousePressEvent(QMouseEvent *event)
{
    Writer.After([=] { QDoubleSpinBox::mousePressEvent(event); });
}

void VCNumericFloatSpin::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || stepEnabled() == StepNone)
        event->ignore();
    else
        Writer.After([=] { QDoubleSpinBox::wheelEvent(event); });
}

void VCNumericFloatSpin::timerEvent(QTimerEvent *event)
{
    Writer.After([=] { QDoubleSpinBox::timerEvent(event); });
}

void VCNumericFloatSpin::focusOutEvent(QFocusEvent *event)
{
    const QPointer<VCNumericFloatSpin> self(this);
    CommitTyped();
    if (self)
        QDoubleSpinBox::focusOutEvent(event);
}

/// A number of the node, or scaled from one, without what binary arithmetic adds to it.
double VCNumericFloatSpin::Scaled(double number) const
{
    const double exact = Factor == 1 ? number : WithoutNoise(number);
    return std::max(-Unlimited, std::min(exact, Unlimited));
}

double VCNumericFloatSpin::ToShown(double number) const
{
    return Scaled(number * Factor);
}

double VCNumericFloatSpin::ToNode(double shown) const
{
    const double number = Scaled(shown / Factor);
    return WholeNumbers ? std::round(number) : number;
}

VCNumericFloatSpin::Range VCNumericFloatSpin::NodeRange() const
{
    Range range{Scaled(Last.Min), Scaled(Last.Max)};
    if (const auto &lowest = Factor > 0 ? OwnMinimum : OwnMaximum)
        range.Lowest = std::max(range.Lowest, ToNode(*lowest));
    if (const auto &highest = Factor > 0 ? OwnMaximum : OwnMinimum)
        range.Highest = std::min(range.Highest, ToNode(*highest));
    return range;
}

/// The limits for the base class, which clamps what it shows and has a special text for its minimum: a node outside of
/// our own limits is shown as it is.
VCNumericFloatSpin::Range VCNumericFloatSpin::BaseRange() const
{
    const double shown = ToShown(Last.Value);
    return {shown < minimum() ? -Unlimited : minimum(), shown > maximum() ? Unlimited : maximum()};
}

int VCNumericFloatSpin::PlacesNeeded() const
{
    const int ofStep = DecimalPlaces(ToShown(Last.Step)) + AdditionalPrecision;
    return std::min(MostPlaces, std::max(ofStep, PlacesOfFirstDigit(Factor)));
}

bool VCNumericFloatSpin::IsPending() const
{
    return lineEdit()->isModified();
}

QString VCNumericFloatSpin::WithoutAffixes(const QString &text) const
{
    QString bare = text;
    if (bare.startsWith(prefix()))
        bare.remove(0, prefix().size());
    if (bare.endsWith(suffix()))
        bare.chop(suffix().size());
    return bare;
}

std::optional<double> VCNumericFloatSpin::TypedShown(const QString &text) const
{
    if (!specialValueText().isEmpty() && text == specialValueText())
        return minimum();
    const TypedNumber typed = ReadTypedNumber(WithoutAffixes(text), locale(), decimals());
    if (typed.State != QValidator::Acceptable)
        return {};
    return typed.Number;
}

/// What the operator has typed and not committed, in units of the node; nothing when the number is the one shown
/// before.
std::optional<double> VCNumericFloatSpin::PendingNumber() const
{
    if (!IsPending())
        return {};
    const std::optional<double> typed = TypedShown(lineEdit()->text());
    if (!typed || *typed == Shown)
        return {};
    return ToNode(*typed);
}

double VCNumericFloatSpin::SteppedNumber(int steps) const
{
    const Range range = NodeRange();
    const double step = std::fabs(Scaled(Last.Step));
    const double from = range.Clamped(Scaled(PendingNumber().value_or(Last.Value)));
    const double to = WithSteps(from, step, Factor > 0 ? steps : -steps);
    if (wrapping() && to > range.Highest)
        return range.Lowest;
    if (wrapping() && to < range.Lowest)
        return range.Highest;
    return range.Clamped(to);
}

void VCNumericFloatSpin::CommitTyped()
{
    const std::optional<double> number = PendingNumber();
    const bool mayCommit = Node && isEnabled() && !isReadOnly();
    if (number && mayCommit)
        Put(*number);
    else
        ShowNode();
}

/// Takes a number in units of the node, shows it and writes it.
void VCNumericFloatSpin::Put(double number)
{
    Last.Value = NodeRange().Clamped(number);
    ShowNode();
    Writer.Request();
}

void VCNumericFloatSpin::WriteNode()
{
    const QPointer<VCNumericFloatSpin> self(this);
    if (Node)
        Node->SetValue(Last.Value, this);
    if (!self)
        return;
    ReadNode();
    ShowNode();
}

void VCNumericFloatSpin::ReadNode()
{
    if (!Node)
        return;
    const auto before = Last;
    Last = {Node->GetValue(), Node->GetMin(), Node->GetMax(), Node->GetStep()};
    const bool minimumFirst = Factor > 0;
    if (Last.Min != before.Min)
        (minimumFirst ? OwnMinimum : OwnMaximum).reset();
    if (Last.Max != before.Max)
        (minimumFirst ? OwnMaximum : OwnMinimum).reset();
}

void VCNumericFloatSpin::ShowNode()
{
    const int places = PlacesNeeded();
    if (places != decimals())
        setDecimals(places);
    const Range range = BaseRange();
    if (range.Lowest != Applied.Lowest || range.Highest != Applied.Highest) {
        Applied = range;
        setRange(range.Lowest, range.Highest);
    }
    QDoubleSpinBox::setValue(ToShown(Last.Value));
    lineEdit()->setModified(false);
    Shown = QDoubleSpinBox::value();
}
