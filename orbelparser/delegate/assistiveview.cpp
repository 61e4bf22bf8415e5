#include "assistiveview.h"

#include "assistive.h"
#include "assistivetable.h"
#include "rowlabel.h"

#include <QScopedValueRollback>
#include <QTableView>

namespace KV218
{

QAccessibleInterface *AssistiveView::Make(const QString &, QObject *object)
{
    static const QObject *asking = nullptr;
    auto *widget = qobject_cast<QWidget *>(object);
    if (!Assistive::IsHeard() || !widget || widget == asking || !Assistive::Of(widget))
        return nullptr;
    const QScopedValueRollback<const QObject *> forQtsOwn(asking, widget);
    QAccessibleInterface *const inner = QAccessible::queryAccessibleInterface(widget);
    if (!inner)
        return nullptr;
    ClearPlace(widget);
    const QAccessible::Id id = QAccessible::uniqueId(inner);
    const bool isTable = qobject_cast<QTableView *>(widget) && inner->tableInterface();
    AssistiveView *const view = isTable ? new AssistiveTable(id) : new AssistiveView(id);
    view->Seen = widget;
    return view;
}

void AssistiveView::Renew(QWidget *widget)
{
    QAccessibleInterface *const view = QAccessible::queryAccessibleInterface(widget);
    if (view && !dynamic_cast<AssistiveView *>(view))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(view));
}

/// Qt keeps one view in the place of a widget, and to make the place free it deletes what it finds under a number. So
/// one comes in without a widget, takes this one on, and goes; Qt's own view stays under its number.
void AssistiveView::ClearPlace(QWidget *widget)
{
    auto *passing = new AssistiveView(0);
    const QAccessible::Id id = QAccessible::registerAccessibleInterface(passing);
    passing->Seen = widget;
    QAccessible::deleteAccessibleInterface(id);
}

AssistiveView::~AssistiveView()
{
    if (InnerId != 0)
        QAccessible::deleteAccessibleInterface(InnerId);
}

QString AssistiveView::text(QAccessible::Text kind) const
{
    const QString own = Inner()->text(kind);
    Assistive *const form = Seen ? Assistive::Of(Seen) : nullptr;
    if (form && kind == QAccessible::Name)
        return form->NameOf(Seen, own);
    return form && kind == QAccessible::Description ? form->DescriptionOf(Seen, own) : own;
}

/// Qt forgets to tell of a table that it takes the focus.
QAccessible::State AssistiveView::state() const
{
    QAccessible::State state = Inner()->state();
    if (Seen && Seen->focusPolicy() != Qt::NoFocus) {
        state.focusable = true;
        state.focused = Seen->hasFocus();
    }
    return state;
}

/// In a window that is not active, Qt's own view of the widget that will have the focus asks the view in its place,
/// which is this: without an answer from it, Qt takes the widget itself.
QAccessibleInterface *AssistiveView::focusChild() const
{
    if (AsksForFocus)
        return nullptr;
    const QScopedValueRollback<bool> asks(AsksForFocus, true);
    return Inner()->focusChild();
}

QVector<QPair<QAccessibleInterface *, QAccessible::Relation>> AssistiveView::relations(
    QAccessible::Relation match) const
{
    auto relations = Inner()->relations(match);
    Assistive *const form = Seen ? Assistive::Of(Seen) : nullptr;
    if (!form)
        return relations;
    const auto add = [&](QWidget *other, QAccessible::Relation relation) {
        if (match & relation)
            relations.append({QAccessible::queryAccessibleInterface(other), relation});
    };
    if (RowLabel *label = form->LabelOf(Seen))
        add(label, QAccessible::Label);
    if (const auto *label = dynamic_cast<const RowLabel *>(Seen.data())) {
        for (QWidget *widget : form->LabelledBy(label))
            add(widget, QAccessible::Labelled);
    }
    return relations;
}

} // namespace KV218
