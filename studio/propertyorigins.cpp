#include "propertyorigins.h"

#include "operatoract.h"
#include "orbeldelegate.h"
#include "orbelformular.h"

#include <QDynamicPropertyChangeEvent>

namespace Orbel
{

void PropertyOrigins::Watch(KV218::OrbelFormular &form, const ScriptPlace &place)
{
    Set.clear();
    Place = place;
    for (int i = 0; i < form.GetSheet().GetWidgetCount(); ++i)
        form.GetSheet().GetWidgetAt(i)->GetDelegate()->installEventFilter(this);
    form.GetSheet().GetDelegate()->installEventFilter(this);
}

QString PropertyOrigins::Of(const KV218::OrbelDelegate *control, const QString &property) const
{
    return Set.value({control, property});
}

PropertyOrigins::Act::Act(PropertyOrigins &origins, const QString &who) : Origins(origins), Before(origins.Actor)
{
    Origins.Actor = who;
}

bool PropertyOrigins::eventFilter(QObject *control, QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        const QByteArray name = static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName();
        Set.insert({control, QString::fromUtf8(name)}, WhoActs());
    }
    return false;
}

/// A handler of a script acts by itself, whoever set it going.
QString PropertyOrigins::WhoActs() const
{
    const QString script = Place ? Place() : QString();
    if (!script.isEmpty())
        return script;
    if (!Actor.isEmpty())
        return Actor;
    return OperatorAct::IsAnyRunning() ? tr("operator") : tr("unknown");
}

} // namespace Orbel
