#pragma once

#include "iobserver.h"
#include "orbelenum.h"
#include "orbelexport.h"
#include "orbelscript.h"
#include "orbelsheet.h"

#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QObject>
#include <QScriptValue>

#include <cstddef>
#include <type_traits>

class QStringList;
class QUndoStack;
class QXmlStreamReader;
class ValueBase;
class ValueSelection;

namespace KV218
{

class FormBody;
template <class Body> class Running;

/// One form: enumerations, the sheet with its controls, the script and its engine, and the link to the value tree and
/// to the host's configuration object. Shared through QExplicitlySharedDataPointer, or deleted by whoever holds it
/// alone.
///
/// Use it in one order: parse, CreateValueTree(), CreateGUI(), show GetGUI(). The widget is not deleted with the form:
/// it belongs to its parent, or to whoever shows it. Either may go first.
///
/// Any handler may end the form: of its signals and its controls' signals, of a node, a script, an event, in an event
/// loop of its own. At once its nodes leave the tree, its name is withdrawn and it emits nothing more; what a call
/// that still runs works on lives on until that call has returned.
///
/// All of it belongs to the GUI thread. Bad input is never reported: a lookup that fails gives null, -1 or an empty
/// object, and a malformed document leaves what was read of it.
class ORBEL_EXPORT OrbelFormular : public QObject, public QSharedData
{
    Q_OBJECT

public:
    OrbelFormular();
    ~OrbelFormular() override;

    /// The form's name and translation catalogue; empty after parsing. An earlier name stays registered.
    const QString &GetName() const;
    void SetName(const QString &name);
    /// The definition's `version`, as it stands.
    const QString &GetVersion() const;
    /// The path that CreateValueTree() was given.
    const QString &GetVTPath() const;
    OrbelSheet &GetSheet();
    const OrbelSheet &GetSheet() const;
    OrbelScript &GetScript();
    const OrbelScript &GetScript() const;
    /// The widget to show; null before CreateGUI(). The text size that the operator picks is set on its parent, and
    /// takes the place of the parent's whole style sheet: put it into a plain QWidget of its own.
    QWidget *GetGUI() const;

    /// Reads the `ZkParamGui` element on which `reader` stands.
    void ParseORBEL(QXmlStreamReader &reader);
    /// Patches the form with a changed definition: enumerations, properties of widgets that exist, and the script,
    /// which does not run. Then brings the nodes in line.
    void SetChangedORBEL(const QString &text);
    void ProcessChangedORBEL(QXmlStreamReader &reader);

    /// The enumeration of that name; for an unknown one the form's one empty enumeration, never null.
    QExplicitlySharedDataPointer<OrbelEnum> GetEnum(const QString &name) const;
    bool HasEnum(const QString &name) const;
    /// Rewrites an enumeration from a selection's items. The value texts come from `identifiers`, and where that is
    /// null or too short from the items' values with two decimals. Unknown names and a null selection are ignored.
    void InitEnumeration(const QString &name, ValueSelection *selection, const QStringList *identifiers);

    /// Makes the controls' nodes under `path`, then runs the form's script. Called again it keeps the nodes and what is
    /// bound to them, moves them if the path is another one, and runs the script again. A path belongs to one form:
    /// where another node stands, the control gets none, and a trace tells.
    void CreateValueTree(const QString &path);
    /// Builds all controls, below them an apply row if wanted, and restores the configuration. Does nothing while the
    /// window exists; once that was deleted, builds a new one.
    void CreateGUI(bool applyUi);
    /// Builds the controls whose name or element name stands in `names`, or with `exclude` the others; those left out
    /// also leave the parameter document.
    void CreateGUI(bool applyUi, const QStringList &names, bool exclude);
    /// Show and hide the widget; nothing while there is none.
    void Show();
    void Hide();

    /// Puts this form, which must be freshly parsed, in the place of `former`, which ends by it: its path, its name,
    /// and its window, if it has one: GetGUI() is the same widget then, with other controls in it. What a script or a
    /// host then makes of it: docs/reload.md. By the names of widgets whose class is the same it takes over values that
    /// anybody has set, changes that were not applied and their marks, texts that are being typed, focus, selections,
    /// the place to which it was scrolled, collapsed groups, locks, the undo stack, the host's own controls and the
    /// values of SetScriptValue(), and configuration object. Nothing is announced or applied by that.
    ///
    /// `former` stays the caller's, as a form that has ended; what is connected to it hears no more, and its nodes have
    /// gone. `told`, which may be null, gets in the operator's words which values this form does not admit, and what
    /// it has made of them. False, and nothing has changed, where one of the forms is null, used or ended, or when
    /// `former` is not at rest.
    bool TakeOver(OrbelFormular *former, QStringList *told = nullptr);
    /// Whether another form may take this one's place now: no handler of it runs, nor an event loop of one, no menu or
    /// list of it is open, and the operator holds nothing of it by the mouse.
    bool IsAtRest() const;

    /// Emits the sheet's si_parametersModified() if there is a pending change.
    void applyNow();
    /// Commits whatever the operator is typing into a control, as leaving the control does. Neither applyNow() nor
    /// GetXmlString() does so by itself: a host that fetches a document in its own time calls this before.
    void FinishEditing();
    /// The operator's finished changes, 1000 at most, for a QUndoGroup or actions of the host; never null. It belongs
    /// to the form and goes some time after it. An entry undone puts back the values that stand as its change left
    /// them, with signals and mark as if the operator had, and leaves alone what host or script have set since. One
    /// that finds nothing to put back is dropped, so that such an undo() changes nothing; one whose control is locked
    /// keeps its place and is passed over. The text of an entry is the element's name; when the event loop comes round
    /// it names label and values, and undoTextChanged() is emitted. Do not change the stack from within its own signals
    /// or from a handler that an undo has called; for a handler of a change, that one is not on the stack yet, and an
    /// undo() of the one before it changes nothing. While commands of the host's own are on the stack, changes come
    /// onto it when the event loop comes round, in which no handler waits: such a command may have an event loop. What
    /// the operator undoes before, in a dialog that a handler has opened for instance, cannot be redone.
    QUndoStack *GetUndoStack() const;
    void SelectWidgets(const QStringList &paths, bool select);
    void ShowGroup(const QString &name, bool show);
    /// Locks or frees the operator's input as a whole.
    void EnableInput(bool enable);
    bool IsInputEnabled() const;

    /// The parameter document, without an XML declaration; it counts as applied by this. With `onlyModified` just what
    /// changed, and an empty string when nothing did.
    QString GetXmlString(bool onlyModified);
    /// The root element of the parameter document alone.
    QString GetEmptyXmlElement() const;
    /// Reads parameter documents into the controls; nothing becomes modified by it. Other root elements pass unread.
    void SetXmlString(const QString &xml);

    /// The same document as GetXmlString() gives, and nothing is applied by it: all that is modified stays so.
    QString GetXmlSnapshot(bool onlyModified) const;

    // What Orbel::Session is made of. Controls are named by parameter path, or by element name as for GetVTValue();
    // their values are those of OrbelDelegate::GetValue(). False is given for an unknown control, too.

    /// The device has this value now: see OrbelDelegate::Report().
    bool Report(const QString &path, const QVariant &value, QString *error = nullptr);
    /// Puts a value as the operator would: marked, recorded, to be applied. False, with the reason in `error`, for a
    /// value that the control cannot have.
    bool Enter(const QString &path, const QVariant &value, QString *error = nullptr);
    /// Reads parameter documents as SetXmlString() does, but as one change of the operator's: what has another value by
    /// it is marked, recorded, and to be applied.
    void EnterXmlString(const QString &xml);
    /// Gives up what the operator has changed, or is typing, for what the device has, as a change of the operator's.
    /// False where the device does not differ.
    bool TakeReported(const QString &path);
    /// Puts back what was applied last, as a change of the operator's. False where that is not known, stands already,
    /// or the control is locked.
    bool Revert(const QString &path);
    void RevertAll();
    /// The paths of the controls with changes that wait to be applied, in the order of the changes. A value that was
    /// put back is no change.
    QStringList GetChanged() const;
    /// Forgets that those are modified whose applied value stands again. So they do not go into the next document.
    void DropUnchanged();
    /// Why the input is locked, for the operator: it stands in the apply row, or in a note over the lower edge of the
    /// form where that has no room or is not there. Empty for nothing.
    void SetLockReason(const QString &reason);
    /// The longest that one run of the script may take, in milliseconds; it is ended then. 0, as at the start, for no
    /// limit. A debugger ends the limit.
    void SetScriptLimit(int milliseconds);

    /// The node of the control with that parameter path or element name; owned by the control; null without one.
    ValueBase *GetVTValue(const QString &name) const;
    /// Copies a control's value into the application's `local`, found by its name unless `source` is given. With `init`
    /// limits and items too, and an empty text when there is no such control. `observer` is not notified.
    /// Returns the node read, null without one.
    ValueBase *GetVTValue(ValueBase *local, IObserver *observer, bool init, ValueBase *source = nullptr);
    /// The same for many values, from the last to the first.
    void GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init);
    /// Copies the application's value into the control of the same name; with `apply` then emits
    /// si_parametersModified() if the form is modified. True when the control's text was another one before the call.
    bool SetVTValue(ValueBase *local, IObserver *observer, bool apply);
    bool SetVTValue(const QString &name, const QString &value, IObserver *observer, bool apply);
    /// Gives a control the limits and step, or the items, of the application's value, not the value itself. Exceptions
    /// of the nodes end here, with a trace.
    void InitVTValue(const QString &name, ValueBase *value);
    /// Copies limits, step and value, or the items, between nodes of one type.
    static void InitVTValue(ValueBase *destination, ValueBase *source, IObserver *observer);

    /// The configuration object, which may be null, stays the host's; `name` is the prefix of this form's keys.
    void SetConfigObject(QObject *object, const QString &name);
    QObject *GetConfigObject() const;
    const QString &GetConfigName() const;
    /// Saves text size and collapsed groups.
    void ApplyConfiguration();

    /// Runs a text in the form's engine. The result is dropped; an exception is not reported.
    void EvaluateScript(const QString &text);
    /// Makes or replaces a global of the form's script. Objects stay the caller's.
    void SetScriptValue(const QString &name, QObject *object);
    void SetScriptValue(const QString &name, bool value);
    void SetScriptValue(const QString &name, double value);
    void SetScriptValue(const QString &name, const QString &value);
    /// In UTF-8. Without this one a literal would count as a bool.
    void SetScriptValue(const QString &name, const char *value);
    void SetScriptValue(const QString &name, std::nullptr_t) { SetScriptValue(name, static_cast<QObject *>(nullptr)); }
    /// Any whole number; scripts know numbers as double alone.
    template <class Whole, std::enable_if_t<std::is_integral_v<Whole> && !std::is_same_v<Whole, bool>, int> = 0>
    void SetScriptValue(const QString &name, Whole value)
    {
        SetScriptValue(name, static_cast<double>(value));
    }
    /// All valid globals of the script, the language's own among them.
    QMap<QString, QScriptValue> GetScriptValues() const;
    /// Names the file of the definition for debuggers and for exceptions as scripts see them. These count lines as the
    /// file does from then on, where they count those of the script otherwise. Must come before CreateValueTree().
    void SetScriptFile(const QString &name);
    /// Attaches a debugger that stops at the next statement; once.
    void DebugScript();

public Q_SLOTS:
    /// Loads text size, collapsed groups and the lock of input from the configuration object. CreateGUI() does so
    /// before the form has a parent: a text size that the parent's style sheet states then counts until this is called.
    void RestoreConfiguration();

Q_SIGNALS:
    /// There are parameters to fetch with GetXmlString().
    void si_parametersModified();
    /// The operator has finished a change of the control at that parameter path, or undone one. A slot may end the
    /// form.
    void si_edited(const QString &path);
    /// The undo stack, the list of GetChanged() or what the device says may be another one; once an event round.
    void si_changesChanged();
    /// The script threw, at the start or in a handler of a signal, or took longer than it may. `line` counts from 1 in
    /// the script; 0 where that is not known.
    void si_scriptFailed(int line, const QString &text);

protected:
    void connectNotify(const QMetaMethod &signal) override;

private Q_SLOTS:
    void sl_fontSize(int size);

private:
    friend class FormBody;

    OrbelFormular(const OrbelFormular &);

    /// What may call handlers goes through this, since one of them may end the form.
    Running<FormBody> Run() const;

    /// Never null.
    FormBody *const Body;
};

} // namespace KV218
