#pragma once

#include "iobserver.h"
#include "rangecelltext.h"
#include "valuecommentedrangemap.h"
#include "valueobservingptr.h"

#include <QTableWidget>

#include <list>

namespace KV218
{

/// An editable list of frequency ranges, start and stop in two columns, which shows the content of a node. Cells hold
/// text with a unit: a number alone counts in kHz, and "5 Hz", "5 k" or "5,5 mhz" say what they mean. What is no number
/// is 0, and every text is rewritten at once. What is drawn has groups, which the text has not. While one is typed a
/// note tells how it will be read; a cell that is read otherwise than a field for frequencies would read it tells so,
/// with its tooltip as well. What is edited stays here until StoreToValue().
class FreqRangeTable : public QTableWidget, public IObserver
{
    Q_OBJECT

public:
    explicit FreqRangeTable(QWidget *parent);

    /// Shows the range map at the full path of the value tree and follows it: a change of the map replaces all rows.
    /// The table is disabled unless the map is usable, and false tells that there is none. An empty map shows one row
    /// of 0.
    bool AttachToValue(const QString &path);
    /// The same with the map itself, which need not be in the tree; null is none.
    bool AttachToNode(ValueCommentedRangeMap *node);
    /// Ends an open edit and stores all rows in the map, sorted, in Hz; nothing without a map, or when it went away.
    /// The map's observers may end the table.
    void StoreToValue();

    void Update(Observable *source, TChangeCode code) override;

public Q_SLOTS:
    /// Ends an open edit and puts the rows in ascending order.
    void SlotSortByStartFrequencies();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void SlotValueChanged(int row, int column);
    void SlotNew();
    void SlotDelete();

private:
    class Cells;
    using Ranges = std::list<CommentedRange>;

    QAction *AddAction(const QString &name, const QKeySequence &shortcut);
    void ShowTexts();
    void ReloadFromValue();
    void FillTable(const Ranges &ranges);
    void WriteCell(int row, int column, double value);
    double ReadCell(int row, int column) const;
    RangeCellText Text() const { return RangeCellText(UnitScale, locale()); }
    QString Misreading(const QString &text) const;
    void TellReading(QWidget *editor, const QString &text) const;
    Ranges CollectRanges() const;
    void StoreRanges(const Ranges &ranges);
    void UpdateActions();
    /// False when an observer of the map has ended the table meanwhile.
    bool FinishEditing();
    /// Keeps the rows of an ascending list, and removes all others.
    template <class Iterator> void KeepRows(Iterator row, Iterator end);

    // Rows at or below which none can be deleted, and rows at which none can be added, where 0 is no limit.
    int MinRows = 0;
    int MaxRows = 0;
    // Above 0 while the table itself writes cells.
    int UpdateDepth = 0;
    bool StoreOnEdit = false;
    // Hz per unit of the display and of a number without a unit: a power of 1000 up to 1e9.
    double UnitScale = 1000.0;
    ValueObservingPtr<ValueCommentedRangeMap> RangeMap{this};
    QAction *DeleteAction;
    QAction *NewAction;
};

} // namespace KV218
