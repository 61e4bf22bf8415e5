#pragma once

#include "floatgrouplayout.h"

#include <QPointer>

namespace KV218
{

/// Pauses a layout for the length of a block. A null layout is none.
class LayoutPause
{
public:
    explicit LayoutPause(FloatGroupLayout *layout) : Layout(layout)
    {
        if (Layout)
            Layout->pause();
    }
    ~LayoutPause()
    {
        if (Layout)
            Layout->resume();
    }
    Q_DISABLE_COPY(LayoutPause)

private:
    const QPointer<FloatGroupLayout> Layout;
};

} // namespace KV218
