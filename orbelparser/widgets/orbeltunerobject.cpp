#include "orbeltunerobject.h"

#include "newcontrol.h"

namespace KV218
{

OrbelDelegate *NewSpecialObject_Tuner(OrbelWidget *widget)
{
    return NewControl<OrbelTunerObject>(widget);
}

OrbelTunerObject::OrbelTunerObject(OrbelWidget *widget) : OrbelDelegate(widget) { }

} // namespace KV218
