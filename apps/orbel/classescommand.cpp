#include "classescommand.h"

#include "classmembers.h"
#include "commandoptions.h"
#include "failure.h"
#include "registry.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace Orbel
{

namespace
{

QJsonArray ToJson(const QVector<PropertyInfo> &properties)
{
    QJsonArray array;
    for (const PropertyInfo &property : properties)
        array.append(
            QJsonObject{{QStringLiteral("name"), property.name}, {QStringLiteral("type"), NameOf(property.type)},
                {QStringLiteral("absent"), QString::fromUtf8(property.absent)},
                {QStringLiteral("unit"), QString::fromUtf8(property.unit)},
                {QStringLiteral("storedOnly"), property.use == PropertyUse::Stored},
                {QStringLiteral("choices"), QString::fromUtf8(property.choices)},
                {QStringLiteral("meaning"), QString::fromUtf8(property.meaning)}});
    return array;
}

QJsonArray ToJson(const QVector<const char *> &sentences)
{
    QJsonArray array;
    for (const char *sentence : sentences)
        array.append(QString::fromUtf8(sentence));
    return array;
}

void AddMembers(QJsonObject &object, const QString &className)
{
    const ClassMembers members = MembersOf(Registry::MetaObjectOf(className), QObject::staticMetaObject);
    QJsonObject meanings;
    for (const QString &member : members.Signals + members.Slots + members.Invokables)
        meanings.insert(member, Registry::MeaningOf(className, member));
    object.insert(QStringLiteral("meanings"), meanings);
    object.insert(QStringLiteral("signals"), QJsonArray::fromStringList(members.Signals));
    object.insert(QStringLiteral("slots"), QJsonArray::fromStringList(members.Slots));
    object.insert(QStringLiteral("invokables"), QJsonArray::fromStringList(members.Invokables));
}

QJsonObject ToJson(const ClassInfo &info)
{
    const QString name = QString::fromUtf8(info.name);
    QJsonObject object{{QStringLiteral("class"), name},
        {QStringLiteral("delegate"), QString::fromUtf8(info.delegate->delegate)},
        {QStringLiteral("shows"), QString::fromUtf8(info.delegate->shows)},
        {QStringLiteral("remark"), QString::fromUtf8(info.remark)},
        {QStringLiteral("valueProperty"), QString(info.delegate->valueProperty)},
        {QStringLiteral("properties"), ToJson(Registry::PropertiesOf(info))},
        {QStringLiteral("cannot"), ToJson(info.delegate->cannot)}};
    AddMembers(object, name);
    return object;
}

QByteArray AllAsJson()
{
    QJsonArray classes;
    for (const ClassInfo &info : Registry::Classes())
        classes.append(ToJson(info));
    QJsonObject sheet{{QStringLiteral("properties"), ToJson(Registry::SheetProperties())},
        {QStringLiteral("cannot"), ToJson(Registry::SheetCannot())}};
    AddMembers(sheet, QString());
    const QJsonObject all{{QStringLiteral("classes"), classes}, {QStringLiteral("sheet"), sheet}};
    return QJsonDocument(all).toJson();
}

QByteArray AllAsText()
{
    QString text;
    for (const ClassInfo &info : Registry::Classes())
        text += QStringLiteral("%1  %2  %3\n")
                    .arg(QString::fromUtf8(info.name), -21)
                    .arg(QString(info.delegate->valueProperty), -12)
                    .arg(QString::fromUtf8(info.delegate->shows));
    return text.toUtf8();
}

} // namespace

void ClassesCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(
        QStringLiteral("Lists the control classes: class name, value property, and what the operator sees."));
    parser.addOption({Option::Json,
        QStringLiteral("Prints an object with all properties, signals, slots and invokables of each class and of the "
                       "sheet.")});
}

int ClassesCommand::Run(const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        throw UsageFailure(
            QStringLiteral("there is one argument too many: \"%1\"").arg(parser.positionalArguments().constFirst()));
    std::fputs((parser.isSet(Option::Json) ? AllAsJson() : AllAsText()).constData(), stdout);
    return ekFine;
}

} // namespace Orbel
