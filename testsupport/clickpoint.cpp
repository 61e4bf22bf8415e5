#include "clickpoint.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>

namespace Orbel
{

QPoint ClickPoint(const QWidget &widget)
{
    // Only indicator and text take clicks, and the widget may be much wider.
    if (qobject_cast<const QCheckBox *>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(&widget);
        return widget.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &widget).center();
    }
    if (const auto *const group = qobject_cast<const QGroupBox *>(&widget)) {
        QStyleOptionGroupBox option;
        option.initFrom(&widget);
        option.text = group->title();
        option.subControls = QStyle::SC_GroupBoxCheckBox | QStyle::SC_GroupBoxLabel;
        return widget.style()
            ->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxCheckBox, &widget)
            .center();
    }
    return widget.rect().center();
}

} // namespace Orbel
