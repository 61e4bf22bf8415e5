#include "typednumber.h"

#include <cmath>

/// The text with the characters that a C program knows.
static QString Plain(const QString &text, const QLocale &locale)
{
    QString plain;
    for (const QChar character : text.trimmed()) {
        if (character.isDigit())
            plain += QChar(u'0' + character.digitValue());
        else if (character == locale.decimalPoint())
            plain += QLatin1Char('.');
        else if (character == locale.negativeSign() || character == QChar(0x2212))
            plain += QLatin1Char('-');
        else
            plain += character;
    }
    return plain;
}

TypedNumber ReadTypedNumber(const QString &text, const QLocale &locale, int decimals)
{
    const QString plain = Plain(text, locale);
    int digits = 0;
    int point = -1;
    for (int i = 0; i < plain.size(); ++i) {
        const QChar character = plain.at(i);
        const bool sign = i == 0 && (character == QLatin1Char('-') || character == QLatin1Char('+'));
        if (character.isDigit())
            ++digits;
        else if (character == QLatin1Char('.') && point < 0 && decimals > 0)
            point = i;
        else if (!sign)
            return {};
    }
    if (point >= 0 && plain.size() - point - 1 > decimals)
        return {};
    if (digits == 0)
        return {QValidator::Intermediate, 0};
    const double number = plain.toDouble();
    if (!std::isfinite(number))
        return {};
    return {QValidator::Acceptable, number};
}
