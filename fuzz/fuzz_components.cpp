// A component list, and each definition that it holds.

#include "fuzzsupport.h"

#include "componentlist.h"
#include "orbelparser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QXmlStreamReader reader(fuzz::Bytes(data, size));
    KV218::ForEachDefinition(reader, [](const QString &component, const QString &definition) {
        const fuzz::LiveForm form(KV218::OrbelParser().ParseORBEL(definition), false);
        if (form)
            form->SetName(component);
    });
    return 0;
}
