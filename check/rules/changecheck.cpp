#include "changecheck.h"

#include "definitionoverlay.h"
#include "elementnames.h"
#include "formcheck.h"
#include "structurecheck.h"

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;

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

void CheckWidgets(const FormModel &change, const FormModel &form, FindingSink &sink)
{
    for (const WidgetEntry &widget : change.Widgets) {
        const WidgetEntry *changed = form.FindWidget(widget.Name);
        if (!changed)
            continue;
        if (!widget.Class.isEmpty() && widget.Class != changed->Class)
            sink.Add(Code::ChangeIgnored, change.Doc.PlaceOfAttribute(widget.Element, attribute::Class),
                QStringLiteral("\"%1\" stays a %2").arg(widget.Name, changed->Class));
    }
}

/// What is wrong with the form once it is changed, and was not before.
void CheckChanged(const FormModel &change, const FormModel &form, FindingSink &sink)
{
    const DefinitionOverlay overlay(form, change);
    if (overlay.IsEmpty() || !form.Doc.IsWhole() || !change.Doc.IsWhole())
        return;
    const Document document(overlay.GetDefinition());
    FindingSink before;
    CheckForm(form, before);
    FindingSink after;
    StructureCheck structure(document, after);
    structure.Run();
    if (structure.Form() < 0)
        return;
    CheckForm(FormModel(document, structure.Form()), after);
    sink.TakeNew(after, before);
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
    CheckChanged(change, form, sink);
    if (change.Script < 0)
        return;
    CheckScript(change, sink);
    sink.Add(Code::ChangeScript, changed.PlaceOf(change.Script),
        QStringLiteral("The new script does not run before the form is made anew"));
}

} // namespace Orbel
