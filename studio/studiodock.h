#pragma once

#include "workbench.h"

#include <QDockWidget>

namespace Orbel
{

/// A part of the studio that stands around the form and can be closed.
class StudioDock : public QDockWidget
{
    Q_OBJECT

public:
    /// `name` tells the dock from others in the settings. The bench outlives the dock.
    StudioDock(Workbench &bench, const QString &title, const char *name);

protected:
    Workbench &Bench;
};

} // namespace Orbel
