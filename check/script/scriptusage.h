#pragma once

#include "scriptbindings.h"

namespace Orbel
{

/// What a script may do with the controls and their properties. Where its ways cannot be seen, any word counts.
class ScriptUsage
{
public:
    ScriptUsage() = default;
    ScriptUsage(const QString &code, const QVector<ScriptToken> &tokens, const ScriptTree &tree,
        const ScriptBindings &bindings);

    /// Whether a property or function of the name is used, behind a dot or by its name in a text.
    bool SpeaksOf(const QString &member) const { return Members.contains(member); }
    /// Whether `member` may be called on the global `owner`, by this name or another one.
    bool MayCall(const QString &owner, const QString &member) const;
    /// The same while the script itself runs, and not only in a handler.
    bool MayCallAtStart(const QString &owner, const QString &member) const;

private:
    void AddWords(const QString &code);
    void FindStart(const ScriptTree &tree, const ScriptBindings &bindings);

    QSet<QString> Members;
    QSet<QString> PassedOn; ///< Globals that stand alone, so that they may be known by other names.
    QSet<QString> Pairs; ///< "owner.member"
    QSet<QString> StartMembers;
    QSet<QString> StartPairs;
    bool IsOpaque = false; ///< What runs when cannot be told.
};

} // namespace Orbel
