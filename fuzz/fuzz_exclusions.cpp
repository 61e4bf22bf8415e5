// A parameter document with lists of excluded ranges, for both objects that have one, and the table that shows them.

#include "fuzzsupport.h"

#include "freqrangetable.h"
#include "tree.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const fuzz::LiveForm &form = fuzz::KeptForm(
        "<ZkParamGui><Sheet><Widget name='scan' class='SpecialObject_DSC'><CustomProperties/></Widget>"
        "<Widget name='hop' class='SpecialObject_FHP'><CustomProperties/></Widget></Sheet></ZkParamGui>");
    form->SetXmlString(fuzz::Text(data, size));
    const QString written = form->GetXmlString(false);
    for (const QString &path : Tree::Instance()->GetPaths()) {
        KV218::FreqRangeTable table(nullptr);
        table.AttachToValue(path);
        table.SlotSortByStartFrequencies();
        table.StoreToValue();
    }
    form->SetXmlString(written);
    return 0;
}
