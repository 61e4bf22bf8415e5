#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QVector>

#include <functional>

namespace KV218
{
class OrbelFormular;
}

namespace Orbel
{

/// Hears every signal of a form's controls and of its sheet, for as long as it lives.
class SignalLog : public QObject
{
public:
    /// `tell` gets each as "name.signal(arguments)".
    SignalLog(KV218::OrbelFormular &form, std::function<void(const QString &)> tell);

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    struct Heard {
        QString Name;
        QMetaMethod Signal;
    };

    void Hear(const QString &name, QObject *sender);

    QVector<Heard> All;
    std::function<void(const QString &)> Tell;
};

} // namespace Orbel
