#include "orbeltunerobject.h"

namespace KV218
{

OrbelTunerObject::OrbelTunerObject(OrbelWidget *widget) : OrbelDelegate(widget) { }

} // namespace KV218
