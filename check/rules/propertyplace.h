#pragma once

#include "elementnames.h"
#include "findingsink.h"
#include "formmodel.h"

namespace Orbel
{

/// The place in the file where a property's text begins; that of the property itself when it has no value element.
inline int PlaceOfValue(const FormModel &form, const PropertyEntry &property)
{
    return form.Doc.PlaceOfText(property.ValueElement >= 0 ? property.ValueElement : property.Element);
}

/// States a Bool of the widget in front of its first property, on a line of its own where that has one. Nothing where
/// the widget has no property of its own.
inline Mend StateBool(const FormModel &form, const WidgetEntry &widget, QLatin1String name, bool value)
{
    const int first = form.Doc.At(widget.Element).FirstChild;
    if (first < 0 || form.Doc.At(first).Name != KV218::element::Property)
        return Mend();
    const int start = form.Doc.At(first).Offset;
    const QString before = form.Doc.Text().left(start);
    const QString margin = before.mid(before.lastIndexOf(QLatin1Char('\n')));
    const QString tag = QStringLiteral("<Property");
    return Mend{form.Doc.PlaceOf(first), tag,
        QStringLiteral("<Property name=\"%1\"><Bool>%2</Bool></Property>")
                .arg(name, QLatin1String(value ? "true" : "false"))
            + (margin.trimmed().isEmpty() ? margin : QString()) + tag};
}

} // namespace Orbel
