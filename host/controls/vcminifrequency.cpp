#include "vcminifrequency.h"

#include <QFontMetrics>

VCMiniFrequency::VCMiniFrequency(QWidget *parent) : QToolButton(parent)
{
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
}

QSize VCMiniFrequency::sizeHint() const
{
    const int side = QFontMetrics(font()).height() + 4;
    return {side, side};
}
