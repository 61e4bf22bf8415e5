#include "operatoract.h"

#include "exceptionstop.h"
#include "valuebase.h"

#include <algorithm>
#include <utility>

namespace Orbel
{

static OperatorAct *Innermost = nullptr;

OperatorAct::OperatorAct(const ValueBase *node, int session)
{
    if (!node || On(node))
        return;
    Node = node;
    Before = node->GetStringValue();
    Session = session;
    Outer = std::exchange(Innermost, this);
}

OperatorAct::~OperatorAct()
{
    if (!Node)
        return;
    Innermost = Outer;
    for (const End &end : Ends) {
        try {
            end.Then();
        } catch (...) {
            const ExceptionStop::Zone zone;
            ExceptionStop::EndsHere();
        }
    }
}

OperatorAct *OperatorAct::On(const Observable *node)
{
    return Innermost && Innermost->Node == node ? Innermost : nullptr;
}

bool OperatorAct::IsAnyRunning()
{
    return Innermost;
}

int OperatorAct::NewSession()
{
    static int last = 0;
    return ++last;
}

bool OperatorAct::AtEnd(const void *who, std::function<void()> then)
{
    const auto isIt = [who](const End &end) { return end.Who == who; };
    if (std::any_of(Ends.begin(), Ends.end(), isIt))
        return false;
    Ends.push_back({who, std::move(then)});
    return true;
}

OperatorAct::Pause::Pause() : Paused(std::exchange(Innermost, nullptr)) { }

OperatorAct::Pause::~Pause()
{
    Innermost = Paused;
}

} // namespace Orbel
