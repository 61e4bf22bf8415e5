#include "loadinterface.h"

#include "createinstance.h"
#include "orbeltest.h"

IDllInstance *LxCreate(const wchar_t *instanceName)
{
    return KV218::CreateInstance([instanceName] {
        return new KV218::OrbelTest(instanceName ? QString::fromWCharArray(instanceName) : QString());
    });
}

void LxDestroy(IDllInstance *instance)
{
    delete instance;
}
