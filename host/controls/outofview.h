#pragma once

#include "hostexport.h"

#include <QSignalBlocker>
#include <QWidget>

#include <array>

namespace Orbel
{

/// Whether a visible widget has been scrolled, or lies otherwise, where its parents cut all of it off. The screen holds
/// nothing of it then, and it is painted whenever it comes into view. False for a hidden widget.
ORBEL_HOST_EXPORT bool IsOutOfView(const QWidget *widget);

/// Keeps a widget and a part of it from asking for a repaint, which costs Qt a walk over all siblings, seen or not. For
/// what is out of view, and only around calls that tell nobody: what ran meanwhile would find the updates disabled. The
/// signals of the widget are held back therefore, and emitted by the caller.
class RepaintsNothing
{
public:
    explicit RepaintsNothing(QWidget *widget, QWidget *part = nullptr);
    ~RepaintsNothing();
    RepaintsNothing(const RepaintsNothing &) = delete;
    RepaintsNothing &operator=(const RepaintsNothing &) = delete;

private:
    struct Place {
        QWidget *Widget;
        bool WasDisabled;
    };
    const QSignalBlocker Untold;
    const std::array<Place, 2> Places;
};

} // namespace Orbel
