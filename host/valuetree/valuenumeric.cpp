#include "valuenumeric.h"

template class Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
template class Value<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
template class Value<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
template class ValueWithLimits<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
template class ValueWithLimits<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
template class ValueWithLimits<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
template class ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
template class ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
template class ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
