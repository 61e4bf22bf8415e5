#pragma once

#include "formsnapshot.h"
#include "scriptscopes.h"

namespace Orbel
{

/// Something of a form that is spoken of in several places.
struct Symbol {
    enum Kind {
        Sheet,
        Widget,
        Enumeration,
        Choice, ///< By its identifier; the owner is the enumeration.
        ChoiceValue, ///< By its value.
        Class,
        Property, ///< The owner is the widget, nothing for the sheet.
        Tag, ///< One part of a place in the parameter document; the owner is what stands before it.
        Variable, ///< What the script makes; the owner is the scope.
    };
    Kind What;
    QString Owner;
    QString Name;

    bool operator==(const Symbol &other) const
    {
        return What == other.What && Name == other.Name && Owner == other.Owner;
    }
};

/// One place that speaks of a symbol.
struct Occurrence {
    Symbol Of;
    TextSpan Span;
    bool IsDefinition;
};

/// All places of a form at which something is made or spoken of, in definition and script.
class SymbolTable
{
public:
    explicit SymbolTable(const FormSnapshot &form);

    const QVector<Occurrence> &All() const { return Occurrences; }
    /// What is spoken of at a place; null where nothing is.
    const Occurrence *At(int place) const;
    /// All places that speak of the same.
    QVector<Occurrence> Of(const Symbol &symbol) const;
    const ScriptScopes &GetScopes() const { return Scopes; }

private:
    void AddSheets();
    void AddEnums();
    void AddWidget(const WidgetEntry &widget);
    void AddProperty(const WidgetEntry &widget, const PropertyEntry &property);
    void AddTag(int element);
    void AddScript();
    void AddMember(int token);
    void AddArgument(int token, const WidgetEntry &widget);
    void AddAttribute(int element, QLatin1String attribute, const Symbol &symbol, bool isDefinition);
    void AddText(int element, const Symbol &symbol, bool isDefinition);
    void Add(const Symbol &symbol, TextSpan span, bool isDefinition);
    bool IsMark(int token, char mark) const;
    Symbol GlobalOf(int token) const;
    const EnumEntry *EnumOf(const WidgetEntry &widget) const;

    const FormSnapshot &Form;
    ScriptScopes Scopes;
    QVector<Occurrence> Occurrences;
    QSet<QString> Tags; ///< Those that have been defined.
};

} // namespace Orbel
