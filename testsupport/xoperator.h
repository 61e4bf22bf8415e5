#pragma once

#include "callsite.h"
#include "testsupportexport.h"

#include <functional>
#include <QPoint>
#include <QString>
#include <QStringList>

class QMenu;
class QWidget;

namespace Orbel
{

/// An operator at a real display: moves the mouse, clicks and types through the X server, as a person would, be it into
/// this process or another one. It shows what FormOperator cannot: that a window gets the focus, a shortcut reaches it,
/// a menu takes the keys. It needs the platform plug-in xcb, a display of its own, `xvfb-run` for instance, and the
/// program `xdotool`. Positions are those of shown widgets. Every action returns when its events are on their way; wait
/// for their effect.
class ORBEL_TESTSUPPORT_EXPORT XOperator
{
public:
    /// Whether there is what it needs.
    static bool IsThere();
    /// Shows a top-level widget at the screen's corner and gives it the focus. False when it does not come up.
    static bool Show(QWidget *window);
    /// Clicks at a point of the widget, or in its middle; button 1 is the left one, 4 and 5 turn the wheel up and down.
    static void Click(QWidget *widget, int button = 1);
    static void ClickAt(QWidget *widget, const QPoint &point, int button = 1);
    /// Types a text.
    static void Type(const QString &text);
    /// Presses keys by their X names: "Tab", "Return", "ctrl+a".
    static void Press(const QString &keys);
    /// Presses keys, one after the other, in the menu that the next action opens; the action returns when the menu is
    /// closed. `look` sees the menu first.
    static void PressInMenu(const QStringList &keys, const std::function<void(QMenu *)> &look);
    /// Runs xdotool with other arguments, while events are handled, and gives what it prints. Fails the test when it
    /// does not end.
    static QString Run(const QStringList &arguments, const CallSite &at = CallSite::Here());
};

} // namespace Orbel
