#include "hover.h"

#include "elementnames.h"
#include "referencetext.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace element = KV218::element;

class Hover
{
public:
    Hover(const OpenForm &form, int place) : Form(form.Form), Symbols(form.Symbols), Place(place) { }

    HoverText Run() const
    {
        if (const Occurrence *found = Symbols.At(Place)) {
            const QString text = TextOfSymbol(found->Of);
            if (!text.isEmpty())
                return {found->Span, text};
        }
        const int here = Form.ElementAt(Place);
        const ElementInfo *info = here < 0 ? nullptr : FindElement(Form.Model.Doc.At(here).Name);
        const TextSpan name = here < 0 ? TextSpan() : Form.SpanOfName(here);
        if (info && name.Holds(Place))
            return {name, TextOf(*info)};
        return {};
    }

private:
    QString TextOfSymbol(const Symbol &symbol) const
    {
        switch (symbol.What) {
        case Symbol::Sheet:
            return TextOf(*FindElement(element::Sheet));
        case Symbol::Widget:
            return TextOf(*Form.Model.FindWidget(symbol.Name));
        case Symbol::Enumeration:
            return Form.Model.FindEnum(symbol.Name) ? TextOf(*Form.Model.FindEnum(symbol.Name)) : QString();
        case Symbol::Choice:
        case Symbol::ChoiceValue:
            return TextOfChoice(symbol);
        case Symbol::Class:
            return Registry::FindClass(symbol.Name) ? TextOf(*Registry::FindClass(symbol.Name)) : QString();
        case Symbol::Property:
            return TextOfMember(symbol);
        case Symbol::Tag:
            return QStringLiteral("Element `%1%2` of the parameter document").arg(symbol.Owner, symbol.Name);
        case Symbol::Variable:
            break;
        }
        return QString();
    }

    QString TextOfChoice(const Symbol &symbol) const
    {
        const EnumEntry *entry = Form.Model.FindEnum(symbol.Owner);
        for (const EnumRow &row : entry ? entry->Rows : QVector<EnumRow>()) {
            if ((symbol.What == Symbol::Choice ? row.Identifier : row.Value) == symbol.Name)
                return TextOf(row, *entry);
        }
        return QString();
    }

    /// In the script the member may be a slot that sets the property, or any other member.
    QString TextOfMember(const Symbol &symbol) const
    {
        const WidgetEntry *widget = Form.Model.FindWidget(symbol.Owner);
        const QString className = widget ? widget->Class : QString();
        const int index = Form.ScriptIndexOf(Place);
        if (index >= 0) {
            const QString name = WordAt(index);
            QStringList texts;
            for (const ScriptMember &member : MembersOfClass(className)) {
                if (member.Name == name)
                    texts.append(TextOf(member));
            }
            if (!texts.isEmpty())
                return texts.join(QLatin1String("\n\n"));
        }
        const PropertyInfo *property = !widget ? Registry::FindSheetProperty(symbol.Name)
            : widget->Info                     ? Registry::FindProperty(*widget->Info, symbol.Name)
                                               : nullptr;
        return property ? TextOf(*property) : QString();
    }

    QString WordAt(int index) const
    {
        for (const ScriptToken &token : Form.Tokens) {
            if (token.What == ScriptToken::Name && token.Index <= index && index <= token.Index + token.Text.size())
                return token.Text;
        }
        return QString();
    }

    const FormSnapshot &Form;
    const SymbolTable &Symbols;
    const int Place;
};

} // namespace

HoverText HoverAt(const OpenForm &form, int place)
{
    return Hover(form, place).Run();
}

} // namespace Orbel
