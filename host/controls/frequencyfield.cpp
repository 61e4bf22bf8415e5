#include "frequencyfield.h"

#include "decimalarithmetic.h"
#include "editend.h"
#include "frequencytext.h"
#include "ivaluenumeric.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QWheelEvent>

#include <cmath>

namespace Orbel
{

static constexpr int MostPower = 11; // hundreds of GHz, where digits end that an operator can choose
static constexpr int WheelNotch = 120; // what Qt reports for one notch, in eighths of a degree

static double PowerOfTen(int power)
{
    return std::round(std::pow(10.0, power));
}

FrequencyField::FrequencyField(QWidget *parent, bool belowZero)
    : VCLineEdit(parent, nullptr, ekFrequency), BelowZero(belowZero)
{
    setAlignment(Qt::AlignRight);
    setFocusPolicy(Qt::StrongFocus);
    // What the field shows anew has no marked digit yet.
    connect(this, &QLineEdit::textChanged, this, &FrequencyField::FitText);
    connect(this, &QLineEdit::textChanged, this, &FrequencyField::MarkDigit);
    connect(this, &QLineEdit::textEdited, this, [this] { Entry = true; });
    connect(this, &VCLineEdit::signalTextFinallyChanged, this, &FrequencyField::LeaveFrequency);
}

void FrequencyField::Step(int steps)
{
    if (!IsAtRest())
        return;
    Power = std::min(Power, std::max(TopPower(), HighestPower()));
    auto *node = dynamic_cast<IValueNumeric *>(BoundNode());
    const double lowest = BelowZero ? node->GetMin() : std::max(0.0, node->GetMin());
    const double target = WithSteps(node->GetValue(), PowerOfTen(Power), steps);
    if (Way.isEmpty()) {
        LeaveFrequency();
        Session = OperatorAct::NewSession();
    }
    const OperatorAct act(BoundNode(), Session);
    WriteNode([&] { node->SetValue(std::max(lowest, std::min(target, node->GetMax())), this); });
}

void FrequencyField::Enter(double hertz)
{
    auto *node = dynamic_cast<IValueNumeric *>(BoundNode());
    if (!node || !std::isfinite(hertz) || !ShowNode())
        return;
    LeaveFrequency();
    if (WriteNode([&] { node->SetValue(hertz, this); }))
        FinishTuning();
}

std::optional<double> FrequencyField::Repeat()
{
    auto *number = dynamic_cast<IValueNumeric *>(BoundNode());
    if (!number)
        return {};
    const double hertz = number->GetValue();
    const bool stays = WriteNode([this] { BoundNode()->HasChanged(ekChangeValue, this); });
    return stays ? std::optional<double>(hertz) : std::nullopt;
}

bool FrequencyField::FinishTuning()
{
    const auto *node = dynamic_cast<const IValueNumeric *>(BoundNode());
    QVector<double> way = std::exchange(Way, {});
    if (way.isEmpty() || !node)
        return true;
    way.append(node->GetValue());
    return Survives(this, [&] { Q_EMIT signalEntered(way); });
}

/// Keeps the frequency that the operator is about to change.
void FrequencyField::LeaveFrequency()
{
    if (const auto *node = dynamic_cast<const IValueNumeric *>(BoundNode()))
        Way.append(node->GetValue());
}

bool FrequencyField::ShowNode()
{
    const bool ends = std::exchange(Entry, false);
    if (!VCLineEdit::ShowNode())
        return false;
    if (ends)
        MarkDigit();
    return true;
}

void FrequencyField::Update(Observable *subject, TChangeCode code)
{
    const bool bound = BoundNode();
    VCLineEdit::Update(subject, code);
    if (code == ekChangeState && bound && !BoundNode())
        Q_EMIT signalNodeLost();
}

void FrequencyField::keyPressEvent(QKeyEvent *event)
{
    if (!IsAtRest()) {
        VCLineEdit::keyPressEvent(event);
        return;
    }
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (plain && TuneByKey(event->key()))
        return;
    // A marked digit is a place, not a selection to copy or to replace.
    const bool whole = event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut)
        || event->matches(QKeySequence::Paste) || event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    const bool types = !event->text().isEmpty() && event->text().at(0).isPrint();
    const auto held = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isCommand = held && held != (Qt::ControlModifier | Qt::AltModifier);
    if (types && isCommand) {
        event->ignore();
        return;
    }
    if (whole || types)
        selectAll();
    VCLineEdit::keyPressEvent(event);
}

bool FrequencyField::TuneByKey(int key)
{
    switch (key) {
    case Qt::Key_Up:
        Step(1);
        return true;
    case Qt::Key_Down:
        Step(-1);
        return true;
    case Qt::Key_PageUp:
        Step(10);
        return true;
    case Qt::Key_PageDown:
        Step(-10);
        return true;
    case Qt::Key_Left:
        ChooseDigit(Power + 1);
        return true;
    case Qt::Key_Right:
        ChooseDigit(Power - 1);
        return true;
    case Qt::Key_Home:
        ChooseDigit(HighestPower());
        return true;
    case Qt::Key_End:
        ChooseDigit(0);
        return true;
    case Qt::Key_F2:
        Entry = true;
        end(false);
        return true;
    default:
        return false;
    }
}

void FrequencyField::inputMethodEvent(QInputMethodEvent *event)
{
    const bool writes = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (writes && IsAtRest())
        selectAll();
    VCLineEdit::inputMethodEvent(event);
}

void FrequencyField::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton) {
        ReplaceBy([this, event] { VCLineEdit::mouseReleaseEvent(event); });
        return;
    }
    VCLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && IsAtRest() && !hasSelectedText())
        ChooseDigit(PowerUnder(event->pos()).value_or(Power));
}

void FrequencyField::contextMenuEvent(QContextMenuEvent *event)
{
    if (IsAtRest())
        selectAll();
    VCLineEdit::contextMenuEvent(event);
}

void FrequencyField::dropEvent(QDropEvent *event)
{
    ReplaceBy([this, event] { VCLineEdit::dropEvent(event); });
}

/// Has a text inserted in place of the shown one, and shows that again when none came.
void FrequencyField::ReplaceBy(const std::function<void()> &insertion)
{
    if (!IsAtRest()) {
        insertion();
        return;
    }
    clear();
    insertion();
    if (text().isEmpty())
        ShowNode();
}

void FrequencyField::SetTextFont(const QFont &font)
{
    TextFont = font;
    setFont(font);
    FullHint = VCLineEdit::sizeHint();
    FitText();
}

void FrequencyField::FitText()
{
    constexpr double least = 6;
    constexpr int margins = 5; // what the base class keeps beside the text, and its cursor
    if (!FullHint.isValid())
        return;
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width() - margins;
    QFont fitting = TextFont.resolve(font());
    // One that is not shown may not have its width yet, and is measured for what it will have room for.
    const bool isShown = isVisible();
    while (isShown && fitting.pointSizeF() > least && QFontMetrics(fitting).horizontalAdvance(text()) > room)
        fitting.setPointSizeF(fitting.pointSizeF() - 0.5);
    if (fitting == font())
        return;
    QFont own = TextFont;
    own.setPointSizeF(fitting.pointSizeF());
    setFont(own);
}

void FrequencyField::showEvent(QShowEvent *event)
{
    VCLineEdit::showEvent(event);
    FitText();
}

void FrequencyField::hideEvent(QHideEvent *event)
{
    VCLineEdit::hideEvent(event);
    FitText();
}

void FrequencyField::resizeEvent(QResizeEvent *event)
{
    VCLineEdit::resizeEvent(event);
    FitText();
}

void FrequencyField::changeEvent(QEvent *event)
{
    VCLineEdit::changeEvent(event);
    if (event->type() == QEvent::ReadOnlyChange || event->type() == QEvent::PaletteChange)
        ShowLock();
    else if (event->type() == QEvent::StyleChange && FullHint.isValid())
        SetTextFont(TextFont);
}

/// A field that takes no input has the colour of what surrounds it.
void FrequencyField::ShowLock()
{
    const QBrush around = parentWidget()->palette().brush(QPalette::Window);
    const bool stands = isReadOnly() ? palette().brush(QPalette::Base) == around : !LockShown;
    if (stands)
        return;
    LockShown = isReadOnly();
    QPalette own;
    if (LockShown)
        own.setBrush(QPalette::Base, around);
    setPalette(own);
}

void FrequencyField::wheelEvent(QWheelEvent *event)
{
    const std::optional<int> power = PowerUnder(event->position().toPoint());
    const bool mayTurn = hasFocus() || (HoverTunes && power);
    if (!mayTurn || !IsAtRest() || event->angleDelta().y() == 0) {
        event->ignore();
        return;
    }
    event->accept();
    if (power)
        ChooseDigit(*power);
    WheelRemainder += event->angleDelta().y();
    const int steps = WheelRemainder / WheelNotch;
    WheelRemainder %= WheelNotch;
    if (steps != 0)
        Step(steps);
}

void FrequencyField::focusInEvent(QFocusEvent *event)
{
    VCLineEdit::focusInEvent(event);
    WheelRemainder = 0;
    // A click chooses its digit in the text that stood there when it was made.
    // What the field's own menu acts on stays selected.
    if (!IsAtRest() || event->reason() == Qt::MouseFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    ChooseDigit(Power);
}

void FrequencyField::focusOutEvent(QFocusEvent *event)
{
    const bool leaves = EndsEdit(*event);
    if (leaves)
        deselect();
    if (!leaves || ShowNode())
        VCLineEdit::focusOutEvent(event);
}

void FrequencyField::mouseMoveEvent(QMouseEvent *event)
{
    VCLineEdit::mouseMoveEvent(event);
    Hover(event->buttons() == Qt::NoButton ? PowerUnder(event->pos()) : std::nullopt);
}

void FrequencyField::leaveEvent(QEvent *event)
{
    VCLineEdit::leaveEvent(event);
    Hover({});
    if (!hasFocus())
        FinishTuning();
}

void FrequencyField::Hover(std::optional<int> power)
{
    if (power == Hovered)
        return;
    Hovered = power;
    update();
}

void FrequencyField::paintEvent(QPaintEvent *event)
{
    VCLineEdit::paintEvent(event);
    if (!Hovered || !IsAtRest())
        return;
    constexpr int faint = 60; // of 255
    QColor light = palette().color(QPalette::Highlight);
    light.setAlpha(faint);
    QPainter(this).fillRect(DigitRect(*Hovered), light);
}

/// Where the digit is drawn; empty when the frequency does not have it.
QRect FrequencyField::DigitRect(int power) const
{
    const int position = FrequencyText::PositionOf(text(), power);
    if (position < 0)
        return QRect();
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    constexpr int margin = 2; // that the base class keeps beside the text
    const QRect inside
        = style()->subElementRect(QStyle::SE_LineEditContents, &frame, this).adjusted(margin, 0, -margin, 0);
    const QFontMetrics metrics(font());
    const int right = inside.right() - metrics.horizontalAdvance(text().mid(position + 1));
    const int width = metrics.horizontalAdvance(text().at(position));
    return QRect(right - width + 1, inside.top(), width, inside.height());
}

bool FrequencyField::MayTune() const
{
    return isEnabled() && !isReadOnly() && dynamic_cast<IValueNumeric *>(BoundNode());
}

void FrequencyField::MarkDigit()
{
    if (!hasFocus() || !IsAtRest())
        return;
    const int position = FrequencyText::PositionOf(text(), Power);
    if (position >= 0)
        setSelection(position, 1);
}

void FrequencyField::ChooseDigit(int power)
{
    Power = qBound(0, power, std::max(TopPower(), HighestPower()));
    if (ShowNode())
        MarkDigit();
}

/// The power of ten of the first digit that the frequency has.
int FrequencyField::HighestPower() const
{
    const auto *node = dynamic_cast<const IValueNumeric *>(BoundNode());
    const double size = node ? std::fabs(node->GetValue()) : 0;
    return size < 1 ? 0 : std::min(MostPower, int(std::floor(std::log10(size) + 1e-12)));
}

/// The power of ten of the first digit that the limits of the node leave room for.
int FrequencyField::TopPower() const
{
    const auto *node = dynamic_cast<const IValueNumeric *>(BoundNode());
    const double size = node ? std::max(node->GetMax(), BelowZero ? -node->GetMin() : 0.0) : 0;
    return size < 1 ? 0 : int(std::min<double>(MostPower, std::floor(std::log10(size) + 1e-12)));
}

std::optional<int> FrequencyField::PowerUnder(const QPoint &point) const
{
    // The caret nearest to a place half a digit to the left stands before the digit under the mouse.
    const QFontMetrics metrics(font());
    const int halfDigit = metrics.horizontalAdvance(QLatin1Char('0')) / 2;
    if (point.x() < width() - metrics.horizontalAdvance(text()) - 2 * halfDigit)
        return {};
    auto *self = const_cast<FrequencyField *>(this);
    return FrequencyText::PowerAt(text(), self->cursorPositionAt(point - QPoint(halfDigit, 0)));
}

} // namespace Orbel
