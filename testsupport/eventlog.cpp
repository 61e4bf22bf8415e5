#include "eventlog.h"

#include "valuebase.h"

#include <QVariant>

#include <utility>

namespace Orbel
{

EventLog::~EventLog()
{
    for (auto node = Nodes.keyBegin(); node != Nodes.keyEnd(); ++node)
        (*node)->DeleteObserver(this);
}

void EventLog::Watch(const QString &name, QObject *sender)
{
    // Each signal is connected to a method of its own, of which qt_metacall() is told by number.
    const QMetaObject *meta = sender->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() != QMetaMethod::Signal)
            continue;
        QMetaObject::connect(sender, i, this, QObject::staticMetaObject.methodCount() + Signals.size());
        Signals.append({name, meta->method(i)});
    }
}

void EventLog::Watch(const QString &name, ValueBase *node)
{
    Nodes.insert(node, name);
    node->AddObserver(this);
}

void EventLog::On(const QString &text, const std::function<void()> &action)
{
    Text = text;
    Action = action;
}

QString EventLog::Take()
{
    return std::exchange(Entries, {}).join(QLatin1Char(' '));
}

void EventLog::Update(Observable *subject, TChangeCode code)
{
    auto *node = dynamic_cast<ValueBase *>(subject);
    if (code == ekChangeState && node->GetState() == ekStateDeleted)
        Nodes.remove(node);
    if (code == ekChangeValue)
        Add(Nodes.value(node) + QLatin1Char('=') + node->GetStringValue());
}

int EventLog::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    const QMetaMethod method = Signals.at(id).second;
    QStringList texts;
    for (int i = 0; i < method.parameterCount(); ++i)
        texts << QVariant(method.parameterType(i), arguments[i + 1]).toString();
    Add(QStringLiteral("%1.%2(%3)")
            .arg(Signals.at(id).first, QString::fromLatin1(method.name()), texts.join(QStringLiteral(", "))));
    return -1;
}

void EventLog::Add(const QString &entry)
{
    Entries << entry;
    if (Action && entry.startsWith(Text))
        std::exchange(Action, nullptr)();
}

} // namespace Orbel
