#include "tablekeys.h"

#include "face.h"
#include "fieldnote.h"
#include "orbeldelegate.h"
#include "typedspinbox.h"
#include "typingundo.h"

#include <QAbstractItemDelegate>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMetaProperty>
#include <QPointer>
#include <QTableWidget>

#include <optional>

namespace KV218
{

namespace
{

constexpr QLatin1Char CellEnd('\t');
constexpr QLatin1Char LineEnd('\n');

/// The selected cells, or the current one when none is selected.
QItemSelection ChosenCells(const QTableWidget &table)
{
    QItemSelection chosen = table.selectionModel()->selection();
    if (chosen.isEmpty() && table.currentIndex().isValid())
        chosen.select(table.currentIndex(), table.currentIndex());
    return chosen;
}

/// The smallest rectangle of cells around a selection; x counts columns, y rows.
QRect Bounds(const QItemSelection &selection)
{
    QRect bounds;
    for (const QItemSelectionRange &range : selection)
        bounds |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    return bounds;
}

QString CellText(const QModelIndex &cell)
{
    QString text = cell.data(Qt::DisplayRole).toString();
    return text.replace(CellEnd, QLatin1Char(' ')).replace(LineEnd, QLatin1Char(' '));
}

/// Lets the cell's editor take the text; false when it refuses. `note` gets what it makes another one of, if it does.
bool FillEditor(QWidget *editor, const QString &text, QString *note)
{
    if (auto *spin = qobject_cast<Orbel::TypedSpinBox *>(editor))
        return spin->Enter(text, note);
    return editor->metaObject()->userProperty().write(editor, text);
}

void EnterText(const QPointer<QTableWidget> &table, const QModelIndex &cell, const QString &text)
{
    QStyleOptionViewItem option;
    option.initFrom(table);
    QAbstractItemDelegate *delegate = table->itemDelegate();
    // The editor is destroyed with the table when a slot of the change ends it.
    const QPointer<QWidget> editor(delegate->createEditor(table->viewport(), option, cell));
    QString note;
    const bool isTaken = editor && FillEditor(editor, text, &note);
    if (isTaken)
        delegate->setModelData(editor, table->model(), cell);
    delete editor;
    if (table && !isTaken && !text.isEmpty())
        Orbel::FieldNote::TellDropped(table->viewport(), text, table->visualRect(cell));
    else if (table && !note.isEmpty())
        Orbel::FieldNote::Tell(table->viewport(), note, 2000, Orbel::FieldNote::Refused, table->visualRect(cell));
}

} // namespace

TableKeys::TableKeys(QTableWidget *table, OrbelDelegate *control) : QObject(table), Table(table), Control(control)
{
    table->setTabKeyNavigation(false);
    table->installEventFilter(this);
    table->viewport()->installEventFilter(this);
}

/// The editors of cells are children of the viewport.
bool TableKeys::FilterEditor(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ChildPolished && watched == Table->viewport())
        NameEditor(qobject_cast<QWidget *>(static_cast<QChildEvent *>(event)->child()));
    if (event->type() == QEvent::ChildAdded && watched == Table->viewport())
        static_cast<QChildEvent *>(event)->child()->installEventFilter(this);
    auto *spin = qobject_cast<QDoubleSpinBox *>(watched);
    const auto *field = spin ? spin->findChild<QLineEdit *>() : qobject_cast<QLineEdit *>(watched);
    const bool leaves = field && Orbel::LeavesUndoToForm(*field, *event);
    if (leaves)
        event->ignore();
    return leaves;
}

bool TableKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != Table)
        return FilterEditor(watched, event);
    // The override comes first and keeps the keys from shortcuts of the window.
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    void (TableKeys::*act)() = nullptr;
    if (key->matches(QKeySequence::Copy))
        act = &TableKeys::Copy;
    else if (key->matches(QKeySequence::Paste))
        act = &TableKeys::Paste;
    else if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier)
        act = &TableKeys::OpenMenu;
    if (!act)
        return QObject::eventFilter(watched, event);
    event->accept();
    if (event->type() == QEvent::KeyPress)
        (this->*act)();
    return true;
}

void TableKeys::NameEditor(QWidget *editor)
{
    const QModelIndex cell = editor ? Table->indexAt(editor->geometry().center()) : QModelIndex();
    if (cell.isValid())
        editor->setAccessibleName(CellPlace(*Table->model(), cell.row(), cell.column()));
}

void TableKeys::Copy()
{
    const QItemSelection chosen = ChosenCells(*Table);
    const QRect bounds = Bounds(chosen);
    QStringList lines;
    for (int row = bounds.top(); row <= bounds.bottom(); ++row) {
        QStringList texts;
        for (int column = bounds.left(); column <= bounds.right(); ++column) {
            const QModelIndex cell = Table->model()->index(row, column);
            texts.append(chosen.contains(cell) ? CellText(cell) : QString());
        }
        lines.append(texts.join(CellEnd));
    }
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(LineEnd));
}

void TableKeys::Paste()
{
    const QRect bounds = Bounds(ChosenCells(*Table));
    QStringList lines = QGuiApplication::clipboard()->text().remove(QLatin1Char('\r')).split(LineEnd);
    if (lines.last().isEmpty())
        lines.removeLast();
    const QPointer<QTableWidget> table(Table);
    std::optional<OrbelDelegate::OperatorChange> change;
    if (Control)
        change.emplace(Control);
    for (int i = 0; i < lines.size(); ++i) {
        const QStringList texts = lines.at(i).split(CellEnd);
        for (int j = 0; j < texts.size() && table; ++j) {
            const QModelIndex cell = table->model()->index(bounds.top() + i, bounds.left() + j);
            if (cell.flags() & Qt::ItemIsEditable)
                EnterText(table, cell, texts.at(j));
        }
    }
}

void TableKeys::OpenMenu()
{
    const QPoint place = Table->visualRect(Table->currentIndex()).center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, Table->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(Table, &menu);
}

} // namespace KV218
