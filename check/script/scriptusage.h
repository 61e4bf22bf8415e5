#pragma once

#include <QSet>
#include <QString>

namespace Orbel
{

/// What a script may do with the controls and their properties. Where its ways cannot be seen, any word counts.
class ScriptUsage
{
public:
    ScriptUsage() = default;
    explicit ScriptUsage(const QString &code);

    /// Whether a property or function of the name is used, behind a dot or by its name in a text.
    bool SpeaksOf(const QString &member) const { return Members.contains(member); }
    /// Whether `member` may be called on the global `owner`, by this name or another one.
    bool MayCall(const QString &owner, const QString &member) const;

private:
    void AddWords(const QString &code);

    QSet<QString> Members;
    QSet<QString> PassedOn; ///< Globals that stand alone, so that they may be known by other names.
    QSet<QString> Pairs; ///< "owner.member"
};

} // namespace Orbel
