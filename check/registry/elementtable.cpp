#include "elementtable.h"

#include "elementnames.h"

#include <algorithm>

namespace Orbel
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;

const QVector<ElementInfo> &ElementTable()
{
    // clang-format off
    static const QVector<ElementInfo> table = {
        {element::Form, {}, {attribute::Version},
            "A form: enumerations, one sheet with the controls, one script."},
        {element::Enums, {element::Form}, {},
            "The enumerations of the form."},
        {element::Enum, {element::Enums}, {attribute::Name},
            "An enumeration: the choices of combo boxes, and a global of the script."},
        {element::EnumValue, {element::Enum}, {},
            "One choice of an enumeration."},
        {element::DisplayName, {element::EnumValue}, {},
            "What operators see of a choice, translated."},
        {element::EnumIdentifier, {element::EnumValue}, {},
            "How a script names a choice, behind the name of the enumeration and a dot."},
        {element::Value, {element::EnumValue}, {},
            "What parameter documents and scripts hold when the choice is taken."},
        {element::Sheet, {element::Form}, {attribute::Name},
            "The controls of the form, from top to bottom."},
        {element::Properties, {element::Sheet}, {},
            "The properties of the sheet. A widget holds its properties directly."},
        {element::CustomProperties, {element::Sheet, element::Widget}, {},
            "Properties that only host and script know; the script reads them by customProperty(name)."},
        {element::Widget, {element::Sheet}, {attribute::Name, attribute::Class},
            "One control, which the script knows by its name."},
        {element::Property, {element::Widget, element::Properties, element::CustomProperties}, {attribute::Name},
            "A property: its name, and in it one value element."},
        {element::Script, {element::Form}, {attribute::Language},
            "The script of the form, which runs once before there is anything to see."},
        {QLatin1String("Bool"), {element::Property}, {},
            "A truth value: true or false, in small letters."},
        {QLatin1String("Int"), {element::Property}, {},
            "A whole number of 32 bits."},
        {QLatin1String("Int64"), {element::Property}, {},
            "A whole number of 64 bits."},
        {QLatin1String("UInt64"), {element::Property}, {},
            "A whole number of 64 bits that is not negative."},
        {QLatin1String("Double"), {element::Property}, {},
            "A number with a point."},
        {QLatin1String("String"), {element::Property}, {},
            "A text."},
    };
    // clang-format on
    return table;
}

bool ElementInfo::IsText() const
{
    return IsValue() || parents.contains(element::EnumValue);
}

bool ElementInfo::IsValue() const
{
    return parents == QVector<QLatin1String>{element::Property};
}

const ElementInfo *FindElement(const QString &name)
{
    const QVector<ElementInfo> &table = ElementTable();
    const auto found
        = std::find_if(table.cbegin(), table.cend(), [&](const ElementInfo &info) { return info.name == name; });
    return found == table.cend() ? nullptr : &*found;
}

} // namespace Orbel
