#pragma once

#include <QHash>
#include <QObject>
#include <QPair>
#include <QString>

#include <functional>

namespace KV218
{
class OrbelDelegate;
class OrbelFormular;
} // namespace KV218

namespace Orbel
{

/// Where each property of a form's controls was set last, as far as it can be seen: it watches the controls from the
/// moment at which the definition has been read.
class PropertyOrigins : public QObject
{
    Q_OBJECT

public:
    /// Gives where a script runs now, in words; empty where none does.
    using ScriptPlace = std::function<QString()>;

    /// Forgets all of the former form and watches the controls of this one, which has no nodes yet.
    void Watch(KV218::OrbelFormular &form, const ScriptPlace &place);
    /// In words; empty for a property that nobody has set since the definition.
    QString Of(const KV218::OrbelDelegate *control, const QString &property) const;

    /// While it lives, who sets a property is known by that name, unless a script does.
    class Act
    {
    public:
        Act(PropertyOrigins &origins, const QString &who);
        ~Act() { Origins.Actor = Before; }
        Act(const Act &) = delete;
        Act &operator=(const Act &) = delete;

    private:
        PropertyOrigins &Origins;
        const QString Before;
    };
    /// The same without an end.
    void SetActor(const QString &who) { Actor = who; }

    bool eventFilter(QObject *control, QEvent *event) override;

private:
    QString WhoActs() const;

    QHash<QPair<const QObject *, QString>, QString> Set;
    ScriptPlace Place;
    QString Actor;
};

} // namespace Orbel
