#pragma once

#include <QAccessible>
#include <QColor>

namespace KV218
{

/// A view for assistive tools that tells what Qt's own view of the same thing tells.
class AssistiveProxy : public QAccessibleInterface
{
public:
    bool isValid() const override { return Inner() && Inner()->isValid(); }
    QObject *object() const override { return Inner()->object(); }
    QWindow *window() const override { return Inner()->window(); }
    QAccessibleInterface *childAt(int x, int y) const override { return Inner()->childAt(x, y); }
    QAccessibleInterface *parent() const override { return Inner()->parent(); }
    QAccessibleInterface *child(int index) const override { return Inner()->child(index); }
    int childCount() const override { return Inner()->childCount(); }
    int indexOfChild(const QAccessibleInterface *child) const override { return Inner()->indexOfChild(child); }
    QString text(QAccessible::Text kind) const override { return Inner()->text(kind); }
    void setText(QAccessible::Text kind, const QString &text) override { Inner()->setText(kind, text); }
    QRect rect() const override { return Inner()->rect(); }
    QAccessible::Role role() const override { return Inner()->role(); }
    QAccessible::State state() const override { return Inner()->state(); }
    QColor foregroundColor() const override { return Inner()->foregroundColor(); }
    QColor backgroundColor() const override { return Inner()->backgroundColor(); }
    void *interface_cast(QAccessible::InterfaceType type) override { return Inner()->interface_cast(type); }

protected:
    /// `inner` is the number of Qt's own view, for Qt may delete that first.
    explicit AssistiveProxy(QAccessible::Id inner) : InnerId(inner) { }

    /// Qt's own view; null once that is gone.
    QAccessibleInterface *Inner() const { return QAccessible::accessibleInterface(InnerId); }

    const QAccessible::Id InnerId;
};

} // namespace KV218
