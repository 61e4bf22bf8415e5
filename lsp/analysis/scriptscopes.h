#pragma once

#include "scriptscanner.h"

#include <QHash>

namespace Orbel
{

/// Which function of a script each name belongs to, so that two names are known to mean the same.
class ScriptScopes
{
public:
    /// The scope of the script as a whole, and of names that it does not declare.
    static constexpr int Global = 0;

    explicit ScriptScopes(const QVector<ScriptToken> &tokens);

    /// Whether the token is a name that stands for itself: neither behind a dot nor a key nor a word of the language.
    bool IsFree(int token) const;
    /// The scope in which the name of a token is declared, seen from there.
    int ScopeOf(int token) const;
    /// The token that declares a name in a scope; -1 when nothing does.
    int DeclarationOf(int scope, const QString &name) const { return Scopes.at(scope).Names.value(name, -1); }
    /// Whether a token declares a function.
    bool IsFunction(int token) const { return IsWord(token - 1, "function"); }
    /// The names that can be used at a token, each with its declaration; of equal ones the innermost.
    QHash<QString, int> NamesAt(int token) const;
    /// Tokens of functions in the script itself, in their order, with the tokens of their last brackets.
    QVector<QPair<int, int>> Functions() const;

private:
    struct Scope {
        int From;
        int To;
        int Parent;
        QHash<QString, int> Names;
    };

    void Read();
    void Declare(int scope, int token);
    void DeclareVariables(int scope, int token);
    void DeclareParameters(int scope, int token);
    QVector<int> EndsOfBodies() const;
    bool IsName(int token) const;
    bool IsWord(int token, const char *word) const;
    bool IsMark(int token, char mark) const;

    const QVector<ScriptToken> &Tokens;
    QVector<Scope> Scopes;
    QVector<int> ScopeOfToken;
};

} // namespace Orbel
