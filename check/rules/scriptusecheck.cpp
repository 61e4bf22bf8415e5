// How a script uses controls, and rules of the language that are easily broken.

#include "formcheck.h"
#include "propertynames.h"
#include "scriptdeclarations.h"
#include "scriptsourcemap.h"

#include <QMetaMethod>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

QString SetterOf(const QString &property)
{
    return QLatin1String("set") + property.at(0).toUpper() + property.mid(1);
}

class ScriptUseCheck
{
public:
    ScriptUseCheck(const FormModel &form, FindingSink &sink)
        : Form(form), Sink(sink), Script(form.Doc, form.Script), Tokens(ScanScript(Script.Code())),
          Declarations(Script.Code())
    {
    }

    void Run()
    {
        CheckVariables();
        CheckFunctions();
        for (int i = 0; i < Tokens.size(); ++i) {
            if (IsWord(i, "if") && IsMark(i + 1, '('))
                CheckCondition(i + 1);
            const WidgetEntry *widget = IsMark(i + 1, '.') && IsName(i + 2) ? WidgetAt(i) : nullptr;
            if (!widget)
                continue;
            CheckMember(*widget, i);
            CheckAssignment(*widget, i + 2);
            CheckChoice(*widget, i);
            CheckSum(*widget, i);
        }
    }

private:
    bool IsMark(int at, char mark) const
    {
        return at >= 0 && at < Tokens.size() && Tokens.at(at).What == ScriptToken::Mark
            && Tokens.at(at).Text == QLatin1Char(mark);
    }
    bool IsName(int at) const { return at >= 0 && at < Tokens.size() && Tokens.at(at).What == ScriptToken::Name; }
    bool IsWord(int at, const char *word) const { return IsName(at) && Tokens.at(at).Text == QLatin1String(word); }
    bool IsLiteral(int at) const { return at >= 0 && at < Tokens.size() && Tokens.at(at).What == ScriptToken::Literal; }
    bool IsQuoted(int at) const
    {
        return IsLiteral(at) && QStringLiteral("\"'").contains(Script.Code().at(Tokens.at(at).Index));
    }
    /// `=` that assigns.
    bool IsAssigned(int at) const
    {
        const bool isPart = at > 0 && Tokens.at(at - 1).What == ScriptToken::Mark
            && QStringLiteral("=!<>").contains(Tokens.at(at - 1).Text);
        return IsMark(at, '=') && !IsMark(at + 1, '=') && !isPart;
    }
    void Tell(Code code, int token, const QString &text) { Sink.Add(code, Script.PlaceOf(Tokens.at(token).Index), text); }

    /// The widget that a name means here, if it cannot be something else.
    const WidgetEntry *WidgetAt(int at) const
    {
        if (!IsName(at) || IsMark(at - 1, '.') || Declarations.Makes(Tokens.at(at).Text))
            return nullptr;
        const WidgetEntry *widget = Form.FindWidget(Tokens.at(at).Text);
        return widget && widget->Info && widget->IsNamed ? widget : nullptr;
    }

    void CheckVariables()
    {
        for (const ScriptReference &variable : Declarations.Variables()) {
            const WidgetEntry *widget = Form.FindWidget(variable.Name);
            if ((widget && widget->IsNamed) || Form.FindEnum(variable.Name))
                Sink.Add(Code::ScriptShadow, Script.PlaceOf(variable.Index),
                    QStringLiteral("The variable hides the %1 \"%2\"")
                        .arg(QLatin1String(widget ? "widget" : "enumeration"), variable.Name));
        }
    }

    void CheckFunctions()
    {
        QSet<QString> names;
        int depth = 0;
        for (int i = 0; i < Tokens.size(); ++i) {
            depth += IsMark(i, '{') ? 1 : IsMark(i, '}') ? -1 : 0;
            const bool isStatement = i == 0 || IsMark(i - 1, ';') || IsMark(i - 1, '}') || IsMark(i - 1, ')');
            if (depth != 0 || !IsWord(i, "function") || !IsName(i + 1) || !isStatement)
                continue;
            const QString &name = Tokens.at(i + 1).Text;
            if (names.contains(name))
                Tell(Code::ScriptFunctionDoubled, i + 1,
                    QStringLiteral("This function replaces another one with the name \"%1\"").arg(name));
            names.insert(name);
        }
    }

    /// Brackets of its own tell that an assignment is meant.
    void CheckCondition(int open)
    {
        int depth = 0;
        for (int i = open; i < Tokens.size(); ++i) {
            if (IsMark(i, '(') || IsMark(i, '[') || IsMark(i, '{'))
                ++depth;
            else if ((IsMark(i, ')') || IsMark(i, ']') || IsMark(i, '}')) && --depth == 0)
                return;
            if (depth == 1 && IsAssigned(i) && IsName(i - 1)) {
                Tell(Code::ScriptAssignment, i, QStringLiteral("This = assigns; == compares"));
                return;
            }
        }
    }

    /// Signals and functions are to be connected and called.
    void CheckMember(const WidgetEntry &widget, int at)
    {
        const bool isAssigned = IsAssigned(at + 3);
        const bool isAlone = (at == 0 || IsMark(at - 1, ';') || IsMark(at - 1, '{') || IsMark(at - 1, '}'))
            && (IsMark(at + 3, ';') || IsMark(at + 3, '}'));
        const QString &name = Tokens.at(at + 2).Text;
        if ((!isAssigned && !isAlone) || !MethodsOf(widget.Class).contains(name))
            return;
        if (isAssigned)
            Tell(Code::ScriptSignal, at + 2,
                QStringLiteral("\"%1\" of \"%2\" is a function, and the assignment does nothing to it").arg(name, widget.Name));
        else
            Tell(Code::ScriptUncalled, at + 2, QStringLiteral("\"%1\" of \"%2\" is not called").arg(name, widget.Name));
    }

    static const QSet<QString> &MethodsOf(const QString &className)
    {
        static QHash<QString, QSet<QString>> known;
        const auto found = known.constFind(className);
        if (found != known.constEnd())
            return *found;
        const QMetaObject *metaObject = Registry::MetaObjectOf(className);
        QSet<QString> methods;
        for (int i = 0; i < metaObject->methodCount(); ++i)
            methods.insert(QString::fromLatin1(metaObject->method(i).name()));
        return *known.insert(className, methods);
    }

    /// The token of a property that is set.
    void CheckAssignment(const WidgetEntry &widget, int at)
    {
        const QString &name = Tokens.at(at).Text;
        const QLatin1String known = NameOf(widget, name);
        if (!IsAssigned(at + 1) || known.isEmpty() || widget.States(known) || widget.Has(ekFreeProperties)
            || Form.ScriptMayCall(widget, SetterOf(name).toLatin1()))
            return;
        Tell(Code::ScriptProperty, at,
            QStringLiteral("\"%1\" does not state \"%2\", and the assignment reaches nothing").arg(widget.Name, name));
    }

    static QLatin1String NameOf(const WidgetEntry &widget, const QString &property)
    {
        const PropertyInfo *known = Registry::FindProperty(*widget.Info, property);
        return known && known->use != PropertyUse::Stored ? known->name : QLatin1String();
    }

    void CheckChoice(const WidgetEntry &widget, int at)
    {
        const EnumEntry *rows = widget.States(prop::EnumName) ? Form.FindEnum(widget.TextOf(prop::EnumName)) : nullptr;
        if (!rows || rows->Rows.isEmpty())
            return;
        int literal = -1;
        if (IsWord(at + 2, "setCurrentValue") && IsMark(at + 3, '(') && IsMark(at + 5, ')'))
            literal = at + 4;
        else if (Tokens.at(at + 2).Text == prop::CurrentValue && (IsMark(at + 3, '=') || IsMark(at + 3, '!')))
            literal = IsMark(at + 4, '=') ? at + (IsMark(at + 5, '=') ? 6 : 5) : at + 4;
        if (!IsQuoted(literal) || rows->Values.contains(Tokens.at(literal).Text)
            || Tokens.at(literal).Text.contains(QLatin1Char('\\')))
            return;
        const QString &text = Tokens.at(literal).Text;
        QStringList values;
        QString meant;
        for (const EnumRow &row : rows->Rows) {
            values.append(row.Value);
            meant = row.DisplayName == text ? row.Value : meant;
        }
        const int place = Script.PlaceOf(Tokens.at(literal).Index + 1);
        const QString told = QStringLiteral("No row of \"%1\" has the value \"%2\"").arg(rows->Name, text);
        if (meant.isEmpty())
            Sink.AddMisspelt(Code::ScriptChoice, place, told, text, values);
        else
            Sink.Add(Code::ScriptChoice, place,
                told + QStringLiteral(", which is a display name; its value is \"%1\"").arg(meant), {place, text, meant});
    }

    /// A sum of a number that is still a text, without any quoted text in it, which would show that a text is meant.
    void CheckSum(const WidgetEntry &widget, int at)
    {
        const QString &name = Tokens.at(at + 2).Text;
        const PropertyInfo *known = Registry::FindProperty(*widget.Info, name);
        const bool isNumber = known
            && (known->type == ValueType::Int || known->type == ValueType::Int64 || known->type == ValueType::UInt64
                || known->type == ValueType::Double);
        if (!isNumber || !widget.States(known->name) || Form.ScriptMayCall(widget, SetterOf(name).toLatin1())
            || IsSomewhereAssigned(widget.Name, name))
            return;
        const bool isAdded = IsMark(at + 3, '+') && !IsMark(at + 4, '+') && !IsMark(at + 4, '=');
        const bool isAdding = IsMark(at - 1, '+') && (IsName(at - 2) || IsLiteral(at - 2) || IsMark(at - 2, ')'))
            && !IsWord(at - 2, "return");
        // A product is a number.
        const bool isPart = IsMark(at - 1, '*') || IsMark(at - 1, '/') || IsMark(at - 1, '-') || IsMark(at + 3, '*')
            || IsMark(at + 3, '/') || IsMark(at + 3, '-');
        if ((isAdded || isAdding) && !isPart && !HasText(at))
            Tell(Code::ScriptTextSum, at + 2,
                QStringLiteral("\"%1.%2\" is a text until it is set, and + puts texts together").arg(widget.Name, name));
    }

    bool IsSomewhereAssigned(const QString &owner, const QString &member) const
    {
        for (int i = 0; i + 3 < Tokens.size(); ++i) {
            if (IsWord(i, owner.toLatin1()) && IsMark(i + 1, '.') && IsWord(i + 2, member.toLatin1())
                && IsAssigned(i + 3))
                return true;
        }
        return false;
    }

    /// Whether the statement around has a quoted text.
    bool HasText(int at) const
    {
        const auto ends = [this](int i) { return IsMark(i, ';') || IsMark(i, '{') || IsMark(i, '}'); };
        int from = at;
        while (from > 0 && !ends(from - 1))
            --from;
        for (int i = from; i < Tokens.size() && !ends(i); ++i) {
            if (IsQuoted(i))
                return true;
        }
        return false;
    }

    const FormModel &Form;
    FindingSink &Sink;
    const ScriptSourceMap Script;
    const QVector<ScriptToken> Tokens;
    const ScriptDeclarations Declarations;
};

} // namespace

void CheckScriptUse(const FormModel &form, FindingSink &sink)
{
    if (form.Script >= 0 && !sink.Has(Code::ScriptSyntax))
        ScriptUseCheck(form, sink).Run();
}

} // namespace Orbel
