#pragma once

#include <QLayout>
#include <QPointer>
#include <QWidget>

namespace KV218
{

/// Holds a layout still while many of its items change, and lets it arrange once at the end. A visible child that is
/// shown or hidden otherwise makes its layout arrange everything at once. Pauses may nest; a null layout is none.
class LayoutPause
{
public:
    explicit LayoutPause(QLayout *layout) : Layout(layout && layout->isEnabled() ? layout : nullptr)
    {
        if (Layout)
            Layout->setEnabled(false);
    }
    ~LayoutPause()
    {
        if (!Layout)
            return;
        Layout->setEnabled(true);
        if (Layout->parentWidget() && Layout->parentWidget()->isVisible())
            Layout->activate();
    }
    Q_DISABLE_COPY(LayoutPause)

private:
    QPointer<QLayout> Layout;
};

} // namespace KV218
