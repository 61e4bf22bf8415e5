#include "celldelegate.h"

#include "propertynames.h"

namespace KV218
{

void CellDelegate::CreateValueTree()
{
    Reshape(GetInt(prop::RowCount, 0), GetInt(prop::ColumnCount, 0));
}

void CellDelegate::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const QString entryName = GetString(prop::ParameterListItemTag, QString());
    WriteEntries(writer, GetXmlTagName(), entryName, Cells.size(), [&](int i) {
        WriteUnitAttribute(writer);
        writer.writeAttribute(attribute::Row, QString::number(i / ColumnCount));
        writer.writeAttribute(attribute::Column, QString::number(i % ColumnCount));
        writer.writeCharacters(Cells.at(i).toString());
    });
}

bool CellDelegate::Reshape(int rows, int columns)
{
    if (!ResizeList(Cells, rows, columns, ColumnCount))
        return false;
    RowCount = rows;
    ColumnCount = columns;
    return true;
}

} // namespace KV218
