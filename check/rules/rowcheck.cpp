// Rows and groups of the form: labels that stay hidden, fields that start locked, groups without members or memory.

#include "elementnames.h"
#include "formcheck.h"
#include "propertynames.h"
#include "propertyplace.h"

#include <QSet>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

bool IsHeadline(const WidgetEntry &widget)
{
    return widget.Class == KV218::widgetclass::Headline;
}

/// Whether the widget puts something into the form that its group can hide.
bool IsMember(const WidgetEntry &widget)
{
    return !widget.Info || widget.Has(ekShown) || !widget.TextOf(prop::LabelText).isEmpty();
}

void CheckLabel(const FormModel &form, FindingSink &sink, const WidgetEntry &widget)
{
    const PropertyEntry *label = widget.Find(prop::LabelText);
    const bool hasRow = !widget.Info || widget.Has(ekRow);
    if (label && !hasRow && widget.Has(ekShown) && !form.ScriptSpeaksOf(prop::LabelText))
        sink.Add(Code::LabelHidden, form.Doc.PlaceOf(label->Element),
            QStringLiteral("A %1 has no row label").arg(widget.Class));
    if (!hasRow || !label || label->Text.isEmpty() || widget.States(prop::Visible)
        || form.ScriptMayCall(widget, "setVisible"))
        return;
    sink.Add(Code::LabelHidden, form.Doc.PlaceOf(label->Element),
        QStringLiteral("The label \"%1\" stays hidden, since \"%2\" does not state visible")
            .arg(label->Text, widget.Name),
        StateBool(form, widget, prop::Visible, true));
}

bool IsLargeField(const WidgetEntry &widget)
{
    if (widget.Class != QLatin1String("FrequencyEdit"))
        return false;
    return widget.States(prop::MainFreqEdit) ? widget.IsTrue(prop::MainFreqEdit)
                                             : widget.ParameterTag() == QLatin1String("Frequency");
}

void CheckInput(const FormModel &form, FindingSink &sink, const WidgetEntry &widget)
{
    const auto mayCall = [&](const char *setter) { return form.ScriptMayCall(widget, setter); };
    if (!IsLargeField(widget) || widget.States(prop::Enabled) || mayCall("setEnabled") || mayCall("setReadOnly"))
        return;
    sink.Add(Code::InputUnstated, form.Doc.PlaceOf(widget.Element),
        QStringLiteral("The large field \"%1\" starts locked, since it does not state enabled").arg(widget.Name),
        StateBool(form, widget, prop::Enabled, true));
}

void CheckTexts(const FormModel &form, FindingSink &sink, const WidgetEntry &widget)
{
    const auto stated = [&](QLatin1String name, const char *otherwise) {
        const QString text = widget.TextOf(name);
        return text.isEmpty() ? QString::fromLatin1(otherwise) : text;
    };
    const PropertyEntry *off = widget.Find(prop::UncheckedValue);
    const PropertyEntry *on = widget.Find(prop::CheckedValue);
    if (widget.Class == QLatin1String("CheckBox") && (on || off)
        && stated(prop::CheckedValue, "true") == stated(prop::UncheckedValue, "false"))
        sink.Add(Code::SwitchText, PlaceOfValue(form, off ? *off : *on),
            QStringLiteral("\"%1\" writes \"%2\" in both states").arg(widget.Name, stated(prop::CheckedValue, "true")));
    for (const PropertyEntry *text : {on, off}) {
        if (text && text->Text.isEmpty() && widget.Class == QLatin1String("CheckBox"))
            sink.Add(Code::ValueEmpty, form.Doc.PlaceOf(text->Element),
                QStringLiteral("An empty %1 counts as none, and \"%2\" is written")
                    .arg(text->Name, QLatin1String(text == on ? "true" : "false")));
    }
    if (widget.Class == QLatin1String("PushButton") && widget.IsNamed && !form.ScriptMayCall(widget, "clicked")
        && !form.ScriptMayCall(widget, "pressed") && !form.ScriptMayCall(widget, "released"))
        sink.Add(Code::ButtonUnheard, form.Doc.PlaceOf(widget.Element),
            QStringLiteral("No script hears the button \"%1\"").arg(widget.Name));
    if (widget.Class == QLatin1String("PushButton") && widget.TextOf(prop::Text).isEmpty()
        && !form.ScriptMayCall(widget, "setText") && !form.ScriptMayCall(widget, "text")
        && !form.ScriptMayCall(widget, "setIcon"))
        sink.Add(Code::ButtonUntitled,
            form.Doc.PlaceOf(widget.States(prop::Text) ? widget.Find(prop::Text)->Element : widget.Element),
            QStringLiteral("The button \"%1\" has no text").arg(widget.Name));
}

void CheckHeadline(const FormModel &form, FindingSink &sink, const WidgetEntry &headline)
{
    if (headline.TextOf(prop::Text).isEmpty() && !form.ScriptMayCall(headline, "setText"))
        sink.Add(Code::HeadlineUntitled, form.Doc.PlaceOf(headline.Element),
            QStringLiteral("The headline \"%1\" has no text, and is not made").arg(headline.Name));
    if (headline.Name.contains(QLatin1Char(',')))
        sink.Add(Code::HeadlineComma, form.Doc.PlaceOfAttribute(headline.Element, KV218::attribute::Name),
            QStringLiteral("The headline \"%1\" never comes back collapsed, since its name has a comma")
                .arg(headline.Name));
}

} // namespace

void CheckRows(const FormModel &form, FindingSink &sink)
{
    const WidgetEntry *emptyHeadline = nullptr;
    QHash<QString, bool> labels; // of the group, and whether the row takes turns with others
    QSet<QString> tips;
    QSet<QString> titles;
    const auto closeGroup = [&] {
        if (emptyHeadline)
            sink.Add(Code::GroupEmpty, form.Doc.PlaceOf(emptyHeadline->Element),
                QStringLiteral("The group of the headline \"%1\" has no members").arg(emptyHeadline->Name));
    };
    for (const WidgetEntry &widget : form.Widgets) {
        CheckLabel(form, sink, widget);
        CheckInput(form, sink, widget);
        CheckTexts(form, sink, widget);
        const PropertyEntry *label = widget.Find(prop::LabelText);
        const bool isLabelled = label && !label->Text.isEmpty() && (!widget.Info || widget.Has(ekRow));
        // Rows that take turns have scripts that show and hide them.
        const bool isSwitched = form.ScriptMayCall(widget, "setVisible") || form.ScriptMayCall(widget, "visible");
        if (isLabelled && widget.IsTrue(prop::Visible)) {
            if (labels.contains(label->Text) && !(isSwitched && labels.value(label->Text)))
                sink.Add(Code::LabelDoubled, form.Doc.PlaceOf(label->Element),
                    QStringLiteral("Another row of the group has the label \"%1\"").arg(label->Text));
            labels.insert(label->Text, isSwitched);
        }
        const PropertyEntry *tip = widget.Find(prop::ToolTip);
        if (tip && !tip->Text.isEmpty() && isLabelled) {
            if (tips.contains(tip->Text))
                sink.Add(Code::TooltipDoubled, PlaceOfValue(form, *tip),
                    QStringLiteral("Another row of the group has this tooltip"));
            tips.insert(tip->Text);
        }
        if (IsHeadline(widget)) {
            labels.clear();
            tips.clear();
            closeGroup();
            CheckHeadline(form, sink, widget);
            const QString title = widget.TextOf(prop::Text);
            if (titles.contains(title) && !title.isEmpty() && !form.ScriptMayCall(widget, "setText"))
                sink.Add(Code::LabelDoubled, form.Doc.PlaceOf(widget.Find(prop::Text)->Element),
                    QStringLiteral("Another group has the title \"%1\"").arg(title));
            titles.insert(title);
            emptyHeadline = &widget;
        } else if (IsMember(widget)) {
            emptyHeadline = nullptr;
        }
    }
    if (form.Doc.IsWhole())
        closeGroup();
}

} // namespace Orbel
