#include "typedspinbox.h"

#include "decimalarithmetic.h"
#include "editend.h"
#include "frequencytext.h"
#include "numbertext.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace Orbel
{

static constexpr double RoomWithoutLimit = 9999999999.0; // what a box without a limit is wide enough for

/// Not by the locale where it writes the digits as everybody does: that costs as much as all else that a box does
/// itself to show a number.
static QString SpellWithoutGroups(double number, int places, const QLocale &locale)
{
    const QChar point = locale.decimalPoint();
    if (locale.zeroDigit() == QLatin1Char('0') && locale.negativeSign() == QLatin1Char('-')) {
        QString text = NumberToText(number, places);
        return point == QLatin1Char('.') ? text : text.replace(QLatin1Char('.'), point);
    }
    // A changed locale is a new one, and smaller numbers have no groups.
    QLocale plain = locale;
    if (std::fabs(number) >= 999)
        plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    return plain.toString(number, 'f', places);
}

TypedSpinBox::TypedSpinBox(QWidget *parent) : QDoubleSpinBox(parent)
{
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        IsFinal = false;
        TellReading();
    });
    connect(lineEdit(), &QLineEdit::cursorPositionChanged, this, &TypedSpinBox::KeepCursorInNumber);
}

bool TypedSpinBox::IsReadable() const
{
    return ReadText(lineEdit()->text()).IsNumber();
}

bool TypedSpinBox::Finish()
{
    IsFinal = !IsReadable();
    if (IsFinal)
        TellReading();
    return !IsFinal;
}

bool TypedSpinBox::Enter(const QString &text, QString *note)
{
    NumberReader reader = Reader();
    reader.Decimals = std::numeric_limits<int>::max();
    const TypedNumber number = reader.Read(WithoutPrefix(text));
    *note = LimitNote(number);
    if (number.IsNumber())
        setProperty("value", number.Shown);
    return number.IsNumber();
}

void TypedSpinBox::PrepareDecimals(int places)
{
    const QScopedValueRollback<bool> preparing(IsPreparing, true);
    setDecimals(places);
}

QString TypedSpinBox::textFromValue(double number) const
{
    if (IsPreparing)
        return cleanText();
    const double finite = std::isinf(number) ? std::copysign(RoomWithoutLimit, number) : number;
    const QLocale ours = locale();
    Spelled = FrequencyText::BeforeSuffix(SpellWithoutGroups(finite, decimals(), ours), suffix(), ours.decimalPoint());
    SpelledNumber = number;
    return Spelled;
}

/// Whether a text is what the box has just spelled for its value, which need not be read to be known.
bool TypedSpinBox::IsOwnText(const QString &text) const
{
    const int behind = prefix().size() + Spelled.size();
    return SpelledNumber == value() && specialValueText().isEmpty() && text.size() == behind + suffix().size()
        && text.startsWith(prefix()) && text.endsWith(suffix())
        && text.midRef(prefix().size(), Spelled.size()) == Spelled;
}

bool TypedSpinBox::IsFrequency() const
{
    return suffix().endsWith(QLatin1String("Hz"), Qt::CaseInsensitive);
}

bool TypedSpinBox::WritesBlank() const
{
    return IsFrequency() && !suffix().at(0).isSpace();
}

double TypedSpinBox::valueFromText(const QString &text) const
{
    const TypedNumber number = ReadText(text);
    return number.IsNumber() ? number.Shown : value();
}

QValidator::State TypedSpinBox::validate(QString &text, int &position) const
{
    // Nothing is typed behind the suffix, which would stand there twice then.
    position = std::min(position, EndOfNumber(text));
    const double shown = IsOwnText(text) ? value() : ReadText(text).Shown;
    const auto [lowest, highest] = TypedRange();
    const bool inside = shown >= lowest && shown <= highest;
    return inside ? QValidator::Acceptable : QValidator::Intermediate;
}

void TypedSpinBox::fixup(QString &text) const
{
    const TypedNumber number = ReadText(text);
    const auto [lowest, highest] = TypedRange();
    if (number.IsNumber() && !KeepsText)
        text = prefix() + textFromValue(std::max(lowest, std::min(number.Shown, highest))) + suffix();
}

bool TypedSpinBox::IsTyping() const
{
    return lineEdit()->text() != prefix() + textFromValue(value()) + suffix();
}

/// The power of ten, in Hz, of the unit that the box shows; nothing when it shows no frequency.
std::optional<int> TypedSpinBox::ShownPower() const
{
    const QString shown = suffix().trimmed();
    const QString unit = shown.isEmpty() ? Unit : shown;
    const std::optional<int> power = FrequencyText::PowerOfUnit(unit);
    if (!power || !unit.endsWith(QLatin1String("Hz"), Qt::CaseInsensitive))
        return {};
    const double moved = shown.isEmpty() ? *power - std::log10(std::fabs(Scale())) : *power;
    const bool isWhole = moved > -0.5 && std::fabs(moved - std::round(moved)) < 1e-9;
    return isWhole ? std::optional<int>(int(std::round(moved))) : std::nullopt;
}

NumberReader TypedSpinBox::Reader() const
{
    const std::optional<int> power = ShownPower();
    NumberReader reader;
    reader.Locale = locale();
    reader.Suffix = suffix();
    reader.Decimals = decimals();
    reader.TakesShownUnit = true;
    reader.IsFrequency = power.has_value();
    reader.ShownPower = power.value_or(0);
    // A box that shows every hertz, and no less, has whole ones.
    reader.IsWhole = power == decimals();
    return reader;
}

QString TypedSpinBox::WithoutPrefix(const QString &text) const
{
    return text.startsWith(prefix()) ? text.mid(prefix().size()) : text;
}

TypedNumber TypedSpinBox::ReadText(const QString &text) const
{
    const QString special = specialValueText();
    if (special.isEmpty() || Bare(text).compare(special.trimmed(), Qt::CaseInsensitive) != 0)
        return Reader().Read(WithoutPrefix(text));
    const double lowest = TypedRange().first;
    return {QValidator::Acceptable, lowest, lowest, special};
}

/// The place behind the number, where the suffix begins.
int TypedSpinBox::EndOfNumber(const QString &text) const
{
    const bool isSpecial = !specialValueText().isEmpty() && text == specialValueText();
    if (isSpecial || !text.endsWith(suffix()))
        return text.size();
    const int end = text.size() - suffix().size();
    // The blank that is written before a suffix without one is none that was typed.
    return end > 0 && WritesBlank() && text.at(end - 1) == QLatin1Char(' ') ? end - 1 : end;
}

void TypedSpinBox::KeepCursorInNumber()
{
    const int end = EndOfNumber(lineEdit()->text());
    if (!lineEdit()->hasSelectedText() && lineEdit()->cursorPosition() > end)
        lineEdit()->setCursorPosition(end);
}

QString TypedSpinBox::Bare(const QString &text) const
{
    const QString behindPrefix = WithoutPrefix(text);
    return behindPrefix.left(EndOfNumber(behindPrefix)).trimmed();
}

/// Whether a text is another one than digits, a sign and the one decimal point that the box itself would write.
bool TypedSpinBox::IsUnusual(const QString &text) const
{
    const QString bare = Bare(text);
    const QChar point = decimals() > 0 ? locale().decimalPoint() : QChar();
    const auto isOther
        = [&](QChar c) { return !c.isDigit() && c != point && c != locale().negativeSign() && c != QLatin1Char('-'); };
    const int fraction = bare.contains(point) ? bare.size() - bare.indexOf(point) - 1 : 0;
    return bare.count(point) > 1 || fraction > decimals() || std::any_of(bare.begin(), bare.end(), isOther);
}

QString TypedSpinBox::SpellShown(double shown) const
{
    const NumberReader reader = Reader();
    return reader.Spell(WithoutNoise(shown * std::pow(10.0, reader.ShownPower)));
}

/// Which limit is taken for a number; nothing for one within them, and for what is no number.
QString TypedSpinBox::LimitNote(const TypedNumber &number) const
{
    const auto [lowest, highest] = TypedRange();
    if (number.Shown > highest)
        return tr("above %1: %1 is taken").arg(SpellShown(highest));
    if (number.Shown < lowest)
        return tr("below %1: %1 is taken").arg(SpellShown(lowest));
    return QString();
}

QString TypedSpinBox::NoteFor(const TypedNumber &number, const QString &text) const
{
    const QString limit = LimitNote(number);
    const bool saysMore = !number.IsNumber() || IsUnusual(text);
    return limit.isEmpty() && saysMore ? number.Note() : limit;
}

void TypedSpinBox::TellReading()
{
    const QString text = lineEdit()->text();
    const TypedNumber number = IsFinal ? ReadText(text).AsFinal() : ReadText(text);
    Mark.Show(NoteFor(number, text), number.State == QValidator::Invalid);
}

void TypedSpinBox::changeEvent(QEvent *event)
{
    // As in focusOutEvent().
    if (event->type() == QEvent::ActivationChange && IsTyping())
        QWidget::changeEvent(event);
    else
        QDoubleSpinBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Mark.FollowPalette();
    else if (event->type() == QEvent::LanguageChange && IsTyping())
        TellReading();
}

void TypedSpinBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F2)
        selectAll();
    else
        QDoubleSpinBox::keyPressEvent(event);
}

void TypedSpinBox::focusOutEvent(QFocusEvent *event)
{
    if (LeavesField(*event) || !IsTyping()) {
        QDoubleSpinBox::focusOutEvent(event);
        return;
    }
    // The edit goes on afterwards. QAbstractSpinBox would take over what was typed so far, and its line edit clamp it.
    const QScopedValueRollback<bool> keepsText(KeepsText, true);
    lineEdit()->event(event);
    QWidget::focusOutEvent(event);
}

/// As when the focus goes to another window: that may have minimized this one.
void TypedSpinBox::hideEvent(QHideEvent *event)
{
    if (IsTyping())
        QWidget::hideEvent(event);
    else
        QDoubleSpinBox::hideEvent(event);
}

void TypedSpinBox::showEvent(QShowEvent *event)
{
    if (IsTyping())
        QWidget::showEvent(event);
    else
        QDoubleSpinBox::showEvent(event);
}

} // namespace Orbel
