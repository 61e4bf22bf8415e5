#include "rowlabel.h"

#include <QPainter>

RowLabel::RowLabel(const QString &text, QWidget *parent) : QLabel(text, parent) { }

void RowLabel::SetMarked(bool marked)
{
    if (marked == Marked)
        return;
    Marked = marked;
    update();
}

void RowLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!Marked)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().brush(QPalette::Highlight));
    constexpr int diameter = 5;
    painter.drawEllipse(QRect(width() - diameter, 0, diameter, diameter));
}
