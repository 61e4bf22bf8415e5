// A parameter document for a live form of all control classes.

#include "fuzzsupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const fuzz::LiveForm &form = fuzz::AllControls();
    form->SetXmlString(fuzz::Text(data, size));
    form->GetXmlString(false);
    return 0;
}
