#include "sectionline.h"

#include <climits>
#include <QEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

/// Seen on a light and on a dark background.
static QColor Faint(const QPalette &palette)
{
    QColor colour = palette.color(QPalette::WindowText);
    colour.setAlphaF(0.3);
    return colour;
}

SectionLine::SectionLine(const QString &title, int gap, QWidget *parent)
    // Qt keeps margins in 16 bits.
    : QGroupBox(title, parent), Margins(0, qBound<int>(SHRT_MIN, gap, SHRT_MAX), 0, 0)
{
    // No screen's safe area reaches into a form, and each measuring would look for its window.
    setAttribute(Qt::WA_ContentsMarginsRespectsSafeArea, false);
    setContentsMargins(Margins);
}

bool SectionLine::event(QEvent *event)
{
    if (event->type() == QEvent::ContentsRectChange && contentsMargins() != Margins) {
        if (contentsMargins() == FrameMargins())
            setContentsMargins(Margins);
        else
            Margins = contentsMargins();
    }
    const bool handled = QGroupBox::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        FollowParent();
    return handled;
}

/// To Qt, a widget with a style sheet takes its font and colours from the application, once, unless its parent has a
/// sheet.
void SectionLine::FollowParent()
{
    const QWidget *parent = parentWidget();
    if (!testAttribute(Qt::WA_StyleSheet) || !parent || parent->testAttribute(Qt::WA_StyleSheet))
        return;
    setAttribute(Qt::WA_StyleSheet, false);
    // What the parent states counts; the rest may be this line's own.
    QFont own = font();
    own.resolve(testAttribute(Qt::WA_SetFont) ? own.resolve() & ~parent->font().resolve() : 0);
    setFont(own);
    QPalette colours = palette();
    colours.resolve(testAttribute(Qt::WA_SetPalette) ? colours.resolve() & ~parent->palette().resolve() : 0);
    setPalette(colours);
}

QSize SectionLine::minimumSizeHint() const
{
    const int indicator = isCheckable() ? style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this) : 0;
    return QSize(QGroupBox::minimumSizeHint().width(), qMax(fontMetrics().height(), indicator));
}

/// What a group box makes its margins with every new title, font, size or style sheet.
QMargins SectionLine::FrameMargins() const
{
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QRect inside = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, this);
    return QMargins(inside.left() - option.rect.left(), inside.top() - option.rect.top(),
        option.rect.right() - inside.right(), option.rect.bottom() - inside.bottom());
}

/// The line behind the indicator, as wide as the title is in its font: bold or scaled fonts of a style sheet may need
/// more room than the style measures, and some styles leave none when the form is mirrored.
QRect SectionLine::TitleRect() const
{
    int left = 0;
    if (isCheckable()) {
        for (QStyle::PixelMetric part : {QStyle::PM_IndicatorWidth, QStyle::PM_CheckBoxLabelSpacing})
            left += style()->pixelMetric(part, nullptr, this);
    }
    const int width = fontMetrics().size(Qt::TextShowMnemonic, title()).width() + 2;
    return QStyle::visualRect(layoutDirection(), rect(), QRect(left, 0, width, height()));
}

// Indicator and title are drawn one by one: as a whole, some styles and every style sheet draw the frame as well.
void SectionLine::paintEvent(QPaintEvent *)
{
    constexpr int gap = 6;
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const auto placeOf
        = [&](QStyle::SubControl part) { return style()->subControlRect(QStyle::CC_GroupBox, &option, part, this); };
    QRect line(0, height() / 2, width(), 1);
    if (isCheckable()) {
        QStyleOptionButton indicator;
        indicator.QStyleOption::operator=(option);
        indicator.rect = placeOf(QStyle::SC_GroupBoxCheckBox);
        painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, indicator);
    }
    if (!title().isEmpty()) {
        const QRect text = TitleRect();
        painter.drawItemText(text,
            int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) | Qt::AlignVCenter | Qt::TextShowMnemonic,
            palette(), isEnabled(), title(), QPalette::WindowText);
        const bool mirrored = layoutDirection() == Qt::RightToLeft;
        const int from = mirrored ? 0 : text.right() + gap;
        const int to = mirrored ? text.left() - gap : width();
        line = QRect(from, text.center().y(), to - from, 1);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = TitleRect();
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
    if (line.width() > 0)
        painter.fillRect(line, Faint(palette()));
}
