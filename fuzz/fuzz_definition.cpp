// A definition through parse, nodes, controls and switches, and its parameter document out and in again.

#include "fuzzsupport.h"

#include "orbelparser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const fuzz::LiveForm form(KV218::OrbelParser().ParseORBEL(fuzz::Bytes(data, size)), size % 2 == 0);
    if (!form)
        return 0;
    const QString parameters = form->GetXmlString(false);
    form->SetXmlString(parameters);
    form->GetXmlString(true);
    form->EnableInput(false);
    form->GetSheet().SetCollapsed(
        {form->GetSheet().GetWidgetCount() > 0 ? form->GetSheet().GetWidgetAt(0)->GetName() : QString()});
    form->GetSheet().SetCollapsed({});
    form->EnableInput(true);
    return 0;
}
