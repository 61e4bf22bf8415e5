// What some controls need of the rest of the form, or of their own definition, by mere convention.

#include "formcheck.h"
#include "propertynames.h"

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

void CheckScriptRow(const FormModel &form, FindingSink &sink, const WidgetEntry &row)
{
    QStringList missing;
    for (const QLatin1String name : {prop::EnabledLoad, prop::EnabledEdit, prop::EnabledClear, prop::VisibleLoad,
             prop::VisibleEdit, prop::VisibleClear}) {
        if (!row.States(name))
            missing.append(name);
    }
    if (!missing.isEmpty())
        sink.Add(Code::ScriptRow, form.Doc.PlaceOf(row.Element),
            QStringLiteral("\"%1\" does not state %2").arg(row.Name, missing.join(QLatin1String(", "))));
}

/// Look-ups go by tags, and a widget's name is its tag only while it has no other.
bool HasLabel(const FormModel &form, const QString &name)
{
    for (const WidgetEntry &widget : form.Widgets) {
        if (widget.ParameterTag() == name)
            return true;
    }
    return false;
}

void CheckScanLabels(const FormModel &form, FindingSink &sink, const WidgetEntry &object)
{
    QStringList missing;
    for (const char *name : {"lbScanHF", "lbScanVUHF", "lbScanSHF"}) {
        if (!HasLabel(form, QLatin1String(name)))
            missing.append(QLatin1String(name));
    }
    if (missing.isEmpty() || !form.Doc.IsWhole())
        return;
    // A form without any of them may mean to show no scan ranges.
    const bool hasNone = missing.size() == 3 && !form.ScriptSpeaksOf(QStringLiteral("sl_setScanRanges"));
    sink.Add(hasNone ? Code::ScanUnseen : Code::ScanLabels, form.Doc.PlaceOf(object.Element),
        hasNone ? QStringLiteral("\"%1\" has no labels to show scan ranges in").arg(object.Name)
                : QStringLiteral("\"%1\" finds no label with the tag %2 for its scan ranges")
                      .arg(object.Name, Quoted(missing)));
}

} // namespace

void CheckConventions(const FormModel &form, FindingSink &sink)
{
    bool scanChecked = false;
    for (const WidgetEntry &widget : form.Widgets) {
        if (!widget.Info)
            continue;
        if (Registry::FindProperty(*widget.Info, prop::EnabledLoad))
            CheckScriptRow(form, sink, widget);
        if (widget.Has(ekScanRanges) && !scanChecked) {
            scanChecked = true;
            CheckScanLabels(form, sink, widget);
        }
    }
}

} // namespace Orbel
