#include "scriptcompletion.h"

#include "elementnames.h"
#include "propertynames.h"
#include "referencetext.h"
#include "scriptbuiltins.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

/// A name that stands at the cursor, so that the scanner tells what kind of thing is being typed there.
const QLatin1String Mark("cursorStandsHere");

CompletionItem::Kind KindOf(ScriptMember::Kind kind)
{
    switch (kind) {
    case ScriptMember::Property:
        return CompletionItem::Property;
    case ScriptMember::Signal:
        return CompletionItem::Event;
    case ScriptMember::Slot:
    case ScriptMember::Invokable:
        break;
    }
    return CompletionItem::Method;
}

class ScriptCompletion
{
public:
    ScriptCompletion(const OpenForm &form, const QString &before, int place)
        : Form(form.Form), Scopes(form.Symbols.GetScopes()), Tokens(ScanScript(before + Mark)), Last(Tokens.size() - 1)
    {
        int from = before.size();
        while (
            from > 0 && (before.at(from - 1).isLetterOrNumber() || QStringLiteral("_$").contains(before.at(from - 1))))
            --from;
        List.Span = {place - (before.size() - from), place};
    }

    CompletionList Run()
    {
        if (Last < 0 || !Tokens.at(Last).Text.endsWith(Mark))
            return List;
        if (Tokens.at(Last).What == ScriptToken::Literal)
            Texts();
        else if (IsMark(Last - 1, '.'))
            Members();
        else
            Globals();
        return List;
    }

private:
    bool IsMark(int token, char mark) const
    {
        return token >= 0 && Tokens.at(token).What == ScriptToken::Mark && Tokens.at(token).Text == QLatin1Char(mark);
    }

    QString NameAt(int token) const
    {
        return token >= 0 && Tokens.at(token).What == ScriptToken::Name ? Tokens.at(token).Text : QString();
    }

    void Add(const CompletionItem &item) { List.Items.append(item); }

    void Globals()
    {
        for (const WidgetEntry &widget : Form.Model.Widgets) {
            if (widget.IsNamed && IsScriptName(widget.Name))
                Add({widget.Name, CompletionItem::Variable, widget.Class, TextOf(widget), {}});
        }
        for (const EnumEntry &entry : Form.Model.Enums)
            Add({entry.Name, CompletionItem::Enum, {}, TextOf(entry), {}});
        const QString sheet = SheetName();
        if (!sheet.isEmpty())
            Add({sheet, CompletionItem::Variable, KV218::element::Sheet, {}, {}});
        Variables();
        for (const QString &word : ScriptBuiltins())
            Add({word, CompletionItem::Function, {}, {}, {}, false});
        for (const QString &word : ReservedWords())
            Add({word, CompletionItem::Keyword, {}, {}, {}, false});
    }

    void Variables()
    {
        int token = 0;
        while (token < Form.Tokens.size() && Form.SpanOfToken(token).From < List.Span.From)
            ++token;
        const QHash<QString, int> names = Scopes.NamesAt(token);
        for (auto name = names.cbegin(); name != names.cend(); ++name) {
            // What is being typed is not there yet.
            if (Form.SpanOfToken(name.value()).From != List.Span.From && !Form.Model.FindWidget(name.key()))
                Add({name.key(), Scopes.IsFunction(name.value()) ? CompletionItem::Function : CompletionItem::Variable,
                    {}, {}, {}});
        }
    }

    QString SheetName() const
    {
        return Form.Model.Sheets.isEmpty()
            ? QString()
            : Form.Model.Doc.AttributeOf(Form.Model.Sheets.constFirst(), KV218::attribute::Name);
    }

    void Members()
    {
        const QString owner = NameAt(Last - 2);
        if (IsMark(Last - 3, '.'))
            MembersOfMember(NameAt(Last - 4), owner);
        else if (const WidgetEntry *widget = Form.Model.FindWidget(owner))
            MembersOfControl(widget->Info ? widget->Class : QStringLiteral("?"), widget);
        else if (const EnumEntry *entry = Form.Model.FindEnum(owner))
            Choices(*entry);
        else if (!owner.isEmpty() && owner == SheetName())
            MembersOfControl(QString(), nullptr);
        else
            MembersOfLanguage(owner);
    }

    void MembersOfControl(const QString &className, const WidgetEntry *widget)
    {
        const auto isStated = [&](const QString &name) {
            return widget
                && std::any_of(widget->Properties.cbegin(), widget->Properties.cend(),
                    [&](const PropertyEntry &property) { return property.Name == name && !property.IsCustom; });
        };
        for (const ScriptMember &member : MembersOfClass(className)) {
            const bool isCall = member.What == ScriptMember::Slot || member.What == ScriptMember::Invokable;
            // A property that the definition does not state may hold nothing.
            const bool isLikely = member.What != ScriptMember::Property || isStated(member.Name);
            Add({member.Name, KindOf(member.What), member.Signature, TextOf(member),
                isCall ? member.Name + QStringLiteral("($1)$0") : QString(), isLikely});
        }
    }

    void Choices(const EnumEntry &entry)
    {
        for (const EnumRow &row : entry.Rows) {
            if (!row.Identifier.isEmpty())
                Add({row.Identifier, CompletionItem::EnumMember, row.Value, TextOf(row, entry), {}});
        }
    }

    /// Behind a signal of a control.
    void MembersOfMember(const QString &owner, const QString &member)
    {
        const WidgetEntry *widget = Form.Model.FindWidget(owner);
        if (!widget && (owner.isEmpty() || owner != SheetName()))
            return;
        const ScriptMember *known = FindMember(widget ? widget->Class : QString(), member);
        if (!known || known->What != ScriptMember::Signal)
            return;
        for (const char *name : {"connect", "disconnect"})
            Add({QLatin1String(name), CompletionItem::Method, known->Signature, {},
                QLatin1String(name) + QStringLiteral("($1)$0")});
    }

    void MembersOfLanguage(const QString &owner)
    {
        for (const QString &name : MembersOfBuiltin(owner))
            Add({name, CompletionItem::Method, {}, {}, {}});
    }

    /// In a text that is set as, or compared with, the choice of a combo box, or names a property.
    void Texts()
    {
        int at = Last - 1;
        while (IsMark(at, '(') || IsMark(at, '=') || IsMark(at, '!'))
            --at;
        const WidgetEntry *widget = IsMark(at - 1, '.') ? Form.Model.FindWidget(NameAt(at - 2)) : nullptr;
        const QString member = NameAt(at);
        if (!widget || at == Last - 1)
            return;
        if (member == QLatin1String("customProperty")) {
            for (const PropertyEntry &property : widget->Properties) {
                if (property.IsCustom)
                    Add({property.Name, CompletionItem::Property, {}, {}, {}});
            }
        } else if (member == prop::CurrentValue || member == QLatin1String("setCurrentValue")) {
            const EnumEntry *entry = Form.Model.FindEnum(widget->TextOf(prop::EnumName));
            for (const EnumRow &row : entry ? entry->Rows : QVector<EnumRow>())
                Add({row.Value, CompletionItem::Value, row.DisplayName, {}, {}});
        }
    }

    const FormSnapshot &Form;
    const ScriptScopes &Scopes;
    const QVector<ScriptToken> Tokens;
    const int Last;
    CompletionList List;
};

} // namespace

CompletionList CompleteScript(const OpenForm &form, int from, int place)
{
    const PlacedText &text = form.Form.Source;
    const PlacedText before = DecodeContent(text, from, FormSnapshot::IndexIn(text, place));
    return ScriptCompletion(form, before.Text(), place).Run();
}

} // namespace Orbel
