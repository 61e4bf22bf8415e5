#include "formconfiguration.h"

#include <QVariant>

namespace KV218
{

bool FormConfiguration::SetObject(QObject *object, const QString &name)
{
    if (object == Object && name == Name)
        return false;
    Object = object;
    Name = name;
    return true;
}

QByteArray FormConfiguration::Key(const char *suffix) const
{
    return Name.toUtf8() + suffix;
}

int FormConfiguration::GetFontSize() const
{
    return Object ? Object->property(Key("-fontsize").constData()).toInt() : 0;
}

void FormConfiguration::SetFontSize(int size)
{
    if (Object)
        Object->setProperty(Key("-fontsize").constData(), size > 0 ? QVariant(size) : QVariant());
}

QStringList FormConfiguration::GetCollapsed() const
{
    // Meant: empty parts are kept, so an absent key gives one empty name.
    const QString names = Object ? Object->property(Key("-collapsed").constData()).toString() : QString();
    return names.split(QLatin1Char(','), Qt::KeepEmptyParts);
}

void FormConfiguration::SetCollapsed(const QStringList &names)
{
    if (Object)
        Object->setProperty(
            Key("-collapsed").constData(), names.isEmpty() ? QVariant() : QVariant(names.join(QLatin1Char(','))));
}

QVariant FormConfiguration::GetInputDisabled() const
{
    return Object ? Object->property("input-disabled") : QVariant();
}

} // namespace KV218
