// Attributes that mean nothing where they stand.

#include "elementtable.h"
#include "formcheck.h"

#include <algorithm>

namespace Orbel
{

namespace
{

void CheckElement(const FormModel &form, const Element &holder, const ElementInfo &known, FindingSink &sink)
{
    for (const Attribute &attribute : holder.Attributes) {
        const auto isIt = [&](QLatin1String name) { return attribute.Name == name; };
        if (attribute.IsForeign || std::any_of(known.attributes.cbegin(), known.attributes.cend(), isIt))
            continue;
        QStringList names(known.attributes.cbegin(), known.attributes.cend());
        for (const Attribute &stated : holder.Attributes)
            names.removeAll(stated.Name);
        sink.AddMisspelt(Code::AttributeUnknown, form.Doc.PlaceOf(attribute),
            QStringLiteral("The attribute \"%1\" means nothing on \"%2\"").arg(attribute.Name, holder.Name),
            attribute.Name, names);
    }
}

} // namespace

void CheckAttributes(const FormModel &form, FindingSink &sink)
{
    for (int i = form.Form; i <= form.Doc.At(form.Form).Last; ++i) {
        const Element &holder = form.Doc.At(i);
        if (holder.Attributes.isEmpty())
            continue;
        const ElementInfo *known = FindElement(holder.Name);
        // Authors may note what they like at a mere text.
        if (known && !known->IsText())
            CheckElement(form, holder, *known, sink);
    }
}

} // namespace Orbel
