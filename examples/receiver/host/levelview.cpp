#include "levelview.h"

#include <QLocale>
#include <QPainter>
#include <QPainterPath>

LevelView::LevelView() : Levels(600, qQNaN())
{
    setMinimumSize(280, 160);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void LevelView::Add(double level, double frequency)
{
    Levels.removeFirst();
    Levels.append(level);
    Frequency = frequency;
    update();
}

void LevelView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(40, 60, -12, -16);
    const auto y = [&](double level) { return area.bottom() - (level + 30) / 110 * area.height(); };
    for (int level = -20; level <= 80; level += 20) {
        painter.setPen(QColor(128, 128, 128, 80));
        painter.drawLine(QLineF(area.left(), y(level), area.right(), y(level)));
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QRectF(0, y(level) - 20, 34, 40), Qt::AlignRight | Qt::AlignVCenter, QString::number(level));
    }

    QPainterPath line;
    bool goesOn = false;
    for (int place = 0; place < Levels.size(); ++place) {
        const QPointF point(area.left() + area.width() * place / (Levels.size() - 1), y(Levels.at(place)));
        if (!qIsNaN(Levels.at(place)))
            goesOn ? line.lineTo(point) : line.moveTo(point);
        goesOn = !qIsNaN(Levels.at(place));
    }
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawPath(line);

    if (!goesOn)
        return;
    QFont large = font();
    large.setPointSizeF(2 * large.pointSizeF());
    painter.setFont(large);
    painter.setPen(palette().color(QPalette::Text));
    const QRectF title = QRectF(rect()).adjusted(12, 10, -12, 0);
    painter.drawText(title, Qt::AlignLeft, locale().toString(Frequency / 1e6, 'f', 3) + " MHz");
    painter.drawText(title, Qt::AlignRight, locale().toString(Levels.last(), 'f', 1) + " dBµV");
}
