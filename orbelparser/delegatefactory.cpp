#include "delegatefactory.h"

#include "orbelcheckbox.h"
#include "orbeldelegate.h"
#include "orbelheadline.h"
#include "orbellabel.h"
#include "orbellineedit.h"
#include "orbelpushbutton.h"
#include "orbelseparator.h"

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

template <class Delegate> OrbelDelegate *Make(OrbelWidget *widget)
{
    return new Delegate(widget);
}

template <bool isHeadline> OrbelDelegate *MakeSeparator(OrbelWidget *widget)
{
    return new OrbelSeparator(widget, isHeadline);
}

// clang-format off
constexpr Row Table[] = {
    {"CheckBox",              Make<OrbelCheckBox>},
    {"Headline",              Make<OrbelHeadline>},
    {"IPEdit",                Make<OrbelLineEdit>},
    {"LineEdit",              Make<OrbelLineEdit>},
    {"PushButton",            Make<OrbelPushButton>},
    {"Label",                 Make<OrbelLabel>},
    {"Separator",             MakeSeparator<true>},
    {"FixedSpacer",           MakeSeparator<false>},
    {"SpecialObject_Generic", Make<OrbelDelegate>},
    {"SpecialObject_WDE",     Make<OrbelDelegate>},
};
// clang-format on

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

OrbelDelegate *NewDelegate(const QString &className, OrbelWidget *widget)
{
    return Creators().value(className, Make<OrbelDelegate>)(widget);
}

QStringList DelegateClassNames()
{
    QStringList names;
    for (const Row &row : Table)
        names.append(QLatin1String(row.className));
    return names;
}

} // namespace KV218
