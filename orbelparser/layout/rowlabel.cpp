#include "rowlabel.h"

#include "firstline.h"
#include "readablecolor.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

RowLabel::RowLabel(const QString &text, QWidget *parent) : QLabel(text, parent) { }

void RowLabel::SetMark(Mark mark)
{
    if (mark == Shown)
        return;
    Shown = mark;
    update();
}

int RowLabel::StandBeside(QWidget *control, const QSize &size, int least, int own)
{
    const QFont font = control ? control->font() : QFont();
    const bool isSameControl = control == Control && size == ControlSize && font == ControlFont;
    if (isSameControl && own == TextHeight && text() == TextBeside)
        return qMax(least, NeededHeight);
    Control = control;
    ControlSize = size;
    ControlFont = font;
    TextHeight = own;
    TextBeside = text();
    NeededHeight = own;
    update();
    // Inside a control that is no higher than the label no text can reach below the label.
    if (!control || size.height() <= least || !IsPlainText())
        return qMax(least, own);
    // This places what stands in the control, and a handler of that may destroy the label, or have the row arranged.
    const QPointer<RowLabel> self = this;
    const std::optional<int> beside = FirstBaseline(control, size);
    if (!self)
        return least;
    const int needed = BaselineIn(least, beside) - fontMetrics().ascent() + own;
    if (control == Control && size == ControlSize && own == TextHeight)
        NeededHeight = needed;
    return qMax(least, needed);
}

int RowLabel::Baseline() const
{
    const std::optional<int> beside = Control ? FirstBaseline(Control, Control->size()) : std::nullopt;
    return BaselineIn(height(), beside);
}

int RowLabel::BaselineIn(int height, std::optional<int> beside) const
{
    const QFontMetrics metrics = fontMetrics();
    if (!beside)
        return qMax(0, height - sizeHint().height()) / 2 + metrics.ascent();
    // Beside a flat control the text may rise, as long as no letter loses its top.
    return *beside >= metrics.ascent() ? *beside : qMax(*beside, -metrics.tightBoundingRect(text()).top());
}

/// What it stands at looks otherwise in another style.
void RowLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        TextHeight = -1;
}

QSize RowLabel::sizeHint() const
{
    const std::optional<QSize> plain = PlainSize();
    return plain ? *plain : QLabel::sizeHint();
}

QSize RowLabel::minimumSizeHint() const
{
    const std::optional<QSize> plain = PlainSize();
    return plain ? *plain : QLabel::minimumSizeHint();
}

/// Both hints of a label with nothing but unwrapped plain text, whose size no width changes.
std::optional<QSize> RowLabel::PlainSize() const
{
    const QString shown = text();
    const bool isMore = wordWrap() || buddy() || indent() > 0 || frameWidth() > 0;
    if (isMore || shown.isEmpty() || shown.contains(QLatin1Char('\t')) || !IsPlainText())
        return {};
    ensurePolished();
    const Qt::Alignment anchors = Qt::AlignVCenter | Qt::AlignHCenter;
    const int flags = int(QStyle::visualAlignment(layoutDirection(), alignment()) & ~anchors);
    if (Measured.Text != shown || Measured.Flags != flags || Measured.Font != font()) {
        constexpr int wide = 2000;
        Measured = {shown, font(), flags, fontMetrics().boundingRect(0, 0, wide, wide, flags, shown).size()};
    }
    const QMargins around = contentsMargins() + margin();
    const QSize size = Measured.Size + QSize(around.left() + around.right(), around.top() + around.bottom());
    return size.expandedTo(minimumSize());
}

bool RowLabel::IsPlainText() const
{
    return textFormat() == Qt::PlainText || (textFormat() == Qt::AutoText && !Qt::mightBeRichText(text()));
}

void RowLabel::paintEvent(QPaintEvent *event)
{
    const bool plain = IsPlainText();
    {
        QPainter painter(this);
        if (Shown != None)
            PaintMark(painter);
        if (plain) {
            drawFrame(&painter);
            PaintText(painter);
        }
    }
    if (!plain)
        QLabel::paintEvent(event);
}

void RowLabel::PaintText(QPainter &painter) const
{
    QRect place = contentsRect();
    place.setTop(Baseline() - fontMetrics().ascent());
    const int flags = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignTop);
    style()->drawItemText(&painter, place, flags, palette(), isEnabled(), text(), foregroundRole());
}

/// A bar under the text, whose letters stand before it: there is no room beside the widest label. Whole for a change,
/// thick and red for a refusal, dashed where the device differs, dotted while it does not answer.
void RowLabel::PaintMark(QPainter &painter) const
{
    const QFontMetrics metrics = fontMetrics();
    const int thickness = qMax(2, metrics.height() / 8) * (Shown == Refused ? 2 : 1);
    const QRect line(0, 0, qMin(width(), metrics.size(0, text()).width()), thickness);
    QRectF bar = QStyle::visualRect(layoutDirection(), rect(), line);
    bar.moveBottom(qMin(height(), Baseline() + metrics.descent() + 1));
    const QColor background = palette().color(backgroundRole());
    const QColor accent = palette().color(QPalette::Highlight);
    const bool isSeen = Orbel::ReadableColor::Contrast(background, accent) >= 3;
    const QColor plain = isSeen ? accent : palette().color(foregroundRole());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Shown == Refused ? Orbel::ReadableColor::Refused(background) : plain);
    const qreal piece = Shown == Differs ? 4 * bar.height() : Shown == Unconfirmed ? bar.height() : bar.width();
    const qreal gap = Shown == Differs ? 2 * bar.height() : bar.height();
    // Dots of two pixels would pale if they were round.
    const qreal radius = Shown == Unconfirmed ? 0 : bar.height() / 2;
    for (qreal left = bar.left(); left < bar.right(); left += piece + gap) {
        const QRectF part(left, bar.top(), qMin(piece, bar.right() - left), bar.height());
        painter.drawRoundedRect(part, radius, radius);
    }
}
