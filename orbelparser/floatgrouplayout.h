#pragma once

#include "orbelexport.h"
#include "rowlabel.h"

#include <QLayout>
#include <QList>
#include <QPointer>
#include <QRect>
#include <QVector>

class QGroupBox;
class QScrollArea;
struct FloatGroupItem;

namespace KV218
{
class LayoutPause;
}

/// Lays a flat list of items out as a form that flows into as many screen columns as fit the width.
///
/// Building. Items stand in the order in which they are added. Marks, and nothing else, tell how the list folds into
/// rows and sections. A mark always goes to the *next* item to be added, and marks for the same item add up:
///
///     layout->addHeadline("Receiver", 10, "headline");   // starts a section
///     layout->addLabel("Gain", "labelgain");             // starts a row
///     layout->addWidget(spinBox);                        // stands behind the label
///     layout->addGroup();                                // what comes next starts a row
///
/// Arrangement. A *row* (group) begins at the left edge of its screen column; its items follow one another to the
/// right. A *section* begins with a line across the screen column. It stays whole inside one screen column, and
/// sections are the only places where a form breaks. All columns take the same number of sections, in their order; the
/// last ones may stay short. Inside a screen column row labels get the width of the widest of them, and the items
/// behind them at least the width of the widest that stands second in its row. With a single column, a row too wide for
/// the form folds.
///
/// Of section lines with nothing visible between them the first opens a section and the others stand in it. A line with
/// neither a line nor anything visible behind it opens none. Hidden widgets add no height, but what stands behind them
/// in a row does not move up.
///
/// Requests. sizeHint() asks for one screen column; heightForWidth() and setGeometry() for as many as fit. Whoever asks
/// first fixes the arrangement, whatever others ask for later, until the next change of the items or invalidate().
/// Contents margins, alignment, and the origin of the rectangle play no part. All lengths are pixels.
///
/// A layout belongs to the thread of its widgets.
class ORBEL_EXPORT FloatGroupLayout : public QLayout
{
    Q_OBJECT

public:
    explicit FloatGroupLayout(QWidget *parent);
    /// The layout of the area's widget, which must have been set; it becomes no wider than the area, and it gives that
    /// widget the arranged size as minimum size.
    explicit FloatGroupLayout(QScrollArea *area);
    /// Deletes the items; the widgets stay with their parent.
    ~FloatGroupLayout() override;

    /// The next item starts a row.
    void addGroup();
    /// The next item keeps its own width and does not count for the width of the controls.
    void addSpecial();
    /// The next item is a widget with a layout of its own; the widgets in it get the item's width as minimum width.
    void addList();

    /// These make a child of parentWidget() with the object name `name` (UTF-8, may be null) and add it.
    /// A line without a title, which starts a section.
    void addSection(const char *name);
    /// A line that starts a section. `margin` is the gap above it; without a title half of it goes into the line's
    /// height.
    QGroupBox *addHeadline(const QString &title, int margin, const char *name);
    /// A row without content.
    QWidget *addSeparator(int height, const char *name);
    /// A label at the start of a row.
    RowLabel *addLabel(const QString &text, const char *name);

    /// A row of a label, named "label" and the object name of `widget`, and `widget`, which must not be null. The row
    /// goes on until an item that starts one.
    void addRow(const QString &text, QWidget *widget);

    /// 4 at first. A change takes effect with the next invalidation.
    void setVerticalSpacing(int spacing);
    void setHorizontalSpacing(int spacing);

    /// Deletes all items and their widgets, and forgets all marks.
    void removeAllWidgets();

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    void invalidate() override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class KV218::LayoutPause;

    /// Between these two, which may nest, changes of items do not arrange anew one by one: at the end they do so once,
    /// and when an event loop comes round meanwhile. A visible child that is shown or hidden arranges everything
    /// otherwise.
    void pause();
    void resume();

    /// What an arrangement depends on besides the items.
    struct Request {
        int Width = -1;
        int ColumnCount = 0;
        int HorizontalSpacing = 0;
        int VerticalSpacing = 0;

        bool operator==(const Request &other) const;
    };

    QSize sizeHint(int width, int columnCount) const;
    bool measureItems() const;
    FloatGroupItem measureItem(int index) const;
    QRect placeOf(int index) const;
    void setListGeometry(QLayoutItem *item);
    void dropListWidths();
    void watchLook();
    void setFlag(int index, int flag);
    void clearHints() const;
    void settle();

    int VerticalSpacing = 4;
    int HorizontalSpacing = 4;
    /// Set by the constructor; null when there is none or it was destroyed. Not as a scroll area: while that is being
    /// destroyed only a widget is left of it.
    QPointer<QWidget> ScrollArea;
    /// Notifies the section lines of the parent's font and colours; made with the first of them.
    QObject *Look = nullptr;
    /// Owned.
    QList<QLayoutItem *> Items;
    /// FloatGroupItem::Flag of the item at the same index. Longer than `Items` when marks wait for the next item.
    QVector<int> Flags;
    /// The arrangement, in the coordinates of the layout: written by sizeHint(), valid while as long as `Items`.
    mutable QVector<QRect> Hints;
    /// The size of the last arrangement, valid or not.
    mutable QSize TotalSize = QSize(0, 0);
    /// The sizes of the items when they were last asked, and whether they have nothing new to tell: in a large form
    /// asking all widgets takes longer than arranging them, since each lies elsewhere in memory.
    mutable QVector<FloatGroupItem> Measured;
    mutable bool IsMeasured = false;
    /// The last arrangement, of these sizes; empty for none.
    mutable QVector<QRect> Arranged;
    mutable QSize ArrangedSize;
    mutable Request ArrangedFor;
    /// Raised whenever `Hints` are dropped, so that setGeometry() notices that somebody arranges anew meanwhile.
    mutable unsigned ChangeCount = 0;
    /// Raised whenever setGeometry() places the items.
    unsigned PlaceCount = 0;
    /// How many pauses run, and whether there is something to arrange for one.
    int Pauses = 0;
    bool Owed = false;
};
