#include "schemawriter.h"

#include "elementnames.h"
#include "propertynames.h"
#include "registry.h"

#include <QMap>
#include <QXmlStreamWriter>

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;

const QString Unbounded = QStringLiteral("unbounded");

/// Writes the schema's own elements.
class SchemaWriter
{
public:
    explicit SchemaWriter(QByteArray *text) : Writer(text)
    {
        Writer.setAutoFormatting(true);
        Writer.setAutoFormattingIndent(1);
    }

    void Write()
    {
        Writer.writeStartDocument();
        Writer.writeNamespace(Space, QStringLiteral("xs"));
        Begin("schema");
        Text("Form definitions. Name this file in the root element with xsi:noNamespaceSchemaLocation.");
        WriteForm();
        WriteEnums();
        WriteSheet();
        WriteLists();
        WriteValues();
        WriteNames();
        End();
        Writer.writeEndDocument();
    }

private:
    void Begin(const char *name) { Writer.writeStartElement(Space, QLatin1String(name)); }
    void End() { Writer.writeEndElement(); }

    void Set(const char *name, const QString &value) { Writer.writeAttribute(QLatin1String(name), value); }

    void Text(const char *text) { Text(QString::fromUtf8(text)); }
    void Text(const QString &text)
    {
        Begin("annotation");
        Writer.writeTextElement(Space, QStringLiteral("documentation"), text);
        End();
    }

    /// A reference to an element type inside a group of choices.
    void Element(const QString &name, const QString &type)
    {
        Begin("element");
        Set("name", name);
        Set("type", type);
        End();
    }

    void Attribute(const QString &name, const QString &type, bool isRequired = false)
    {
        Begin("attribute");
        Set("name", name);
        Set("type", type);
        if (isRequired)
            Set("use", QStringLiteral("required"));
        End();
    }

    void BeginType(const QString &name)
    {
        Begin("complexType");
        if (!name.isEmpty())
            Set("name", name);
    }

    void BeginChoice()
    {
        Begin("choice");
        Set("minOccurs", QStringLiteral("0"));
        Set("maxOccurs", Unbounded);
    }

    void Unique(const QString &name, const QString &path)
    {
        Begin("unique");
        Set("name", name);
        Begin("selector");
        Set("xpath", path);
        End();
        Begin("field");
        Set("xpath", QStringLiteral("@name"));
        End();
        End();
    }

    void WriteForm()
    {
        Begin("element");
        Set("name", element::Form);
        BeginType(QString());
        BeginChoice();
        Element(element::Enums, QStringLiteral("enums"));
        Element(element::Sheet, QStringLiteral("sheet"));
        Element(element::Script, QStringLiteral("script"));
        End();
        Attribute(attribute::Version, QStringLiteral("xs:string"));
        End();
        Unique(QStringLiteral("widgetNames"), element::Sheet + QLatin1Char('/') + element::Widget);
        Unique(QStringLiteral("enumNames"), element::Enums + QLatin1Char('/') + element::Enum);
        End();
        BeginType(QStringLiteral("script"));
        Begin("simpleContent");
        Begin("extension");
        Set("base", QStringLiteral("xs:string"));
        Attribute(attribute::Language, QStringLiteral("xs:string"));
        End();
        End();
        End();
    }

    void WriteEnums()
    {
        BeginType(QStringLiteral("enums"));
        BeginChoice();
        Element(element::Enum, QStringLiteral("enum"));
        End();
        End();
        BeginType(QStringLiteral("enum"));
        BeginChoice();
        Element(element::EnumValue, QStringLiteral("enumValue"));
        End();
        Attribute(attribute::Name, QStringLiteral("xs:string"), true);
        End();
        BeginType(QStringLiteral("enumValue"));
        Begin("all");
        for (const QLatin1String name : {element::DisplayName, element::EnumIdentifier, element::Value}) {
            Begin("element");
            Set("name", name);
            Set("type", QStringLiteral("xs:string"));
            Set("minOccurs", QStringLiteral("0"));
            End();
        }
        End();
        End();
    }

    void WriteSheet()
    {
        BeginType(QStringLiteral("sheet"));
        BeginChoice();
        Element(element::Properties, QStringLiteral("sheetProperties"));
        Element(element::CustomProperties, QStringLiteral("customProperties"));
        Element(element::Widget, QStringLiteral("widget"));
        End();
        Attribute(attribute::Name, QStringLiteral("xs:string"));
        End();
        BeginType(QStringLiteral("widget"));
        BeginChoice();
        Element(element::Property, QStringLiteral("widgetProperty"));
        Element(element::CustomProperties, QStringLiteral("customProperties"));
        End();
        Attribute(attribute::Name, QStringLiteral("xs:string"));
        Attribute(attribute::Class, QStringLiteral("className"));
        End();
    }

    void WriteList(const QString &name, const QString &property)
    {
        BeginType(name);
        BeginChoice();
        Element(element::Property, property);
        Element(element::CustomProperties, QStringLiteral("customProperties"));
        End();
        End();
    }

    void WriteProperty(const QString &name, const QString &names)
    {
        BeginType(name);
        Begin("group");
        Set("ref", QStringLiteral("value"));
        End();
        Attribute(attribute::Name, names, true);
        End();
    }

    void WriteLists()
    {
        WriteList(QStringLiteral("sheetProperties"), QStringLiteral("sheetProperty"));
        WriteList(QStringLiteral("customProperties"), QStringLiteral("customProperty"));
        WriteProperty(QStringLiteral("widgetProperty"), QStringLiteral("widgetPropertyName"));
        WriteProperty(QStringLiteral("sheetProperty"), QStringLiteral("sheetPropertyName"));
        WriteProperty(QStringLiteral("customProperty"), QStringLiteral("xs:string"));
    }

    void WriteValues()
    {
        struct Value {
            ValueType type;
            const char *schemaType;
        };
        constexpr Value values[] = {{ValueType::Bool, "bool"}, {ValueType::Int, "int"}, {ValueType::Int64, "int64"},
            {ValueType::UInt64, "uint64"}, {ValueType::Double, "xs:double"}, {ValueType::Text, "xs:string"}};
        Begin("group");
        Set("name", QStringLiteral("value"));
        Begin("choice");
        for (const Value &value : values)
            Element(NameOf(value.type), QLatin1String(value.schemaType));
        End();
        End();
        BeginNames("bool");
        Name(QStringLiteral("true"), QString());
        Name(QStringLiteral("false"), QString());
        EndNames();
        WriteNumber("int", "xs:int", "paddedNumber");
        WriteNumber("int64", "xs:long", "paddedNumber");
        WriteNumber("uint64", "xs:unsignedLong", "paddedCount");
        WritePattern("paddedNumber", "\\s+[\\-+]?[0-9]+\\s*|[\\-+]?[0-9]+\\s+");
        WritePattern("paddedCount", "\\+[0-9]+|\\s+\\+?[0-9]+\\s*|\\+?[0-9]+\\s+");
    }

    /// The form takes numbers with blanks around them. So do these types by themselves, but not every validator knows.
    void WriteNumber(const char *name, const char *number, const char *padded)
    {
        Begin("simpleType");
        Set("name", QLatin1String(name));
        Begin("union");
        Set("memberTypes", QLatin1String(number) + QLatin1Char(' ') + QLatin1String(padded));
        End();
        End();
    }

    void WritePattern(const char *name, const char *pattern)
    {
        BeginNames(name);
        Begin("pattern");
        Set("value", QLatin1String(pattern));
        End();
        EndNames();
    }

    void BeginNames(const char *type)
    {
        Begin("simpleType");
        Set("name", QLatin1String(type));
        Begin("restriction");
        Set("base", QStringLiteral("xs:string"));
    }

    void EndNames()
    {
        End();
        End();
    }

    void Name(const QString &name, const QString &meaning)
    {
        Begin("enumeration");
        Set("value", name);
        if (!meaning.isEmpty())
            Text(meaning);
        End();
    }

    void WriteNames()
    {
        QMap<QString, QStringList> meanings;
        BeginNames("className");
        for (const ClassInfo &info : Registry::Classes()) {
            Name(QLatin1String(info.name), QString::fromUtf8(info.delegate->shows));
            for (const PropertyInfo &property : Registry::PropertiesOf(info)) {
                QStringList &known = meanings[property.name];
                const QString meaning = QString::fromUtf8(property.meaning);
                if (!known.contains(meaning))
                    known.append(meaning);
            }
        }
        EndNames();
        BeginNames("widgetPropertyName");
        for (auto property = meanings.cbegin(); property != meanings.cend(); ++property)
            Name(property.key(), property->join(QStringLiteral(" Or: ")));
        EndNames();
        BeginNames("knownSheetPropertyName");
        for (const PropertyInfo &property : Registry::SheetProperties())
            Name(property.name, QString::fromUtf8(property.meaning));
        EndNames();
        WriteSheetNames();
    }

    void WriteSheetNames()
    {
        BeginNames("attributePropertyName");
        Begin("pattern");
        Set("value", KV218::prop::AttributePrefix + QStringLiteral("\\i\\c*"));
        End();
        EndNames();
        Begin("simpleType");
        Set("name", QStringLiteral("sheetPropertyName"));
        Begin("union");
        Set("memberTypes", QStringLiteral("knownSheetPropertyName attributePropertyName"));
        End();
        End();
    }

    const QString Space = QStringLiteral("http://www.w3.org/2001/XMLSchema");
    QXmlStreamWriter Writer;
};

} // namespace

QByteArray FormSchema()
{
    QByteArray text;
    SchemaWriter(&text).Write();
    return text;
}

} // namespace Orbel
