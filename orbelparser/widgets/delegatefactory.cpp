#include "delegatefactory.h"

#include "newcontrol.h"
#include "orbeldelegate.h"

#include <QMap>

namespace KV218
{

namespace
{

using Creator = OrbelDelegate *(*)(OrbelWidget *);

struct Row {
    const char *className;
    Creator creator;
};

constexpr Row Table[] = {
#define ORBEL_CLASS(name, ...) {#name, New##name},
#define ORBEL_ALIAS(name, same, ...) {#name, New##same},
#include "controlclasses.inc"
};

/// Built on first use and kept for the life of the process.
const QMap<QString, Creator> &Creators()
{
    static const QMap<QString, Creator> creators = [] {
        QMap<QString, Creator> map;
        for (const Row &row : Table)
            map.insert(QLatin1String(row.className), row.creator);
        return map;
    }();
    return creators;
}

} // namespace

OrbelDelegate *NewSpecialObject_Generic(OrbelWidget *widget)
{
    return NewControl<OrbelDelegate>(widget);
}

OrbelDelegate *NewDelegate(const QString &className, OrbelWidget *widget)
{
    return Creators().value(className, NewSpecialObject_Generic)(widget);
}

QStringList DelegateClassNames()
{
    QStringList names;
    for (const Row &row : Table)
        names.append(QLatin1String(row.className));
    return names;
}

} // namespace KV218
