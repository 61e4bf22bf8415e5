#include "keptview.h"

#include "floatgrouplayout.h"
#include "orbelsheet.h"
#include "orbelsheetui.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QScrollArea>
#include <QScrollBar>

namespace KV218
{

namespace
{

QPoint PlaceOf(const QAbstractScrollArea *area)
{
    return {area->horizontalScrollBar()->value(), area->verticalScrollBar()->value()};
}

void ScrollTo(QAbstractScrollArea *area, const QPoint &place)
{
    area->horizontalScrollBar()->setValue(place.x());
    area->verticalScrollBar()->setValue(place.y());
}

/// Hands the faces of all controls that stand in the form to `act`, with the names of their widgets. A control of the
/// host's may stand elsewhere.
template <class Act> void ForFaces(const OrbelSheet &sheet, Act act)
{
    const QScrollArea *area = sheet.GetUi()->GetArea();
    const QWidget *content = area ? area->widget() : nullptr;
    if (!content)
        return;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const OrbelSheet::Widget widget = sheet.GetWidgetAt(i);
        for (const Face &face : widget->GetDelegate()->GetFaces()) {
            QWidget *const control = face.Widget;
            if (control && content->isAncestorOf(control))
                act(widget->GetName(), control);
        }
    }
}

} // namespace

KeptView::KeptView(const OrbelSheet &sheet) : Collapsed(sheet.GetCollapsed()), Focus(sheet)
{
    KeepTop(sheet);
    KeepCells(sheet);
}

void KeptView::KeepTop(const OrbelSheet &sheet)
{
    const QScrollArea *area = sheet.GetUi()->GetArea();
    if (!area || !area->widget())
        return;
    Scrolled = PlaceOf(area);
    ForFaces(sheet, [&](const QString &name, const QWidget *control) {
        const int top = control->mapTo(area->widget(), QPoint()).y() - Scrolled.y();
        const bool isIn = top >= 0 && top < area->viewport()->height();
        if (isIn && !control->isHidden() && (InView.isEmpty() || InView.last().first != name))
            InView.append({name, top});
    });
}

void KeptView::KeepCells(const OrbelSheet &sheet)
{
    ForFaces(sheet, [this](const QString &name, const QWidget *control) {
        const auto *view = qobject_cast<const QAbstractItemView *>(control);
        if (!view || !view->selectionModel())
            return;
        Cells cells{name, {}, {}, PlaceOf(view)};
        for (const QModelIndex &index : view->selectionModel()->selectedIndexes())
            cells.Selected.append({index.column(), index.row()});
        cells.Current = {view->currentIndex().column(), view->currentIndex().row()};
        Tables.append(cells);
    });
}

void KeptView::GiveTo(OrbelSheet &sheet) const
{
    sheet.SetCollapsed(Collapsed);
    ForFaces(sheet, [this](const QString &name, QWidget *control) {
        const auto isIt = [&](const Cells &cells) { return cells.Name == name; };
        const auto cells = std::find_if(Tables.begin(), Tables.end(), isIt);
        if (auto *view = qobject_cast<QAbstractItemView *>(control); view && cells != Tables.end())
            Select(view, *cells);
    });
    Scroll(sheet);
    Focus.GiveTo(sheet);
    // An editor that opens brings its cell into view.
    Scroll(sheet);
}

void KeptView::Select(QAbstractItemView *view, const Cells &cells)
{
    const auto indexOf = [view](const QPoint &cell) { return view->model()->index(cell.y(), cell.x()); };
    QItemSelectionModel *const chosen = view->selectionModel();
    for (const QPoint &cell : cells.Selected) {
        const QModelIndex index = indexOf(cell);
        if (index.isValid())
            chosen->select(index, QItemSelectionModel::Select);
    }
    chosen->setCurrentIndex(indexOf(cells.Current), QItemSelectionModel::NoUpdate);
    ScrollTo(view, cells.Scrolled);
}

/// So that the first row that is still there stands where it stood.
void KeptView::Scroll(const OrbelSheet &sheet) const
{
    QScrollArea *const area = sheet.GetUi()->GetArea();
    if (!area || !area->widget())
        return;
    sheet.GetUi()->LayOut();
    ScrollTo(area, Scrolled);
    for (const auto &[name, top] : InView) {
        int now = -1;
        ForFaces(sheet, [&, wanted = &name](const QString &other, const QWidget *control) {
            if (now < 0 && other == *wanted && !control->isHidden())
                now = control->mapTo(area->widget(), QPoint()).y();
        });
        if (now < 0)
            continue;
        area->verticalScrollBar()->setValue(now - top);
        return;
    }
}

} // namespace KV218
