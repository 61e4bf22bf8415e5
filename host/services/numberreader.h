#pragma once

#include "hostexport.h"

#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <QValidator>

#include <limits>
#include <optional>

namespace Orbel
{

/// What a field makes of a typed or pasted text.
struct ORBEL_HOST_EXPORT TypedNumber {
    /// Acceptable for a number that the field may take, Intermediate for what may become one by typing on, Invalid for
    /// all else. A field lets any of them stand while it is typed.
    QValidator::State State = QValidator::Intermediate;
    /// In the base unit, which is Hz for a frequency, and in the unit that the field shows; NaN unless acceptable.
    double Number = std::numeric_limits<double>::quiet_NaN();
    double Shown = std::numeric_limits<double>::quiet_NaN();
    /// When acceptable, the number as it was understood: "145.500 000 MHz". When invalid, why: "above 26.5 GHz".
    QString Text;

    /// The same for an edit that is to end now: what may become a number by typing on is none.
    TypedNumber AsFinal() const;
    bool IsNumber() const { return State == QValidator::Acceptable; }
    /// The line for FieldNote: "= 145.500 000 MHz", the reason, or nothing.
    QString Note() const { return IsNumber() ? QStringLiteral("= ") + Text : Text; }
};

/// The one reader of what an operator types into a field of numbers or frequencies. Its data describe the field.
///
/// Blanks of all kinds, ' and _ group digits anywhere; digits may be of any script. Of "." and ",", whatever the
/// locale, one that stands once is the decimal point, and one that stands more than once groups: then each group behind
/// the first has three digits. When both stand, the last kind that stands once is the point and the other groups. Units
/// are "Hz", "kHz", "MHz", "GHz", "k", "M", "G", where the field is of frequencies, and the field's own suffix, all in
/// any case. There is no exponent. Moving the point is exact: no number is multiplied.
struct ORBEL_HOST_EXPORT NumberReader {
    Q_DECLARE_TR_FUNCTIONS(Orbel::NumberReader)

public:
    /// The locale's decimal point, group separator and minus are understood, too, and texts are spelled with its point.
    QLocale Locale = QLocale::c();
    /// Whether the base unit is Hz, and units from Hz to GHz are understood.
    bool IsFrequency = false;
    /// The field shows numbers in 10^ShownPower base units: 6 for MHz.
    int ShownPower = 0;
    /// What the field shows behind the number.
    QString Suffix;
    /// In base units. Beyond them a number is invalid; 1e308 and infinity are no limit.
    double Minimum = -std::numeric_limits<double>::infinity();
    double Maximum = std::numeric_limits<double>::infinity();
    /// Rounds to whole base units, a half away from zero, of which 64 bits hold the number.
    bool IsWhole = false;
    /// How many digits a number may have behind the point in the shown unit, zeros at its end not counted.
    int Decimals = std::numeric_limits<int>::max();
    /// A number without a unit is in the shown unit. Otherwise that depends in a field of frequencies: an integer is in
    /// Hz where that lies within the limits, and a number with a point where only that does.
    bool TakesShownUnit = false;

    /// A reader of frequencies that are shown in Hz and have no limits.
    static NumberReader OfHertz(const QLocale &locale = QLocale::c());

    /// What the text means to the field; a text that it cannot read says why.
    TypedNumber Read(const QString &text) const;
    /// A number in base units as the notes spell it: frequencies as FrequencyText::Short(), others with the suffix.
    QString Spell(double number) const;

private:
    struct Digits;
    QString Plain(const QString &text) const;
    std::optional<int> PowerOf(const QString &unit) const;
    bool MayBecomeUnit(const QString &unit) const;
    int PowerWithoutUnit(const Digits &digits) const;
    double Value(const Digits &digits, int power) const;
    bool IsInRange(double number) const;
    bool IsWithin(double number) const;
    TypedNumber Judge(const Digits &digits, int power) const;
};

} // namespace Orbel
