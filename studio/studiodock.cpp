#include "studiodock.h"

namespace Orbel
{

StudioDock::StudioDock(Workbench &bench, const QString &title, const char *name) : QDockWidget(title), Bench(bench)
{
    setObjectName(QString::fromLatin1(name));
}

} // namespace Orbel
