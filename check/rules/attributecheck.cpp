// Attributes that mean nothing where they stand.

#include "elementnames.h"
#include "formcheck.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;

struct KnownAttributes {
    QLatin1String element;
    QVector<QLatin1String> names;
};

const QVector<KnownAttributes> &AttributeTable()
{
    static const QVector<KnownAttributes> table = {
        {element::Form, {attribute::Version}},
        {element::Enums, {}},
        {element::Enum, {attribute::Name}},
        {element::EnumValue, {}},
        {element::Sheet, {attribute::Name}},
        {element::Properties, {}},
        {element::CustomProperties, {}},
        {element::Widget, {attribute::Name, attribute::Class}},
        {element::Property, {attribute::Name}},
        {element::Script, {attribute::Language}},
    };
    return table;
}

void CheckElement(const FormModel &form, const Element &holder, const KnownAttributes &known, FindingSink &sink)
{
    for (const Attribute &attribute : holder.Attributes) {
        const auto isIt = [&](QLatin1String name) { return attribute.Name == name; };
        if (attribute.IsForeign || std::any_of(known.names.cbegin(), known.names.cend(), isIt))
            continue;
        QStringList names(known.names.cbegin(), known.names.cend());
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
        for (const KnownAttributes &known : AttributeTable()) {
            if (known.element == holder.Name)
                CheckElement(form, holder, known, sink);
        }
    }
}

} // namespace Orbel
