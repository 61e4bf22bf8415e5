#pragma once

#include "floatgroupcolumn.h"
#include "orbelexport.h"

#include <QLayout>
#include <QList>
#include <QPointer>
#include <QScrollArea>

class QGroupBox;
class QLabel;

/// Lays a flat list of items out as a form that flows into as many screen columns as the width allows.
///
/// Items carry flags, and these alone tell how the list folds. An item with ItemGroup starts a row; an item with
/// ItemSection is a line across its column and starts a section, which stays whole inside one screen column. Sections are
/// dealt out evenly, in their order. Inside a screen column row labels and the controls behind them align.
///
/// A flag is set for the *next* item to be added:
///
///     layout->addLabel("Gain", "labelgain");    // starts a row
///     layout->addWidget(spinBox);               // stands behind the label
///     layout->addGroup();                       // what comes next starts a row
///
/// The arrangement is computed once and kept until the next invalidate(), whatever width is asked for meanwhile. Contents
/// margins, alignment and the origin of the rectangle play no part. All sizes are pixels.
class ORBEL_EXPORT FloatGroupLayout : public QLayout
{
    Q_OBJECT

public:
    /// What an item is; flags add up.
    enum ItemFlag {
        ItemGroup = 1, ///< starts a row
        ItemSection = 2, ///< is the line over a section
        ItemLabel = 4, ///< is a row label: as wide as the label column, at most 24 high
        ItemSpecial = 8, ///< keeps its own width
        ItemList = 16 ///< holds a list of widgets, which get its width
    };

    explicit FloatGroupLayout(QWidget *parent);
    /// The layout of the area's widget, which must be set; no wider than the area.
    explicit FloatGroupLayout(QScrollArea *area);
    ~FloatGroupLayout() override;

    void addGroup();
    void addSpecial();
    void addList();
    /// Each of these makes a child of parentWidget() with `name` as object name, and adds it.
    void addSection(const char *name);
    /// A section line with a title; `margin` is the gap above it, shared with the height of a line without a title.
    QGroupBox *addHeadline(const QString &title, int margin, const char *name);
    /// A gap of a fixed height; a row, not a section.
    QWidget *addSeparator(int height, const char *name);
    QLabel *addLabel(const QString &text, const char *name);
    /// A label and `widget`, which must not be null, in one row.
    void addRow(const QString &text, QWidget *widget);
    /// Deletes all items and their widgets.
    void removeAllWidgets();

    /// These take effect at the next invalidation; 4 at first.
    void setVerticalSpacing(int spacing) { verticalSpacing = spacing; }
    void setHorizontalSpacing(int spacing) { horizontalSpacing = spacing; }

    void addItem(QLayoutItem *item) override;
    int count() const override;
    /// Null for an index out of range.
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    void invalidate() override;
    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    /// The size of the first item: all others may be squeezed out of sight.
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSize sizeHint(int width, int columnCount) const;
    bool scanItems(QList<FloatGroupColumn> &sections) const;
    int scanSections(
        QList<FloatGroupColumn> &columns, QList<FloatGroupColumn> &sections, int columnCount, int width) const;
    FloatGroupColumn joinSections(const QList<FloatGroupColumn> &sections, int first, int number) const;
    void arrangeItems(QList<FloatGroupColumn> &columns, int sectionsPerColumn, int width) const;
    void setListGeometry(QLayoutItem *item);
    bool skipSection(int index) const;
    int getSectionIndex(QList<FloatGroupColumn> &columns, int index) const;
    bool isVisible(int index) const { return hints.at(index).height() > 0; }
    void clearHints();
    void setFlag(int index, int flag);

    int verticalSpacing = 4;
    int horizontalSpacing = 4;
    QPointer<QScrollArea> scrollArea;
    /// Owned.
    QList<QLayoutItem *> items;
    /// Of each item; may be longer, when a flag waits for the next item.
    QList<int> flags;
    /// Each item's rectangle: its size after scanItems(), its place too after arrangeItems(). As long as `items` exactly
    /// while the arrangement is valid.
    mutable QList<QRect> hints;
    /// Of the last arrangement.
    mutable QSize totalSize = QSize(0, 0);
    /// Raised with every change of `hints`, so that setGeometry() notices one made meanwhile.
    mutable int changeCount = 0;
};
