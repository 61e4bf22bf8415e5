#include "frequencyvalidator.h"

#include "frequencytext.h"
#include "numberreader.h"

#include <QWidget>

static QLocale LocaleOf(const QObject *field, const QLocale &otherwise)
{
    const auto *widget = qobject_cast<const QWidget *>(field);
    return widget ? widget->locale() : otherwise;
}

QValidator::State FrequencyValidator::validate(QString &text, int &) const
{
    return NumberReader::OfHertz(LocaleOf(parent(), locale())).Read(text).IsNumber() ? Acceptable : Intermediate;
}

QString FrequencyValidator::Shown(const QString &nodeText, const QLocale &locale, int leastPower)
{
    bool isNumber = false;
    const double hertz = nodeText.toDouble(&isNumber);
    return isNumber ? FrequencyText::Write(hertz, leastPower, locale.decimalPoint()) : nodeText;
}

QString FrequencyValidator::ForNode(const QString &typed, const QLocale &locale)
{
    const TypedNumber hertz = NumberReader::OfHertz(locale).Read(typed);
    return hertz.IsNumber() ? FrequencyText::Plain(hertz.Number) : QString();
}
