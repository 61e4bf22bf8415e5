#include "valuetransaction.h"

#include "trace.h"
#include "valuebase.h"

ValueTransaction::ValueTransaction(ValueBase &node, std::initializer_list<TChangeCode> codes, IObserver *except)
    : Codes(codes), Except(except)
{
    // One that is being destroyed would not notify again.
    if (node.GetState() == ekStateDeleted)
        return;
    Node = &node;
    Node->AddObserver(this);
    Node->StartTransaction(except);
}

ValueTransaction::~ValueTransaction()
{
    if (Node && Node->LeaveTransaction())
        TellCodes();
    if (Node)
        Node->DeleteObserver(this);
}

void ValueTransaction::Update(Observable *, TChangeCode code)
{
    if (code != ekChangeState || Node->GetState() != ekStateDeleted)
        return;
    Node->DeleteObserver(this);
    Node = nullptr;
}

void ValueTransaction::TellCodes()
{
    try {
        for (const TChangeCode code : Codes)
            if (Node)
                Node->HasChanged(code, Except);
    } catch (...) {
        TraceFailure(QStringLiteral("Exception of an observer at the end of a transaction"), __FILE__, __LINE__);
    }
}
