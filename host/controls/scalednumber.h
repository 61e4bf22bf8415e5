#pragma once

#include <optional>
#include <utility>

namespace Orbel
{

/// The number behind a field that shows what a numeric node holds times a factor: its limits, steps and decimal places.
/// "Shown" numbers are those of the field. Steps are exact in decimal numbers, and a number of the node that is shown
/// and read back keeps all its digits. Exported to nobody.
class ScaledNumber
{
public:
    /// A limit that is none, in whatever unit.
    static constexpr double Unlimited = 1e308;
    /// How many decimal places a number may be shown with.
    static constexpr int MostPlaces = 323;

    /// In the units of the node.
    struct Content {
        /// The number, its limits and its step.
        double Value = 0;
        double Min = -Unlimited;
        double Max = Unlimited;
        double Step = 1;
    };

    /// Takes what the node holds now. A limit that it has changed counts in place of one set here.
    void Take(const Content &now);
    /// Takes a shown number, clamped to the limits, as the node's value. False when that is the one it has.
    bool Put(double shown);
    /// The node's value, in its own units.
    double InNode() const { return Held.Value; }

    /// What a shown number is of the node's.
    double GetFactor() const { return Factor; }
    /// Zero, infinity and NaN count as 1.
    void SetFactor(double factor);
    /// Decimal places beyond those that the step needs; negative counts as 0.
    void SetAdditionalPlaces(int places);

    /// The rest is in shown units. The node's value, without what binary arithmetic adds to it.
    double Shown() const { return ToShown(Held.Value); }
    /// The limits of the node, or a tighter one set here since the node last changed its own.
    double Minimum() const;
    double Maximum() const;
    void SetMinimum(double minimum) { OwnMinimum = minimum; }
    void SetMaximum(double maximum) { OwnMaximum = maximum; }
    void DropOwnLimits();
    double Clamped(double shown) const;
    /// The limits without one that the value is beyond; infinity for one that is none.
    std::pair<double, double> OpenRange() const;
    /// The decimal places: as many as the step needs, or as it takes to tell two neighbouring whole numbers of the node
    /// apart.
    int Places();

    /// Whether the node states a step other than 0.
    bool HasStep() const;
    /// Whether both limits are limits for a node whose numbers end at `widest`, in its units.
    bool HasTwoEnds(double widest) const;
    /// So many steps from a shown number. Past one limit comes the other one if it `wraps`.
    double Stepped(double from, int steps, bool wraps) const;

private:
    double ToShown(double number) const;
    double ToNode(double shown) const;

    Content Held;
    double Factor = 1;
    int AdditionalPlaces = 0;
    std::optional<double> OwnMinimum;
    std::optional<double> OwnMaximum;
    // What Places() last looked at, step and factor, and its answer without the additional places; at first for none.
    std::pair<double, double> PlacesOf{0, 0};
    int StepPlaces = 0;
    int FactorPlaces = 0;
};

} // namespace Orbel
