#include "orbelversion.h"

const char *Orbel::LibraryVersion()
{
    return ORBEL_VERSION_STRING;
}
