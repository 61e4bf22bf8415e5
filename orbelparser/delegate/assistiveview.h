#pragma once

#include "assistiveproxy.h"

#include <QPointer>
#include <QWidget>

namespace KV218
{

/// What an assistive tool sees of a widget in a form: all that Qt tells of it, with the name, the description and the
/// label that Assistive knows. Qt owns it and destroys it with the widget.
class AssistiveView : public AssistiveProxy
{
public:
    /// For QAccessible::installFactory().
    static QAccessibleInterface *Make(const QString &className, QObject *object);
    /// Puts one in the place of Qt's own view of a widget in a form.
    static void Renew(QWidget *widget);

    bool isValid() const override { return Seen && AssistiveProxy::isValid(); }
    QObject *object() const override { return Seen; }
    QVector<QPair<QAccessibleInterface *, QAccessible::Relation>> relations(
        QAccessible::Relation match = QAccessible::AllRelations) const override;
    QAccessibleInterface *focusChild() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

protected:
    explicit AssistiveView(QAccessible::Id inner) : AssistiveProxy(inner) { }
    ~AssistiveView() override;

private:
    static void ClearPlace(QWidget *widget);

    QPointer<QWidget> Seen;
    mutable bool AsksForFocus = false;
};

} // namespace KV218
