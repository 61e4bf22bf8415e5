#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace Orbel
{

/// What a script can write behind the name of a control and a dot.
struct ScriptMember {
    enum Kind { Property, Signal, Slot, Invokable };
    Kind What;
    QString Name;
    QString Signature; ///< Of a property its type.
    QString Meaning; ///< One sentence.
};

/// The members of a class, in the order of the reference; an unknown class has those of every control, an empty name
/// means the sheet. They stay for the life of the process.
const QVector<ScriptMember> &MembersOfClass(const QString &className);
/// Null for a member that the class does not have.
const ScriptMember *FindMember(const QString &className, const QString &name);

/// What the script language brings along behind one of its own globals, as Math.
QStringList MembersOfBuiltin(const QString &name);

} // namespace Orbel
