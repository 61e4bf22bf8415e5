#pragma once

#include "scriptscanner.h"

#include <QSet>

namespace Orbel
{

/// A place where a script speaks of something: of a name of its own, or with `Owner` of something behind a dot.
struct ScriptReference {
    QString Owner;
    QString Name;
    int Index;
};

/// What a script makes, and what it takes to be there.
class ScriptDeclarations
{
public:
    explicit ScriptDeclarations(const QString &code);

    /// Names that the script makes nowhere, and members of such names that it sets nowhere. Nothing when the script can
    /// make names in ways that cannot be seen.
    QVector<ScriptReference> Undeclared() const;
    /// The names of `var` statements, in their order.
    const QVector<ScriptReference> &Variables() const { return VariableList; }
    /// Whether the name is a variable or a parameter somewhere.
    bool Makes(const QString &name) const { return Made.contains(name); }

private:
    void FindMade();
    void FindVariables(int at);
    void FindParameters(int at);
    void FindGuards();
    int EndOfBlock(int at) const;
    bool IsMark(int at, char mark) const;
    bool IsName(int at) const;
    bool IsWord(int at, const char *word) const;
    bool IsAssigned(int at) const;
    bool IsKey(int at) const;

    const QString Code;
    QVector<ScriptToken> Tokens;
    QSet<QString> Made;
    QSet<QString> SetMembers;
    QVector<ScriptReference> VariableList;
    QSet<QString> Guarded; ///< Members that are tested before they are used.
    QVector<QPair<int, int>> Tries; ///< First and last token of each block whose exceptions are caught.
    bool IsOpaque = false;
};

} // namespace Orbel
