#include "face.h"

#include "frequencytext.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QLocale>

#include <cmath>

namespace KV218
{

namespace
{

QString FaceText(const char *text)
{
    return QCoreApplication::translate("KV218::Face", text);
}

QString SpokenFrequency(double hertz)
{
    constexpr double none = 1e308;
    if (std::fabs(hertz) >= none)
        return QString();
    const QChar point = QLocale().decimalPoint();
    const QString text = Orbel::FrequencyText::Write(hertz, 0, point);
    const int unit = text.lastIndexOf(QLatin1Char(' '));
    return SpokenNumber(text.left(unit).remove(QLatin1Char(' '))) + text.mid(unit);
}

} // namespace

QString CellPlace(const QAbstractItemModel &cells, int row, int column)
{
    return FaceText(QT_TRANSLATE_NOOP("KV218::Face", "column %1, row %2"))
        .arg(cells.headerData(column, Qt::Horizontal).toString(), cells.headerData(row, Qt::Vertical).toString());
}

QString SpokenNumber(QString number)
{
    const QChar point = QLocale().decimalPoint();
    while (number.contains(point) && (number.endsWith(QLatin1Char('0')) || number.endsWith(point)))
        number.chop(1);
    return number;
}

QString BoundsText(const QString &lowest, const QString &highest)
{
    if (lowest.isEmpty())
        return highest.isEmpty() ? QString() : FaceText(QT_TRANSLATE_NOOP("KV218::Face", "up to %1")).arg(highest);
    return highest.isEmpty() ? FaceText(QT_TRANSLATE_NOOP("KV218::Face", "from %1")).arg(lowest)
                             : FaceText(QT_TRANSLATE_NOOP("KV218::Face", "%1 to %2")).arg(lowest, highest);
}

QString FrequencyBounds(double lowest, double highest)
{
    return BoundsText(SpokenFrequency(lowest), SpokenFrequency(highest));
}

} // namespace KV218
