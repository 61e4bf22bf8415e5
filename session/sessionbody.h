#pragma once

#include "answers.h"
#include "definition.h"
#include "reload.h"
#include "session.h"

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <memory>

namespace KV218
{
class OrbelDelegate;
}

namespace Orbel
{

/// The inside of a session. The session may be deleted in any slot; its body lives on until what runs in here has
/// returned, with no form and nobody to tell. All that it keeps of controls is kept by parameter path, so that another
/// form can take the place of this one.
class SessionBody : public QObject, public std::enable_shared_from_this<SessionBody>
{
    Q_OBJECT

public:
    using Form = Definition::Form;

    SessionBody(const Definition &definition, const SessionOptions &options);
    ~SessionBody() override;

    /// Makes the form and its window; false when the definition has none.
    bool Build();
    std::unique_ptr<Session> MakeOwner();
    /// The session that this is the inside of; null when it has ended.
    Session *GetOwner() const { return Owner; }
    void SetOwner(Session *owner) { Owner = owner; }
    /// The session ends.
    void Close();

    /// A form of a definition, heard by this when its script fails and with the session's limit for that. It has
    /// neither nodes nor controls. Null when there is none.
    Form NewForm(const Definition &definition);
    /// Makes `form`, which has its nodes and its controls, the form of the session: from here on it is heard, stands in
    /// the window, and has the session's lock and configuration. The former one is let go.
    void Bind(const Form &form);

    const Definition &GetDefinition() const { return Source; }
    void SetDefinition(const Definition &definition) { Source = definition; }
    const SessionOptions &GetOptions() const { return Options; }
    Reload &GetReload() { return Later; }
    const Form &GetForm() const { return Bound; }
    QWidget *GetWidget() const { return Holder; }

    bool Report(const QString &path, const QVariant &value, QString *error);
    bool Report(const QVariantMap &values, QString *error);
    void Apply();
    void Confirm(const QString &path);
    void Refuse(const QString &path, const QString &reason);
    void SetAnswerTime(int milliseconds) { Sent.SetTime(milliseconds); }
    void Lock(const QString &reason);
    bool IsLocked() const { return !LockReason.isEmpty(); }
    void SetScriptLimit(int milliseconds);
    /// Which object keeps the form's configuration, and under which name; the form takes over what is there.
    void SetConfiguration(QObject *object, const QString &name);
    /// Shows values of a document as applied ones.
    void ShowStored(const QString &document);
    /// The session's own such object, under the name "form".
    QObject *GetOwnConfiguration() { return &OwnConfiguration; }

private:
    void AnnounceLater();
    void Announce();
    bool WaitsForAnswer(KV218::OrbelDelegate &control, const QVariant &value, QString *error);
    void TellOverdue(const QStringList &paths);
    void TellEdited(const QString &path);
    void TellChanges();
    void TellScript(int line, const QString &text);
    void KeepLock(const Form &form) const;

    Definition Source;
    SessionOptions Options;
    QPointer<Session> Owner;
    Form Bound;
    /// Belongs to the session until it has a parent.
    QPointer<QWidget> Holder;
    QObject OwnConfiguration;
    QPointer<QObject> Configuration;
    QString ConfigurationName;
    Answers Sent;
    Reload Later{*this};
    QString LockReason;
    /// The form has asked for its changes to be sent, and they were not yet.
    bool IsDue = false;
    /// An event is on its way that sends them.
    bool IsOnItsWay = false;
};

} // namespace Orbel
