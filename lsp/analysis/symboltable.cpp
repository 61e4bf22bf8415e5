#include "symboltable.h"

#include "elementnames.h"
#include "formlimits.h"
#include "propertynames.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace attribute = KV218::attribute;
namespace prop = KV218::prop;

/// The property that a member sets; the member itself where it is no setter.
QString PropertyOf(const QString &member)
{
    if (!member.startsWith(QLatin1String("set")) || member.size() < 4)
        return member;
    return member.at(3).toLower() + member.mid(4);
}

/// Members whose argument is the value of a choice.
bool TakesValue(const QString &member)
{
    return member == QLatin1String("setCurrentValue") || member == QLatin1String("firstIndexOfValue");
}

} // namespace

SymbolTable::SymbolTable(const FormSnapshot &form) : Form(form), Scopes(form.Tokens)
{
    AddSheets();
    AddEnums();
    for (const WidgetEntry &widget : Form.Model.Widgets)
        AddWidget(widget);
    AddScript();
}

const Occurrence *SymbolTable::At(int place) const
{
    const auto found = std::find_if(Occurrences.cbegin(), Occurrences.cend(),
        [&](const Occurrence &occurrence) { return occurrence.Span.Holds(place); });
    return found == Occurrences.cend() ? nullptr : &*found;
}

QVector<Occurrence> SymbolTable::Of(const Symbol &symbol) const
{
    QVector<Occurrence> found;
    for (const Occurrence &occurrence : Occurrences) {
        if (occurrence.Of == symbol)
            found.append(occurrence);
    }
    return found;
}

void SymbolTable::Add(const Symbol &symbol, TextSpan span, bool isDefinition)
{
    if (!symbol.Name.isEmpty() && span.From < span.To)
        Occurrences.append({symbol, span, isDefinition});
}

void SymbolTable::AddAttribute(int element, QLatin1String attribute, const Symbol &symbol, bool isDefinition)
{
    if (const Attribute *found = Form.Model.Doc.FindAttribute(element, attribute))
        Add(symbol, Form.SpanOfValue(*found), isDefinition);
}

void SymbolTable::AddText(int element, const Symbol &symbol, bool isDefinition)
{
    if (element >= 0)
        Add(symbol, Form.SpanOfText(element), isDefinition);
}

void SymbolTable::AddSheets()
{
    for (const int sheet : Form.Model.Sheets)
        AddAttribute(sheet, attribute::Name,
            {Symbol::Sheet, QString(), Form.Model.Doc.AttributeOf(sheet, attribute::Name)}, true);
    for (const PropertyEntry &property : Form.Model.SheetProperties)
        AddAttribute(property.Element, attribute::Name, {Symbol::Property, QString(), property.Name}, true);
}

void SymbolTable::AddEnums()
{
    for (const EnumEntry &entry : Form.Model.Enums) {
        AddAttribute(entry.Element, attribute::Name, {Symbol::Enumeration, QString(), entry.Name}, true);
        for (const EnumRow &row : entry.Rows) {
            if (row.IdentifierElement != row.Element)
                AddText(row.IdentifierElement, {Symbol::Choice, entry.Name, row.Identifier}, true);
            if (row.ValueElement != row.Element)
                AddText(row.ValueElement, {Symbol::ChoiceValue, entry.Name, row.Value}, true);
        }
    }
}

void SymbolTable::AddWidget(const WidgetEntry &widget)
{
    if (widget.IsNamed)
        AddAttribute(widget.Element, attribute::Name, {Symbol::Widget, QString(), widget.Name}, true);
    AddAttribute(widget.Element, attribute::Class, {Symbol::Class, QString(), widget.Class}, false);
    for (const PropertyEntry &property : widget.Properties)
        AddProperty(widget, property);
}

void SymbolTable::AddProperty(const WidgetEntry &widget, const PropertyEntry &property)
{
    AddAttribute(property.Element, attribute::Name, {Symbol::Property, widget.Name, property.Name}, true);
    if (property.IsCustom || property.ValueElement < 0)
        return;
    if (property.Name == prop::EnumName)
        AddText(property.ValueElement, {Symbol::Enumeration, QString(), property.Text}, false);
    else if (property.Name == prop::CurrentValue && EnumOf(widget))
        AddText(property.ValueElement, {Symbol::ChoiceValue, EnumOf(widget)->Name, property.Text}, false);
    else if (property.Name == prop::ParameterXmlTag)
        AddTag(property.ValueElement);
}

const EnumEntry *SymbolTable::EnumOf(const WidgetEntry &widget) const
{
    return Form.Model.FindEnum(widget.TextOf(prop::EnumName));
}

/// Each part of a path is a symbol of its own; the first widget that names it defines it. Beyond the limit nothing
/// counts.
void SymbolTable::AddTag(int element)
{
    const PlacedText content = Form.Model.Doc.ContentOf(element);
    const QString &path = content.Text();
    int from = 0;
    for (int part = 0; part < KV218::limit::ParameterPathParts && from <= path.size(); ++part) {
        const int slash = path.indexOf(QLatin1Char('/'), from);
        const int to = slash < 0 ? path.size() : slash;
        const QString whole = path.left(to);
        Add({Symbol::Tag, path.left(from), path.mid(from, to - from)}, Form.SpanOfText(content, from, to - from),
            !Tags.contains(whole));
        Tags.insert(whole);
        from = to + 1;
    }
}

bool SymbolTable::IsMark(int token, char mark) const
{
    return token >= 0 && token < Form.Tokens.size() && Form.Tokens.at(token).What == ScriptToken::Mark
        && Form.Tokens.at(token).Text == QLatin1Char(mark);
}

/// What a name of the script stands for; a variable, where it is none of the form's own.
Symbol SymbolTable::GlobalOf(int token) const
{
    const QString &name = Form.Tokens.at(token).Text;
    const int scope = Scopes.ScopeOf(token);
    if (scope == ScriptScopes::Global) {
        if (Form.Model.FindWidget(name))
            return {Symbol::Widget, QString(), name};
        if (Form.Model.FindEnum(name))
            return {Symbol::Enumeration, QString(), name};
        for (const int sheet : Form.Model.Sheets) {
            if (Form.Model.Doc.AttributeOf(sheet, attribute::Name) == name)
                return {Symbol::Sheet, QString(), name};
        }
    }
    return {Symbol::Variable, QString::number(scope), name};
}

void SymbolTable::AddScript()
{
    for (int i = 0; i < Form.Tokens.size(); ++i) {
        if (!Scopes.IsFree(i))
            continue;
        const Symbol symbol = GlobalOf(i);
        const bool isDefinition
            = symbol.What == Symbol::Variable && Scopes.DeclarationOf(symbol.Owner.toInt(), symbol.Name) == i;
        Add(symbol, Form.SpanOfToken(i), isDefinition);
        if (IsMark(i + 1, '.') && symbol.What != Symbol::Variable)
            AddMember(i);
    }
}

/// What stands behind the name of a widget, an enumeration or the sheet and a dot.
void SymbolTable::AddMember(int token)
{
    const int at = token + 2;
    if (at >= Form.Tokens.size() || Form.Tokens.at(at).What != ScriptToken::Name)
        return;
    const Symbol owner = GlobalOf(token);
    const QString &member = Form.Tokens.at(at).Text;
    if (owner.What == Symbol::Enumeration) {
        Add({Symbol::Choice, owner.Name, member}, Form.SpanOfToken(at), false);
        return;
    }
    const WidgetEntry *widget = owner.What == Symbol::Widget ? Form.Model.FindWidget(owner.Name) : nullptr;
    Add({Symbol::Property, widget ? owner.Name : QString(), PropertyOf(member)}, Form.SpanOfToken(at), false);
    if (widget)
        AddArgument(at, *widget);
}

/// A text that is compared with a control's choice, or set as one.
void SymbolTable::AddArgument(int token, const WidgetEntry &widget)
{
    const EnumEntry *choices = EnumOf(widget);
    const QString &member = Form.Tokens.at(token).Text;
    int at = token + 1;
    if (!choices || !(member == prop::CurrentValue || TakesValue(member)))
        return;
    while (IsMark(at, '=') || IsMark(at, '!') || IsMark(at, '('))
        ++at;
    if (at > token + 1 && at < Form.Tokens.size() && Form.Tokens.at(at).What == ScriptToken::Literal)
        Add({Symbol::ChoiceValue, choices->Name, Form.Tokens.at(at).Text}, Form.SpanOfToken(at), false);
}

} // namespace Orbel
