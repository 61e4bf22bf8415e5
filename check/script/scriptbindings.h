#pragma once

#include "scripttree.h"

#include <QHash>
#include <QSet>

namespace Orbel
{

/// A variable, a parameter or a function of a script, or a global that the script does not make.
struct ScriptVariable {
    QString Name;
    int Function = -1; ///< The function, or the program, that it belongs to.
    bool IsMade = false; ///< By `var`, as a parameter or as a function.
    bool IsParameter = false;
    QVector<int> Sets = {}; ///< What gives it a value: Declarator, Assign, Prefix, Postfix, ForIn, functions.
    QVector<int> Reads = {}; ///< Names.
};

/// What each name of a script means.
class ORBEL_CHECK_INTERNAL ScriptBindings
{
public:
    explicit ScriptBindings(const ScriptTree &tree);

    const QVector<ScriptVariable> &All() const { return Variables; }
    /// Of a Name, Declarator, Parameter or FunctionStatement.
    const ScriptVariable &At(int node) const { return Variables.at(Means.value(node)); }
    int NumberOf(int node) const { return Means.value(node, -1); }
    /// Whether a name means a global that the script does not declare.
    bool IsForeign(int node) const { return Means.contains(node) && !At(node).IsMade; }
    /// The program's own variable of a name; null without one.
    const ScriptVariable *FindGlobal(const QString &name) const;

    /// The one function that an expression means; -1 when it is none, or one of several.
    int FunctionOf(int node) const;
    /// Whether a function may run while the script itself does.
    bool RunsAtStart(int function) const { return AtStart.contains(function); }
    /// The calls of a function by its own name.
    QVector<int> CallsOf(int function) const { return Calls.value(function); }
    /// Whether a function is handed over to somebody else than a signal, who may call it with anything.
    bool IsPassedOn(int function) const { return PassedOn.contains(function); }
    /// Whether a call only makes or ends a connection.
    bool IsConnection(int call) const;

private:
    void Declare();
    void Resolve();
    void FindStarted();
    int Variable(int function, const QString &name, bool isMade);
    int Lookup(int node, const QString &name);
    void AddSet(int variable, int node);
    /// What a set gives; -1 when that is no expression.
    int ValueOf(int set) const;

    const ScriptTree &Tree;
    QVector<ScriptVariable> Variables;
    QHash<QPair<int, QString>, int> Numbers;
    QHash<int, int> Means;
    QSet<int> AtStart;
    QHash<int, QVector<int>> Calls;
    QSet<int> PassedOn;
};

} // namespace Orbel
