#include "orbelhiddenlist.h"

#include "formlimits.h"
#include "listelements.h"
#include "newcontrol.h"

#include <QPointer>

namespace KV218
{

OrbelDelegate *NewHiddenList(OrbelWidget *widget)
{
    return NewControl<OrbelHiddenList>(widget);
}

OrbelHiddenList::OrbelHiddenList(OrbelWidget *widget) : OrbelDelegate(widget) { }

void OrbelHiddenList::CreateValueTree()
{
    Items.Resize(GetInt(prop::ItemCount, 0), 1);
}

void OrbelHiddenList::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const QString entryName = GetString(prop::ParameterListItemTag, QString());
    WriteEntries(writer, GetXmlTagName(), entryName, Items.Size(), [&](int i) {
        WriteUnitAttribute(writer);
        writer.writeAttribute(attribute::Index, QString::number(i));
        writer.writeCharacters(Items.GetCells().at(i).toString());
    });
}

void OrbelHiddenList::ReadXml(QXmlStreamReader &reader)
{
    // Meant: `itemCount` stays, so items that make the list no longer than it says find no room and are lost.
    Items.Clear();
    ReadIndexedEntries(reader, [&](int index, const QString &text) {
        setItemValue(index, text);
        return true;
    });
}

void OrbelHiddenList::TakeValues(const OrbelDelegate &former, const QVariantList &)
{
    const auto *list = qobject_cast<const OrbelHiddenList *>(&former);
    for (int i = 0; list && i < list->Items.Size() && i < Items.Size(); ++i)
        setItemValue(i, list->Items.GetCells().at(i).toString());
}

void OrbelHiddenList::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::ItemCount)
        Items.Resize(CellGrid::CountOf(value), 1);
}

void OrbelHiddenList::clear()
{
    Touch();
    Items.Clear();
}

QString OrbelHiddenList::itemValue(int index)
{
    return Items.Get(index, 0).toString();
}

void OrbelHiddenList::setItemValue(int index, QString value)
{
    // Meant: an index equal to the length makes no room and is refused below.
    if (index > Items.Size() && index < limit::ListCells)
        setItemCount(index + 1);
    if (!Items.Set(index, 0, value))
        return;
    const Call call(this);
    setModified(true);
    Q_EMIT itemValueChanged(index, value);
}

} // namespace KV218
