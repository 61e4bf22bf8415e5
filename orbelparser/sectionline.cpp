#include "sectionline.h"

#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <climits>

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
    return QGroupBox::event(event);
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

// Indicator and title are drawn one by one: as a whole, some styles and every style sheet draw the frame as well.
void SectionLine::paintEvent(QPaintEvent *)
{
    constexpr int gap = 6;
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const auto placeOf = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_GroupBox, &option, part, this);
    };
    QRect line(0, height() / 2, width(), 1);
    if (isCheckable()) {
        QStyleOptionButton indicator;
        indicator.QStyleOption::operator=(option);
        indicator.rect = placeOf(QStyle::SC_GroupBoxCheckBox);
        painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, indicator);
    }
    if (!title().isEmpty()) {
        const QRect text = placeOf(QStyle::SC_GroupBoxLabel);
        // Bold or scaled fonts of a style sheet may need more room than the style measured.
        painter.drawItemText(text.adjusted(0, 0, gap, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette(),
            isEnabled(), title(), QPalette::WindowText);
        line = QRect(text.right() + 2 * gap, text.center().y(), width() - text.right() - 2 * gap, 1);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = placeOf(QStyle::SC_GroupBoxLabel);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
    if (line.width() > 0)
        painter.fillRect(line, palette().color(QPalette::Mid));
}
