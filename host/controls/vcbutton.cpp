#include "vcbutton.h"
