#include "scalednumber.h"

#include "decimalarithmetic.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>

namespace Orbel
{

void ScaledNumber::Take(const Content &now)
{
    const Content before = std::exchange(Held, now);
    const bool minimumFirst = Factor > 0;
    if (Held.Min != before.Min)
        (minimumFirst ? OwnMinimum : OwnMaximum).reset();
    if (Held.Max != before.Max)
        (minimumFirst ? OwnMaximum : OwnMinimum).reset();
}

bool ScaledNumber::Put(double shown)
{
    const double before = std::exchange(Held.Value, ToNode(Clamped(shown)));
    return Held.Value != before;
}

void ScaledNumber::SetFactor(double factor)
{
    Factor = std::isfinite(factor) && factor != 0 ? factor : 1;
}

void ScaledNumber::SetAdditionalPlaces(int places)
{
    AdditionalPlaces = qBound(0, places, MostPlaces);
}

void ScaledNumber::DropOwnLimits()
{
    OwnMinimum.reset();
    OwnMaximum.reset();
}

double ScaledNumber::ToShown(double number) const
{
    if (std::fabs(number) >= Unlimited)
        return std::copysign(Unlimited, number * Factor);
    const double shown = Factor == 1 ? number : WithoutNoise(number * Factor);
    return qBound(-Unlimited, shown, Unlimited);
}

double ScaledNumber::ToNode(double shown) const
{
    // What the node has already keeps all its digits.
    for (const double known : {Held.Value, Held.Min, Held.Max}) {
        if (ToShown(known) == shown)
            return known;
    }
    const double quotient = qBound(-Unlimited, shown / Factor, Unlimited);
    if (Factor == 1)
        return quotient;
    // A quotient that has no end, such as 0.7 / 0.3, is kept as it is: with fewer digits it would not show as before.
    const double plain = WithoutNoise(quotient);
    return ToShown(plain) == shown ? plain : quotient;
}

double ScaledNumber::Minimum() const
{
    const double ofNode = ToShown(Factor > 0 ? Held.Min : Held.Max);
    return std::max(ofNode, OwnMinimum.value_or(ofNode));
}

double ScaledNumber::Maximum() const
{
    const double ofNode = ToShown(Factor > 0 ? Held.Max : Held.Min);
    return std::min(ofNode, OwnMaximum.value_or(ofNode));
}

double ScaledNumber::Clamped(double shown) const
{
    return std::max(Minimum(), std::min(shown, Maximum()));
}

std::pair<double, double> ScaledNumber::OpenRange() const
{
    const double shown = Shown();
    const double minimum = Minimum();
    const double maximum = Maximum();
    const bool openBelow = minimum <= -Unlimited || shown < minimum;
    const bool openAbove = maximum >= Unlimited || shown > maximum;
    return {openBelow ? -qInf() : minimum, openAbove ? qInf() : maximum};
}

int ScaledNumber::Places()
{
    // Every number that is shown asks, and step and factor are seldom new.
    const std::pair<double, double> now{Held.Step, Factor};
    if (now != PlacesOf) {
        PlacesOf = now;
        StepPlaces = DecimalPlaces(ToShown(Held.Step));
        FactorPlaces = PlacesOfFirstDigit(Factor);
    }
    return std::min(MostPlaces, std::max(StepPlaces + AdditionalPlaces, FactorPlaces));
}

bool ScaledNumber::HasStep() const
{
    return std::isfinite(Held.Step) && Held.Step != 0;
}

bool ScaledNumber::HasTwoEnds(double widest) const
{
    const double end = std::fabs(ToShown(widest));
    return -end < Minimum() && Minimum() < Maximum() && Maximum() < end;
}

double ScaledNumber::Stepped(double from, int steps, bool wraps) const
{
    const double to = WithSteps(Clamped(from), std::fabs(ToShown(Held.Step)), steps);
    if (wraps && to > Maximum())
        return Minimum();
    if (wraps && to < Minimum())
        return Maximum();
    return Clamped(to);
}

} // namespace Orbel
