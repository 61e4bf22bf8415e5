#include "navigation.h"

#include "registry.h"
#include "rpcmessage.h"
#include "scriptbuiltins.h"
#include "xmlname.h"

namespace Orbel
{

namespace
{

[[noreturn]] void Refuse(const QString &reason)
{
    throw RpcFailure{RpcError::RequestFailed, reason};
}

bool IsGlobal(const Symbol &symbol)
{
    return symbol.What == Symbol::Sheet || symbol.What == Symbol::Widget || symbol.What == Symbol::Enumeration;
}

/// Whether a name is the form's own: of what its author has made, and not of the library or the language.
bool IsOwn(const Occurrence &occurrence, const SymbolTable &symbols)
{
    const Symbol &symbol = occurrence.Of;
    if (symbol.What == Symbol::Class || symbol.What == Symbol::Property)
        return false;
    if (symbol.What == Symbol::Tag)
        return true;
    for (const Occurrence &other : symbols.Of(symbol)) {
        if (other.IsDefinition)
            return true;
    }
    return false;
}

const Occurrence &Renamable(const OpenForm &form, const OpenDocument &document, int place)
{
    const Occurrence *found = form.Symbols.At(place);
    if (!found || !IsOwn(*found, form.Symbols))
        Refuse(QStringLiteral("No name of the form stands here"));
    for (const Occurrence &occurrence : form.Symbols.Of(found->Of)) {
        const TextSpan span = occurrence.Span;
        if (document.Text().midRef(span.From, span.To - span.From) != found->Of.Name)
            Refuse(QStringLiteral("The name is spelled in several ways, by entities for instance"));
    }
    return *found;
}

/// Whether the form has something else of that name that would be taken for this.
bool IsTaken(const Symbol &symbol, const QString &name, const OpenForm &form)
{
    for (const Occurrence &occurrence : form.Symbols.All()) {
        const Symbol &other = occurrence.Of;
        const bool isRival = IsGlobal(symbol) || symbol.What == Symbol::Variable
            ? IsGlobal(other) || other.What == Symbol::Variable
            : other.What == symbol.What && other.Owner == symbol.Owner;
        if (other.Name == name && isRival)
            return true;
    }
    return false;
}

bool IsGoodName(const Symbol &symbol, const QString &name)
{
    switch (symbol.What) {
    case Symbol::Tag:
        return IsXmlName(name);
    case Symbol::ChoiceValue:
        return !name.isEmpty() && name == name.toHtmlEscaped();
    default:
        return IsScriptName(name);
    }
}

} // namespace

QVector<TextSpan> ReferencesAt(const OpenForm &form, int place, bool withDefinitions)
{
    QVector<TextSpan> spans;
    const Occurrence *found = form.Symbols.At(place);
    for (const Occurrence &occurrence : found ? form.Symbols.Of(found->Of) : QVector<Occurrence>()) {
        if (withDefinitions || !occurrence.IsDefinition)
            spans.append(occurrence.Span);
    }
    return spans;
}

QVector<TextSpan> DefinitionsAt(const OpenForm &form, int place)
{
    QVector<TextSpan> spans;
    const Occurrence *found = form.Symbols.At(place);
    for (const Occurrence &occurrence : found ? form.Symbols.Of(found->Of) : QVector<Occurrence>()) {
        if (occurrence.IsDefinition)
            spans.append(occurrence.Span);
    }
    return spans;
}

TextSpan RenamableAt(const OpenForm &form, const OpenDocument &document, int place)
{
    return Renamable(form, document, place).Span;
}

QVector<TextSpan> RenamedAt(const OpenForm &form, const OpenDocument &document, int place, const QString &name)
{
    const Symbol symbol = Renamable(form, document, place).Of;
    if (!IsGoodName(symbol, name))
        Refuse(QStringLiteral("\"%1\" cannot be the name of that").arg(name));
    if (name != symbol.Name && (IsTaken(symbol, name, form) || ScriptBuiltins().contains(name)))
        Refuse(QStringLiteral("There is another \"%1\"").arg(name));
    return ReferencesAt(form, place, true);
}

} // namespace Orbel
