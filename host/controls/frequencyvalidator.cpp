#include "frequencyvalidator.h"

#include "frequencytext.h"

#include <QWidget>

static QLocale LocaleOf(const QObject *field, const QLocale &otherwise)
{
    const auto *widget = qobject_cast<const QWidget *>(field);
    return widget ? widget->locale() : otherwise;
}

QValidator::State FrequencyValidator::validate(QString &text, int &) const
{
    return FrequencyText::Read(text, LocaleOf(parent(), locale())) ? Acceptable : Intermediate;
}

QString FrequencyValidator::Shown(const QString &nodeText, const QLocale &locale, int leastPower)
{
    bool isNumber = false;
    const double hertz = nodeText.toDouble(&isNumber);
    return isNumber ? FrequencyText::Write(hertz, leastPower, locale.decimalPoint()) : nodeText;
}

QString FrequencyValidator::ForNode(const QString &typed, const QLocale &locale)
{
    const std::optional<double> hertz = FrequencyText::Read(typed, locale);
    return hertz ? FrequencyText::Plain(*hertz) : QString();
}
