#include "referencepage.h"

#include "classmembers.h"
#include "orbeldelegate.h"
#include "referenceexample.h"

namespace Orbel
{

namespace
{

/// A cell of a table, in which a bar would begin the next one.
QString Cell(const QString &text)
{
    return QString(text).replace(QLatin1Char('|'), QLatin1String("\\|"));
}

QString ReadAs(const PropertyInfo &property)
{
    const QString type = NameOf(property.type);
    return (type.isEmpty() ? QStringLiteral("no text") : type)
        + (property.use == PropertyUse::Stored ? QStringLiteral(", stored only") : QString());
}

QString Meaning(const PropertyInfo &property)
{
    const QString meaning = QString::fromUtf8(property.meaning);
    if (!*property.choices)
        return meaning;
    return meaning
        + QStringLiteral(" One of: `%1`.")
              .arg(QString::fromUtf8(property.choices).replace(QLatin1Char(' '), QLatin1String("`, `")));
}

QString PropertyTable(const QVector<PropertyInfo> &properties)
{
    QString table = QStringLiteral("| Property | Read as | When absent | Unit | Meaning |\n|---|---|---|---|---|\n");
    for (const PropertyInfo &property : properties)
        table += QStringLiteral("| `%1` | %2 | %3 | %4 | %5 |\n")
                     .arg(QString(property.name), ReadAs(property), Cell(QString::fromUtf8(property.absent)),
                         QString::fromUtf8(property.unit), Cell(Meaning(property)));
    return table + QLatin1Char('\n');
}

QString MemberList(const char *title, const QString &className, const QStringList &members)
{
    if (members.isEmpty())
        return QString();
    QString list = QString::fromUtf8(title) + QLatin1String(":\n\n");
    for (const QString &member : members)
        list += QStringLiteral("- `%1`: %2\n").arg(member, Registry::MeaningOf(className, member));
    return list + QLatin1Char('\n');
}

/// Those of a class beyond those of `base`; an empty name means the sheet.
QString Members(const QString &className, const QMetaObject &base)
{
    const ClassMembers members = MembersOf(Registry::MetaObjectOf(className), base);
    return MemberList("Signals", className, members.Signals) + MemberList("Slots", className, members.Slots)
        + MemberList("Invokables", className, members.Invokables);
}

QString Cannot(const QVector<const char *> &sentences)
{
    QString list;
    for (const char *sentence : sentences)
        list += QStringLiteral("- %1\n").arg(Registry::Stressed(sentence));
    return list.isEmpty() ? list : QStringLiteral("## What it cannot do\n\n%1\n").arg(list);
}

QString Block(const QString &xml)
{
    return QStringLiteral("```xml\n%1\n```\n\n").arg(xml.trimmed());
}

QString Examples(const QString &className)
{
    return QStringLiteral(
        "## Example\n\n%1A script for it. Behind `// ->` stands what it prints, at the end when somebody "
        "does what the comment says:\n\n```js\n%2\n```\n")
        .arg(Block(ExampleOf(className)), ScriptOf(className).trimmed());
}

QString Picture(const QString &name)
{
    return QStringLiteral("![%1](images/%1.png)\n\n").arg(name);
}

QString Head(const ClassInfo &info)
{
    QStringList siblings;
    for (const ClassInfo &other : Registry::Classes()) {
        if (other.delegate == info.delegate)
            siblings.append(QStringLiteral("`%1`").arg(QString::fromUtf8(other.name)));
    }
    const QString value = info.delegate->valueProperty;
    QString head
        = QStringLiteral("# %1\n\n%2\n\n").arg(QString::fromUtf8(info.name), QString::fromUtf8(info.delegate->shows));
    if (*info.remark)
        head += QString::fromUtf8(info.remark) + QLatin1String("\n\n");
    if (info.delegate->traits & (ekShown | ekAlwaysWrites))
        head += Picture(QString::fromUtf8(info.name));
    head += QStringLiteral("- Class names: %1\n").arg(siblings.join(QLatin1String(", ")));
    head += QStringLiteral("- Delegate: `%1`\n").arg(QString::fromUtf8(info.delegate->delegate));
    return head + (value.isEmpty() ? QStringLiteral("\n") : QStringLiteral("- Value property: `%1`\n\n").arg(value));
}

QString ParameterPart(const ClassInfo &info, const QString &example)
{
    if (!(info.delegate->traits & ekWrites))
        return QStringLiteral("## Parameter document\n\nThe control writes no element.\n\n");
    return QStringLiteral("## Parameter document\n\nOut: %1 The example writes:\n\n%2In: %3\n\n")
        .arg(QString::fromUtf8(info.delegate->writes), Block(DocumentOf(example)),
            QString::fromUtf8(info.delegate->reads));
}

} // namespace

QString ClassPage(const ClassInfo &info)
{
    const QString name = QString::fromUtf8(info.name);
    const QVector<PropertyInfo> &own = info.delegate->properties;
    QString page = Head(info) + Cannot(info.delegate->cannot) + QStringLiteral("## Properties\n\n");
    if (!own.isEmpty())
        page += PropertyTable(own);
    page += QStringLiteral("And those of [every control](README.md).\n\n## For scripts\n\n");
    page += Members(name, KV218::OrbelDelegate::staticMetaObject);
    page += QStringLiteral("And those of [every control](README.md).\n\n");
    return page + ParameterPart(info, ExampleOf(name)) + Examples(name);
}

QString SheetPage()
{
    const QString name = QStringLiteral("Sheet");
    return QStringLiteral("# The sheet\n\nThe form as a whole: its properties stand in the `Properties` of the element "
                          "`Sheet`.\n\n")
        + Picture(name) + Cannot(Registry::SheetCannot()) + QStringLiteral("## Properties\n\n")
        + PropertyTable(Registry::SheetProperties())
        + QStringLiteral("A custom property `Attribute_X` makes an attribute `X` of the parameter document's root "
                         "element; its value is the property of the same name in `Properties`.\n\n## For scripts\n\n")
        + Members(QString(), KV218::OrbelDelegate::staticMetaObject) + Examples(name);
}

QString IndexPage()
{
    QString page = QStringLiteral("# Reference\n\nWritten by `orbel reference`. A class without a picture shows "
                                  "nothing.\n\n| Class | What the operator sees | Value "
                                  "property |\n|---|---|---|\n| [Sheet](Sheet.md) | The form as a whole. | |\n");
    for (const ClassInfo &info : Registry::Classes()) {
        const QString value = info.delegate->valueProperty;
        page += QStringLiteral("| [%1](%1.md) | %2 | %3 |\n")
                    .arg(QString::fromUtf8(info.name), Cell(QString::fromUtf8(info.delegate->shows)),
                        value.isEmpty() ? value : QLatin1Char('`') + value + QLatin1Char('`'));
    }
    return page + QStringLiteral("\n## What every control has\n\nProperties:\n\n")
        + PropertyTable(Registry::CommonProperties()) + Members(QStringLiteral("?"), QObject::staticMetaObject)
        + Cannot(Registry::CommonCannot()).replace(QLatin1String("it cannot"), QLatin1String("none can")).trimmed()
        + QLatin1Char('\n');
}

} // namespace Orbel
