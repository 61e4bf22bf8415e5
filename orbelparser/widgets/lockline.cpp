#include "lockline.h"

#include <QEvent>
#include <QLayout>
#include <QPainter>
#include <QStyle>

namespace KV218
{

LockLine::LockLine(QWidget *row, QWidget *behind) : QLabel(row), Behind(behind)
{
    setObjectName(QStringLiteral("lockLine"));
    // A reason of a host's is no markup.
    setTextFormat(Qt::PlainText);
    row->installEventFilter(this);
    if (behind)
        behind->installEventFilter(this);
    hide();
}

void LockLine::SetReason(const QString &reason)
{
    setText(reason.simplified());
    setToolTip(reason.toHtmlEscaped());
    Place();
}

bool LockLine::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::LayoutDirectionChange:
    case QEvent::LayoutRequest:
        Place();
        break;
    default:
        break;
    }
    return QLabel::eventFilter(watched, event);
}

void LockLine::Place()
{
    QWidget *row = parentWidget();
    // A row that is destroyed loses its layout first.
    if (!row->layout())
        return;
    const int spacing = fontMetrics().horizontalAdvance(QLatin1Char('x'));
    const int first = row->layout()->sizeHint().width() + spacing;
    const int taken = Behind && !Behind->isHidden() ? Behind->width() + spacing : 0;
    const QRect place(first, 0, row->width() - taken - first, row->height());
    const bool fits = place.width() > fontMetrics().horizontalAdvance(QStringLiteral("xxx\u2026"));
    if (fits)
        setGeometry(QStyle::visualRect(row->layoutDirection(), row->rect(), place));
    setVisible(fits && !text().isEmpty());
}

/// In the colours of a row that is not locked: it is the one thing there that is to be read.
void LockLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Active, QPalette::WindowText));
    const int flags = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) | int(Qt::AlignVCenter);
    painter.drawText(rect(), flags, fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}

} // namespace KV218
