#include "changesbutton.h"

#include "formchanges.h"
#include "orbeldelegate.h"

#include <QEvent>
#include <QLayout>
#include <QMenu>
#include <QStyle>
#include <QUndoStack>

namespace KV218
{

namespace
{

constexpr int MostListed = 30; // controls, of those that have changed, and of those where the device differs

/// Shown in a menu as it stands: `&` marks no letter there. A key is only told, the form itself listens to it.
QString MenuText(QString text, const QKeySequence &key = QKeySequence())
{
    text.replace(QLatin1Char('&'), QLatin1String("&&"));
    return key.isEmpty() ? text : text + QLatin1Char('\t') + key.toString(QKeySequence::NativeText);
}

/// An entry that does `act`, of an object that may go before. Queued: Qt's menus do not survive a form that ends by it.
template <class Receiver, class Act>
void AddEntry(QMenu *menu, const QString &text, bool enabled, Receiver *receiver, const Act &act)
{
    QAction *entry = menu->addAction(text);
    entry->setEnabled(enabled);
    QObject::connect(entry, &QAction::triggered, receiver, act, Qt::QueuedConnection);
}

} // namespace

ChangesButton::ChangesButton(QWidget *row, FormChanges *changes) : QToolButton(row), Changes(changes)
{
    setObjectName(QStringLiteral("changesButton"));
    setAutoRaise(true);
    // Leaving a field by a click commits what is typed there, so that the menu knows it.
    setFocusPolicy(Qt::StrongFocus);
    row->installEventFilter(this);
    connect(this, &QToolButton::clicked, this, &ChangesButton::OpenMenu, Qt::QueuedConnection);
    connect(changes, &FormChanges::changed, this, &ChangesButton::Refresh);
    Refresh();
}

bool ChangesButton::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutDirectionChange
        || event->type() == QEvent::LayoutRequest)
        Place();
    return QToolButton::eventFilter(watched, event);
}

void ChangesButton::changeEvent(QEvent *event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Refresh();
    else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Place();
}

void ChangesButton::Refresh()
{
    const int count = Changes ? Changes->GetChanged().size() : 0;
    setText(QString::number(count));
    // Reads well for one, too, where no catalogue has the plural.
    setToolTip(tr("Changes that wait to be applied: %n", nullptr, count));
    setAccessibleName(tr("Changes"));
    Place();
}

void ChangesButton::Place()
{
    if (!Changes)
        return;
    QWidget *row = parentWidget();
    const QSize size(sizeHint().width(), qMin(sizeHint().height(), row->height()));
    // The row's own parts end where their hints end; the rest of the last one is empty.
    const int taken = row->layout()->sizeHint().width();
    const bool fits = taken + size.width() <= row->width();
    const QRect place(QPoint(row->width() - size.width(), (row->height() - size.height()) / 2), size);
    setGeometry(QStyle::visualRect(row->layoutDirection(), row->rect(), place));
    const QUndoStack *stack = Changes->GetStack();
    const bool hasEntries = text() != QLatin1String("0") || stack->canUndo() || stack->canRedo();
    setVisible(fits && (hasEntries || !Changes->GetDiffering().isEmpty()));
    raise();
}

void ChangesButton::OpenMenu()
{
    if (!Changes)
        return;
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("changesMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillMenu(menu);
    menu->popup(mapToGlobal(QPoint(0, -menu->sizeHint().height())));
}

void ChangesButton::FillMenu(QMenu *menu)
{
    FormChanges *changes = Changes;
    const QUndoStack *stack = changes->GetStack();
    AddEntry(menu, MenuText(tr("Undo %1").arg(stack->undoText()).trimmed(), QKeySequence(QKeySequence::Undo)),
        stack->canUndo(), changes, &FormChanges::Undo);
    AddEntry(menu, MenuText(tr("Redo %1").arg(stack->redoText()).trimmed(), Qt::CTRL + Qt::SHIFT + Qt::Key_Z),
        stack->canRedo(), changes, &FormChanges::Redo);
    menu->addSeparator();
    AddChanges(menu);
    AddReported(menu);
    AddEntry(menu, MenuText(tr("Apply"), int(Qt::CTRL) + Qt::Key_Return), text() != QLatin1String("0"), changes,
        &FormChanges::Apply);
    AddEntry(menu, MenuText(tr("Revert all")), text() != QLatin1String("0"), changes, &FormChanges::RevertAll);
}

/// Where the device has another value than the operator, he may take it.
void ChangesButton::AddReported(QMenu *menu)
{
    const QVector<OrbelDelegate *> controls = Changes->GetDiffering();
    for (OrbelDelegate *control : controls.mid(0, MostListed)) {
        const QString text = tr("Take from the device: %1 %2").arg(control->GetCaption(), control->SpellReported());
        AddEntry(menu, MenuText(text), true, control, [control] { control->TakeReported(); });
    }
    if (!controls.isEmpty())
        menu->addSeparator();
}

void ChangesButton::AddChanges(QMenu *menu)
{
    const QVector<OrbelDelegate *> controls = Changes->GetChanged();
    for (OrbelDelegate *control : controls.mid(0, MostListed)) {
        const auto applied = control->GetApplied();
        const QString change = applied ? control->SpellChange(*applied, control->GetEdits()) : control->GetCaption();
        AddEntry(menu, MenuText(change), true, control, [control] { control->ComeIntoView(); });
    }
    if (controls.size() > MostListed)
        menu->addAction(tr("%1 more").arg(controls.size() - MostListed))->setEnabled(false);
    if (!controls.isEmpty())
        menu->addSeparator();
}

} // namespace KV218
