#pragma once

#include <QPoint>

class QWidget;

namespace Orbel
{

/// Where a click on a widget has its effect: in its middle, or at the box of what is checked.
QPoint ClickPoint(const QWidget &widget);

} // namespace Orbel
