#include "scriptmembers.h"

#include "classmembers.h"
#include "registry.h"
#include "scriptbuiltins.h"

#include <QHash>
#include <QObject>
#include <QScriptEngine>
#include <QScriptValueIterator>

#include <algorithm>

namespace Orbel
{

namespace
{

void AddMethods(
    ScriptMember::Kind what, const QString &className, const QStringList &signatures, QVector<ScriptMember> &members)
{
    for (const QString &signature : signatures) {
        // A class states again what it overrides.
        const bool isKnown = std::any_of(members.cbegin(), members.cend(),
            [&](const ScriptMember &member) { return member.Signature == signature; });
        if (!isKnown)
            members.append({what, NameOfMember(signature), signature, Registry::MeaningOf(className, signature)});
    }
}

void AddProperties(const QVector<PropertyInfo> &properties, QVector<ScriptMember> &members)
{
    for (const PropertyInfo &property : properties)
        members.append(
            {ScriptMember::Property, property.name, NameOf(property.type), QString::fromUtf8(property.meaning)});
}

QVector<ScriptMember> ReadMembers(const QString &className)
{
    QVector<ScriptMember> members;
    const ClassInfo *info = Registry::FindClass(className);
    AddProperties(className.isEmpty() ? Registry::SheetProperties()
            : info                    ? Registry::PropertiesOf(*info)
                                      : Registry::CommonProperties(),
        members);
    const ClassMembers methods = MembersOf(Registry::MetaObjectOf(className), QObject::staticMetaObject);
    AddMethods(ScriptMember::Signal, className, methods.Signals, members);
    AddMethods(ScriptMember::Slot, className, methods.Slots, members);
    AddMethods(ScriptMember::Invokable, className, methods.Invokables, members);
    return members;
}

} // namespace

const QVector<ScriptMember> &MembersOfClass(const QString &className)
{
    static QHash<QString, QVector<ScriptMember>> known;
    const bool isKnown = className.isEmpty() || Registry::FindClass(className);
    const QString key = isKnown ? className : QStringLiteral("?");
    auto found = known.find(key);
    if (found == known.end())
        found = known.insert(key, ReadMembers(key));
    return *found;
}

const ScriptMember *FindMember(const QString &className, const QString &name)
{
    const QVector<ScriptMember> &members = MembersOfClass(className);
    const auto found = std::find_if(
        members.cbegin(), members.cend(), [&](const ScriptMember &member) { return member.Name == name; });
    return found == members.cend() ? nullptr : &*found;
}

QStringList MembersOfBuiltin(const QString &name)
{
    static const QHash<QString, QStringList> known = [] {
        QHash<QString, QStringList> built;
        QScriptEngine engine;
        for (const QString &builtin : ScriptBuiltins()) {
            QScriptValueIterator member(engine.globalObject().property(builtin));
            while (member.hasNext()) {
                member.next();
                built[builtin].append(member.name());
            }
        }
        return built;
    }();
    return known.value(name);
}

} // namespace Orbel
