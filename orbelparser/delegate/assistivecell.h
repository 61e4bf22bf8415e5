#pragma once

#include <QAccessible>

class QAbstractItemView;

namespace KV218
{

/// What an assistive tool sees of a cell: all that Qt tells of it, and where it stands. That is the name of a cell that
/// shows nothing, and the description of one that shows something.
class AssistiveCell : public QAccessibleInterface
{
public:
    /// `inner` is the number of Qt's own view of the cell, which goes when the table changes its shape.
    explicit AssistiveCell(QAccessible::Id inner) : InnerId(inner) { }

    /// Qt's own view; null once that is gone.
    QAccessibleInterface *Inner() const { return QAccessible::accessibleInterface(InnerId); }

    bool isValid() const override { return Inner() && Inner()->isValid(); }
    QObject *object() const override { return Inner()->object(); }
    QWindow *window() const override { return Inner()->window(); }
    QAccessibleInterface *childAt(int x, int y) const override { return Inner()->childAt(x, y); }
    QAccessibleInterface *parent() const override { return Inner()->parent(); }
    QAccessibleInterface *child(int index) const override { return Inner()->child(index); }
    int childCount() const override { return Inner()->childCount(); }
    int indexOfChild(const QAccessibleInterface *child) const override { return Inner()->indexOfChild(child); }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override { Inner()->setText(kind, text); }
    QRect rect() const override { return Inner()->rect(); }
    QAccessible::Role role() const override { return Inner()->role(); }
    QAccessible::State state() const override { return Inner()->state(); }
    void *interface_cast(QAccessible::InterfaceType type) override { return Inner()->interface_cast(type); }

private:
    const QAccessible::Id InnerId;
};

} // namespace KV218
