#include "session.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "parameters.h"
#include "sessionbody.h"
#include "sessionstore.h"

#include <QWidget>

namespace Orbel
{

/// Of what the session itself keeps.
static QString OwnName()
{
    return QStringLiteral("form");
}

static Opening Open(const Definition &definition, const SessionOptions &options)
{
    Opening opening;
    opening.Told = definition.GetFindings();
    const auto body = std::make_shared<SessionBody>(definition, options);
    if (body->Build())
        opening.Opened = body->MakeOwner();
    return opening;
}

Opening Session::OpenFile(const QString &path, const SessionOptions &options)
{
    return Open(Definition::OfFile(path), options);
}

Opening Session::OpenText(const QByteArray &document, const SessionOptions &options)
{
    return Open(Definition::OfText(document), options);
}

Opening Session::OpenComponent(const QByteArray &list, const QString &name, const SessionOptions &options)
{
    return Open(Definition::OfComponent(list, name), options);
}

Session::Session(const std::shared_ptr<SessionBody> &body) : Body(body)
{
    Body->SetOwner(this);
}

Session::~Session()
{
    Body->Close();
}

QWidget *Session::GetWidget() const
{
    return Body->GetWidget();
}

KV218::OrbelFormular *Session::GetForm() const
{
    return Body->GetForm().data();
}

QString Session::GetNodePath() const
{
    return GetForm()->GetVTPath();
}

void Session::Restore(QSettings &settings, const QString &group)
{
    const auto body = Body;
    QObject &own = *body->GetOwnConfiguration();
    SessionStore::Load(settings, group, own, OwnName());
    body->SetConfiguration(&own, OwnName());
    body->ShowStored(SessionStore::ValuesOf(own, OwnName()));
}

void Session::Restore(QObject &store, const QString &name)
{
    const auto body = Body;
    const QString values = SessionStore::ValuesOf(store, name);
    body->SetConfiguration(&store, name);
    body->ShowStored(values);
}

void Session::Store(QSettings &settings, const QString &group) const
{
    QObject store;
    Store(store, OwnName());
    SessionStore::Save(store, OwnName(), settings, group);
}

void Session::Store(QObject &store, const QString &name) const
{
    const auto form = Body->GetForm();
    // Without a window only what was chosen in it counts.
    if (form->GetGUI())
        form->ApplyConfiguration();
    if (form->GetConfigObject() && (form->GetConfigObject() != &store || form->GetConfigName() != name))
        SessionStore::Copy(*form->GetConfigObject(), form->GetConfigName(), store, name);
    SessionStore::PutValues(store, name, Document());
}

bool Session::Report(const QString &path, const QVariant &value, QString *error)
{
    return Body->Report(path, value, error);
}

bool Session::Report(const QVariantMap &values, QString *error)
{
    return Body->Report(values, error);
}

bool Session::TakeReported(const QString &path)
{
    const auto form = Body->GetForm();
    return form->TakeReported(path);
}

QVariant Session::Value(const QString &path, QString *error) const
{
    const KV218::OrbelDelegate *control = FindControl(*GetForm(), path, error);
    if (!control)
        return QVariant();
    const QVariant value = control->GetValue();
    if (!value.isValid() && error)
        *error = QStringLiteral("Parameter \"%1\" has no value").arg(path);
    return value;
}

bool Session::SetValue(const QString &path, const QVariant &value, QString *error)
{
    const auto form = Body->GetForm();
    KV218::OrbelDelegate *const control = FindControl(*form, path, error);
    if (!control)
        return false;
    const KV218::OrbelDelegate::Call call(control);
    const bool isRight = control->EnterValue(value, error);
    if (!isRight)
        NameInError(*control, error);
    return isRight;
}

QVector<ControlInfo> Session::Controls() const
{
    return ControlsOf(*GetForm());
}

QVector<Change> Session::Changes() const
{
    return ChangesOf(*GetForm());
}

QString Session::Document() const
{
    return GetForm()->GetXmlSnapshot(false);
}

void Session::SetDocument(const QString &document)
{
    const auto form = Body->GetForm();
    form->EnterXmlString(document);
}

void Session::Apply()
{
    const auto body = Body;
    body->Apply();
}

bool Session::Revert(const QString &path)
{
    const auto form = Body->GetForm();
    return form->Revert(path);
}

void Session::RevertAll()
{
    const auto form = Body->GetForm();
    form->RevertAll();
}

QUndoStack *Session::UndoStack() const
{
    return GetForm()->GetUndoStack();
}

void Session::Confirm(const QString &path)
{
    Body->Confirm(path);
}

void Session::Refuse(const QString &path, const QString &reason)
{
    Body->Refuse(path, reason);
}

void Session::SetAnswerTime(int milliseconds)
{
    Body->SetAnswerTime(milliseconds);
}

void Session::Lock(const QString &reason)
{
    Body->Lock(reason);
}

void Session::Unlock()
{
    Body->Lock(QString());
}

bool Session::IsLocked() const
{
    return Body->IsLocked();
}

void Session::SetScriptLimit(int milliseconds)
{
    Body->SetScriptLimit(milliseconds);
}

} // namespace Orbel
