#pragma once

#include "ivaluenumeric.h"
#include "saturate.h"
#include "value.h"

/// A numeric node with limits. The value stays between the limits, and the limits stay in order: a bound that is set
/// beyond the other one takes the other along. Fresh limits are the full range of an integer type; for double -1e308
/// and 1e308, which stand for no limit all over the system. The fresh step is 1; it is a hint for controls, neither its
/// sign nor zero is tested here. NaN changes nothing. A limit may be infinite, the value is always finite.
///
/// A limit or step that really changed notifies with ekChangeLimits, then with ekChangeValue if it moved the value.
template <class T, class Format, class Stream>
class ORBEL_HOST_EXPORT ValueNumeric : public Value<T, Format, Stream>, public IValueNumeric
{
    using Base = Value<T, Format, Stream>;

public:
    explicit ValueNumeric(const QString &name, TValueState state = ekStateUsable) : Base(name, state) { }
    ~ValueNumeric() override { this->AnnounceEnd(); }

    void Assign(const ValueBase &other) override
    {
        if (const auto *same = dynamic_cast<const ValueNumeric *>(&other))
            Change({same->Min, same->Max, same->Step}, same->GetValue(), nullptr);
        else
            Base::Assign(other);
    }
    bool Compare(const ValueBase *other) const override
    {
        const auto *same = dynamic_cast<const ValueNumeric *>(other);
        return same && Base::Compare(same) && same->Min == Min && same->Max == Max && same->Step == Step;
    }

    void SetValue(T value, IObserver *except) override
    {
        if (!IsNaN(value))
            Base::SetValue(Clamped(value, Min, Max), except);
    }
    T GetValue() const override { return Base::GetValue(); }

    /// All three at once, with one notification for the limits. With `min` above `max`, `max` counts for both.
    virtual void SetMinMax(T min, T max, T step, IObserver *except)
    {
        if (!IsNaN(min) && !IsNaN(max) && !IsNaN(step))
            Change({std::min(min, max), max, step}, GetValue(), except);
    }
    virtual void SetMin(T min, IObserver *except)
    {
        if (!IsNaN(min))
            Change({min, std::max(min, Max), Step}, GetValue(), except);
    }
    virtual void SetMax(T max, IObserver *except)
    {
        if (!IsNaN(max))
            Change({std::min(Min, max), max, Step}, GetValue(), except);
    }
    virtual void SetStep(T step, IObserver *except)
    {
        if (!IsNaN(step))
            Change({Min, Max, step}, GetValue(), except);
    }
    virtual T GetMin() const { return Min; }
    virtual T GetMax() const { return Max; }
    virtual T GetStep() const { return Step; }

private:
    struct Limits {
        T Lowest, Highest, Step;
    };

    static bool IsNaN(T number) { return number != number; }
    static constexpr T Widest() { return std::is_floating_point_v<T> ? T(1e308) : std::numeric_limits<T>::max(); }
    static constexpr T Narrowest() { return std::is_floating_point_v<T> ? T(-1e308) : std::numeric_limits<T>::min(); }
    static T Clamped(T value, T lowest, T highest);
    /// Stores limits, which are in order, and the value, then tells what really changed.
    void Change(const Limits &limits, T value, IObserver *except);

    void SetNumber(double value, IObserver *except) final;
    void SetLowest(double min, IObserver *except) final;
    void SetHighest(double max, IObserver *except) final;
    void SetIncrement(double step, IObserver *except) final;
    double Lowest() const final { return static_cast<double>(GetMin()); }
    double Highest() const final { return static_cast<double>(GetMax()); }
    double Increment() const final { return static_cast<double>(GetStep()); }
    double Number() const final { return static_cast<double>(GetValue()); }

    T Min = Narrowest();
    T Max = Widest();
    T Step = 1;
};

template <class T, class Format, class Stream> T ValueNumeric<T, Format, Stream>::Clamped(T value, T lowest, T highest)
{
    const T limited = std::clamp(value, lowest, highest);
    // An infinite limit would let an infinite value through.
    return std::clamp(limited, std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max());
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::Change(const Limits &limits, T value, IObserver *except)
{
    const bool limitsChange = limits.Lowest != Min || limits.Highest != Max || limits.Step != Step;
    Min = limits.Lowest;
    Max = limits.Highest;
    Step = limits.Step;
    const T clamped = Clamped(value, Min, Max);
    const bool valueChanges = clamped != GetValue();
    this->StoreValue(clamped);
    if (limitsChange && valueChanges)
        this->Announce({ekChangeLimits, ekChangeValue}, except);
    else if (limitsChange)
        this->Announce({ekChangeLimits}, except);
    else if (valueChanges)
        this->Announce({ekChangeValue}, except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetNumber(double value, IObserver *except)
{
    if (!std::isnan(value))
        SetValue(Saturated<T>(value), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetLowest(double min, IObserver *except)
{
    if (!std::isnan(min))
        SetMin(Saturated<T>(min), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetHighest(double max, IObserver *except)
{
    if (!std::isnan(max))
        SetMax(Saturated<T>(max), except);
}

template <class T, class Format, class Stream>
void ValueNumeric<T, Format, Stream>::SetIncrement(double step, IObserver *except)
{
    if (!std::isnan(step))
        SetStep(Saturated<T>(step), except);
}

using ValueInt = ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
using ValueInt64 = ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
using ValueDouble = ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;

// One instance for all libraries of a process, so that a run-time cast across them works.
extern template class Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class Value<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class Value<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
extern template class ValueNumeric<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
extern template class ValueNumeric<qint64, FormatInt<qint64>, StreamFormat<qint64, FormatInt<qint64>>>;
extern template class ValueNumeric<double, FormatFloat<double>, StreamFormat<double, FormatFloat<double>>>;
