#pragma once

#include <functional>
#include <QPoint>
#include <QString>
#include <QStringList>

class QMenu;
class QWidget;

/// An operator at a real display: moves the mouse, clicks and types through the X server, as a person would. Positions
/// are those of shown widgets. Every action returns when its events are on their way; wait for their effect.
class XOperator
{
public:
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

private:
    static void Run(const QStringList &arguments);
};
