#include "formmodel.h"

#include "elementnames.h"
#include "propertynames.h"

#include <QVariant>

namespace Orbel
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;
namespace prop = KV218::prop;

bool PropertyEntry::IsBool() const
{
    return Type == element::Bool;
}

bool PropertyEntry::IsTrue() const
{
    return IsBool() ? Text == QLatin1String("true") : QVariant(Text).toBool();
}

const PropertyEntry *WidgetEntry::Find(QLatin1String name) const
{
    for (auto property = Properties.crbegin(); property != Properties.crend(); ++property) {
        if (property->Name == name && (!property->IsCustom || name == prop::ToolTip))
            return &*property;
    }
    return nullptr;
}

bool WidgetEntry::IsTrue(QLatin1String name) const
{
    const PropertyEntry *property = Find(name);
    return property && property->IsTrue();
}

QString WidgetEntry::TextOf(QLatin1String name) const
{
    const PropertyEntry *property = Find(name);
    return property ? property->Text : QString();
}

bool WidgetEntry::Writes() const
{
    return Has(ekAlwaysWrites) || (Has(ekWrites) && IsTrue(prop::GenerateParameterXml));
}

QString WidgetEntry::ParameterPath() const
{
    if (Has(ekAlwaysWrites) && HasCustomList) {
        for (const PropertyEntry &property : Properties) {
            if (property.IsCustom && property.Name == QLatin1String("customXmlTag"))
                return property.Text;
        }
        return QLatin1String(Info->delegate->customTag);
    }
    const QString tag = TextOf(prop::ParameterXmlTag);
    return tag.isEmpty() ? Name : tag;
}

QString WidgetEntry::ParameterTag() const
{
    const QString path = ParameterPath();
    return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QStringList WidgetEntry::ReadTags() const
{
    QStringList tags;
    for (const QLatin1String name : {prop::StartFrequencyParameterXmlTag, prop::StopFrequencyParameterXmlTag}) {
        if (Info && Registry::FindProperty(*Info, name) && States(name))
            tags.append(TextOf(name));
    }
    if (tags.size() < 2 || States(prop::ParameterXmlTag))
        tags.append(ParameterTag());
    return tags;
}

FormModel::FormModel(const Document &document, int form) : Doc(document), Form(form)
{
    AddParts(form);
    Source = ScriptSourceMap(Doc, Script);
    const QString &code = Source.Code();
    const QVector<ScriptToken> tokens = ScanScript(code);
    Tree = std::make_shared<ScriptTree>(code, tokens);
    Bindings = std::make_shared<ScriptBindings>(*Tree);
    Usage = ScriptUsage(code, tokens, *Tree, *Bindings);
}

void FormModel::AddParts(int form)
{
    if (form < 0)
        return;
    for (int i = form + 1; i <= Doc.At(form).Last; ++i) {
        const QString &name = Doc.At(i).Name;
        if (name == element::Widget)
            AddWidget(i);
        else if (name == element::Enum)
            AddEnum(i);
        else if (name == element::Sheet)
            AddSheet(i);
        else if (name == element::Script)
            Script = i;
    }
}

void FormModel::AddWidget(int element)
{
    WidgetEntry widget;
    widget.Element = element;
    widget.Name = Doc.AttributeOf(element, attribute::Name);
    widget.Class = Doc.AttributeOf(element, attribute::Class);
    widget.Info = Registry::FindClass(widget.Class);
    widget.IsNamed = !widget.Name.isEmpty();
    if (!widget.IsNamed)
        widget.Name = QStringLiteral("%1_%2").arg(widget.Class, QString::number(Widgets.size()));
    widget.HasCustomList = false;
    for (int i = Doc.At(element).FirstChild; i >= 0 && !widget.HasCustomList; i = Doc.At(i).NextSibling)
        widget.HasCustomList = Doc.At(i).Name == element::CustomProperties;
    CollectProperties(element, widget.Properties);
    if (!WidgetIndex.contains(widget.Name))
        WidgetIndex.insert(widget.Name, Widgets.size());
    Widgets.append(widget);
}

void FormModel::AddEnum(int element)
{
    EnumEntry entry{Doc.AttributeOf(element, attribute::Name), element, {}, {}};
    for (int i = Doc.At(element).FirstChild; i >= 0; i = Doc.At(i).NextSibling) {
        if (Doc.At(i).Name != element::EnumValue)
            continue;
        EnumRow row{QString(), QString(), QString(), i, i, i};
        for (int child = Doc.At(i).FirstChild; child >= 0; child = Doc.At(child).NextSibling) {
            const Element &part = Doc.At(child);
            if (part.Name == element::DisplayName)
                row.DisplayName = part.Text;
            else if (part.Name == element::EnumIdentifier)
                row.Identifier = part.Text, row.IdentifierElement = child;
            else if (part.Name == element::Value)
                row.Value = part.Text, row.ValueElement = child;
        }
        entry.Rows.append(row);
        entry.Values.insert(row.Value);
    }
    EnumIndex.insert(entry.Name, Enums.size());
    Enums.append(entry);
}

void FormModel::AddSheet(int element)
{
    Sheets.append(element);
    for (int i = Doc.At(element).FirstChild; i >= 0; i = Doc.At(i).NextSibling) {
        if (Doc.At(i).Name == element::Properties || Doc.At(i).Name == element::CustomProperties)
            CollectProperties(i, SheetProperties);
    }
}

void FormModel::CollectProperties(int list, QVector<PropertyEntry> &properties) const
{
    // Behind which element the innermost custom list ends.
    int customUntil = Doc.At(list).Name == element::CustomProperties ? Doc.At(list).Last : -1;
    for (int i = list + 1; i <= Doc.At(list).Last; ++i) {
        const Element &child = Doc.At(i);
        if (child.Name == element::CustomProperties)
            customUntil = qMax(customUntil, child.Last);
        else if (child.Name == element::Property)
            properties.append(ReadProperty(i, i <= customUntil));
        else if (child.Name != element::Widget)
            continue;
        if (child.Name != element::CustomProperties)
            i = child.Last;
    }
}

PropertyEntry FormModel::ReadProperty(int element, bool custom) const
{
    PropertyEntry property{Doc.AttributeOf(element, attribute::Name), QString(), QString(), element, -1, custom};
    const int value = Doc.At(element).FirstChild;
    if (value >= 0) {
        property.Type = Doc.At(value).Name;
        property.Text = Doc.At(value).Text;
        property.ValueElement = value;
    }
    return property;
}

const PropertyEntry *FormModel::FindSheetProperty(const QString &name, bool custom) const
{
    for (const PropertyEntry &property : SheetProperties) {
        if (property.Name == name && property.IsCustom == custom)
            return &property;
    }
    return nullptr;
}

const EnumEntry *FormModel::FindEnum(const QString &name) const
{
    const int index = EnumIndex.value(name, -1);
    return index < 0 ? nullptr : &Enums.at(index);
}

const WidgetEntry *FormModel::FindWidget(const QString &name) const
{
    const int index = WidgetIndex.value(name, -1);
    return index < 0 ? nullptr : &Widgets.at(index);
}

bool FormModel::ScriptMayCall(const WidgetEntry &widget, const char *member) const
{
    return Usage.MayCall(widget.Name, QLatin1String(member));
}

bool FormModel::ScriptMayCallAtStart(const WidgetEntry &widget, const char *member) const
{
    return Usage.MayCallAtStart(widget.Name, QLatin1String(member));
}

QString FormModel::RootTag() const
{
    QString tag;
    for (const PropertyEntry &property : SheetProperties) {
        if (property.Name == prop::ParametersXmlRootTag && !property.IsCustom)
            tag = property.Text;
    }
    return tag.isEmpty() ? QStringLiteral("Parameters") : tag;
}

} // namespace Orbel
