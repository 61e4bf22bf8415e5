#include "orbelaudioobject.h"

namespace KV218
{

OrbelAudioObject::OrbelAudioObject(OrbelWidget *widget) : OrbelDelegate(widget) { }

} // namespace KV218
