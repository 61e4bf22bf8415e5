#pragma once

#include "numericside.h"
#include "valuewithlimits.h"

/// A numeric node with limits. The value stays between the limits, and the limits stay in order: a bound that is set
/// beyond the other one takes the other along. Fresh limits are the full range of an integer type; for double -1e308
/// and 1e308, which stand for no limit all over the system. The fresh step is 1; it is a hint for controls, neither its
/// sign nor zero is tested here. NaN changes nothing. A limit may be infinite, the value is always finite.
///
/// A limit or step that really changed notifies with ekChangeLimits, then with ekChangeValue if it moved the value.
///
/// On the node itself all operations are those on `T`; those on double are reached through IValueNumeric.
template <class T, class Format, class Stream>
class ORBEL_HOST_EXPORT ValueNumeric : public ValueWithLimits<T, Format, Stream>,
                                       public Orbel::NumericSide<ValueNumeric<T, Format, Stream>, T>
{
    using Typed = ValueWithLimits<T, Format, Stream>;

public:
    explicit ValueNumeric(const QString &name, TValueState state = ekStateUsable) : Typed(name, state) { }
    ~ValueNumeric() override { this->AnnounceEnd(); }

    /// See ValueWithLimits.
    using Typed::GetMax;
    using Typed::GetMin;
    using Typed::GetStep;
    using Typed::GetValue;
    using Typed::SetMax;
    using Typed::SetMin;
    using Typed::SetStep;
    using Typed::SetValue;
};

using ValueInt = ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
using ValueInt64 = ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
using ValueDouble = ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

// One instance for all libraries of a process, so that a run-time cast across them works.
extern template class Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class Value<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class Value<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
extern template class ValueWithLimits<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class ValueWithLimits<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class ValueWithLimits<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
extern template class ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
