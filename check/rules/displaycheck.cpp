// What a control shows against what it holds and writes: places, units, steps, texts, tables.

#include "formcheck.h"
#include "inputmask.h"
#include "propertynames.h"
#include "propertyplace.h"
#include "widgetnumbers.h"
#include "writtenunit.h"

#include <cmath>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

/// Digits behind the point that count.
int PlacesOf(const QString &number)
{
    const int point = number.indexOf(QLatin1Char('.'));
    int end = number.size();
    if (point < 0 || number.contains(QLatin1Char('e'), Qt::CaseInsensitive))
        return 0;
    while (end > point + 1 && number.at(end - 1) == QLatin1Char('0'))
        --end;
    return end - point - 1;
}

bool IsWhole(double number)
{
    return std::abs(number - std::round(number)) <= 1e-9 * qMax(1.0, std::abs(number));
}

/// A number with digits that are no marks of a mask.
bool IsCount(const QString &mask)
{
    bool isNumber = false;
    mask.toInt(&isNumber);
    return isNumber && !QString(mask).remove(QLatin1Char('0')).remove(QLatin1Char('9')).isEmpty();
}

/// Four numbers of which one is more than a byte.
bool HasWideByte(const QString &address)
{
    const QStringList parts = address.trimmed().split(QLatin1Char('.'));
    bool isWide = false;
    for (const QString &part : parts) {
        bool isNumber = false;
        isWide = part.toInt(&isNumber) > 255 || isWide;
        if (!isNumber)
            return false;
    }
    return parts.size() == 4 && isWide;
}

class DisplayCheck
{
public:
    DisplayCheck(const FormModel &form, FindingSink &sink, const WidgetEntry &widget)
        : Form(form), Sink(sink), Widget(widget), Numbers(widget)
    {
    }

    void Run()
    {
        if (Widget.Has(ekLimits)) {
            CheckPlaces();
            CheckRange();
            CheckUnits();
        }
        if (Numbers.Reads(prop::MaxLength))
            CheckText();
        if (Widget.Class == QLatin1String("TableWidget"))
            CheckTable();
    }

private:
    void Tell(Code code, const PropertyEntry &property, const QString &text)
    {
        Sink.Add(code, PlaceOfValue(Form, property), text);
    }

    void CheckPlaces()
    {
        const bool isDouble = Widget.Info->delegate->valueType == ValueType::Double;
        const double scale = Numbers.Scale();
        if (!Numbers.Reads(prop::SingleStep) || scale <= 0 || Widget.Class == QLatin1String("FrequencyEdit")
            || Widget.Class == QLatin1String("FrequencyRangeEdit"))
            return;
        const Number stated = Numbers.NumberOf(prop::SingleStep);
        const double step = (stated ? stated.Value : 1) / scale;
        const Number decimals = Numbers.NumberOf(prop::Decimals);
        const PropertyEntry *place = stated ? stated.Property : Widget.Find(prop::DisplayScalingFactor);
        if (!isDouble) {
            if (place && step > 0 && !IsWhole(step))
                Tell(Code::PlacesLost, *place,
                    QStringLiteral("A step changes \"%1\" by %2, and it holds whole numbers")
                        .arg(Widget.Name)
                        .arg(step));
            return;
        }
        if (!Widget.Writes() || (!decimals && Widget.States(prop::Decimals)))
            return;
        const Number value = Numbers.NumberOf(prop::Value);
        const QString told = QStringLiteral("%1 of \"%2\" has more places than the %3 that are written");
        const QString count = decimals ? decimals.Text : QStringLiteral("0");
        if (value && PlacesOf(value.Text) > decimals.Value)
            Tell(Code::PlacesLost, *value.Property, told.arg(value.Text, Widget.Name, count));
        for (const QLatin1String name : {prop::Minimum, prop::Maximum}) {
            const Number limit = Numbers.NumberOf(name);
            if (limit && scale == 1 && PlacesOf(limit.Text) > decimals.Value)
                Tell(Code::PlacesLost, *limit.Property, told.arg(limit.Text, Widget.Name, count));
        }
        if (place && step > 0 && !IsWhole(step * std::pow(10.0, decimals.Value)))
            Tell(Code::PlacesLost, *place, told.arg(QString::number(step), Widget.Name, count));
    }

    void CheckRange()
    {
        const Number minimum = Numbers.LimitOf(prop::Minimum);
        const Number maximum = Numbers.LimitOf(prop::Maximum);
        const Number step = Numbers.NumberOf(prop::SingleStep);
        const bool isMoved = Form.ScriptMayCall(Widget, "setMinimum") || Form.ScriptMayCall(Widget, "setMaximum")
            || Form.ScriptMayCall(Widget, "minimum") || Form.ScriptMayCall(Widget, "maximum");
        if (!minimum || !maximum || isMoved)
            return;
        const double range = maximum.Value - minimum.Value;
        if (step && range > 0 && step.Value > range * (1 + 1e-9) && !Numbers.NumberOf(prop::UnitScale))
            Tell(Code::StepBeyond, *step.Property,
                QStringLiteral("A step of %1 is more than the range from %2 to %3")
                    .arg(step.Text, minimum.Text, maximum.Text));
        const bool isLocked
            = Widget.IsTrue(prop::ReadOnly) || (Widget.States(prop::Enabled) && !Widget.IsTrue(prop::Enabled));
        if (range == 0 && !isLocked && minimum.Property && maximum.Property)
            Tell(Code::LimitSingle, *maximum.Property,
                QStringLiteral("\"%1\" can only be %2").arg(Widget.Name, maximum.Text));
    }

    /// The unit that the node counts in, and the property that says so; null where the class does.
    WrittenUnit NodeUnit(const PropertyEntry **stated) const
    {
        const bool isHertz = Numbers.Reads(prop::UnitScale) || Widget.Class.startsWith(QLatin1String("Frequency"));
        *stated = Numbers.Reads(prop::Unit) ? Widget.Find(prop::Unit) : nullptr;
        return isHertz ? WrittenUnit{QStringLiteral("Hz"), 1} : WrittenUnit::Of(*stated ? (*stated)->Text : QString());
    }

    void CheckUnits()
    {
        if (Numbers.NumberOf(prop::UnitScale) && Numbers.Reads(prop::Suffix))
            return;
        const PropertyEntry *stated = nullptr;
        const WrittenUnit node = NodeUnit(&stated);
        const WrittenUnit written = WrittenUnit::Of(stated ? stated->Text : QString());
        if (stated && !node.Base.isEmpty() && (written.Base != node.Base || written.Size != node.Size)
            && !written.Base.isEmpty())
            Tell(Code::UnitContradiction, *stated,
                QStringLiteral("\"%1\" writes its value in %2, not in %3").arg(Widget.Name, node.Base, stated->Text));
        const PropertyEntry *suffix = Numbers.Reads(prop::Suffix) ? Widget.Find(prop::Suffix) : nullptr;
        const WrittenUnit shown = WrittenUnit::Of(suffix ? suffix->Text : QString());
        if (shown.Base.isEmpty())
            return;
        CheckLabel(shown);
        if (node.Base.isEmpty())
            return;
        if (node.Base != shown.Base)
            Tell(Code::UnitContradiction, *suffix,
                QStringLiteral("\"%1\" shows %2 and writes %3").arg(Widget.Name, shown.Base, node.Base));
        else if (std::abs(node.Size / shown.Size / Numbers.Scale() - 1) > 1e-9)
            Tell(Code::UnitContradiction, *suffix,
                QStringLiteral("A value in %1 that is shown in %2 wants the factor %3, not %4")
                    .arg(stated ? stated->Text.trimmed() : node.Base, suffix->Text.trimmed())
                    .arg(node.Size / shown.Size)
                    .arg(Numbers.Scale()));
    }

    void CheckLabel(const WrittenUnit &shown)
    {
        const PropertyEntry *label = Widget.Find(prop::LabelText);
        const WrittenUnit told = WrittenUnit::OfLabel(label ? label->Text : QString());
        const bool areLevels = told.Base.startsWith(QLatin1String("dB")) && shown.Base.startsWith(QLatin1String("dB"));
        if (!told.Base.isEmpty() && !areLevels && (told.Base != shown.Base || told.Size != shown.Size))
            Tell(Code::UnitContradiction, *label,
                QStringLiteral("The label tells another unit than the suffix of \"%1\"").arg(Widget.Name));
    }

    void CheckText()
    {
        const Number most = Numbers.NumberOf(prop::MaxLength);
        const PropertyEntry *text = Widget.Find(prop::Text);
        const QString mask = Widget.TextOf(prop::InputMask);
        if (Form.ScriptMayCall(Widget, "setMaxLength") || Form.ScriptMayCall(Widget, "setInputMask"))
            return;
        if (most && most.Value <= 0 && mask.isEmpty())
            Tell(Code::TextBeyond, *most.Property, QStringLiteral("Nothing can be typed into \"%1\"").arg(Widget.Name));
        else if (most && text && text->Text.size() > most.Value && mask.isEmpty())
            Tell(Code::TextBeyond, *text,
                QStringLiteral("\"%1\" has more than the %2 characters of \"%3\"")
                    .arg(text->Text, most.Text, Widget.Name));
        else if (IsCount(mask))
            Tell(Code::TextBeyond, *Widget.Find(prop::InputMask),
                QStringLiteral("A mask \"%1\" is no count of characters; that is maxLength").arg(mask));
        else if (text && Widget.Class == QLatin1String("IPEdit") && HasWideByte(text->Text))
            Tell(Code::TextBeyond, *text, QStringLiteral("\"%1\" is no address").arg(text->Text));
        else if (text && !FitsInputMask(text->Text, mask))
            Tell(Code::TextBeyond, *text, QStringLiteral("\"%1\" does not fit the mask \"%2\"").arg(text->Text, mask));
    }

    void CheckTable()
    {
        const Number columns = Numbers.NumberOf(prop::ColumnCount);
        if (columns && columns.Value > 1)
            Tell(Code::TableUnshown, *columns.Property,
                QStringLiteral("What is typed into \"%1\" is kept by its row alone, as if there were one column")
                    .arg(Widget.Name));
    }

    const FormModel &Form;
    FindingSink &Sink;
    const WidgetEntry &Widget;
    const WidgetNumbers Numbers;
};

} // namespace

void CheckDisplay(const FormModel &form, FindingSink &sink)
{
    for (const WidgetEntry &widget : form.Widgets) {
        if (widget.Info)
            DisplayCheck(form, sink, widget).Run();
    }
}

} // namespace Orbel
