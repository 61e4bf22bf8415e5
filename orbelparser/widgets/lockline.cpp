#include "lockline.h"

#include "changesbutton.h"

#include <QEvent>
#include <QLayout>
#include <QPainter>
#include <QStyle>

namespace KV218
{

// Between the edge of the note and its letters.
static constexpr int Margin = 4;

LockLine::LockLine(QWidget *form, QWidget *view, QWidget *row) : QLabel(form), View(view), Row(row)
{
    setObjectName(QStringLiteral("lockLine"));
    // A reason of a host's is no markup.
    setTextFormat(Qt::PlainText);
    QWidget *const behind = row ? row->findChild<ChangesButton *>() : nullptr;
    for (QWidget *part : {view, row, behind}) {
        if (part)
            part->installEventFilter(this);
    }
    hide();
}

void LockLine::SetReason(const QString &reason)
{
    setText(reason.simplified());
    // Told to be markup, or an escaped "&" would be shown as it is escaped.
    setToolTip(reason.isEmpty() ? QString() : QStringLiteral("<html>") + reason.toHtmlEscaped());
    Place();
}

bool LockLine::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::FontChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::LayoutRequest:
        Place();
        break;
    default:
        break;
    }
    return false;
}

/// In the parent's pixels; empty where there is no room for it.
QRect LockLine::PlaceInRow() const
{
    // A row that is destroyed loses its layout first.
    if (!Row || !Row->layout())
        return QRect();
    const int spacing = fontMetrics().horizontalAdvance(QLatin1Char('x'));
    const int first = Row->layout()->sizeHint().width() + spacing;
    const auto *behind = Row->findChild<ChangesButton *>();
    const int taken = behind && !behind->isHidden() ? behind->width() + spacing : 0;
    const QRect place(first, 0, Row->width() - taken - first, Row->height());
    const bool fits = place.width() > fontMetrics().horizontalAdvance(QStringLiteral("xxx\u2026"));
    return fits ? QStyle::visualRect(layoutDirection(), Row->rect(), place).translated(Row->pos()) : QRect();
}

QRect LockLine::PlaceInView() const
{
    if (!View)
        return QRect();
    const QRect view(View->mapTo(parentWidget(), QPoint()), View->size());
    const int height = fontMetrics().height() + Margin;
    const int width = qMin(view.width(), fontMetrics().horizontalAdvance(text()) + 2 * Margin + 1);
    const QRect place(view.left(), view.bottom() + 1 - height, width, height);
    return QStyle::visualRect(layoutDirection(), view, place);
}

void LockLine::Place()
{
    const QRect inRow = PlaceInRow();
    IsInRow = !inRow.isEmpty();
    setGeometry(IsInRow ? inRow : PlaceInView());
    setVisible(!text().isEmpty());
    raise();
}

/// In the colours of a row that is not locked: it is the one thing there that is to be read.
void LockLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QRect letters = rect();
    if (!IsInRow) {
        painter.setPen(palette().color(QPalette::Active, QPalette::ToolTipText));
        painter.setBrush(palette().color(QPalette::Active, QPalette::ToolTipBase));
        painter.drawRect(letters.adjusted(0, 0, -1, -1));
        letters.adjust(Margin, 0, -Margin, 0);
    } else {
        painter.setPen(palette().color(QPalette::Active, QPalette::WindowText));
    }
    const int flags = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) | int(Qt::AlignVCenter);
    painter.drawText(letters, flags, fontMetrics().elidedText(text(), Qt::ElideRight, letters.width()));
}

} // namespace KV218
