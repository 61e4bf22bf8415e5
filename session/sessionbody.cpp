#include "sessionbody.h"

#include "orbeldelegate.h"
#include "orbelformular.h"
#include "parameters.h"
#include "tree.h"

#include <QThread>
#include <QVBoxLayout>
#include <QWidget>

#include <utility>

namespace Orbel
{

using KV218::OrbelDelegate;
using KV218::OrbelFormular;

/// A path of the value tree that is free, and that no session has had before.
static QString NewNodePath()
{
    static int last = 0;
    QString path;
    do
        path = QStringLiteral("/Session%1").arg(++last);
    while (Tree::Instance()->GetNode(path) || !Tree::Instance()->GetChildNames(path).isEmpty());
    return path;
}

SessionBody::SessionBody(const Definition &definition, const SessionOptions &options)
    : Source(definition), Options(options), ConfigurationName(QStringLiteral("form"))
{
    if (Options.NodePath.isEmpty())
        Options.NodePath = NewNodePath();
    Configuration = &OwnConfiguration;
    connect(&Sent, &Answers::overdue, this, &SessionBody::TellOverdue);
}

SessionBody::~SessionBody() = default;

bool SessionBody::Build()
{
    const Form form = NewForm(Source);
    if (!form)
        return false;
    Holder = new QWidget;
    auto *layout = new QVBoxLayout(Holder);
    layout->setContentsMargins(0, 0, 0, 0);
    form->CreateValueTree(Options.NodePath);
    form->CreateGUI(Options.ApplyRow);
    Bind(form);
    return true;
}

std::unique_ptr<Session> SessionBody::MakeOwner()
{
    return std::unique_ptr<Session>(new Session(shared_from_this()));
}

SessionBody::Form SessionBody::NewForm(const Definition &definition)
{
    const Form form = definition.Parse();
    if (!form)
        return form;
    form->SetScriptLimit(Options.ScriptLimit);
    connect(form.data(), &OrbelFormular::si_scriptFailed, this, &SessionBody::TellScript);
    if (Options.Prepare)
        Options.Prepare(*form);
    return form;
}

void SessionBody::Bind(const Form &form)
{
    if (Bound && Bound != form)
        Bound->disconnect(this);
    Bound = form;
    connect(
        form.data(), &OrbelFormular::si_parametersModified, this, &SessionBody::AnnounceLater, Qt::UniqueConnection);
    connect(form.data(), &OrbelFormular::si_edited, this, &SessionBody::TellEdited, Qt::UniqueConnection);
    connect(form.data(), &OrbelFormular::si_changesChanged, this, &SessionBody::TellChanges, Qt::UniqueConnection);
    QWidget *const gui = form->GetGUI();
    if (Holder && gui && gui->parentWidget() != Holder)
        Holder->layout()->addWidget(gui);
    form->SetConfigObject(Configuration, ConfigurationName);
    form->SetLockReason(LockReason);
    KeepLock(form);
}

void SessionBody::Close()
{
    const auto self = shared_from_this();
    Owner = nullptr;
    if (Bound)
        Bound->disconnect(this);
    const Form ending = std::exchange(Bound, Form());
    QWidget *const window = Holder && !Holder->parent() ? Holder.data() : nullptr;
    if (!window)
        return;
    // One of its events may be what ends the session; so long as no event loop runs, a slot may.
    const bool isCalled = self.use_count() > 2;
    if (QThread::currentThread()->loopLevel() == 0 && !isCalled) {
        delete window;
        return;
    }
    window->hide();
    window->deleteLater();
}

bool SessionBody::Report(const QString &path, const QVariant &value, QString *error)
{
    const auto self = shared_from_this();
    OrbelDelegate *const control = FindControl(*Bound, path, error);
    if (!control)
        return false;
    const OrbelDelegate::Call call(control);
    const bool waits = Sent.IsAnyAwaited() && WaitsForAnswer(*control, value, error);
    if (waits || control->Report(value, error))
        return true;
    NameInError(*control, error);
    return false;
}

bool SessionBody::Report(const QVariantMap &values, QString *error)
{
    const auto self = shared_from_this();
    bool isRight = true;
    for (auto value = values.begin(); value != values.end() && Bound; ++value)
        isRight &= Report(value.key(), *value, isRight ? error : nullptr);
    return isRight;
}

/// While the device has not answered, what it reports may be older than what was sent; what was sent is the answer.
bool SessionBody::WaitsForAnswer(OrbelDelegate &control, const QVariant &value, QString *error)
{
    Answers::Sent *const sent = Sent.Find(control.GetXmlPath());
    QVariantList edits;
    if (!sent || !control.EditsOf(value, &edits, error))
        return false;
    if (control.ValueOf(edits) == sent->New) {
        Confirm(control.GetXmlPath());
        return false;
    }
    sent->Reported = value;
    return sent->IsAwaited();
}

void SessionBody::Confirm(const QString &path)
{
    const auto self = shared_from_this();
    OrbelDelegate *const control = Bound ? FindControl(*Bound, path, nullptr) : nullptr;
    if (!control)
        return;
    Sent.Take(control->GetXmlPath());
    control->SetAnswer(RowLabel::None, QString());
}

void SessionBody::Refuse(const QString &path, const QString &reason)
{
    const auto self = shared_from_this();
    OrbelDelegate *const control = Bound ? FindControl(*Bound, path, nullptr) : nullptr;
    if (!control)
        return;
    const OrbelDelegate::Call call(control);
    const Answers::Sent sent = Sent.Take(control->GetXmlPath());
    const QVariant stands = sent.Reported.isValid() ? sent.Reported : sent.Old;
    if (stands.isValid())
        control->Report(stands);
    control->SetAnswer(RowLabel::Refused, reason);
}

void SessionBody::TellOverdue(const QStringList &paths)
{
    const auto self = shared_from_this();
    for (const QString &path : paths) {
        OrbelDelegate *const control = Bound ? FindControl(*Bound, path, nullptr) : nullptr;
        const Answers::Sent *sent = Sent.Find(path);
        if (!control || !sent)
            continue;
        const OrbelDelegate::Call call(control);
        const QVariant reported = sent->Reported;
        control->SetAnswer(RowLabel::Unconfirmed, QString());
        if (reported.isValid())
            control->Report(reported);
        if (Owner)
            Q_EMIT Owner->unanswered(path);
    }
}

void SessionBody::Apply()
{
    const auto self = shared_from_this();
    const Form form = Bound;
    form->FinishEditing();
    form->applyNow();
    Announce();
}

/// Not from within the control that asks for it: a slot may end it all, and what one act changes goes together.
void SessionBody::AnnounceLater()
{
    IsDue = true;
    if (!std::exchange(IsOnItsWay, true))
        QMetaObject::invokeMethod(
            this,
            [this] {
                IsOnItsWay = false;
                Announce();
            },
            Qt::QueuedConnection);
}

void SessionBody::Announce()
{
    const auto self = shared_from_this();
    if (!IsDue || IsLocked() || !Owner)
        return;
    IsDue = false;
    const Form form = Bound;
    form->DropUnchanged();
    const QVector<Change> changes = ChangesOf(*form);
    if (changes.isEmpty()) {
        // The next change is to be notified again.
        form->GetSheet().resetModified();
        return;
    }
    const QString document = form->GetXmlString(true);
    Sent.Await(changes);
    if (Owner)
        Q_EMIT Owner->applied(changes, document);
}

void SessionBody::TellEdited(const QString &path)
{
    const auto self = shared_from_this();
    if (Owner)
        Q_EMIT Owner->changed(path);
}

void SessionBody::TellChanges()
{
    const auto self = shared_from_this();
    if (Owner)
        Q_EMIT Owner->changesChanged();
}

/// When the script has come to its end, and whoever opens the session could connect.
void SessionBody::TellScript(int line, const QString &text)
{
    const int place = line > 0 ? Source.LineOfScript(line) : 0;
    const auto tell = [this, place, text] {
        const auto self = shared_from_this();
        if (Owner)
            Q_EMIT Owner->scriptFailed(Source.GetFile(), place, text);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void SessionBody::Lock(const QString &reason)
{
    const auto self = shared_from_this();
    const Form form = Bound;
    const bool wasLocked = IsLocked();
    LockReason = reason;
    form->SetLockReason(reason);
    if (wasLocked != IsLocked())
        form->EnableInput(!IsLocked());
    if (!IsLocked() && IsDue)
        AnnounceLater();
}

void SessionBody::SetScriptLimit(int milliseconds)
{
    Options.ScriptLimit = milliseconds;
    Bound->SetScriptLimit(milliseconds);
}

void SessionBody::ShowStored(const QString &document)
{
    const auto self = shared_from_this();
    if (Bound && !document.isEmpty())
        Bound->SetXmlString(document);
}

void SessionBody::SetConfiguration(QObject *object, const QString &name)
{
    const auto self = shared_from_this();
    Configuration = object;
    ConfigurationName = name;
    if (const Form form = Bound) {
        form->SetConfigObject(object, name);
        form->RestoreConfiguration();
        KeepLock(form);
    }
}

/// A configuration object may say otherwise.
void SessionBody::KeepLock(const Form &form) const
{
    if (IsLocked())
        form->EnableInput(false);
}

} // namespace Orbel
