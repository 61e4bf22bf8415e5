#pragma once

#include "iobserver.h"
#include "testsupportexport.h"

#include <functional>
#include <QHash>
#include <QList>
#include <QMetaMethod>
#include <QObject>
#include <QPair>
#include <QStringList>

class ValueBase;

namespace Orbel
{

/// Everything that some objects emit and some nodes of the value tree tell, in one order: "name.signal(arguments)" and
/// "name=text". A QSignalSpy sees one signal; this shows which came first. Log, objects and nodes may end in any
/// order.
class ORBEL_TESTSUPPORT_EXPORT EventLog : public QObject, public IObserver
{
public:
    EventLog() = default;
    ~EventLog() override;

    /// Has all signals of `sender` but those of QObject written down under `name`. Not owned.
    void Watch(const QString &name, QObject *sender);
    /// The same with the values that a node takes. Not owned.
    void Watch(const QString &name, ValueBase *node);
    /// Does something once, in the middle of the next event whose text begins with `text`.
    void On(const QString &text, const std::function<void()> &action);

    /// What came since the last Take(), joined with blanks.
    QString Seen() const { return Entries.join(QLatin1Char(' ')); }
    /// The same, and forgets it.
    QString Take();

    /// What nodes call and what signals call.
    void Update(Observable *subject, TChangeCode code) override;
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    void Add(const QString &entry);

    QList<QPair<QString, QMetaMethod>> Signals;
    QHash<ValueBase *, QString> Nodes;
    QStringList Entries;
    QString Text;
    std::function<void()> Action;
};

} // namespace Orbel
