#pragma once

#include "change.h"
#include "controlinfo.h"
#include "finding.h"
#include "sessionexport.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QVector>

#include <functional>
#include <memory>

class QSettings;
class QUndoStack;
class QWidget;

namespace KV218
{
class OrbelFormular;
}

namespace Orbel
{

class Session;
class SessionBody;

/// How a session opens its form.
struct SessionOptions {
    /// Whether there is a row with the apply button below the controls.
    bool ApplyRow = true;
    /// Where the nodes stand in the value tree; empty for a path that is free.
    QString NodePath;
    /// As Session::SetScriptLimit(), for the start of the script, too.
    int ScriptLimit = 0;
    /// Called with each new form, the first one and those of reloads, before it has nodes and before its script runs:
    /// to give it script values, or a debugger. May be empty.
    std::function<void(KV218::OrbelFormular &)> Prepare = {};
    /// Whether reloads take a definition with errors, too, as opening does, if only it is well-formed and has a form.
    bool ReloadsErrors = false;
};

/// What opening gave: the session, and all that the checker has to say of the definition, with places. Without a
/// session the findings hold at least one error, which tells why.
struct Opening {
    /// Null when there is no form to open.
    std::unique_ptr<Session> Opened;
    /// In the order of the file.
    QVector<Finding> Told;

    /// Whether there is a session.
    explicit operator bool() const { return Opened != nullptr; }
};

/// One form in a host: the definition, the window, what the device says, what the operator changed, and what became of
/// it. Controls are named by their parameter path, the slash-separated `parameterXmlTag`, as in parameter documents;
/// the element name alone will do where no path is equal to it.
///
/// Values are QVariant of the type that the control has: bool of a check box, int of a whole number, qint64 of a
/// frequency or a bandwidth in Hz, double of any other number, QString of a text, and of a choice the value text of its
/// row, as in documents. Lists give a QVariantList of their items, tables one of their cells by rows, a frequency range
/// one of start and stop in Hz, under the path of the widget. Texts that read as such a value are taken for it.
///
/// Any slot may end the session, its window, or both, in any signal of it. The session belongs to the GUI thread.
class ORBEL_SESSION_EXPORT Session : public QObject
{
    Q_OBJECT

public:
    /// Reads a definition in the encoding that it declares.
    static Opening OpenFile(const QString &path, const SessionOptions &options = SessionOptions());
    /// The bytes are decoded as their XML declaration says.
    static Opening OpenText(const QByteArray &document, const SessionOptions &options = SessionOptions());
    /// The definition of that name in a component list; the first one for an empty name.
    static Opening OpenComponent(
        const QByteArray &list, const QString &name, const SessionOptions &options = SessionOptions());
    /// The window stays where it has a parent, without a form behind it.
    ~Session() override;

    /// The widget to show, in which the form stands. It belongs to the session until it is given a parent; it may end
    /// before the session. Null then.
    QWidget *GetWidget() const;
    /// For what the session does not offer; never null. Reload() may replace it: do not keep it.
    KV218::OrbelFormular *GetForm() const;
    /// Where the nodes of the form stand in the value tree.
    QString GetNodePath() const;

    /// Takes text size, collapsed groups and values from `settings`, as far as Store() has put them there under
    /// `group`. The values count as applied.
    void Restore(QSettings &settings, const QString &group);
    /// The same with dynamic properties of any object: "NAME-fontsize", "NAME-collapsed" and "NAME-values". Text size
    /// and groups are kept there from then on, as the operator chooses them. The object may end before the session.
    void Restore(QObject &store, const QString &name);
    /// Puts text size, collapsed groups and values there: the keys "GROUP/fontsize", "GROUP/collapsed" and
    /// "GROUP/values", a parameter document. What the operator has changed is not applied by this.
    void Store(QSettings &settings, const QString &group) const;
    void Store(QObject &store, const QString &name) const;

    /// The device has this value now. It is shown without a mark; nothing is sent, nothing is applied, and it is what
    /// Revert() goes back to. Where the operator types, or has changed and not applied, his value stays; the control
    /// shows that the device differs and offers to take its value. While an answer to an applied change is awaited,
    /// only a report of that very value counts, and confirms it. False, with the reason in `error`, for an unknown path
    /// or a value that the control cannot have, which changes nothing.
    bool Report(const QString &path, const QVariant &value, QString *error = nullptr);
    /// Many at once, by path; those that are right are taken, and `error` tells of the first that is not.
    bool Report(const QVariantMap &values, QString *error = nullptr);
    /// Gives up the operator's value for the device's, as a change of the operator's that can be undone. False where
    /// the device does not differ, and for an unknown path.
    bool TakeReported(const QString &path);

    /// The value of now, without what is typed and not finished; invalid, with the reason in `error`, for an unknown
    /// path and for a control without one.
    QVariant Value(const QString &path, QString *error = nullptr) const;
    /// Puts a value as the operator would: it is marked, can be undone, and is applied with the next apply. False, with
    /// the reason in `error`, where Report() gives it.
    bool SetValue(const QString &path, const QVariant &value, QString *error = nullptr);
    /// In the order of the definition, with those that have no value.
    QVector<ControlInfo> Controls() const;

    /// What is changed and not applied, in the order of the changes. Changes nothing.
    QVector<Change> Changes() const;
    /// The parameter document of now, what is typed and not finished left out. Changes nothing.
    QString Document() const;
    /// Puts the values of a document, of a preset for instance, as one change of the operator's, which can be undone
    /// and is applied with the next apply.
    void SetDocument(const QString &document);
    /// Finishes what is being typed and applies it all.
    void Apply();
    /// Puts back the applied value, as a change of the operator's that can be undone. False where there is no change or
    /// it is not known what was applied, and for an unknown path.
    bool Revert(const QString &path);
    void RevertAll();
    /// The operator's changes, for a QUndoGroup of the host for instance. The same one after a Reload().
    QUndoStack *UndoStack() const;

    /// The device has taken an applied change.
    void Confirm(const QString &path);
    /// The device has not taken an applied change: the control goes back to what was applied before, unless the
    /// operator has gone on changing it, and is marked with the reason until its next change. The undo history stays.
    void Refuse(const QString &path, const QString &reason);
    /// How long an answer to an applied change may take, in milliseconds, before the control is marked as unconfirmed;
    /// 0, as at the start, awaits none.
    void SetAnswerTime(int milliseconds);

    /// Takes input away and tells the operator why, in the apply row, or in a note over the lower edge of the form
    /// where there is no row or no room in it. What auto apply would send waits. An empty reason is Unlock().
    void Lock(const QString &reason);
    void Unlock();
    bool IsLocked() const;

    /// Puts a new definition under the running form, at once or when the form is at rest; docs/reload.md tells what is
    /// kept. A session of a component takes a component list. Gives what the checker has to say; with an error among
    /// the findings nothing has changed, unless SessionOptions::ReloadsErrors says so. reloaded() follows.
    QVector<Finding> Reload(const QByteArray &document);
    /// Reloads whenever the file changes, be it replaced by another one or deleted and made again, once nobody writes
    /// into it; an empty path ends that. reloaded() tells of each, and when a file with errors is put back to what it
    /// was. A folder above the file that gets another name is not followed.
    void Watch(const QString &path);

    /// The longest that one run of the script may take, in milliseconds: it is ended then, which scriptFailed() tells;
    /// 0, the default, for no limit. Counts from the next run on.
    void SetScriptLimit(int milliseconds);

Q_SIGNALS:
    /// The operator has finished a change of the control, or undone one.
    void changed(const QString &path);
    /// The list of Changes() may be another one; once an event round.
    void changesChanged();
    /// The operator, the timer or Apply() asks for these to be sent; `document` is the parameter document of them. They
    /// count as applied. Not emitted without changes.
    void applied(const QVector<Orbel::Change> &changes, const QString &document);
    /// No answer came to the applied change of this control within the time.
    void unanswered(const QString &path);
    /// A new definition is in place, or has errors, and then nothing has changed. What it does not admit of what was
    /// kept is among the findings: value-not-kept.
    void reloaded(const QVector<Orbel::Finding> &findings);
    /// The script threw, when it was run at the start or in a handler, or took longer than it may. `line` counts from 1
    /// in the definition's file; `file` is empty for a definition that came from none. What happens while the session
    /// opens is notified when the event loop comes round.
    void scriptFailed(const QString &file, int line, const QString &text);

private:
    friend class SessionBody;

    explicit Session(const std::shared_ptr<SessionBody> &body);

    /// Never null. Kept by what runs inside of it.
    const std::shared_ptr<SessionBody> Body;
};

} // namespace Orbel

Q_DECLARE_METATYPE(Orbel::Finding)
