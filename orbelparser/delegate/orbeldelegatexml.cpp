// The delegate's place in parameter documents, its modified state, and the cells of controls that hold lists.

#include "orbeldelegate.h"

#include "elementnames.h"
#include "errorhandler.h"
#include "formdoor.h"
#include "formlimits.h"
#include "propertynames.h"
#include "trace.h"

#include <QXmlStreamWriter>
#include <cmath>
#include <limits>

namespace KV218
{

void OrbelDelegate::ResyncValueTree()
{
    if (ErrorHandler::Instance().GetTraceMask() & ekTraceResync)
        _Q_Trace(QStringLiteral("ResyncValueTree empty implementation for %1").arg(XmlTagName),
            QStringLiteral("orbeldelegate"), __LINE__);
}

void OrbelDelegate::GetXml(QXmlStreamWriter &) const {}

void OrbelDelegate::ReadXml(QXmlStreamReader &) {}

void OrbelDelegate::SetXmlPath(const QString &tag)
{
    const QString before = XmlTagName;
    XmlPath = tag.isEmpty() ? objectName() : tag;
    XmlTagName = XmlPath.mid(XmlPath.lastIndexOf(QLatin1Char('/')) + 1);
    // Meant: every further parse of the same element adds the name again.
    if (!tag.isEmpty())
        XmlTags.append(XmlTagName);
    if (XmlTagName != before)
        Form().TagChanged();
}

void OrbelDelegate::AddXmlTag(const QString &tag)
{
    if (!ContainsXmlTag(tag))
        XmlTags.append(tag);
    // In this very spelling, which is the one that is written.
    Form().TagAdded(tag);
}

bool OrbelDelegate::ContainsXmlTag(const QString &tag) const
{
    return XmlTags.contains(tag, Qt::CaseInsensitive);
}

void OrbelDelegate::WriteUnitAttribute(QXmlStreamWriter &writer) const
{
    if (!Unit.isEmpty())
        writer.writeAttribute(attribute::Unit, Unit);
}

namespace
{

/// Where a cell stands in the flat list, or -1 when it stands outside.
int CellIndex(const QList<QVariant> &list, int row, int column, int columns)
{
    if (row < 0 || column < 0)
        return -1;
    // Meant: a column past the row's end reaches into the next row.
    const qint64 index = qint64(row) * columns + column;
    return index >= 0 && index < list.size() ? int(index) : -1;
}

} // namespace

/// Whether a cell stays as it is: '007' is another text than 7, and 'on' another value than true.
static bool IsSameCell(const QVariant &cell, const QVariant &value)
{
    return cell.userType() == value.userType() && cell == value && cell.toString() == value.toString();
}

QVariant OrbelDelegate::GetListValue(const QList<QVariant> &list, int row, int column, int columns)
{
    const int index = CellIndex(list, row, column, columns);
    return index < 0 ? QVariant() : list.at(index);
}

bool OrbelDelegate::SetListValue(QList<QVariant> &list, const QVariant &value, int row, int column, int columns)
{
    const int index = CellIndex(list, row, column, columns);
    if (index < 0 || IsSameCell(list.at(index), value))
        return false;
    list[index] = value;
    return true;
}

bool OrbelDelegate::ResizeList(QList<QVariant> &list, int rows, int columns, int oldColumns)
{
    if (rows < 0 || columns < 0 || oldColumns < 0)
        return false;
    const qint64 cells = qint64(rows) * columns;
    // Meant: an equal count of cells changes nothing, whatever the shape.
    if (cells == list.size() || cells > limit::ListCells)
        return false;
    if (columns == oldColumns) {
        // Every cell keeps its place, so a list that grows cell by cell is not copied each time.
        if (cells < list.size())
            list.erase(list.begin() + int(cells), list.end());
        while (list.size() < cells)
            list.append(QVariant());
        return true;
    }
    const QList<QVariant> old = list;
    list.clear();
    list.reserve(int(cells));
    for (int cell = 0; cell < cells; ++cell)
        list.append(GetListValue(old, cell / columns, cell % columns, oldColumns));
    return true;
}

int OrbelDelegate::CountOf(const QVariant &value)
{
    constexpr qint64 least = std::numeric_limits<int>::min();
    constexpr qint64 most = std::numeric_limits<int>::max();
    if (value.userType() == QMetaType::Double) {
        const double count = value.toDouble();
        return std::isnan(count) ? -1 : int(qRound64(qBound(double(least), count, double(most))));
    }
    return int(qBound(least, value.toLongLong(), most));
}

void OrbelDelegate::setModified(bool autoApply)
{
    if (!GenerateXml)
        return;
    KeepApplied();
    ChangeShows = ChangeShows || Form().isActive();
    Modified = true;
    Form().setModified(autoApply);
}

/// A change that the operator did not begin leaves it open what was applied.
void OrbelDelegate::KeepApplied()
{
    if (!Modified && EditsBefore)
        Applied = std::make_unique<QVariantList>(*EditsBefore);
    if (!Modified || Applied)
        Form().Note();
}

void OrbelDelegate::resetModified()
{
    if (!Modified)
        return;
    Modified = false;
    ChangeShows = false;
    Applied.reset();
    Form().Note();
}

} // namespace KV218
