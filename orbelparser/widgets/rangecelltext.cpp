#include "rangecelltext.h"

#include "frequencytext.h"
#include "frequencyunit.h"
#include "numberreader.h"
#include "suffixeddouble.h"
#include "todoubleex.h"

#include <QRegularExpression>
#include <QStringList>

#include <cmath>

namespace KV218
{

namespace
{

/// The power of ten, in Hz, of the unit that an upper-case text names; `other` when it names none.
int PowerOfText(const QString &text, int other)
{
    // Meant: one letter anywhere tells the unit, so "MK" is kilo and an exponent is no exponent.
    for (const QLatin1Char letter : {QLatin1Char('K'), QLatin1Char('M'), QLatin1Char('G'), QLatin1Char('H')}) {
        if (text.contains(letter))
            return Orbel::FrequencyText::PowerOfUnit(QString(letter)).value_or(0);
    }
    return other;
}

} // namespace

int RangeCellText::OwnPower() const
{
    return Orbel::FrequencyUnit::OfHertz(UnitHertz).Power;
}

double RangeCellText::Read(const QString &typed) const
{
    static const QRegularExpression letters(QStringLiteral("[A-Z]"));
    const QString text = typed.toUpper();
    const int power = PowerOfText(text, OwnPower());
    const QString number = QString(text).remove(letters).trimmed();
    // The factor goes in as an exponent: 1.001 times 1000 would be 1000.9999999999999.
    return Ember::toDoubleEx(number + QLatin1Char('e') + QString::number(power), nullptr);
}

bool RangeCellText::IsReadAsMeant(const QString &text) const
{
    Orbel::NumberReader reader = Orbel::NumberReader::OfHertz(Locale);
    reader.TakesShownUnit = true;
    reader.ShownPower = OwnPower();
    const Orbel::TypedNumber meant = reader.Read(text);
    return meant.IsNumber() && meant.Number == Read(text);
}

QString RangeCellText::Spell(double hertz) const
{
    SuffixedDouble format(QStringLiteral("Hz"), 1000, false);
    format.SetSuffix(SuffixedDouble::ESuffix(SuffixedDouble::ekPlain + OwnPower() / 3));
    return format.GetString(std::isfinite(hertz) ? hertz : 0.0);
}

QString RangeCellText::SpellAsFields(double hertz) const
{
    const QStringList parts = Spell(hertz).split(QLatin1Char(' '));
    const QStringList digits = parts.first().split(QLatin1Char('.'));
    const QString fraction = digits.value(1).leftJustified(OwnPower(), QLatin1Char('0'));
    const QChar point = Locale.decimalPoint();
    const QString number = fraction.isEmpty() ? digits.first() : digits.first() + point + fraction;
    return Orbel::FrequencyText::BeforeSuffix(number, parts.last(), point) + parts.last();
}

} // namespace KV218
