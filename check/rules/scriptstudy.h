#pragma once

#include "findingsink.h"
#include "formmodel.h"
#include "scriptbindings.h"
#include "scriptclass.h"

#include <functional>

namespace Orbel
{

/// What an expression of a script gives.
enum class ScriptKind {
    Any, ///< Cannot be told.
    Nothing, ///< undefined
    Number,
    Text,
    NumberText, ///< A text that stands for a number.
    Bool,
    Function,
    Control,
    Object,
};

/// A signal of a control with what a script connects to it.
struct ScriptConnection {
    int Call; ///< Of connect().
    int Control; ///< The expression in front of the signal.
    QString Signal;
    int Function; ///< -1 when it cannot be told.
};

/// A form's script with all that is known of its parts. Rules about scripts get one, and share it.
class ScriptStudy
{
public:
    ScriptStudy(const FormModel &form, FindingSink &sink);

    const FormModel &Form;
    FindingSink &Sink;
    const ScriptSourceMap &Script;
    const ScriptTree &Tree;
    const ScriptBindings &Bindings;

    /// The widget that an expression means; null for none of a known class.
    const WidgetEntry *WidgetOf(int node) const;
    /// Functions and signals of the control, or the sheet, that an expression means; null for anything else.
    const ScriptClass *ClassOf(int node) const;
    /// How findings call it.
    QString NameOf(int node) const { return Tree.At(node).Text; }
    /// The enumeration that a global means; null for anything else.
    const EnumEntry *EnumOf(int node) const;
    /// The function that a Member means, as in `gain.setValue`; null for anything else.
    const ScriptMethod *MethodOf(int member) const;
    /// The stated property that a Member means; null for anything else.
    const PropertyEntry *PropertyOf(int member) const;

    /// The control whose value an expression gives, by whatever names and hands it went; null when that cannot be told.
    const WidgetEntry *ValueOf(int node) const { return ValueOf(node, 0); }
    ScriptKind KindOf(int node) const { return node < 0 ? ScriptKind::Any : Kinds.at(node); }
    /// The enumeration whose values the expression gives; null when it is no choice.
    const EnumEntry *ChoicesOf(int node) const;
    /// What gives a parameter its value: a handler in a connection, or an argument of a call.
    struct Source {
        int Node;
        const EnumEntry *Rows; ///< Null for what is no choice.
    };
    QVector<Source> ChoicesGivenTo(int parameter) const;
    /// A text that stands in the script, or a row of an enumeration; null when there is none.
    QString ConstantOf(int node) const;
    /// A number that stands in the script, perhaps with a sign.
    bool NumberOf(int node, double *number) const;

    const QVector<ScriptConnection> &Connections() const { return All; }
    QVector<ScriptConnection> ConnectionsOf(int function) const { return ByFunction.value(function); }
    /// Whether the script may change the property of a widget: `gain.setMinimum(1)`, `gain.minimum = 1`.
    bool MaySet(const WidgetEntry &widget, QLatin1String property) const;

    /// Whether an object of the script may have a member of the name: it is set somewhere, or stands as a key or a
    /// text.
    bool MakesMember(const QString &name) const { return MadeMembers.contains(name); }

    /// Whether a function cannot do without its parameters from a place on: it uses one without asking for it first.
    bool Needs(int function, int parameter) const;
    /// Whether somebody looked first: in a `try` that catches, behind `in` or typeof, or where the same is tested.
    bool IsGuarded(int node) const;
    /// Whether a node is what an assignment sets.
    bool IsAssigned(int node) const
    {
        return Tree.Is(Tree.At(node).Parent, ScriptNode::Assign, "=") && Tree.PlaceOf(node) == 0;
    }
    /// Whether an exception of a node is caught.
    bool IsCaught(int node) const;
    /// Whether an expression can be left out without any change: it calls, sets and makes nothing.
    bool IsIdle(int node) const;
    /// Whether a function reads its arguments in another way than by its parameters.
    bool ReadsArguments(int function) const { return WithArguments.contains(function); }
    /// Whether anything inside of a node, itself included, fits.
    bool Contains(int node, const std::function<bool(int)> &fits) const;
    /// Where a jump out of a loop, or out of the function around it, stands in the loop.
    bool Leaves(int loop) const;

    void Tell(Code code, int node, const QString &text, const Mend &mend = Mend()) const
    {
        Sink.Add(code, PlaceOf(node), text, mend);
    }
    /// Where the code of the node begins, which of a Binary is its left side.
    void TellAtStart(Code code, int node, const QString &text) const { Sink.Add(code, PlaceOfStart(node), text); }
    QString CodeOf(int node) const { return Tree.CodeOf(node); }
    int PlaceOf(int node) const { return Script.PlaceOf(Tree.At(node).Index); }
    int PlaceOfStart(int node) const { return Script.PlaceOf(Tree.At(node).Start); }

private:
    void FindConnections();
    void FindAssignments();
    void FindTests();
    void FindKinds();
    ScriptKind FindKind(int node) const;
    ScriptKind KindOfName(int node) const;
    ScriptKind KindOfMember(int node) const;
    bool RunsBeforeAll(int function) const;
    bool IsNothing(int node) const;
    bool IsReadFirst(int node, const WidgetEntry &widget, const QString &property) const;
    ScriptKind KindOfCall(int node) const;
    ScriptKind KindOfBinary(int node) const;
    ScriptKind KindOfVariable(const ScriptVariable &variable) const;
    ScriptKind KindOfParameter(int node) const;
    bool IsAppended(const ScriptVariable &variable, int set) const;
    /// Where a parameter gets its values from, as far as that is known.
    struct Sources {
        QVector<ScriptConnection> Signals;
        QVector<int> Arguments; ///< Of calls; -1 for one that is left out.
        int Place = 0; ///< Among the parameters.
        explicit operator bool() const { return !Signals.isEmpty() || !Arguments.isEmpty(); }
    };
    Sources SourcesOf(int name) const;
    const WidgetEntry *ValueOf(int node, int depth) const;
    int SingleValueOf(int name) const;

    QVector<ScriptKind> Kinds;
    QVector<ScriptConnection> All;
    QHash<int, QVector<ScriptConnection>> ByFunction;
    QHash<QString, QVector<int>> SetsOf; ///< What sets each "control.property".
    QSet<QString> Assigned; ///< "control.property", of what is no control ".property".
    QSet<QString> MadeMembers;
    QSet<int> WithArguments;
    QSet<QString> Tested; ///< Code of what is tested, and in front of it ' where it is its name alone.
};

bool IsAny(const QString &text, std::initializer_list<const char *> words);
/// The kind of a C++ type in scripts.
ScriptKind KindOfType(const QByteArray &type);
/// "setValue" for "value".
QString SetterOf(const QString &property);

/// One family of findings about scripts.
using ScriptRule = void (*)(const ScriptStudy &study);
void CheckScriptAssignments(const ScriptStudy &study);
void CheckScriptCalls(const ScriptStudy &study);
void CheckScriptChoices(const ScriptStudy &study);
void CheckScriptComparisons(const ScriptStudy &study);
void CheckScriptConditions(const ScriptStudy &study);
void CheckScriptConnections(const ScriptStudy &study);
void CheckScriptIndices(const ScriptStudy &study);
void CheckScriptLoops(const ScriptStudy &study);
void CheckScriptMargins(const ScriptStudy &study);
void CheckScriptMembers(const ScriptStudy &study);
void CheckScriptNames(const ScriptStudy &study);
void CheckScriptNumbers(const ScriptStudy &study);
void CheckScriptObjects(const ScriptStudy &study);
void CheckScriptProperties(const ScriptStudy &study);
void CheckScriptReach(const ScriptStudy &study);
void CheckScriptStatements(const ScriptStudy &study);
void CheckScriptSums(const ScriptStudy &study);

} // namespace Orbel
