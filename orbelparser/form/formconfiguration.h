#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

namespace KV218
{

/// What a form keeps on the host's configuration object, as dynamic properties: its text size, its collapsed groups,
/// and the host's lock of all input. Without an object nothing is kept.
class FormConfiguration
{
public:
    /// The keys begin with `name`, but for the lock, which counts for all forms. True when this is another pair.
    bool SetObject(QObject *object, const QString &name);
    bool Exists() const { return Object; }
    QObject *GetObject() const { return Object; }
    const QString &GetName() const { return Name; }

    /// Text size in points; 0 without one. Saving 0 or less removes the key.
    int GetFontSize() const;
    void SetFontSize(int size);
    /// Names of the collapsed groups; without a key one empty name. Saving an empty list removes the key.
    QStringList GetCollapsed() const;
    void SetCollapsed(const QStringList &names);
    /// Whether the lock of input is stated, as a bool.
    QVariant GetInputDisabled() const;

private:
    QByteArray Key(const char *suffix) const;

    QPointer<QObject> Object;
    QString Name;
};

} // namespace KV218
