#pragma once

#include <QLocale>
#include <QString>
#include <QValidator>

/// What an operator has typed so far into a number field.
struct TypedNumber {
    /// Acceptable for a number, Intermediate for what may become one, Invalid for all else.
    QValidator::State State = QValidator::Invalid;
    /// Valid when acceptable.
    double Number = 0;
};

/// Reads a typed number: digits and signs of any script, the decimal point of the locale or ".", at most `decimals`
/// digits behind it, blanks around; no group separators, since they would make a "." mean two things.
TypedNumber ReadTypedNumber(const QString &text, const QLocale &locale, int decimals);
