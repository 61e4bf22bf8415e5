#pragma once

#include "formsource.h"
#include "propertyorigins.h"
#include "session.h"

#include <QObject>
#include <QPointer>
#include <QTime>
#include <QTimer>

#include <functional>
#include <memory>

class QScriptEngine;

namespace KV218
{
class OrbelDelegate;
}

namespace Orbel
{

/// What all parts of the studio work on: one form, its source, what is wrong with both, and which control they speak
/// of. The parts know this and not each other.
class Workbench : public QObject
{
    Q_OBJECT

public:
    /// An exception of the form's script.
    struct Failure {
        QTime Time;
        /// In the file; 0 where it is not known.
        int Line;
        QString Text;
    };

    /// A component list where the name does not end in ".orbel"; then of the component of that name, the first one for
    /// an empty name.
    explicit Workbench(const QString &file, const QString &component = QString());
    ~Workbench() override;

    /// Opens the form and watches its file. A file without a form is read again until there is one.
    void Open();
    /// Null while there is no form.
    Session *GetSession() const { return Opened.get(); }
    KV218::OrbelFormular *GetForm() const { return Opened ? Opened->GetForm() : nullptr; }
    /// The engine of the newest form's script, which may have just begun; null without a form.
    QScriptEngine *GetEngine() const;

    const QString &GetFile() const { return File; }
    /// Behind `orbel`, for another studio of the same form.
    QStringList GetStartArguments() const;
    /// Another session of the same definition, without a window on the screen, and with the values of now.
    Opening OpenCopy() const;
    bool IsList() const { return !File.endsWith(QLatin1String(".orbel")); }
    const FormSource &GetSource() const { return Source; }
    PropertyOrigins &GetOrigins() { return Origins; }
    /// Whether the form is that of the file; false while the file has none that can be read.
    bool ShowsFile() const { return Shows; }
    /// The definition that is shown; empty for one of a component list.
    QByteArray GetDefinition() const { return IsList() ? QByteArray() : Document; }
    /// What the checker says, and what the script threw since the form was made.
    const QVector<Finding> &GetFindings() const { return Told; }
    const QVector<Failure> &GetFailures() const { return Failures; }

    /// The first control of a name; null for none.
    KV218::OrbelDelegate *FindControl(const QString &name) const;
    /// Speaks of a control from now on, by its name; empty for none.
    void Pick(const QString &name);
    /// The same by a parameter path.
    void PickPath(const QString &path);
    const QString &GetPicked() const { return Picked; }

    /// Makes the form anew; what live reload keeps stays.
    void Restart();
    /// Attaches a debugger to the engine of each new form before its script runs; gets the text of the definition, too.
    using Attacher = std::function<void(QScriptEngine &engine, const QString &text)>;
    /// May be empty for none; who has attached one detaches it. Restarts.
    void SetDebugger(const Attacher &attach);
    /// Whether a script or something that the form does is on the stack.
    bool IsScriptRunning() const;
    /// Ends the script that runs.
    void EndScript();
    /// Asks for the file in an editor.
    void Edit(int line) { Q_EMIT editWanted(line); }

Q_SIGNALS:
    /// There is another form, or another definition.
    void formChanged();
    /// What is wrong has changed.
    void findingsChanged();
    void picked(const QString &name);
    void editWanted(int line);
    /// As those of the session.
    void applied(const QVector<Orbel::Change> &changes, const QString &document);
    void changesChanged();

private:
    void OpenLater();
    void Prepare(KV218::OrbelFormular &form);
    void Connect();
    void TakeReloaded(const QVector<Finding> &findings);
    void Fail(int line, const QString &text);
    void ReadSource();

    const QString File;
    const QString Component;
    std::unique_ptr<Session> Opened;
    QByteArray Document;
    FormSource Source;
    PropertyOrigins Origins;
    QVector<Finding> Told;
    QVector<Failure> Failures;
    QString Picked;
    QPointer<QScriptEngine> Engine;
    Attacher Attach;
    bool Shows = false;
    QTimer Retry;
};

} // namespace Orbel
