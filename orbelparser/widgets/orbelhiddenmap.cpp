#include "orbelhiddenmap.h"

#include "listelements.h"
#include "newcontrol.h"
#include "propertynames.h"

#include <QPointer>

namespace KV218
{

OrbelDelegate *NewHiddenMap(OrbelWidget *widget)
{
    return NewControl<OrbelHiddenMap>(widget);
}

OrbelHiddenMap::OrbelHiddenMap(OrbelWidget *widget) : OrbelDelegate(widget) { }

void OrbelHiddenMap::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const QString entryName = GetString(prop::ParameterListItemTag, QString());
    auto entry = Entries.cbegin();
    WriteEntries(writer, GetXmlTagName(), entryName, Entries.size(), [&](int) {
        writer.writeAttribute(attribute::Key, entry.key());
        writer.writeCharacters(entry.value());
        ++entry;
    });
}

void OrbelHiddenMap::ReadXml(QXmlStreamReader &reader)
{
    Entries.clear();
    ReadEntries(reader, [this](const QXmlStreamAttributes &attributes, const QString &text) {
        Entries.insert(attributes.value(attribute::Key).toString(), text);
        return true;
    });
}

/// As a document: nobody is notified.
void OrbelHiddenMap::TakeValues(const OrbelDelegate &former, const QVariantList &)
{
    if (const auto *map = qobject_cast<const OrbelHiddenMap *>(&former))
        Entries = map->Entries;
}

void OrbelHiddenMap::clear()
{
    Touch();
    Entries.clear();
}

void OrbelHiddenMap::remove(QString key)
{
    const QString value = Entries.value(key);
    if (!Entries.remove(key))
        return;
    const Call call(this);
    Q_EMIT valueRemoved(key, value);
    setModified(true);
}

void OrbelHiddenMap::setValue(QString key, QString value)
{
    const bool known = Entries.contains(key);
    Entries.insert(key, value);
    const Call call(this);
    // Meant: an equal text emits valueChanged and marks the control modified, too.
    if (known)
        Q_EMIT valueChanged(key, value);
    else
        Q_EMIT valueAdded(key, value);
    setModified(true);
}

} // namespace KV218
