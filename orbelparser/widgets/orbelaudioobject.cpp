#include "orbelaudioobject.h"

#include "newcontrol.h"

namespace KV218
{

OrbelDelegate *NewSpecialObject_Audio(OrbelWidget *widget)
{
    return NewControl<OrbelAudioObject>(widget);
}

OrbelAudioObject::OrbelAudioObject(OrbelWidget *widget) : OrbelDelegate(widget) { }

} // namespace KV218
