// Numbers that cannot be right together: limits, steps, factors and counts.

#include "formcheck.h"
#include "formlimits.h"
#include "propertynames.h"
#include "propertyplace.h"
#include "widgetnumbers.h"

#include <algorithm>
#include <iterator>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
namespace limit = KV218::limit;

struct CountLimit {
    QLatin1String property;
    int most;
};

class LimitCheck
{
public:
    LimitCheck(const FormModel &form, FindingSink &sink, const WidgetEntry &widget)
        : Form(form), Sink(sink), Widget(widget), Numbers(widget)
    {
    }

    void Run()
    {
        if (Widget.Has(ekLimits))
            CheckLimits();
        CheckCounts();
        CheckShape();
        CheckUnitScale();
        CheckHeight();
        const Number margin = Numbers.NumberOf(prop::Margin);
        if (margin && margin.Value < 0)
            Tell(Code::MarginNegative, margin, QStringLiteral("A margin of %1 pixels is none").arg(margin.Text));
    }

private:
    void CheckHeight()
    {
        const Number height = Numbers.NumberOf(prop::Height);
        if (!Numbers.Reads(prop::Height) || height.Value > 0 || Form.ScriptSpeaksOf(prop::Height)
            || Form.ScriptSpeaksOf(QStringLiteral("setHeight")))
            return;
        Sink.Add(Code::MarginNegative, height ? PlaceOfValue(Form, *height.Property) : Form.Doc.PlaceOf(Widget.Element),
            QStringLiteral("The gap \"%1\" has no height").arg(Widget.Name));
    }

    void Tell(Code code, const Number &number, const QString &text)
    {
        Sink.Add(code, Form.Doc.PlaceOfText(number.Property->ValueElement), text);
    }

    void CheckLimits()
    {
        const Number minimum = Numbers.LimitOf(prop::Minimum);
        const Number maximum = Numbers.LimitOf(prop::Maximum);
        if (minimum && maximum && minimum.Value > maximum.Value)
            Tell(Code::LimitReversed, minimum.Property ? minimum : maximum,
                QStringLiteral("The minimum %1 is above the maximum %2").arg(minimum.Text, maximum.Text));
        const Number step = Numbers.NumberOf(prop::SingleStep);
        if (step && step.Value <= 0)
            Tell(Code::LimitStep, step, QStringLiteral("A step of %1 leads nowhere").arg(step.Text));
        const Number factor = Numbers.NumberOf(prop::DisplayScalingFactor);
        if (factor && factor.Value <= 0) {
            Tell(Code::LimitFactor, factor, QStringLiteral("The factor %1 is not above 0").arg(factor.Text));
            return;
        }
        const bool mayMove = Form.ScriptMayCall(Widget, "setMinimum") || Form.ScriptMayCall(Widget, "setMaximum")
            || Widget.Has(ekItems);
        const PropertyEntry *wrapping = Numbers.Reads(prop::Wrapping) ? Widget.Find(prop::Wrapping) : nullptr;
        if (wrapping && wrapping->IsTrue() && (!minimum || !maximum) && !mayMove)
            Sink.Add(Code::LimitMissing, Form.Doc.PlaceOf(wrapping->Element),
                QStringLiteral("\"%1\" cannot wrap without both limits").arg(Widget.Name));
        const PropertyEntry *special
            = Numbers.Reads(prop::SpecialValueText) ? Widget.Find(prop::SpecialValueText) : nullptr;
        if (special && !special->Text.isEmpty() && !minimum && !mayMove)
            Sink.Add(Code::LimitMissing, Form.Doc.PlaceOf(special->Element),
                QStringLiteral("\"%1\" has no minimum that \"%2\" could stand for").arg(Widget.Name, special->Text));
        for (const QLatin1String value : {prop::Value, prop::StartFrequency, prop::StopFrequency})
            CheckValue(Numbers.NumberOf(value), minimum, maximum);
        CheckRange();
    }

    void CheckValue(const Number &value, const Number &minimum, const Number &maximum)
    {
        if (!value || Form.ScriptMayCallAtStart(Widget, "setMinimum")
            || Form.ScriptMayCallAtStart(Widget, "setMaximum"))
            return;
        const QString fault = BeyondLimits(value.Value, minimum, maximum, Numbers.Scale());
        // Limits that fit the value as it is written were meant in its unit.
        const bool isUnitMeant
            = !fault.isEmpty() && Numbers.Scale() != 1 && BeyondLimits(value.Value, minimum, maximum, 1).isEmpty();
        const Number &limit = value.Value * Numbers.Scale() < minimum.Value && minimum ? minimum : maximum;
        if (isUnitMeant && limit.Property)
            Tell(Code::LimitOutside, limit,
                value.Text + fault + QStringLiteral("; limits count in the unit that is shown"));
        else if (!fault.isEmpty())
            Tell(Code::LimitOutside, value, value.Text + fault);
    }

    void CheckRange()
    {
        const Number start = Numbers.NumberOf(prop::StartFrequency);
        const Number stop = Numbers.NumberOf(prop::StopFrequency);
        const bool isWithoutStop = start && Numbers.Reads(prop::StopFrequency) && !Widget.States(prop::StopFrequency)
            && start.Value > Numbers.LimitOf(prop::Minimum).Value + 1;
        if (isWithoutStop && !ScriptMayMoveRange())
            Tell(Code::LimitReversed, start,
                QStringLiteral("The range begins at %1 and has no stopFrequency, which counts as its minimum")
                    .arg(start.Text));
        if (start && stop && start.Value >= stop.Value && !ScriptMayMoveRange())
            Tell(Code::LimitReversed, start,
                QStringLiteral("The range begins at %1, not below its end %2").arg(start.Text, stop.Text));
    }

    bool ScriptMayMoveRange() const
    {
        const char *const members[]
            = {"setRange", "setStartFrequency", "setStopFrequency", "startFrequency", "stopFrequency"};
        return std::any_of(std::begin(members), std::end(members),
            [this](const char *member) { return Form.ScriptMayCall(Widget, member); });
    }

    /// It sets these when the nodes are made, whatever the definition states.
    void CheckUnitScale()
    {
        const Number scale = Numbers.NumberOf(prop::UnitScale);
        const QHash<double, QString> units{{1, QStringLiteral("Hz")}, {1e3, QStringLiteral("kHz")},
            {1e6, QStringLiteral("MHz")}, {1e9, QStringLiteral("GHz")}};
        if (!scale)
            return;
        for (const QLatin1String name :
            {prop::Unit, prop::Suffix, prop::DisplayScalingFactor, prop::Decimals, prop::SingleStep}) {
            const PropertyEntry *stated = Widget.Find(name);
            if (stated && stated->Text.trimmed() != units.value(scale.Value))
                Sink.Add(Code::UnitOverridden, PlaceOfValue(Form, *stated),
                    QStringLiteral("unitScale sets \"%1\" of \"%2\", and \"%3\" is lost")
                        .arg(name, Widget.Name, stated->Text));
        }
    }

    void CheckCounts()
    {
        const bool isSpinList = Numbers.Reads(prop::ItemCount) && Widget.Has(ekLimits);
        const CountLimit counts[] = {{prop::ItemCount, isSpinList ? limit::ListItems : limit::ListCells},
            {prop::ShiftCount, limit::ListItems}, {prop::RowCount, limit::ListCells},
            {prop::ColumnCount, limit::ListCells}, {prop::SpacingsCount, limit::ListCells},
            {prop::Decimals, limit::Decimals}};
        for (const CountLimit &count : counts) {
            const Number number = Numbers.NumberOf(count.property);
            if (number && (number.Value < 0 || number.Value > count.most))
                Tell(Code::CountBeyond, number,
                    QStringLiteral("\"%1\" is from 0 to %2, not %3")
                        .arg(count.property, QString::number(count.most), number.Text));
        }
        if (isSpinList && Widget.States(prop::ItemCount) && Widget.States(prop::ShiftCount)
            && Widget.TextOf(prop::ItemCount) != Widget.TextOf(prop::ShiftCount))
            Sink.Add(Code::CountMissing, Form.Doc.PlaceOf(Widget.Find(prop::ShiftCount)->Element),
                QStringLiteral("shiftCount counts for nothing beside itemCount"));
        const bool isSpacings = Numbers.Reads(prop::SpacingsCount) && Numbers.NumberOf(prop::SpacingsCount).Value == 0
            && !Form.ScriptMayCall(Widget, "setSpacingsCount") && !Form.ScriptMayCall(Widget, "spacingsCount");
        if (isSpacings)
            Sink.Add(Code::CountMissing, Form.Doc.PlaceOf(Widget.Element),
                QStringLiteral("The table \"%1\" has no rows").arg(Widget.Name));
        if (isSpinList && CountOfItems() == 0)
            Sink.Add(Code::CountMissing, Form.Doc.PlaceOf(Widget.Element),
                QStringLiteral("The list \"%1\" has no items").arg(Widget.Name));
    }

    double CountOfItems() const
    {
        return Widget.States(prop::ItemCount) ? Numbers.NumberOf(prop::ItemCount).Value
                                              : Numbers.NumberOf(prop::ShiftCount).Value;
    }

    void CheckShape()
    {
        if (!Numbers.Reads(prop::RowCount))
            return;
        const Number rows = Numbers.NumberOf(prop::RowCount);
        const Number columns = Numbers.NumberOf(prop::ColumnCount);
        const double cells = rows.Value * columns.Value;
        if (cells == 0)
            Sink.Add(Code::CountMissing, Form.Doc.PlaceOf(Widget.Element),
                QStringLiteral("The table \"%1\" has no cells, and a script cannot give it any").arg(Widget.Name));
        else if (cells > limit::ListCells && rows.Value <= limit::ListCells && columns.Value <= limit::ListCells)
            Tell(Code::CountBeyond, rows,
                QStringLiteral("%1 rows of %2 columns are more than %3 cells")
                    .arg(rows.Text, columns.Text, QString::number(limit::ListCells)));
    }

    const FormModel &Form;
    FindingSink &Sink;
    const WidgetEntry &Widget;
    const WidgetNumbers Numbers;
};

} // namespace

void CheckLimits(const FormModel &form, FindingSink &sink)
{
    for (const WidgetEntry &widget : form.Widgets) {
        if (widget.Info)
            LimitCheck(form, sink, widget).Run();
    }
    const PropertyEntry *root = form.FindSheetProperty(prop::ParametersXmlRootTag, false);
    if (root && root->Text.isEmpty())
        sink.Add(Code::ValueEmpty, form.Doc.PlaceOf(root->Element),
            QStringLiteral("An empty parametersXmlRootTag counts as none, and \"Parameters\" is written"));
    const PropertyEntry *timeout = form.FindSheetProperty(prop::AutoApplyTimeout, false);
    bool isNumber = false;
    const double milliseconds = timeout ? timeout->Text.toDouble(&isNumber) : 0;
    if (isNumber && milliseconds < 100)
        sink.Add(Code::ApplyHasty, PlaceOfValue(form, *timeout),
            QStringLiteral("%1 milliseconds count as 100").arg(timeout->Text));
}

} // namespace Orbel
