#include "changecheck.h"

#include "elementnames.h"
#include "formcheck.h"
#include "propertycheck.h"
#include "propertynames.h"
#include "propertyplace.h"
#include "structurecheck.h"
#include "widgetnumbers.h"

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;
namespace prop = KV218::prop;

QSet<QString> NamesOf(const FormModel &form)
{
    QSet<QString> names;
    for (const WidgetEntry &widget : form.Widgets)
        names.insert(widget.Name);
    return names;
}

void CheckIgnoredLists(const FormModel &change, FindingSink &sink)
{
    for (const int sheet : change.Sheets) {
        for (int i = change.Doc.At(sheet).FirstChild; i >= 0; i = change.Doc.At(i).NextSibling) {
            const QString &name = change.Doc.At(i).Name;
            if (name == element::Properties || name == element::CustomProperties)
                sink.Add(Code::ChangeIgnored, change.Doc.PlaceOf(i),
                    QStringLiteral("A changed definition does not change the sheet's own properties"));
        }
    }
}

/// A widget of the form with what a change states of it.
class ChangedWidget
{
public:
    ChangedWidget(const WidgetEntry &statement, const FormModel &change, const WidgetEntry &former,
        const FormModel &form, FindingSink &sink)
        : Change(change), Form(form), Sink(sink), OwnProperties(former.Properties.size()), Widget(former)
    {
        Widget.Properties += statement.Properties;
    }

    void Check()
    {
        const WidgetNumbers numbers(Widget);
        const Number minimum = numbers.LimitOf(prop::Minimum);
        const Number maximum = numbers.LimitOf(prop::Maximum);
        if (Widget.Has(ekLimits) && minimum && maximum && minimum.Value > maximum.Value)
            Tell(Code::LimitReversed, {minimum.Property, maximum.Property},
                QStringLiteral("The minimum %1 is above the maximum %2").arg(minimum.Text, maximum.Text));
        for (const QLatin1String name : {prop::Value, prop::StartFrequency, prop::StopFrequency}) {
            const Number value = Widget.Has(ekLimits) ? numbers.NumberOf(name) : Number();
            const QString fault = value ? BeyondLimits(value.Value, minimum, maximum, numbers.Scale()) : QString();
            if (!fault.isEmpty())
                Tell(Code::LimitOutside, {value.Property, minimum.Property, maximum.Property}, value.Text + fault);
        }
        CheckChoice();
    }

private:
    /// At the first of the properties that the change states; what the form states alone is no matter of the change.
    void Tell(Code code, std::initializer_list<const PropertyEntry *> properties, const QString &text)
    {
        for (const PropertyEntry *property : properties) {
            if (!property || property < Widget.Properties.constData() + OwnProperties)
                continue;
            Sink.Add(code, PlaceOfValue(Change, *property), text);
            return;
        }
    }

    void CheckChoice()
    {
        const PropertyEntry *choices = Widget.Find(prop::EnumName);
        const PropertyEntry *current = Widget.Find(prop::CurrentValue);
        const EnumEntry *changed = choices ? Change.FindEnum(choices->Text) : nullptr;
        const EnumEntry *rows = changed || !choices ? changed : Form.FindEnum(choices->Text);
        if (current && rows && !rows->Rows.isEmpty() && !rows->Values.contains(current->Text))
            Tell(Code::EnumValue, {current},
                QStringLiteral("No row of \"%1\" has the value \"%2\"").arg(rows->Name, current->Text));
    }

    const FormModel &Change;
    const FormModel &Form;
    FindingSink &Sink;
    const int OwnProperties;
    WidgetEntry Widget;
};

void CheckWidgets(const FormModel &change, const FormModel &form, FindingSink &sink)
{
    for (const WidgetEntry &widget : change.Widgets) {
        const WidgetEntry *changed = form.FindWidget(widget.Name);
        if (!changed)
            continue;
        CheckChangedProperties(widget, change, *changed, form, sink);
        if (changed->Info)
            ChangedWidget(widget, change, *changed, form, sink).Check();
        if (!widget.Class.isEmpty() && widget.Class != changed->Class)
            sink.Add(Code::ChangeIgnored, change.Doc.PlaceOfAttribute(widget.Element, attribute::Class),
                QStringLiteral("\"%1\" stays a %2").arg(widget.Name, changed->Class));
    }
}

} // namespace

void CheckChange(const Document &changed, const FormModel &form, FindingSink &sink)
{
    StructureCheck structure(changed, sink);
    structure.SetChanged(NamesOf(form));
    structure.Run();
    if (structure.Form() < 0)
        return;
    const FormModel change(changed, structure.Form());
    CheckAttributes(change, sink);
    CheckIgnoredLists(change, sink);
    CheckWidgets(change, form, sink);
    CheckEnumRows(change, sink);
    if (change.Script < 0)
        return;
    CheckScript(change, sink);
    sink.Add(Code::ChangeScript, changed.PlaceOf(change.Script),
        QStringLiteral("The new script does not run before the form is made anew"));
}

} // namespace Orbel
