#pragma once

#include <QMetaType>

namespace KV218
{

class OrbelDelegate;
class OrbelWidget;

/// Each makes the delegate of one control class for a widget: NewComboBox() for the class ComboBox. They stand in the
/// sources of the controls. The caller owns the delegate.
#define ORBEL_CLASS(name, ...) OrbelDelegate *New##name(OrbelWidget *widget);
#include "controlclasses.inc"

/// What they all do. `more` is what the delegate's constructor takes besides.
template <class Delegate, class... More> OrbelDelegate *NewControl(OrbelWidget *widget, More... more)
{
    // The script engine looks this type up for each object that it is given, and searches long for an unknown one.
    static const int known = qRegisterMetaType<Delegate *>();
    Q_UNUSED(known)
    return new Delegate(widget, more...);
}

} // namespace KV218
