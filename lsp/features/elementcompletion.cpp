#include "elementcompletion.h"

#include "elementnames.h"
#include "elementtable.h"
#include "propertynames.h"
#include "referencetext.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;
namespace prop = KV218::prop;

QString Code(const char *text)
{
    return QString::fromUtf8(text);
}

/// The rest of an element behind its bracket.
QString SnippetOf(const ElementInfo &info)
{
    const QString name = info.name;
    if (name == element::EnumValue)
        return Code("EnumValue><DisplayName>$1</DisplayName><EnumIdentifier>$2</EnumIdentifier>"
                    "<Value>$3</Value></EnumValue>$0");
    if (name == element::Script)
        return Code("Script><![CDATA[\n$0\n]]></Script>");
    if (name == element::Property)
        return Code("Property name=\"$1\">$0</Property>");
    if (info.IsText())
        return QStringLiteral("%1>$1</%1>$0").arg(name);
    QString attributes;
    int place = 0;
    for (const QLatin1String attribute : info.attributes)
        attributes += QStringLiteral(" %1=\"$%2\"").arg(attribute, QString::number(++place));
    return QStringLiteral("%1%2>\n\t$0\n</%1>").arg(name, attributes);
}

class ElementCompletion
{
public:
    ElementCompletion(const FormSnapshot &form, const CursorPlace &cursor, int place)
        : Form(form), Cursor(cursor), List{{form.Source.OffsetOf(cursor.From()), place}, {}}
    {
    }

    CompletionList Run()
    {
        switch (Cursor.What()) {
        case CursorPlace::Content:
            Content();
            break;
        case CursorPlace::TagName:
            Tags(QString());
            Add({QLatin1Char('/') + Cursor.NameAround() + QLatin1Char('>'), CompletionItem::Keyword, {}, {}, {},
                false});
            break;
        case CursorPlace::EndTagName:
            Add({Cursor.NameAround() + QLatin1Char('>'), CompletionItem::Keyword, {}, {}, {}});
            break;
        case CursorPlace::AttributeName:
            Attributes();
            break;
        case CursorPlace::AttributeValue:
            AttributeValues();
            break;
        case CursorPlace::Script:
        case CursorPlace::Nowhere:
            break;
        }
        return List;
    }

private:
    void Add(const CompletionItem &item) { List.Items.append(item); }

    void Content()
    {
        const ElementInfo *around = FindElement(Cursor.NameAround());
        if (around && around->IsText()) {
            Values();
            return;
        }
        // Blanks and whatever else was typed between the tags stay.
        List.Span.From = List.Span.To;
        Tags(QStringLiteral("<"));
    }

    /// Elements that belong here, behind a bracket that has been typed or with their own.
    void Tags(const QString &bracket)
    {
        const QString parent = Cursor.NameAround();
        if (parent == element::Property) {
            ValueElements(bracket);
            return;
        }
        for (const ElementInfo &info : ElementTable()) {
            const bool belongs = parent.isEmpty()
                ? info.parents.isEmpty()
                : std::any_of(info.parents.cbegin(), info.parents.cend(), [&](auto name) { return name == parent; });
            if (belongs)
                Add({info.name, CompletionItem::Keyword, {}, TextOf(info), bracket + SnippetOf(info)});
        }
        if (parent == element::Sheet)
            Widgets(bracket);
        else
            Properties([&](const PropertyInfo &property) {
                Add({QStringLiteral("Property ") + property.name, CompletionItem::Template, NameOf(property.type),
                    TextOf(property), bracket + PropertySnippet(property), false});
            });
    }

    void Widgets(const QString &bracket)
    {
        for (const ClassInfo &info : Registry::Classes()) {
            const QString name = Code(info.name);
            QString snippet = QStringLiteral("%1Widget name=\"$1\" class=\"%2\">\n\t").arg(bracket, name);
            if (info.delegate->traits & ekRow)
                snippet += Code("<Property name=\"labelText\"><String>$2</String></Property>\n\t"
                                "<Property name=\"visible\"><Bool>true</Bool></Property>\n\t"
                                "<Property name=\"enabled\"><Bool>true</Bool></Property>\n\t");
            Add({QStringLiteral("Widget ") + name, CompletionItem::Template, {}, TextOf(info),
                snippet + Code("$0\n</Widget>"), false});
        }
    }

    QString PropertySnippet(const PropertyInfo &property) const
    {
        const QString type = NameOf(property.type);
        const QStringList texts = ValuesOf(property.name, &property);
        QString value = QStringLiteral("$1");
        if (!texts.isEmpty() && texts.join(QString()).indexOf(QLatin1Char(',')) < 0)
            value = QStringLiteral("${1|%1|}").arg(SnippetText(texts.join(QLatin1Char(',')).toHtmlEscaped()));
        return QStringLiteral("Property name=\"%1\"><%2>%3</%2></Property>$0")
            .arg(property.name, type.isEmpty() ? QStringLiteral("String") : type, value);
    }

    void ValueElements(const QString &bracket)
    {
        const PropertyInfo *property = CurrentProperty();
        for (const ElementInfo &info : ElementTable()) {
            const bool fits = !property || NameOf(property->type).isEmpty() || NameOf(property->type) == info.name;
            if (info.IsValue() && fits)
                Add({info.name, CompletionItem::Keyword, {}, TextOf(info), bracket + SnippetOf(info)});
        }
    }

    void Attributes()
    {
        const CursorPlace::OpenElement &tag = Cursor.Around().constLast();
        const ElementInfo *info = FindElement(tag.Name);
        for (const QLatin1String name : info ? info->attributes : QVector<QLatin1String>()) {
            if (!tag.Attributes.contains(name))
                Add({name, CompletionItem::Property, {}, {}, name + QStringLiteral("=\"$1\"")});
        }
    }

    void AttributeValues()
    {
        const QString tag = Cursor.NameAround();
        if (tag == element::Widget && Cursor.GetAttribute() == attribute::Class)
            Classes();
        else if (tag == element::Property && Cursor.GetAttribute() == attribute::Name)
            Properties([&](const PropertyInfo &property) {
                Add({property.name, CompletionItem::Property, NameOf(property.type), TextOf(property), {}});
            });
        else if (tag == element::Enum && Cursor.GetAttribute() == attribute::Name)
            MissingEnums();
    }

    void Classes()
    {
        for (const ClassInfo &info : Registry::Classes())
            Add({Code(info.name), CompletionItem::Class, Code(info.delegate->shows), TextOf(info), {}});
    }

    /// Enumerations that combo boxes name and the form does not have.
    void MissingEnums()
    {
        QSet<QString> names;
        for (const WidgetEntry &widget : Form.Model.Widgets) {
            const QString name = widget.TextOf(prop::EnumName);
            if (!name.isEmpty() && !Form.Model.FindEnum(name) && !names.contains(name))
                Add({name, CompletionItem::Enum, {}, {}, {}});
            names.insert(name);
        }
    }

    const WidgetEntry *CurrentWidget() const
    {
        const CursorPlace::OpenElement *widget = Cursor.Innermost(element::Widget);
        return widget ? Form.WidgetOf(Form.ElementAt(Form.Source.OffsetOf(widget->Index))) : nullptr;
    }

    /// Null where the class is unknown, or where there is no widget.
    const ClassInfo *CurrentClass() const
    {
        const CursorPlace::OpenElement *widget = Cursor.Innermost(element::Widget);
        return widget ? Registry::FindClass(widget->Attributes.value(attribute::Class)) : nullptr;
    }

    /// The list of properties around the cursor: that of a widget, of the sheet, or a custom one.
    QString CurrentList() const
    {
        for (int i = Cursor.Around().size() - 1; i >= 0; --i) {
            const QString &name = Cursor.Around().at(i).Name;
            if (name == element::CustomProperties || name == element::Properties || name == element::Widget)
                return name;
        }
        return QString();
    }

    const PropertyInfo *CurrentProperty() const
    {
        const CursorPlace::OpenElement *property = Cursor.Innermost(element::Property);
        const QString name = property ? property->Attributes.value(attribute::Name) : QString();
        if (CurrentList() == element::Properties)
            return Registry::FindSheetProperty(name);
        const ClassInfo *info = CurrentList() == element::Widget ? CurrentClass() : nullptr;
        return info ? Registry::FindProperty(*info, name) : nullptr;
    }

    /// Does `add` with each property that may be stated here and is not stated yet.
    template <class Act> void Properties(Act add)
    {
        const QString list = CurrentList();
        const bool ofSheet = list == element::Properties;
        const ClassInfo *info = list == element::Widget ? CurrentClass() : nullptr;
        if (!ofSheet && list != element::Widget)
            return;
        const WidgetEntry *widget = ofSheet ? nullptr : CurrentWidget();
        for (const PropertyInfo &property : ofSheet ? Registry::SheetProperties()
                : info                              ? Registry::PropertiesOf(*info)
                                                    : Registry::CommonProperties()) {
            const bool isStated = ofSheet ? Form.Model.FindSheetProperty(property.name, false) != nullptr
                                          : widget && widget->States(property.name);
            if (!isStated)
                add(property);
        }
    }

    void Values()
    {
        const CursorPlace::OpenElement *property = Cursor.Innermost(element::Property);
        if (!property)
            return;
        const QString name = property->Attributes.value(attribute::Name);
        const PropertyInfo *known = CurrentProperty();
        QStringList values = ValuesOf(name, known);
        if (values.isEmpty() && Cursor.NameAround() == element::Bool)
            values = Bools();
        for (const QString &value : qAsConst(values))
            Add({value, CompletionItem::Value, {}, {}, SnippetText(value.toHtmlEscaped())});
    }

    static QStringList Bools() { return {QStringLiteral("true"), QStringLiteral("false")}; }

    /// The texts that mean something as a value of the property; none where any does.
    QStringList ValuesOf(const QString &name, const PropertyInfo *known) const
    {
        if (known && known->type == ValueType::Bool)
            return Bools();
        if (name == prop::EnumName)
            return Form.Model.EnumNames();
        if (name == prop::CurrentValue)
            return ChoicesOfWidget();
        if (name == prop::ParameterXmlTag)
            return Groups();
        return known && *known->choices ? Code(known->choices).split(QLatin1Char(' ')) : QStringList();
    }

    QStringList ChoicesOfWidget() const
    {
        const WidgetEntry *widget = CurrentWidget();
        const EnumEntry *choices = widget ? Form.Model.FindEnum(widget->TextOf(prop::EnumName)) : nullptr;
        QStringList values;
        for (const EnumRow &row : choices ? choices->Rows : QVector<EnumRow>())
            values.append(row.Value);
        return values;
    }

    /// What controls share in front of their own part of the parameter document.
    QStringList Groups() const
    {
        QStringList groups;
        for (const WidgetEntry &widget : Form.Model.Widgets) {
            const QString path = widget.TextOf(prop::ParameterXmlTag);
            for (int at = path.indexOf(QLatin1Char('/')); at >= 0; at = path.indexOf(QLatin1Char('/'), at + 1))
                groups.append(path.left(at + 1));
        }
        groups.removeDuplicates();
        return groups;
    }

    const FormSnapshot &Form;
    const CursorPlace &Cursor;
    CompletionList List;
};

} // namespace

CompletionList CompleteElements(const FormSnapshot &form, const CursorPlace &cursor, int place)
{
    return ElementCompletion(form, cursor, place).Run();
}

} // namespace Orbel
