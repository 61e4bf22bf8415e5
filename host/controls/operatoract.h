#pragma once

#include "hostexport.h"

#include <QString>

#include <functional>
#include <vector>

class Observable;
class ValueBase;

namespace Orbel
{

/// While one of these lives, the operator sets a node by a control. Observers of the node tell by it an operator's
/// change from one of a host or a script; what others set meanwhile, other nodes above all, is theirs. GUI thread only.
class ORBEL_HOST_EXPORT OperatorAct
{
public:
    /// `node` may be null, which is no act, and may go meanwhile. Acts of one `session` other than 0 are steps of one
    /// change. Within an act on the same node this is a part of that.
    explicit OperatorAct(const ValueBase *node, int session = 0);
    /// Does what AtEnd() was given; an exception of that ends here, with a trace.
    ~OperatorAct();
    OperatorAct(const OperatorAct &) = delete;
    OperatorAct &operator=(const OperatorAct &) = delete;

    /// The act that sets this node just now; null when the change of which it tells is nobody's or another's.
    static OperatorAct *On(const Observable *node);
    /// Whether the operator sets any node now.
    static bool IsAnyRunning();
    /// A number that no session had before.
    static int NewSession();

    /// The text of the node before the act.
    const QString &GetBefore() const { return Before; }
    int GetSession() const { return Session; }
    /// Does `then` when the node is set and everybody was told; for each `who` the first one only. False for a further
    /// one.
    bool AtEnd(const void *who, std::function<void()> then);

    /// Stands where something else sets nodes while an act notifies, an undo for instance: what the operator sets there
    /// is an act of its own, on the same node, too.
    class ORBEL_HOST_EXPORT Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;

    private:
        OperatorAct *const Paused;
    };

private:
    struct End {
        const void *Who;
        std::function<void()> Then;
    };

    const Observable *Node = nullptr;
    QString Before;
    int Session = 0;
    OperatorAct *Outer = nullptr;
    std::vector<End> Ends;
};

} // namespace Orbel
