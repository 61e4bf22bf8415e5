#include "classmembers.h"

#include <QMetaMethod>

namespace Orbel
{

namespace
{

QString SignatureOf(const QMetaMethod &method)
{
    const QList<QByteArray> types = method.parameterTypes();
    const QList<QByteArray> names = method.parameterNames();
    QStringList arguments;
    for (int i = 0; i < types.size(); ++i)
        arguments.append(QString::fromLatin1(types.at(i) + ' ' + names.value(i)).trimmed());
    const QString type = qstrcmp(method.typeName(), "void") == 0 ? QString() : QString::fromLatin1(method.typeName());
    return QStringLiteral("%1 %2(%3)")
        .arg(type, QString::fromLatin1(method.name()), arguments.join(QLatin1String(", ")))
        .trimmed();
}

} // namespace

QString NameOfMember(const QString &signature)
{
    const QString head = signature.section(QLatin1Char('('), 0, 0);
    return head.mid(head.lastIndexOf(QLatin1Char(' ')) + 1);
}

ClassMembers MembersOf(const QMetaObject *metaObject, const QMetaObject &base)
{
    ClassMembers members;
    for (int i = base.methodCount(); i < metaObject->methodCount(); ++i) {
        const QMetaMethod method = metaObject->method(i);
        // A default argument makes a second method of the same name.
        if (method.attributes() & QMetaMethod::Cloned)
            continue;
        if (method.methodType() == QMetaMethod::Signal)
            members.Signals.append(SignatureOf(method));
        else if (method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Public)
            members.Slots.append(SignatureOf(method));
        else if (method.methodType() == QMetaMethod::Method && method.access() == QMetaMethod::Public)
            members.Invokables.append(SignatureOf(method));
    }
    return members;
}

} // namespace Orbel
