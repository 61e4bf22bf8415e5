#include "registrytables.h"

#include "propertynames.h"

#include <map>
#include <string>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

/// Words of the rows.
namespace word
{

constexpr QLatin1String None;
constexpr unsigned Field = ekRow | ekShown | ekWrites;
constexpr unsigned Number = Field | ekLimits;
const char NumberBecomesValue[] = "The element's text becomes the value; a text that is no number reads as 0.";
const char TextBecomesValue[] = "The element's text becomes the value.";
const char ItemsByIndex[]
    = "Items land by their attribute \"index\", or one behind the other; the element name of an item is not "
      "looked at, and items beyond the count are dropped.";

} // namespace word

struct Rows {
    ClassRows Common;
    ClassRows Sheet;
    std::map<std::string, DelegateInfo> Delegates; ///< By the class names that are no aliases.
};

/// Takes the rows one after the other.
class RowReader
{
public:
    Rows Read;

    template <class Taker> void Begin(Taker &taker)
    {
        Properties = &taker.properties;
        Members = &taker.members;
        Cannot = &taker.cannot;
    }

    void Begin(const char *name, const DelegateInfo &info)
    {
        DelegateInfo &added = Read.Delegates[name] = info;
        Type = info.valueType;
        Begin(added);
    }

    template <class... Groups> void Use(const Groups &...groups)
    {
        for (const ClassRows *group : {&groups...}) {
            for (PropertyInfo property : group->properties) {
                if (property.type == ValueType::AsValue)
                    property.type = Type;
                Add(property);
            }
            *Members += group->members;
            *Cannot += group->cannot;
        }
    }

    void Add(const PropertyInfo &property) { Properties->append(property); }
    void Add(const MemberInfo &member) { Members->append(member); }
    void Add(const char *cannot) { Cannot->append(cannot); }

private:
    // Those of the next rows.
    QVector<PropertyInfo> *Properties = nullptr;
    QVector<MemberInfo> *Members = nullptr;
    QVector<const char *> *Cannot = nullptr;
    ValueType Type = ValueType::Text; ///< Of the last class.
};

Rows ReadRows()
{
    using namespace word;
    RowReader reader;
    // clang-format off
#define ORBEL_PROPERTIES(group) ClassRows group; reader.Begin(group);
#define ORBEL_SHEET() reader.Begin(reader.Read.Sheet);
#define ORBEL_CLASS(name, delegate, type, ...) reader.Begin(#name, {#delegate, ValueType::type, __VA_ARGS__});
#define ORBEL_USES(...) reader.Use(__VA_ARGS__);
#define ORBEL_PROPERTY(constant, name, ...) ORBEL_ALSO(constant, __VA_ARGS__)
#define ORBEL_ALSO(constant, type, absent, unit, use, ...) \
    reader.Add(PropertyInfo{prop::constant, ValueType::type, absent, unit, PropertyUse::use, __VA_ARGS__});
#define ORBEL_MEMBER(member, meaning) reader.Add(MemberInfo{member, meaning});
#define ORBEL_CANNOT(text) reader.Add(text);
#include "controlclasses.inc"
    // clang-format on
    reader.Read.Common = EveryControl;
    return reader.Read;
}

const Rows &AllRows()
{
    static const Rows rows = ReadRows();
    return rows;
}

} // namespace

const QVector<ClassInfo> &ClassTable()
{
    static const QVector<ClassInfo> table = {
#define ORBEL_CLASS(name, ...) {#name, &AllRows().Delegates.at(#name), ""},
#define ORBEL_ALIAS(name, same, remark) {#name, &AllRows().Delegates.at(#same), remark},
#include "controlclasses.inc"
    };
    return table;
}

const ClassRows &CommonRows()
{
    return AllRows().Common;
}

const ClassRows &SheetRows()
{
    return AllRows().Sheet;
}

} // namespace Orbel
