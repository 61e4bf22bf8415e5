#include "glyphbutton.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace Orbel
{

/// In a square of 16.
static QPainterPath PathOf(GlyphButton::Glyph glyph)
{
    QPainterPath path;
    switch (glyph) {
    case GlyphButton::Up:
        path.addPolygon(QPolygonF({{3.5, 10.5}, {8, 5.5}, {12.5, 10.5}}));
        break;
    case GlyphButton::Down:
        path.addPolygon(QPolygonF({{3.5, 5.5}, {8, 10.5}, {12.5, 5.5}}));
        break;
    case GlyphButton::Pencil:
        path.addPolygon(QPolygonF({{2.5, 13.5}, {3.3, 10.2}, {10.5, 3}, {13, 5.5}, {5.8, 12.7}, {2.5, 13.5}}));
        path.moveTo(8.7, 4.8);
        path.lineTo(11.2, 7.3);
        break;
    case GlyphButton::Clock:
        path.arcMoveTo(2.5, 2.5, 11, 11, 160);
        path.arcTo(2.5, 2.5, 11, 11, 160, -320);
        path.addPolygon(QPolygonF({{2.4, 2.4}, {2.9, 6.1}, {6.6, 5.6}}));
        path.addPolygon(QPolygonF({{8, 5}, {8, 8.3}, {10.6, 9.6}}));
        break;
    }
    return path;
}

GlyphButton::GlyphButton(Glyph glyph, QWidget *parent) : QToolButton(parent), Sign(glyph)
{
    setAutoRaise(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

/// So low that two of them stand beside one large field.
QSize GlyphButton::sizeHint() const
{
    const int line = QFontMetrics(font()).height();
    return {line + 4, line * 3 / 4};
}

void GlyphButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    const QRectF ground = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool hovered = isEnabled() && option.state.testFlag(QStyle::State_MouseOver);
    if (hovered || isDown()) {
        QColor tint = ink;
        tint.setAlphaF(isDown() ? 0.25 : 0.12);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(ground, 3, 3);
    }
    painter.setBrush(Qt::NoBrush);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(ground, 3, 3);
    }
    constexpr double grid = 16;
    const double side = qMin(qMin(width(), height()) - 2.0, QFontMetrics(font()).height() * 0.9);
    painter.translate(ground.center());
    painter.scale(side / grid, side / grid);
    painter.translate(-grid / 2, -grid / 2);
    painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(PathOf(Sign));
}

} // namespace Orbel
