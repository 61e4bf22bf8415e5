#include "sessionstore.h"

#include <QObject>
#include <QSettings>
#include <QVariant>

namespace Orbel
{

static const QLatin1String Parts[] = {QLatin1String("fontsize"), QLatin1String("collapsed"), QLatin1String("values")};

static QByteArray PropertyName(const QString &name, QLatin1String part)
{
    return (name + QLatin1Char('-') + part).toUtf8();
}

QString SessionStore::ValuesOf(const QObject &store, const QString &name)
{
    return store.property(PropertyName(name, Parts[2]).constData()).toString();
}

void SessionStore::PutValues(QObject &store, const QString &name, const QString &document)
{
    store.setProperty(PropertyName(name, Parts[2]).constData(), document);
}

void SessionStore::Load(const QSettings &settings, const QString &group, QObject &store, const QString &name)
{
    for (const QLatin1String &part : Parts)
        store.setProperty(PropertyName(name, part).constData(), settings.value(group + QLatin1Char('/') + part));
}

void SessionStore::Save(const QObject &store, const QString &name, QSettings &settings, const QString &group)
{
    for (const QLatin1String &part : Parts) {
        const QVariant value = store.property(PropertyName(name, part).constData());
        const QString key = group + QLatin1Char('/') + part;
        if (value.isValid())
            settings.setValue(key, value);
        else
            settings.remove(key);
    }
}

void SessionStore::Copy(const QObject &from, const QString &fromName, QObject &to, const QString &toName)
{
    for (const QLatin1String &part : Parts)
        to.setProperty(PropertyName(toName, part).constData(), from.property(PropertyName(fromName, part).constData()));
}

} // namespace Orbel
