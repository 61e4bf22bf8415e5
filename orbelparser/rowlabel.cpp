#include "rowlabel.h"

#include "firstline.h"

#include <QPainter>
#include <QStyle>

RowLabel::RowLabel(const QString &text, QWidget *parent) : QLabel(text, parent) { }

void RowLabel::SetMarked(bool marked)
{
    if (marked == Marked)
        return;
    Marked = marked;
    update();
}

int RowLabel::StandBeside(QWidget *control, const QSize &size, int least)
{
    if (control != Control || size != ControlSize) {
        Control = control;
        ControlSize = size;
        update();
    }
    const int own = sizeHint().height();
    // Inside a control that is no higher than the label no text can reach below the label.
    if (!control || size.height() <= least || !IsPlainText())
        return qMax(least, own);
    return qMax(least, BaselineIn(least, size) - fontMetrics().ascent() + own);
}

int RowLabel::Baseline() const
{
    return BaselineIn(height(), Control ? Control->size() : QSize());
}

int RowLabel::BaselineIn(int height, const QSize &controlSize) const
{
    const QFontMetrics metrics = fontMetrics();
    const std::optional<int> beside = Control ? FirstBaseline(Control, controlSize) : std::nullopt;
    if (!beside)
        return qMax(0, height - sizeHint().height()) / 2 + metrics.ascent();
    // Beside a flat control the text may rise, as long as no letter loses its top.
    return qMax(*beside, -metrics.tightBoundingRect(text()).top());
}

bool RowLabel::IsPlainText() const
{
    return textFormat() == Qt::PlainText || (textFormat() == Qt::AutoText && !Qt::mightBeRichText(text()));
}

void RowLabel::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (IsPlainText()) {
        drawFrame(&painter);
        PaintText(painter);
    } else {
        QLabel::paintEvent(event);
    }
    if (Marked)
        PaintMark(painter);
}

void RowLabel::PaintText(QPainter &painter) const
{
    QRect place = contentsRect();
    place.setTop(Baseline() - fontMetrics().ascent());
    const int flags = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignTop;
    style()->drawItemText(&painter, place, flags, palette(), isEnabled(), text(), foregroundRole());
}

/// A dot at the end of the text, as high as its capitals. Where the text leaves no room for it, the dot has an edge of
/// the background's colour, so that it stays apart.
void RowLabel::PaintMark(QPainter &painter) const
{
    const QFontMetrics metrics = fontMetrics();
    const qreal diameter = qMax(5.0, metrics.capHeight() / 2.0);
    const int textWidth = metrics.size(0, text()).width();
    const qreal right = qMin<qreal>(textWidth + 2 + diameter, width() - 1);
    const qreal left = layoutDirection() == Qt::RightToLeft ? width() - right : right - diameter;
    const qreal top = qMax(1, Baseline() - metrics.capHeight() - 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(backgroundRole()), 1.5));
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawEllipse(QRectF(left, top, diameter, diameter));
}
