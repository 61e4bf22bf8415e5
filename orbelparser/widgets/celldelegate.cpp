#include "celldelegate.h"

#include "propertynames.h"

namespace KV218
{

void CellDelegate::CreateValueTree()
{
    Cells.Resize(GetInt(prop::RowCount, 0), GetInt(prop::ColumnCount, 0));
}

void CellDelegate::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const QString entryName = GetString(prop::ParameterListItemTag, QString());
    WriteEntries(writer, GetXmlTagName(), entryName, Cells.Size(), [&](int i) {
        WriteUnitAttribute(writer);
        writer.writeAttribute(attribute::Row, QString::number(Cells.RowOf(i)));
        writer.writeAttribute(attribute::Column, QString::number(Cells.ColumnOf(i)));
        writer.writeCharacters(Cells.GetCells().at(i).toString());
    });
}

} // namespace KV218
