#pragma once

#include <QString>

class QObject;
class QSettings;

namespace Orbel
{

/// Where a session keeps text size, collapsed groups and values. The form itself keeps the first two as dynamic
/// properties of an object, "NAME-fontsize" and "NAME-collapsed"; the values stand beside them.
namespace SessionStore
{

QString ValuesOf(const QObject &store, const QString &name);
void PutValues(QObject &store, const QString &name, const QString &document);

/// From the keys "GROUP/fontsize", "GROUP/collapsed" and "GROUP/values" to such properties. A key that is not there
/// leaves none.
void Load(const QSettings &settings, const QString &group, QObject &store, const QString &name);
/// The way back.
void Save(const QObject &store, const QString &name, QSettings &settings, const QString &group);
/// From one object to another.
void Copy(const QObject &from, const QString &fromName, QObject &to, const QString &toName);

} // namespace SessionStore

} // namespace Orbel
