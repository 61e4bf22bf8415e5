// The delegate's place in parameter documents and its modified state.

#include "orbeldelegate.h"

#include "cellgrid.h"
#include "elementnames.h"
#include "errorhandler.h"
#include "formdoor.h"
#include "propertynames.h"
#include "trace.h"

#include <QXmlStreamWriter>

namespace KV218
{

void OrbelDelegate::ResyncValueTree()
{
    if (ErrorHandler::Instance().GetTraceMask() & ekTraceResync)
        _Q_Trace(QStringLiteral("ResyncValueTree empty implementation for %1").arg(GetXmlTagName()),
            QStringLiteral("orbeldelegate"), __LINE__);
}

void OrbelDelegate::GetXml(QXmlStreamWriter &) const { }

void OrbelDelegate::ReadXml(QXmlStreamReader &) { }

void OrbelDelegate::SetXmlPath(const QString &tag)
{
    if (Place.SetPath(tag, objectName()))
        Form().TagChanged();
}

void OrbelDelegate::AddXmlTag(const QString &tag)
{
    Place.AddTag(tag);
    // In this very spelling, which is the one that is written.
    Form().TagAdded(tag);
}

void OrbelDelegate::WriteUnitAttribute(QXmlStreamWriter &writer) const
{
    if (!Unit.isEmpty())
        writer.writeAttribute(attribute::Unit, Unit);
}

QVariant OrbelDelegate::GetListValue(const QList<QVariant> &list, int row, int column, int columns)
{
    return CellGrid(list, columns).Get(row, column);
}

bool OrbelDelegate::SetListValue(QList<QVariant> &list, const QVariant &value, int row, int column, int columns)
{
    CellGrid grid(list, columns);
    const bool changes = grid.Set(row, column, value);
    if (changes)
        list = grid.GetCells();
    return changes;
}

bool OrbelDelegate::ResizeList(QList<QVariant> &list, int rows, int columns, int oldColumns)
{
    CellGrid grid(list, oldColumns);
    const bool changes = grid.Resize(rows, columns);
    if (changes)
        list = grid.GetCells();
    return changes;
}

void OrbelDelegate::setModified(bool autoApply)
{
    Touch();
    const bool byOperator = EditsBefore;
    if (!GenerateXml || (!byOperator && Form().IsReporting()))
        return;
    if (byOperator && GetAnswer() != RowLabel::None)
        SetAnswer(RowLabel::None, QString());
    KeepApplied();
    ChangeShows = ChangeShows || Form().isActive();
    Modified = true;
    Form().setModified(autoApply);
}

/// A change that the operator did not begin leaves it open what was applied.
void OrbelDelegate::KeepApplied()
{
    if (!Modified && EditsBefore)
        Applied = std::make_unique<EditState>(*EditsBefore);
    if (!Modified || Applied)
        Form().Note();
}

void OrbelDelegate::SetApplied(const QVariantList &values)
{
    Applied = std::make_unique<EditState>(EditState{values, GetEditShape()});
}

void OrbelDelegate::resetModified()
{
    if (!Modified)
        return;
    Modified = false;
    ChangeShows = false;
    Applied.reset();
    if (EditsBefore)
        *EditsBefore = GetEditState();
    Form().Note();
}

} // namespace KV218
