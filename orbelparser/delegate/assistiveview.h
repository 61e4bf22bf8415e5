#pragma once

#include <QAccessible>
#include <QPointer>
#include <QWidget>

namespace KV218
{

/// What an assistive tool sees of a widget in a form: all that Qt tells of it, with the name, the description and the
/// label that Assistive knows. Qt owns it and destroys it with the widget.
class AssistiveView : public QAccessibleInterface
{
public:
    /// For QAccessible::installFactory().
    static QAccessibleInterface *Make(const QString &className, QObject *object);
    /// Puts one in the place of Qt's own view of a widget in a form.
    static void Renew(QWidget *widget);

    bool isValid() const override { return Seen && Inner() && Inner()->isValid(); }
    QObject *object() const override { return Seen; }
    QWindow *window() const override { return Inner()->window(); }
    QVector<QPair<QAccessibleInterface *, QAccessible::Relation>> relations(
        QAccessible::Relation match = QAccessible::AllRelations) const override;
    QAccessibleInterface *focusChild() const override;
    QAccessibleInterface *childAt(int x, int y) const override { return Inner()->childAt(x, y); }
    QAccessibleInterface *parent() const override { return Inner()->parent(); }
    QAccessibleInterface *child(int index) const override { return Inner()->child(index); }
    int childCount() const override { return Inner()->childCount(); }
    int indexOfChild(const QAccessibleInterface *child) const override { return Inner()->indexOfChild(child); }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override { Inner()->setText(kind, text); }
    QRect rect() const override { return Inner()->rect(); }
    QAccessible::Role role() const override { return Inner()->role(); }
    QAccessible::State state() const override;
    QColor foregroundColor() const override { return Inner()->foregroundColor(); }
    QColor backgroundColor() const override { return Inner()->backgroundColor(); }
    void *interface_cast(QAccessible::InterfaceType type) override { return Inner()->interface_cast(type); }

protected:
    explicit AssistiveView(QAccessible::Id inner) : InnerId(inner) { }
    ~AssistiveView() override;

    QAccessibleInterface *Inner() const { return QAccessible::accessibleInterface(InnerId); }

private:
    static void ClearPlace(QWidget *widget);

    QPointer<QWidget> Seen;
    /// Qt's own view of the widget; by its number, since at the end of the application Qt may delete that first.
    QAccessible::Id InnerId;
    mutable bool AsksForFocus = false;
};

} // namespace KV218
