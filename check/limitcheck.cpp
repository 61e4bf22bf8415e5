// Numbers that cannot be right together: limits, steps, factors and counts.

#include "formcheck.h"
#include "formlimits.h"
#include "propertynames.h"

#include <QVariant>

#include <cmath>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
namespace limit = KV218::limit;

/// A property's number, if it is stated and converts.
struct Number {
    const PropertyEntry *Property = nullptr;
    double Value = 0;
    explicit operator bool() const { return Property; }
};

struct CountLimit {
    QLatin1String property;
    int most;
};

class LimitCheck
{
public:
    LimitCheck(const FormModel &form, FindingSink &sink, const WidgetEntry &widget)
        : Form(form), Sink(sink), Widget(widget)
    {
    }

    void Run()
    {
        if (Widget.Has(ekLimits))
            CheckLimits();
        CheckCounts();
        CheckShape();
    }

private:
    bool Reads(QLatin1String name) const
    {
        const PropertyInfo *property = Registry::FindProperty(*Widget.Info, name);
        return property && !property->storedOnly;
    }

    Number NumberOf(QLatin1String name) const
    {
        const PropertyEntry *property = Reads(name) ? Widget.Find(name) : nullptr;
        bool isNumber = false;
        const double value = property ? QVariant(property->Text).toDouble(&isNumber) : 0;
        return isNumber ? Number{property, value} : Number();
    }

    void Tell(Code code, const Number &number, const QString &text)
    {
        Sink.Add(code, Form.Doc.PlaceOfText(number.Property->ValueElement), text);
    }

    void CheckLimits()
    {
        const Number minimum = NumberOf(prop::Minimum);
        const Number maximum = NumberOf(prop::Maximum);
        if (minimum && maximum && minimum.Value > maximum.Value)
            Tell(Code::LimitReversed, minimum,
                QStringLiteral("The minimum %1 is above the maximum %2")
                    .arg(minimum.Property->Text, maximum.Property->Text));
        const Number step = NumberOf(prop::SingleStep);
        if (step && step.Value <= 0)
            Tell(Code::LimitStep, step, QStringLiteral("A step of %1 leads nowhere").arg(step.Property->Text));
        const Number factor = NumberOf(prop::DisplayScalingFactor);
        if (factor && factor.Value <= 0) {
            Tell(Code::LimitFactor, factor, QStringLiteral("The factor %1 is not above 0").arg(factor.Property->Text));
            return;
        }
        for (const QLatin1String value : {prop::Value, prop::StartFrequency, prop::StopFrequency})
            CheckValue(NumberOf(value), minimum, maximum, Scale());
        CheckRange();
    }

    /// Display units per node unit.
    double Scale() const
    {
        if (const Number unit = NumberOf(prop::UnitScale))
            return unit.Value == 1e3 || unit.Value == 1e6 || unit.Value == 1e9 ? 1 / unit.Value : 1;
        const Number factor = NumberOf(prop::DisplayScalingFactor);
        return factor ? factor.Value : 1;
    }

    void CheckValue(const Number &value, const Number &minimum, const Number &maximum, double scale)
    {
        if (!value || Form.ScriptMayCall(Widget, "setMinimum") || Form.ScriptMayCall(Widget, "setMaximum"))
            return;
        const double shown = value.Value * scale;
        const double slack = 1e-9 * std::abs(shown);
        const bool isBelow = minimum && shown < minimum.Value - slack;
        if (!isBelow && !(maximum && shown > maximum.Value + slack))
            return;
        const QString text = scale == 1 ? value.Property->Text
                                        : QStringLiteral("%1, shown as %2,").arg(value.Property->Text).arg(shown);
        Tell(Code::LimitOutside, value,
            isBelow ? QStringLiteral("%1 is below the minimum %2").arg(text, minimum.Property->Text)
                    : QStringLiteral("%1 is above the maximum %2").arg(text, maximum.Property->Text));
    }

    void CheckRange()
    {
        const Number start = NumberOf(prop::StartFrequency);
        const Number stop = NumberOf(prop::StopFrequency);
        if (start && stop && start.Value >= stop.Value)
            Tell(Code::LimitReversed, start,
                QStringLiteral("The range begins at %1, not below its end %2")
                    .arg(start.Property->Text, stop.Property->Text));
    }

    void CheckCounts()
    {
        const bool isSpinList = Reads(prop::ItemCount) && Widget.Has(ekLimits);
        const CountLimit counts[] = {{prop::ItemCount, isSpinList ? limit::ListItems : limit::ListCells},
            {prop::ShiftCount, limit::ListItems}, {prop::RowCount, limit::ListCells},
            {prop::ColumnCount, limit::ListCells}, {prop::SpacingsCount, limit::ListCells},
            {prop::Decimals, limit::Decimals}};
        for (const CountLimit &count : counts) {
            const Number number = NumberOf(count.property);
            if (number && (number.Value < 0 || number.Value > count.most))
                Tell(Code::CountBeyond, number,
                    QStringLiteral("\"%1\" is from 0 to %2, not %3")
                        .arg(count.property, QString::number(count.most), number.Property->Text));
        }
        if (isSpinList && CountOfItems() == 0)
            Sink.Add(Code::CountMissing, Form.Doc.PlaceOf(Widget.Element),
                QStringLiteral("The list \"%1\" has no items").arg(Widget.Name));
    }

    double CountOfItems() const
    {
        return Widget.States(prop::ItemCount) ? NumberOf(prop::ItemCount).Value : NumberOf(prop::ShiftCount).Value;
    }

    void CheckShape()
    {
        if (!Reads(prop::RowCount))
            return;
        const Number rows = NumberOf(prop::RowCount);
        const Number columns = NumberOf(prop::ColumnCount);
        const double cells = rows.Value * columns.Value;
        if (cells == 0)
            Sink.Add(Code::CountMissing, Form.Doc.PlaceOf(Widget.Element),
                QStringLiteral("The table \"%1\" has no cells, and a script cannot give it any").arg(Widget.Name));
        else if (cells > limit::ListCells && rows.Value <= limit::ListCells && columns.Value <= limit::ListCells)
            Tell(Code::CountBeyond, rows,
                QStringLiteral("%1 rows of %2 columns are more than %3 cells")
                    .arg(rows.Property->Text, columns.Property->Text, QString::number(limit::ListCells)));
    }

    const FormModel &Form;
    FindingSink &Sink;
    const WidgetEntry &Widget;
};

} // namespace

void CheckLimits(const FormModel &form, FindingSink &sink)
{
    for (const WidgetEntry &widget : form.Widgets) {
        if (widget.Info)
            LimitCheck(form, sink, widget).Run();
    }
}

} // namespace Orbel
