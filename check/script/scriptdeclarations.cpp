#include "scriptdeclarations.h"

#include "scriptbuiltins.h"

#include <algorithm>

namespace Orbel
{

ScriptDeclarations::ScriptDeclarations(const QString &code) : Code(code), Tokens(ScanScript(code))
{
    FindMade();
    FindGuards();
}

bool ScriptDeclarations::IsMark(int at, char mark) const
{
    return at >= 0 && at < Tokens.size() && Tokens.at(at).What == ScriptToken::Mark
        && Tokens.at(at).Text == QLatin1Char(mark);
}

bool ScriptDeclarations::IsName(int at) const
{
    return at >= 0 && at < Tokens.size() && Tokens.at(at).What == ScriptToken::Name;
}

bool ScriptDeclarations::IsWord(int at, const char *word) const
{
    return IsName(at) && Tokens.at(at).Text == QLatin1String(word);
}

bool ScriptDeclarations::IsAssigned(int at) const
{
    return IsMark(at + 1, '=') && !IsMark(at + 2, '=');
}

/// A key of an object literal, or a label.
bool ScriptDeclarations::IsKey(int at) const
{
    if (!IsMark(at + 1, ':') || IsMark(at - 1, '?') || IsWord(at - 1, "case"))
        return false;
    if (at == 0 || Tokens.at(at - 1).What == ScriptToken::Mark)
        return true;
    const int end = Tokens.at(at - 1).End;
    return Code.midRef(end, Tokens.at(at).Index - end).contains(QLatin1Char('\n'));
}

void ScriptDeclarations::FindMade()
{
    for (int i = 0; i < Tokens.size(); ++i) {
        if (!IsName(i))
            continue;
        const QString &text = Tokens.at(i).Text;
        if (IsMark(i - 1, '.')) {
            // In a function that nobody calls on an object this has the globals.
            if (IsAssigned(i) && IsWord(i - 2, "this"))
                Made.insert(text);
            else if (IsAssigned(i) && IsName(i - 2))
                SetMembers.insert(Tokens.at(i - 2).Text + QLatin1Char('.') + text);
        } else if ((IsWord(i, "get") || IsWord(i, "set")) && IsName(i + 1) && IsMark(i + 2, '(')) {
            Made.insert(text);
            FindParameters(i + 1);
        } else if (IsWord(i, "var")) {
            FindVariables(i + 1);
        } else if (IsWord(i, "function") || IsWord(i, "catch")) {
            FindParameters(i + 1);
        } else if (IsWord(i, "eval") || IsWord(i, "with")) {
            IsOpaque = true;
        } else if (IsAssigned(i) || IsWord(i - 1, "typeof") || (IsWord(i - 2, "for") && IsWord(i + 1, "in"))) {
            Made.insert(text);
        }
    }
}

/// The names of a `var` statement, from its first one on.
void ScriptDeclarations::FindVariables(int at)
{
    int depth = 0;
    bool isExpected = true;
    for (; at < Tokens.size() && !IsMark(at, ';') && depth >= 0; ++at) {
        if (isExpected && IsName(at)) {
            Made.insert(Tokens.at(at).Text);
            VariableList.append({QString(), Tokens.at(at).Text, Tokens.at(at).Index});
        }
        isExpected = depth == 0 && IsMark(at, ',');
        if (IsMark(at, '(') || IsMark(at, '[') || IsMark(at, '{'))
            ++depth;
        else if (IsMark(at, ')') || IsMark(at, ']') || IsMark(at, '}'))
            --depth;
        else if (depth == 0 && IsWord(at, "var"))
            return;
    }
}

/// The name of a function, if it has one, and its parameters.
void ScriptDeclarations::FindParameters(int at)
{
    for (; at < Tokens.size() && !IsMark(at, ')'); ++at) {
        if (IsName(at))
            Made.insert(Tokens.at(at).Text);
    }
}

/// The token of the bracket that closes the one at a place.
int ScriptDeclarations::EndOfBlock(int at) const
{
    int depth = 0;
    for (; at < Tokens.size(); ++at) {
        if (IsMark(at, '{'))
            ++depth;
        else if (IsMark(at, '}') && --depth == 0)
            return at;
    }
    return Tokens.size();
}

/// Blocks with a catch, members that are asked for by `in`, and such as are looked at before they are called.
void ScriptDeclarations::FindGuards()
{
    for (int i = 0; i < Tokens.size(); ++i) {
        if (IsWord(i, "try") && IsWord(EndOfBlock(i + 1) + 1, "catch"))
            Tries.append({i, EndOfBlock(i + 1)});
        else if (Tokens.at(i).What == ScriptToken::Literal && IsWord(i + 1, "in"))
            Guarded.insert(Tokens.at(i).Text);
        else if (IsName(i) && IsMark(i + 1, '.') && IsName(i + 2)) {
            const bool isJoined
                = (IsMark(i + 3, '&') && IsMark(i + 4, '&')) || (IsMark(i + 3, '|') && IsMark(i + 4, '|'));
            const bool isDenied
                = IsMark(i - 1, '!') && IsMark(i - 2, '(') && (IsWord(i - 3, "if") || IsWord(i - 3, "while"));
            const bool isCondition = IsMark(i - 1, '(') && IsWord(i - 2, "if") && IsMark(i + 3, ')');
            const int compared = i + 3 + (IsMark(i + 4, '=') ? 2 : 0) + (IsMark(i + 5, '=') ? 1 : 0);
            const bool isCompared = (IsMark(i + 3, '=') || IsMark(i + 3, '!'))
                && (IsWord(compared, "undefined") || IsWord(compared, "null"));
            if (isCompared || isJoined || isCondition || IsMark(i + 3, '?') || isDenied || IsWord(i - 1, "typeof"))
                Guarded.insert(Tokens.at(i + 2).Text);
        }
    }
}

QVector<ScriptReference> ScriptDeclarations::Undeclared() const
{
    QVector<ScriptReference> references;
    for (int i = 0; i < Tokens.size() && !IsOpaque; ++i) {
        if (!IsName(i) || IsMark(i - 1, '.') || IsKey(i))
            continue;
        const QString &name = Tokens.at(i).Text;
        const auto catches = [i](const QPair<int, int> &block) { return block.first < i && i < block.second; };
        if (std::any_of(Tries.cbegin(), Tries.cend(), catches))
            continue;
        const bool isLabel = IsWord(i - 1, "break") || IsWord(i - 1, "continue");
        if (isLabel || Made.contains(name) || ReservedWords().contains(name))
            continue;
        if (!ScriptBuiltins().contains(name))
            references.append({QString(), name, Tokens.at(i).Index});
        if (!IsMark(i + 1, '.') || !IsName(i + 2))
            continue;
        const QString &member = Tokens.at(i + 2).Text;
        if (!Guarded.contains(member) && !SetMembers.contains(name + QLatin1Char('.') + member))
            references.append({name, member, Tokens.at(i + 2).Index});
    }
    return references;
}

} // namespace Orbel
