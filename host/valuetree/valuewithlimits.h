#pragma once

#include "value.h"
#include "valuetransaction.h"

#include <algorithm>
#include <limits>
#include <type_traits>

/// The part of ValueNumeric, which tells of it, that speaks of numbers in their own type. A class apart, since one with
/// IValueNumeric among its bases cannot declare getters of the same names with another result.
template <class T, class Format, class Stream> class ORBEL_HOST_EXPORT ValueWithLimits : public Value<T, Format, Stream>
{
    using Base = Value<T, Format, Stream>;

public:
    void Assign(const ValueBase &other) override
    {
        if (const auto *same = dynamic_cast<const ValueWithLimits *>(&other))
            Change({same->Min, same->Max, same->Step}, same->GetValue(), nullptr);
        else
            Base::Assign(other);
    }
    bool Compare(const ValueBase *other) const override
    {
        const auto *same = dynamic_cast<const ValueWithLimits *>(other);
        return same && Base::Compare(same) && same->Min == Min && same->Max == Max && same->Step == Step;
    }

    /// Clamped to the limits; NaN changes nothing. `except`, which may be null, is not notified.
    using Base::GetValue;
    void SetValue(T value, IObserver *except) override
    {
        if (!IsNaN(value))
            Base::SetValue(Clamped(value, Min, Max), except);
    }

    /// All three at once, with one notification for the limits. With `min` above `max`, `max` counts for both.
    virtual void SetMinMax(T min, T max, T step, IObserver *except)
    {
        if (!IsNaN(min) && !IsNaN(max) && !IsNaN(step))
            Change({std::min(min, max), max, step}, GetValue(), except);
    }
    /// A limit that passes the other one takes it along, and the value moves to the nearer limit. NaN changes nothing.
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
    /// The type's own bounds, and a step of 1, until others are set.
    virtual T GetMin() const { return Min; }
    virtual T GetMax() const { return Max; }
    virtual T GetStep() const { return Step; }
    /// While the result lives, nobody is notified; its destructor notifies with these codes.
    [[nodiscard]] virtual ValueTransaction CreateTransaction(
        std::initializer_list<TChangeCode> codes, IObserver *except)
    {
        return ValueTransaction(*this, codes, except);
    }

protected:
    using Base::Base;

private:
    struct Limits {
        T Lowest, Highest, Step;
    };

    static bool IsNaN(T number) { return number != number; }
    static constexpr T Widest() { return std::is_floating_point_v<T> ? T(1e308) : std::numeric_limits<T>::max(); }
    static constexpr T Narrowest() { return std::is_floating_point_v<T> ? T(-1e308) : std::numeric_limits<T>::min(); }
    static T Clamped(T value, T lowest, T highest)
    {
        const T limited = std::clamp(value, lowest, highest);
        // An infinite limit would let an infinite value through.
        return std::clamp(limited, std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max());
    }
    void Change(const Limits &limits, T value, IObserver *except);

    T Min = Narrowest();
    T Max = Widest();
    T Step = 1;
};

/// Stores limits, which are in order, and the value, then notifies of what really changed.
template <class T, class Format, class Stream>
void ValueWithLimits<T, Format, Stream>::Change(const Limits &limits, T value, IObserver *except)
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
