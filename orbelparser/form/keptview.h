#pragma once

#include "keptfocus.h"

#include <QItemSelection>
#include <QPoint>
#include <QStringList>
#include <QVector>

class QAbstractItemView;

namespace KV218
{

class OrbelSheet;

/// Where the operator is in a form: which groups are collapsed, what stands at the top of the view, which cells are
/// selected, where the focus is and what is being typed there. Taken from one form and given to another one in the same
/// window, it is found again by the names of the widgets.
class KeptView
{
public:
    /// A form without a window has none of it but the groups.
    explicit KeptView(const OrbelSheet &sheet);

    void GiveTo(OrbelSheet &sheet) const;

private:
    struct Cells {
        QString Name;
        QVector<QPoint> Selected; // x counts columns
        QPoint Current{-1, -1};
        QPoint Scrolled;
    };

    void KeepTop(const OrbelSheet &sheet);
    void KeepCells(const OrbelSheet &sheet);
    void Scroll(const OrbelSheet &sheet) const;
    static void Select(QAbstractItemView *view, const Cells &cells);

    const QStringList Collapsed;
    /// The rows in view, from the first; how far each one's top lies below the view's.
    QVector<QPair<QString, int>> InView;
    QPoint Scrolled;
    QVector<Cells> Tables;
    KeptFocus Focus;
};

} // namespace KV218
