#include "registry.h"

#include "classmembers.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "orbelparser.h"
#include "registrytables.h"

#include <QHash>

#include <algorithm>

namespace Orbel
{

namespace
{

using PropertyIndex = QHash<QString, PropertyInfo>;

PropertyIndex IndexOf(const QVector<PropertyInfo> &properties)
{
    PropertyIndex index;
    for (const PropertyInfo &property : properties)
        index.insert(property.name, property);
    return index;
}

/// The properties of each delegate by name.
const PropertyIndex &IndexOf(const DelegateInfo &delegate)
{
    static const QHash<const DelegateInfo *, PropertyIndex> indexes = [] {
        QHash<const DelegateInfo *, PropertyIndex> built;
        for (const ClassInfo &info : ClassTable())
            built.insert(info.delegate, IndexOf(Registry::PropertiesOf(info)));
        return built;
    }();
    return *indexes.constFind(&delegate);
}

const PropertyInfo *Find(const PropertyIndex &index, const QString &name)
{
    const auto found = index.constFind(name);
    return found == index.constEnd() ? nullptr : &*found;
}

/// Empty where no row tells. Those of the class itself stand behind those of groups, and count for more.
QString MeaningIn(const QVector<MemberInfo> &members, const QString &signature)
{
    for (const QString &wanted : {signature, NameOfMember(signature)}) {
        const auto row = std::find_if(members.crbegin(), members.crend(),
            [&](const MemberInfo &info) { return QLatin1String(info.member) == wanted; });
        if (row != members.crend())
            return QString::fromUtf8(row->meaning);
    }
    return QString();
}

QStringList NamesOf(const QVector<PropertyInfo> &properties)
{
    QStringList names;
    for (const PropertyInfo &property : properties)
        names.append(property.name);
    return names;
}

} // namespace

QString NameOf(ValueType type)
{
    switch (type) {
    case ValueType::Bool:
        return QStringLiteral("Bool");
    case ValueType::Int:
        return QStringLiteral("Int");
    case ValueType::Int64:
        return QStringLiteral("Int64");
    case ValueType::UInt64:
        return QStringLiteral("UInt64");
    case ValueType::Double:
        return QStringLiteral("Double");
    case ValueType::Text:
        return QStringLiteral("String");
    case ValueType::Other:
    case ValueType::AsValue:
        break;
    }
    return QString();
}

const QVector<ClassInfo> &Registry::Classes()
{
    return ClassTable();
}

const ClassInfo *Registry::FindClass(const QString &name)
{
    static const QHash<QString, const ClassInfo *> index = [] {
        QHash<QString, const ClassInfo *> built;
        for (const ClassInfo &info : ClassTable())
            built.insert(QLatin1String(info.name), &info);
        return built;
    }();
    return index.value(name);
}

QStringList Registry::ClassNames()
{
    QStringList names;
    for (const ClassInfo &info : ClassTable())
        names.append(QLatin1String(info.name));
    return names;
}

const QVector<PropertyInfo> &Registry::CommonProperties()
{
    return CommonRows().properties;
}

QVector<PropertyInfo> Registry::PropertiesOf(const ClassInfo &info)
{
    return CommonRows().properties + info.delegate->properties;
}

const PropertyInfo *Registry::FindProperty(const ClassInfo &info, const QString &name)
{
    return Find(IndexOf(*info.delegate), name);
}

QStringList Registry::PropertyNames(const ClassInfo &info)
{
    return NamesOf(PropertiesOf(info));
}

QString Registry::MeaningOf(const QString &className, const QString &signature)
{
    const ClassInfo *const info = FindClass(className);
    const QString own = className.isEmpty() ? MeaningIn(SheetRows().members, signature)
        : info                              ? MeaningIn(info->delegate->members, signature)
                                            : QString();
    return own.isEmpty() ? MeaningIn(CommonRows().members, signature) : own;
}

const QVector<const char *> &Registry::CommonCannot()
{
    return CommonRows().cannot;
}

const QVector<const char *> &Registry::SheetCannot()
{
    return SheetRows().cannot;
}

QString Registry::Stressed(const char *sentences)
{
    QString text = QString::fromUtf8(sentences);
    const int end = text.indexOf(QLatin1String(". "));
    return QLatin1String("**") + text.insert(end < 0 ? text.size() : end + 1, QLatin1String("**"));
}

const QVector<PropertyInfo> &Registry::SheetProperties()
{
    return SheetRows().properties;
}

const PropertyInfo *Registry::FindSheetProperty(const QString &name)
{
    static const PropertyIndex index = IndexOf(SheetProperties());
    return Find(index, name);
}

QStringList Registry::SheetPropertyNames()
{
    return NamesOf(SheetProperties());
}

const QMetaObject *Registry::MetaObjectOf(const QString &className)
{
    const QString definition = QStringLiteral("<ZkParamGui><Sheet><Widget class=\"%1\"/></Sheet></ZkParamGui>");
    const QExplicitlySharedDataPointer<KV218::OrbelFormular> form(
        KV218::OrbelParser().ParseORBEL(definition.arg(className.toHtmlEscaped())));
    if (className.isEmpty())
        return form->GetSheet().GetDelegate()->metaObject();
    return form->GetSheet().GetWidgetAt(0)->GetDelegate()->metaObject();
}

} // namespace Orbel
