#include "textsize.h"

#include <QPointer>
#include <QRegularExpression>
#include <QWidget>

namespace KV218
{

namespace
{

bool IsTextSize(const QString &styleSheet)
{
    static const QRegularExpression size(QStringLiteral("^font-size: \\d+pt;$"));
    return size.match(styleSheet).hasMatch();
}

void SetSizeOf(QWidget *widget, int size)
{
    if (widget->styleSheet().isEmpty()) {
        QFont font = widget->font();
        font.setPointSize(size);
        widget->setFont(font);
        return;
    }
    // A new sheet of a widget that is not polished yet is never read, once a child has come across the old one.
    const QPointer<QWidget> polished = widget;
    widget->ensurePolished();
    // Meant: the whole style sheet is replaced; what a host has set there is lost.
    if (polished)
        widget->setStyleSheet(QStringLiteral("font-size: %1pt;").arg(size));
}

/// A size from before there was a parent would stand against the parent's.
void FollowParent(QWidget *frame, int size)
{
    if (IsTextSize(frame->styleSheet())) {
        // Taken away, the sheet would leave its size in the viewport of the scroll area.
        SetSizeOf(frame, size);
    } else if (frame->testAttribute(Qt::WA_SetFont)) {
        QFont font = frame->font();
        font.resolve(font.resolve() & ~uint(QFont::SizeResolved));
        frame->setFont(font);
    }
}

} // namespace

void SetTextSize(QWidget *frame, int size)
{
    const QPointer<QWidget> target = frame->parentWidget() ? frame->parentWidget() : frame;
    if (target != frame)
        FollowParent(frame, size);
    if (target)
        SetSizeOf(target, size);
}

} // namespace KV218
