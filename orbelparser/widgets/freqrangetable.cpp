#include "freqrangetable.h"

#include "celledit.h"
#include "cellitemdelegate.h"
#include "fieldnote.h"
#include "survives.h"
#include "tablefont.h"
#include "tablekeys.h"
#include "tree.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <vector>

namespace KV218
{

/// Draws frequencies as fields show them, and tells while a text is typed how the table will read it.
class FreqRangeTable::Cells : public CellItemDelegate
{
public:
    explicit Cells(FreqRangeTable *table) : CellItemDelegate(table), Table(table) { }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QWidget *editor = CellItemDelegate::createEditor(parent, option, index);
        if (auto *field = qobject_cast<QLineEdit *>(editor))
            connect(field, &QLineEdit::textEdited, Table,
                [this, field](const QString &text) { Table->TellReading(field, text); });
        return editor;
    }
    QString displayText(const QVariant &value, const QLocale &) const override
    {
        const RangeCellText text = Table->Text();
        return text.SpellAsFields(text.Read(value.toString()));
    }

private:
    FreqRangeTable *Table;
};

FreqRangeTable::FreqRangeTable(QWidget *parent) : QTableWidget(0, 0, parent)
{
    constexpr int MinimumSize = 50;
    setObjectName(QStringLiteral("FreqRangeTable"));
    setMinimumSize(MinimumSize, MinimumSize);
    setColumnCount(2);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setItemDelegate(new Cells(this));
    new TableKeys(this);
    FollowTableFont(this);
    NewAction = AddAction(QStringLiteral("ListBoxNew"), QKeySequence(int(Qt::CTRL) + Qt::Key_W));
    connect(NewAction, &QAction::triggered, this, &FreqRangeTable::SlotNew);
    DeleteAction = AddAction(QStringLiteral("ListBoxDelete"), QKeySequence(Qt::Key_Delete));
    connect(DeleteAction, &QAction::triggered, this, &FreqRangeTable::SlotDelete);
    for (QWidget *widget : std::initializer_list<QWidget *>{this, horizontalHeader(), verticalHeader()})
        widget->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(this, &QTableWidget::cellChanged, this, &FreqRangeTable::SlotValueChanged);
    ShowTexts();
    UpdateActions();
}

void FreqRangeTable::ShowTexts()
{
    setAccessibleName(tr("Excluded ranges"));
    setHorizontalHeaderLabels({tr("min"), tr("max")});
    NewAction->setText(tr("&New row"));
    NewAction->setStatusTip(tr("Create a new row in the list box"));
    DeleteAction->setText(tr("&Delete row"));
    DeleteAction->setStatusTip(tr("Delete the selected element in the row"));
}

void FreqRangeTable::changeEvent(QEvent *event)
{
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        ShowTexts();
}

QAction *FreqRangeTable::AddAction(const QString &name, const QKeySequence &shortcut)
{
    auto *action = new QAction(this);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    for (QWidget *widget : std::initializer_list<QWidget *>{this, horizontalHeader(), verticalHeader()})
        widget->addAction(action);
    return action;
}

bool FreqRangeTable::AttachToValue(const QString &path)
{
    return AttachToNode(dynamic_cast<ValueCommentedRangeMap *>(Tree::Instance()->GetNode(path)));
}

bool FreqRangeTable::AttachToNode(ValueCommentedRangeMap *node)
{
    StoreOnEdit = false;
    RangeMap.AttachNode(node);
    if (RangeMap)
        ReloadFromValue();
    setEnabled(RangeMap && RangeMap->GetState() == ekStateUsable);
    return bool(RangeMap);
}

void FreqRangeTable::StoreToValue()
{
    if (FinishEditing())
        StoreRanges(CollectRanges());
}

void FreqRangeTable::Update(Observable *source, TChangeCode code)
{
    if (!RangeMap || source != RangeMap.get())
        return;
    if (code == ekChangeState && RangeMap->GetState() == ekStateDeleted)
        setEnabled(false);
    else if (code == ekChangeValue || code == ekChangeItemSet || code == ekChangeContent || code == ekChangeItemErased)
        ReloadFromValue();
}

void FreqRangeTable::ReloadFromValue()
{
    Ranges ranges;
    for (const auto &entry : RangeMap->data())
        ranges.push_back(entry.second);
    // Meant: a reload discards the edit in progress.
    FillTable(ranges);
}

void FreqRangeTable::FillTable(const Ranges &ranges)
{
    const QScopedValueRollback<int> depth(UpdateDepth, UpdateDepth + 1);
    const QModelIndex before = currentIndex();
    clearContents();
    // Meant: never empty; the operator has a row to start with, and storing it untouched stores the range from 0 to 0.
    const Ranges shown = ranges.empty() ? Ranges(1) : ranges;
    setRowCount(int(shown.size()));
    int row = 0;
    for (const CommentedRange &range : shown) {
        WriteCell(row, 0, range.GetRangeStart());
        WriteCell(row, 1, range.GetRangeStop());
        ++row;
    }
    clearSpans();
    resizeRowsToContents();
    UpdateActions();
    selectionModel()->setCurrentIndex(model()->index(before.row(), before.column()), QItemSelectionModel::NoUpdate);
}

void FreqRangeTable::WriteCell(int row, int column, double value)
{
    setItem(row, column, new QTableWidgetItem(Text().Spell(value)));
}

double FreqRangeTable::ReadCell(int row, int column) const
{
    const QTableWidgetItem *cell = item(row, column);
    return cell ? Text().Read(cell->text()) : 0.0;
}

QString FreqRangeTable::Misreading(const QString &text) const
{
    return tr("\"%1\" is read as %2").arg(text, Text().SpellAsFields(Text().Read(text)));
}

void FreqRangeTable::TellReading(QWidget *editor, const QString &text) const
{
    const double frequency = Text().Read(text);
    const QString spelled = Text().SpellAsFields(frequency);
    const bool isSpelled = text == Text().Spell(frequency);
    if (!Text().IsReadAsMeant(text))
        Orbel::FieldNote::Show(editor, tr("is read as %1").arg(spelled), Orbel::FieldNote::Refused);
    else
        Orbel::FieldNote::Show(
            editor, isSpelled ? QString() : QStringLiteral("= ") + spelled, Orbel::FieldNote::Understood);
}

FreqRangeTable::Ranges FreqRangeTable::CollectRanges() const
{
    Ranges ranges;
    for (int row = 0; row < rowCount(); ++row) {
        CommentedRange range;
        // Meant: ids count the rows as they stand, and sorting does not change them.
        range.SetID(unsigned(row));
        range.SetRangeStart(ReadCell(row, 0));
        range.SetRangeStop(ReadCell(row, 1));
        ranges.push_back(range);
    }
    ranges.sort();
    return ranges;
}

void FreqRangeTable::StoreRanges(const Ranges &ranges)
{
    if (RangeMap)
        RangeMap->Set(ranges, true, false, this);
}

void FreqRangeTable::UpdateActions()
{
    NewAction->setEnabled(MaxRows <= 0 || rowCount() < MaxRows);
    DeleteAction->setEnabled(rowCount() > 0 && rowCount() > MinRows);
}

bool FreqRangeTable::FinishEditing()
{
    // A mnemonic of the dialog acts without taking the focus, which would end the edit.
    return Orbel::Survives(this, [this] { FinishCellEdit(this); });
}

void FreqRangeTable::SlotSortByStartFrequencies()
{
    if (!FinishEditing())
        return;
    const Ranges ranges = CollectRanges();
    FillTable(ranges);
    if (StoreOnEdit)
        StoreRanges(ranges);
}

void FreqRangeTable::SlotValueChanged(int row, int column)
{
    if (UpdateDepth != 0)
        return;
    const QTableWidgetItem *typed = item(row, column);
    const QString misread = typed && !Text().IsReadAsMeant(typed->text()) ? Misreading(typed->text()) : QString();
    {
        const QScopedValueRollback<int> depth(UpdateDepth, 1);
        WriteCell(row, column, ReadCell(row, column));
        item(row, column)->setToolTip(misread);
    }
    constexpr int longEnough = 4000;
    Orbel::FieldNote::Tell(
        viewport(), misread, longEnough, Orbel::FieldNote::Refused, visualItemRect(item(row, column)));
    // The other rows have their height: measuring them all again at each cell would hold up a paste.
    resizeRowToContents(row);
    UpdateActions();
    if (StoreOnEdit)
        StoreRanges(CollectRanges());
}

void FreqRangeTable::SlotNew()
{
    if (!FinishEditing())
        return;
    const int row = rowCount();
    {
        const QScopedValueRollback<int> depth(UpdateDepth, UpdateDepth + 1);
        setRowCount(row + 1);
        WriteCell(row, 0, 0.0);
        WriteCell(row, 1, 0.0);
        resizeRowToContents(row);
        UpdateActions();
    }
    // Typing goes into the new row; with the key of its shortcut held, setCurrentCell() would add to the selection.
    selectionModel()->setCurrentIndex(model()->index(row, 0), QItemSelectionModel::ClearAndSelect);
    if (StoreOnEdit)
        StoreToValue();
}

void FreqRangeTable::SlotDelete()
{
    if (!FinishEditing())
        return;
    const QModelIndexList selected = selectionModel()->selection().indexes();
    if (selected.isEmpty())
        return;
    std::vector<int> cells(static_cast<size_t>(rowCount()));
    for (const QModelIndex &index : selected)
        ++cells[size_t(index.row())];
    // From the last row to the first.
    std::vector<int> staying;
    for (int row = rowCount() - 1; row >= 0; --row) {
        staying.push_back(row);
        // Meant: a row with both cells selected goes twice, and so the row with it that moves up to its place.
        for (int i = cells[size_t(row)]; i > 0 && !staying.empty(); --i)
            staying.pop_back();
    }
    KeepRows(staying.rbegin(), staying.rend());
    UpdateActions();
    if (StoreOnEdit)
        StoreToValue();
}

template <class Iterator> void FreqRangeTable::KeepRows(Iterator row, Iterator end)
{
    const QScopedValueRollback<int> depth(UpdateDepth, UpdateDepth + 1);
    clearSelection();
    // Items move up, since each row that is removed alone costs as much as the table is long.
    int kept = 0;
    for (; row != end; ++row, ++kept) {
        for (int column = 0; column < columnCount() && *row != kept; ++column)
            setItem(kept, column, takeItem(*row, column));
    }
    setRowCount(kept);
}

} // namespace KV218
