#include "signallog.h"

#include "orbeldelegate.h"
#include "orbelformular.h"

#include <QVariant>

namespace Orbel
{

SignalLog::SignalLog(KV218::OrbelFormular &form, std::function<void(const QString &)> tell) : Tell(std::move(tell))
{
    KV218::OrbelSheet &sheet = form.GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        Hear(sheet.GetWidgetAt(i)->GetName(), sheet.GetWidgetAt(i)->GetDelegate());
    Hear(sheet.GetName(), sheet.GetDelegate());
}

void SignalLog::Hear(const QString &name, QObject *sender)
{
    const QMetaObject *meta = sender->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal || method.attributes() & QMetaMethod::Cloned)
            continue;
        QMetaObject::connect(sender, i, this, QObject::staticMetaObject.methodCount() + All.size());
        All.append({name, method});
    }
}

/// Slots for signals of any arguments: this has none of its own that the compiler knows.
int SignalLog::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const Heard heard = All.at(id);
    QStringList texts;
    for (int i = 0; i < heard.Signal.parameterCount(); ++i) {
        const int type = heard.Signal.parameterType(i);
        texts << (type == QMetaType::UnknownType ? QStringLiteral("?") : QVariant(type, arguments[i + 1]).toString());
    }
    Tell(QStringLiteral("%1.%2(%3)")
             .arg(heard.Name, QString::fromLatin1(heard.Signal.name()), texts.join(QLatin1String(", "))));
    return -1;
}

} // namespace Orbel
