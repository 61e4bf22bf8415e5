#include "value.h"

template class Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>;
template class Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>;
