// Numbers and texts that a script gives to controls, against what these take.

#include "inputmask.h"
#include "propertynames.h"
#include "scriptstudy.h"
#include "widgetnumbers.h"

#include <cmath>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

class NumberCheck
{
public:
    explicit NumberCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    void Run()
    {
        for (int i = 0; i < Tree.All().size(); ++i) {
            if (Tree.Is(i, Node::Binary))
                CheckCompared(i);
            const int function = Tree.Is(i, Node::Call) ? Tree.Part(i, 0) : -1;
            const WidgetEntry *widget
                = Tree.Is(function, Node::Member) ? Study.WidgetOf(Tree.Part(function, 0)) : nullptr;
            if (widget && Tree.At(function).Text == QLatin1String("setText"))
                CheckText(Tree.Part(i, 1), *widget);
            if (widget && widget->Has(ekLimits))
                CheckCall(i, *widget, Tree.At(function).Text);
        }
    }

private:
    bool AreFixed(const WidgetEntry &widget) const
    {
        return !Study.MaySet(widget, prop::Minimum) && !Study.MaySet(widget, prop::Maximum)
            && !Study.MaySet(widget, prop::DisplayScalingFactor) && !Study.MaySet(widget, prop::UnitScale);
    }

    void CheckText(int argument, const WidgetEntry &widget)
    {
        const WidgetNumbers numbers(widget);
        const QString text = argument < 0 ? QString() : Study.ConstantOf(argument);
        const Number most = numbers.NumberOf(prop::MaxLength);
        const QString mask = widget.TextOf(prop::InputMask);
        if (text.isNull() || !numbers.Reads(prop::MaxLength) || Study.MaySet(widget, prop::MaxLength)
            || Study.MaySet(widget, prop::InputMask))
            return;
        if ((mask.isEmpty() && most && text.size() > most.Value) || !FitsInputMask(text, mask))
            Study.Tell(Code::TextBeyond, argument,
                QStringLiteral("\"%1\" is not a text that \"%2\" takes whole").arg(text, widget.Name));
    }

    /// A value against a number that it never comes to. 0, 1 and -1 often stand for a value or none.
    void CheckCompared(int node)
    {
        static const QSet<QString> operations{QStringLiteral("=="), QStringLiteral("!="), QStringLiteral("==="),
            QStringLiteral("!=="), QStringLiteral("<"), QStringLiteral(">"), QStringLiteral("<="),
            QStringLiteral(">=")};
        double number = 0;
        const int value = Tree.Part(node, 0);
        if (!operations.contains(Tree.At(node).Text) || !Study.NumberOf(Tree.Part(node, 1), &number)
            || std::abs(number) <= 1)
            return;
        const WidgetEntry *widget = Study.ValueOf(value);
        if (!widget || !widget->Has(ekLimits) || !AreFixed(*widget))
            return;
        const WidgetNumbers numbers(*widget);
        const QString fault
            = BeyondLimits(number, numbers.LimitOf(prop::Minimum), numbers.LimitOf(prop::Maximum), numbers.Scale());
        if (!fault.isEmpty())
            Study.Tell(Code::ScriptComparison, node,
                Study.CodeOf(Tree.Part(node, 1)) + fault
                    + QStringLiteral(" of \"%1\", and this always ends the same way").arg(widget->Name));
    }

    void CheckCall(int call, const WidgetEntry &widget, const QString &name)
    {
        const int count = Tree.At(call).Parts.size() - 1;
        double from = 0;
        double to = 0;
        const bool isRange = name == QLatin1String("setRange") && count == 2;
        if (isRange && Study.NumberOf(Tree.Part(call, 1), &from) && Study.NumberOf(Tree.Part(call, 2), &to)
            && from >= to)
            Study.Tell(
                Code::LimitReversed, Tree.Part(call, 1), QStringLiteral("The range does not begin below its end"));
        const bool isOne = count == 1
            && (name == QLatin1String("setValue") || name == QLatin1String("setStartFrequency")
                || name == QLatin1String("setStopFrequency"));
        const bool isItem
            = (name == QLatin1String("setItemValue") || name == QLatin1String("setShiftValue")) && count == 2;
        if (!AreFixed(widget))
            return;
        if (isOne || isRange)
            CheckValue(Tree.Part(call, 1), widget);
        if (isItem || isRange)
            CheckValue(Tree.Part(call, 2), widget);
    }

    void CheckValue(int argument, const WidgetEntry &widget)
    {
        if (Tree.Is(argument, Node::Conditional)) {
            CheckValue(Tree.Part(argument, 1), widget);
            CheckValue(Tree.Part(argument, 2), widget);
            return;
        }
        const WidgetNumbers numbers(widget);
        double value = 0;
        if (!Study.NumberOf(argument, &value))
            return;
        const QString fault
            = BeyondLimits(value, numbers.LimitOf(prop::Minimum), numbers.LimitOf(prop::Maximum), numbers.Scale());
        if (!fault.isEmpty())
            Study.Tell(Code::LimitOutside, argument,
                Study.CodeOf(argument) + fault + QStringLiteral(" of \"%1\"").arg(widget.Name));
    }

    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

} // namespace

void CheckScriptNumbers(const ScriptStudy &study)
{
    NumberCheck(study).Run();
}

} // namespace Orbel
