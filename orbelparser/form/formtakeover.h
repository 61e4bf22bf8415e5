#pragma once

#include "keptcontrol.h"
#include "orbelsheet.h"

#include <QStringList>

#include <vector>

namespace KV218
{

class FormBody;

/// One form takes the place of another: see OrbelFormular::TakeOver().
///
/// The former form is asked for all that it holds, then it ends, since its paths must be free; the heir is made as
/// every form is, its script runs with the values of its definition, and only then gets what was kept, as from a
/// document, so that its handlers make of the values what they make of them always.
class FormTakeover
{
public:
    /// Both must outlive this.
    FormTakeover(FormBody &heir, FormBody &former);

    /// Any handler may end the heir meanwhile; then the rest does nothing. Of `told`, which may be null, see there.
    void Run(QStringList *told);

private:
    void PairControls();
    void InsertHostsControls();
    void PutValues(QStringList *told);
    void KeepOrderOfChanges();
    void PutMarks();
    void TakeLocks();
    void TakeUndoStack();

    FormBody &Heir;
    FormBody &Former;
    std::vector<KeptControl> Controls;
    /// Those of the former form, with their places in the order in which that was.
    QHash<const OrbelDelegate *, int> Changed;
};

} // namespace KV218
