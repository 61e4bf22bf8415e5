#pragma once

#include "studiodock.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace Orbel
{

/// What the checker says of the definition and what the form's script threw, in one list. A click speaks of the control
/// at that place, a double click asks for the place in an editor.
class FindingsDock : public StudioDock
{
    Q_OBJECT

public:
    explicit FindingsDock(Workbench &bench);

private:
    void Fill();
    void Add(const QString &level, int line, const QString &text, const QString &code);

    QTreeWidget *List;
};

} // namespace Orbel
