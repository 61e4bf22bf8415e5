#include "idllinstance.h"

#include <utility>

IDllInstance::IDllInstance(QString name) : InstanceName(std::move(name)) { }

IDllInstance::~IDllInstance() = default;

bool IDllInstance::Init(int, const char **)
{
    return true;
}

void IDllInstance::Start() { }

void IDllInstance::Stop() { }
