#include "scriptscopes.h"

#include "scriptbuiltins.h"

namespace Orbel
{

ScriptScopes::ScriptScopes(const QVector<ScriptToken> &tokens) : Tokens(tokens)
{
    Scopes.append({0, Tokens.size(), Global, {}});
    Read();
}

bool ScriptScopes::IsName(int token) const
{
    return token >= 0 && token < Tokens.size() && Tokens.at(token).What == ScriptToken::Name;
}

bool ScriptScopes::IsWord(int token, const char *word) const
{
    return IsName(token) && Tokens.at(token).Text == QLatin1String(word);
}

bool ScriptScopes::IsMark(int token, char mark) const
{
    return token >= 0 && token < Tokens.size() && Tokens.at(token).What == ScriptToken::Mark
        && Tokens.at(token).Text == QLatin1Char(mark);
}

bool ScriptScopes::IsFree(int token) const
{
    if (!IsName(token) || IsMark(token - 1, '.') || ReservedWords().contains(Tokens.at(token).Text))
        return false;
    const bool isKey = IsMark(token + 1, ':') && (IsMark(token - 1, '{') || IsMark(token - 1, ','));
    return !isKey;
}

/// For each token the closing bracket of the next body behind it; the end of the script where there is none.
QVector<int> ScriptScopes::EndsOfBodies() const
{
    QVector<int> closing(Tokens.size() + 1, Tokens.size());
    QVector<int> open;
    for (int i = 0; i < Tokens.size(); ++i) {
        if (IsMark(i, '{'))
            open.append(i);
        else if (IsMark(i, '}') && !open.isEmpty())
            closing[open.takeLast()] = i;
    }
    for (int i = Tokens.size() - 1; i >= 0; --i) {
        if (!IsMark(i, '{'))
            closing[i] = closing.at(i + 1);
    }
    return closing;
}

void ScriptScopes::Read()
{
    const QVector<int> ends = EndsOfBodies();
    int scope = Global;
    for (int i = 0; i < Tokens.size(); ++i) {
        while (scope != Global && i > Scopes.at(scope).To)
            scope = Scopes.at(scope).Parent;
        // A function's name belongs to what is around it.
        ScopeOfToken.append(IsWord(i - 1, "function") && IsName(i) ? Scopes.at(scope).Parent : scope);
        if (IsWord(i, "var")) {
            DeclareVariables(scope, i + 1);
        } else if (IsWord(i, "catch") && IsName(i + 2)) {
            Declare(scope, i + 2);
        } else if (IsWord(i, "function")) {
            if (IsName(i + 1))
                Declare(scope, i + 1);
            Scopes.append({i, ends.at(i), scope, {}});
            scope = Scopes.size() - 1;
            DeclareParameters(scope, i + 1 + int(IsName(i + 1)));
        }
    }
}

void ScriptScopes::DeclareParameters(int scope, int token)
{
    for (int at = token; at < Tokens.size() && !IsMark(at, ')') && !IsMark(at, '{') && !IsWord(at, "function"); ++at) {
        if (IsName(at))
            Declare(scope, at);
    }
}

void ScriptScopes::Declare(int scope, int token)
{
    QHash<QString, int> &names = Scopes[scope].Names;
    if (!names.contains(Tokens.at(token).Text))
        names.insert(Tokens.at(token).Text, token);
}

/// The names of a `var` statement, from its first one on.
void ScriptScopes::DeclareVariables(int scope, int token)
{
    int depth = 0;
    bool isExpected = true;
    for (int at = token; at < Tokens.size() && depth >= 0 && !IsMark(at, ';') && !IsWord(at, "var"); ++at) {
        if (isExpected && IsName(at))
            Declare(scope, at);
        isExpected = depth == 0 && IsMark(at, ',');
        if (IsMark(at, '(') || IsMark(at, '[') || IsMark(at, '{'))
            ++depth;
        else if (IsMark(at, ')') || IsMark(at, ']') || IsMark(at, '}'))
            --depth;
    }
}

int ScriptScopes::ScopeOf(int token) const
{
    const QString &name = Tokens.at(token).Text;
    int scope = ScopeOfToken.at(token);
    while (scope != Global && !Scopes.at(scope).Names.contains(name))
        scope = Scopes.at(scope).Parent;
    return scope;
}

QHash<QString, int> ScriptScopes::NamesAt(int token) const
{
    QHash<QString, int> names;
    // Behind the last token the last function may be open still.
    for (int scope = ScopeOfToken.value(qMin(token, ScopeOfToken.size() - 1), Global);;
         scope = Scopes.at(scope).Parent) {
        const QHash<QString, int> &own = Scopes.at(scope).Names;
        for (auto name = own.cbegin(); name != own.cend(); ++name) {
            if (!names.contains(name.key()))
                names.insert(name.key(), name.value());
        }
        if (scope == Global)
            return names;
    }
}

QVector<QPair<int, int>> ScriptScopes::Functions() const
{
    QVector<QPair<int, int>> functions;
    for (int i = 1; i < Scopes.size(); ++i) {
        if (Scopes.at(i).Parent == Global && IsName(Scopes.at(i).From + 1))
            functions.append({Scopes.at(i).From + 1, qMin(Scopes.at(i).To, Tokens.size() - 1)});
    }
    return functions;
}

} // namespace Orbel
