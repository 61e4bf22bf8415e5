#pragma once

#include "orbeldelegate.h"

namespace KV218
{

/// Texts by key that the operator does not see. Class name: `HiddenMap`. It begins empty and is filled by scripts and
/// parameter documents.
class OrbelHiddenMap : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelHiddenMap(OrbelWidget *widget);

    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    void TakeValues(const OrbelDelegate &former, const QVariantList &edits) override;

Q_SIGNALS:
    void valueAdded(QString key, QString value);
    /// A text was stored under a key that existed; it may be the one that was there.
    void valueChanged(QString key, QString value);
    /// Carries the text that was removed.
    void valueRemoved(QString key, QString value);

public Q_SLOTS:
    /// Neither signals nor marks the control modified.
    void clear();

public:
    /// All keys in their order.
    Q_INVOKABLE QList<QString> keys() { return Entries.keys(); }
    /// Empty for an unknown key.
    Q_INVOKABLE QString value(QString key) { return Entries.value(key); }
    Q_INVOKABLE bool contains(QString key) { return Entries.contains(key); }
    Q_INVOKABLE void remove(QString key);
    Q_INVOKABLE void setValue(QString key, QString value);

private:
    QMap<QString, QString> Entries;
};

} // namespace KV218
