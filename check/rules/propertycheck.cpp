// Unknown classes and properties, and texts that do not convert to the type that reads them.

#include "elementnames.h"
#include "formcheck.h"
#include "propertynames.h"
#include "widgetnumbers.h"

#include <QSet>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
namespace attribute = KV218::attribute;

const QStringList &ValueElements()
{
    static const QStringList names = {QStringLiteral("Bool"), QStringLiteral("Int"), QStringLiteral("Int64"),
        QStringLiteral("UInt64"), QStringLiteral("Double"), QStringLiteral("String")};
    return names;
}

template <class Integer> bool Converts(const QString &text)
{
    bool isNumber = false;
    const qint64 number = QVariant(text).toLongLong(&isNumber);
    return isNumber && number >= std::numeric_limits<Integer>::min() && number <= std::numeric_limits<Integer>::max();
}

bool ConvertsTo(ValueType type, const QString &text)
{
    bool isNumber = true;
    if (type == ValueType::Int)
        return Converts<int>(text);
    if (type == ValueType::Int64)
        return Converts<qint64>(text);
    if (type == ValueType::UInt64)
        QVariant(text).toULongLong(&isNumber);
    else if (type == ValueType::Double)
        isNumber = std::isfinite(QVariant(text).toDouble(&isNumber)) && isNumber;
    return isNumber && !(type == ValueType::UInt64 && text.trimmed().startsWith(QLatin1Char('-')));
}

bool IsNumber(ValueType type)
{
    return type == ValueType::Int || type == ValueType::Int64 || type == ValueType::UInt64 || type == ValueType::Double;
}

/// What a property's text must become. Bounds and step are in display units, and of a scaled control whole numbers only
/// in the node.
ValueType TypeOf(const PropertyInfo &known, bool isScaled)
{
    const bool isDisplayed
        = known.name == prop::Minimum || known.name == prop::Maximum || known.name == prop::SingleStep;
    return isScaled && isDisplayed && IsNumber(known.type) ? ValueType::Double : known.type;
}

/// The texts that mean what they seem to mean when a Bool is read from them.
bool IsPlainBool(const PropertyEntry &property)
{
    if (property.Text == QLatin1String("true") || property.Text == QLatin1String("false"))
        return true;
    return !property.IsBool() && (property.Text == QLatin1String("0") || property.Text == QLatin1String("1"));
}

/// What the author of a Bool wanted to say; the text itself where that cannot be told.
QString MeantBool(const QString &text)
{
    const QString word = text.trimmed().toLower();
    const auto isAny = [&](std::initializer_list<const char *> words) {
        return std::any_of(words.begin(), words.end(), [&](const char *each) { return word == QLatin1String(each); });
    };
    if (isAny({"true", "yes", "on", "1"}))
        return QStringLiteral("true");
    return isAny({"false", "no", "off", "0"}) ? QStringLiteral("false") : text;
}

class PropertyCheck
{
public:
    PropertyCheck(const FormModel &form, FindingSink &sink) : Form(form), Sink(sink) { }

    /// `known` is null for a property that is not read.
    void CheckValue(const PropertyEntry &property, const PropertyInfo *known, bool isScaled = false)
    {
        if (property.ValueElement < 0)
            return;
        CheckElement(property);
        const int place = Form.Doc.PlaceOfText(property.ValueElement);
        // What nothing reads is not read as a type either.
        if (known && known->use == PropertyUse::Stored && !property.IsBool() && known->type != ValueType::Bool)
            return;
        const ValueType type = known ? TypeOf(*known, isScaled) : ValueType::Text;
        if (property.IsBool() && known && known->use != PropertyUse::Stored && IsNumber(type))
            Sink.Add(Code::ValueType, Form.Doc.PlaceOf(property.ValueElement),
                QStringLiteral("A Bool makes 0 or 1 of \"%1\", and \"%2\" wants %3")
                    .arg(property.Text, property.Name, NameOf(type)));
        else if ((known && known->type == ValueType::Bool) || property.IsBool())
            CheckBool(property, place);
        else if (known && known->type == ValueType::Other)
            Sink.Add(Code::ValueType, place,
                QStringLiteral("No text becomes what \"%1\" wants; a script can set it").arg(property.Name));
        else if (known && !ConvertsTo(type, property.Text))
            Sink.Add(Code::ValueType, place,
                QStringLiteral("\"%1\" is no %2, which \"%3\" wants").arg(property.Text, NameOf(type), property.Name));
        else if (known && *known->choices)
            CheckChoice(property, *known, place);
    }

    void CheckElement(const PropertyEntry &property)
    {
        if (ValueElements().contains(property.Type))
            return;
        Sink.Add(Code::ValueElement, Form.Doc.PlaceOf(property.ValueElement),
            QStringLiteral("\"%1\" is no type of value, and its text is taken as it stands%2")
                .arg(property.Type, Sink.Suggest(property.Type, ValueElements())));
    }

    void CheckBool(const PropertyEntry &property, int place)
    {
        if (IsPlainBool(property))
            return;
        Sink.Add(Code::BoolText, place,
            QStringLiteral("\"%1\" means %2 here; write true or false")
                .arg(property.Text, QLatin1String(property.IsTrue() ? "true" : "false")),
            Mend{place, property.Text, MeantBool(property.Text)});
    }

    void CheckChoice(const PropertyEntry &property, const PropertyInfo &known, int place)
    {
        const QStringList choices = QString::fromLatin1(known.choices).split(QLatin1Char(' '));
        if (property.Text.isEmpty() || choices.contains(property.Text))
            return;
        Sink.Add(Code::ValueChoice, place,
            QStringLiteral("\"%1\" means nothing for \"%2\", only %3 do")
                .arg(property.Text, property.Name, choices.join(QLatin1String(", "))));
    }

    void CheckUnnamed(const PropertyEntry &property)
    {
        if (property.Name.isEmpty())
            Sink.Add(
                Code::PropertyUnnamed, Form.Doc.PlaceOf(property.Element), QStringLiteral("The property has no name"));
    }

    void CheckDoubled(const QVector<PropertyEntry> &properties)
    {
        QSet<QString> seen[2];
        for (const PropertyEntry &property : properties) {
            QSet<QString> &names = seen[property.IsCustom ? 1 : 0];
            if (!property.Name.isEmpty() && names.contains(property.Name))
                Sink.Add(Code::PropertyDoubled, PlaceOfName(property),
                    QStringLiteral("\"%1\" is stated before; this later statement counts").arg(property.Name));
            names.insert(property.Name);
        }
    }

    int PlaceOfName(const PropertyEntry &property) const
    {
        return Form.Doc.PlaceOfAttribute(property.Element, attribute::Name);
    }

    void CheckWidget(const WidgetEntry &widget)
    {
        const ClassInfo *info = widget.Info;
        const bool isScaled = info && WidgetNumbers(widget).Scale() != 1;
        CheckDoubled(widget.Properties);
        for (const PropertyEntry &property : widget.Properties) {
            CheckUnnamed(property);
            const PropertyInfo *known = info ? Registry::FindProperty(*info, property.Name) : nullptr;
            if (property.IsCustom)
                CheckCustom(property, known, QLatin1String(info ? info->name : ""));
            else if (info && !known)
                CheckUnknown(property, *info);
            CheckValue(property, property.IsCustom ? nullptr : known, isScaled);
        }
    }

    void CheckUnknown(const PropertyEntry &property, const ClassInfo &info)
    {
        if (property.Name.isEmpty() || (info.delegate->traits & ekFreeProperties) || Form.ScriptSpeaksOf(property.Name))
            return;
        Sink.AddMisspelt(Code::PropertyUnknown, PlaceOfName(property),
            QStringLiteral("\"%1\" reads no property \"%2\"").arg(QLatin1String(info.name), property.Name),
            property.Name, Registry::PropertyNames(info));
    }

    void CheckCustom(const PropertyEntry &property, const PropertyInfo *known, const QString &owner)
    {
        if (known && property.Name != prop::ToolTip)
            Sink.Add(Code::PropertyCustom, PlaceOfName(property),
                QStringLiteral("\"%1\" reads \"%2\", but not among the custom properties").arg(owner, property.Name));
    }

    void CheckSheet()
    {
        CheckDoubled(Form.SheetProperties);
        for (const PropertyEntry &property : Form.SheetProperties) {
            CheckUnnamed(property);
            const PropertyInfo *known = Registry::FindSheetProperty(property.Name);
            const bool isAttribute = property.Name.startsWith(prop::AttributePrefix);
            if (property.IsCustom)
                CheckCustom(property, known, QStringLiteral("Sheet"));
            else if (!known && !isAttribute && !property.Name.isEmpty() && !Form.ScriptSpeaksOf(property.Name))
                Sink.AddMisspelt(Code::PropertyUnknown, PlaceOfName(property),
                    QStringLiteral("A sheet reads no property \"%1\"").arg(property.Name), property.Name,
                    Registry::SheetPropertyNames());
            CheckValue(property, property.IsCustom ? nullptr : known);
        }
    }

    void CheckClass(const WidgetEntry &widget)
    {
        if (widget.Info)
            return;
        const int place = Form.Doc.PlaceOfAttribute(widget.Element, attribute::Class);
        if (widget.Class.isEmpty())
            Sink.Add(Code::ClassUnknown, place,
                widget.IsNamed ? QStringLiteral("The widget \"%1\" has no class").arg(widget.Name)
                               : QStringLiteral("A widget without a name has no class either"));
        else
            Sink.AddMisspelt(Code::ClassUnknown, place, QStringLiteral("There is no class \"%1\"").arg(widget.Class),
                widget.Class, Registry::ClassNames());
    }

private:
    const FormModel &Form;
    FindingSink &Sink;
};

} // namespace

void CheckProperties(const FormModel &form, FindingSink &sink)
{
    PropertyCheck check(form, sink);
    check.CheckSheet();
    for (const WidgetEntry &widget : form.Widgets) {
        check.CheckClass(widget);
        check.CheckWidget(widget);
    }
}

} // namespace Orbel
