#pragma once

#include <QVector>

class QString;
class QWidget;

namespace Orbel
{

class Workbench;

/// Which widgets belong to which control of a form.
class ControlWidgets
{
public:
    /// Those by which the operator meets the control of a name, its row label last. Empty for an unknown name, and for
    /// a control that shows nothing.
    static QVector<QWidget *> Of(const Workbench &bench, const QString &name);
    /// The name of the control to which a widget, or one around it, belongs; empty for none.
    static QString At(const Workbench &bench, const QWidget *widget);
};

} // namespace Orbel
