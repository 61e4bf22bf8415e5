#pragma once

#include "callsite.h"
#include "rowlabel.h"
#include "testsupportexport.h"

#include <memory>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <type_traits>
#include <vector>

namespace KV218
{
class OrbelDelegate;
class OrbelFormular;
} // namespace KV218

namespace Orbel
{

/// An operator at a form that is shown: clicks, types, and tells what is to be read. It works on any form, that of a
/// session (FormTest) or of the bare classes, under any platform plug-in.
///
/// Controls are named by parameter path, "Rx/Gain", by the name of the element alone, by the widget's name in the
/// definition, or by the object name of a widget in the form, such as "applyButton". An index behind it names a part,
/// counted from 0: "Shifts[1]" the second item of a list, "Band[0]" the start of a range, "Table[2,1]" the second cell
/// of the third row; "Table[2]" is its first cell.
///
/// What cannot be done fails the test at the line that asked for it (FailTest()), with the reason: an unknown control,
/// with the nearest name, or one that the operator cannot reach, since it is hidden, locked, read-only or behind a
/// dialog. The act is then left out, and a question gives an empty answer.
///
/// An act returns when all that is posted has come. Timers have not gone off: nothing is applied by itself.
class ORBEL_TESTSUPPORT_EXPORT FormOperator
{
public:
    /// The form stays the caller's, and may end before.
    explicit FormOperator(KV218::OrbelFormular *form);
    FormOperator(const FormOperator &) = delete;
    FormOperator &operator=(const FormOperator &) = delete;
    virtual ~FormOperator();

    /// Gives the control the focus.
    void Focus(const QString &path, const CallSite &at = CallSite::Here());
    /// Clicks where a click has its effect: at the box of a check box or a headline. A cell is only selected.
    void Click(const QString &path, const CallSite &at = CallSite::Here());
    /// Types over all that the field or the cell holds. The edit is not finished.
    void Type(const QString &path, const QString &text, const CallSite &at = CallSite::Here());
    /// The same, finished by Return.
    void Enter(const QString &path, const QString &text, const CallSite &at = CallSite::Here());
    /// Chooses the item that reads so in the list of a combo box.
    void Choose(const QString &path, const QString &text, const CallSite &at = CallSite::Here());
    /// Clicks a check box, a headline or another button with two states, unless it has that state.
    void Check(const QString &path, bool on = true, const CallSite &at = CallSite::Here());
    /// Gives the control the focus and turns the wheel by that many notches; above 0 is up.
    void Wheel(const QString &path, int notches, const CallSite &at = CallSite::Here());
    /// Presses keys, one after the other with blanks between them, as "Up", "Tab", "Escape", "Ctrl+Z", in what has the
    /// focus: an open menu or list, the form, or else its window.
    void Press(const QString &keys, const CallSite &at = CallSite::Here());
    /// Chooses the entry that begins so in the menu that is open.
    void ChooseEntry(const QString &text, const CallSite &at = CallSite::Here());
    /// Types a text where the focus is, behind what stands there.
    void TypeOn(const QString &text, const CallSite &at = CallSite::Here());
    /// The form's keys for these: undo and redo the last change, and apply all.
    void Undo(const CallSite &at = CallSite::Here());
    void Redo(const CallSite &at = CallSite::Here());
    void Apply(const CallSite &at = CallSite::Here());

    /// What is to be read in the control: the text of a field with its unit, of a button or a cell, the choice of a
    /// combo box.
    QString Shown(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// Whether a check box or another button is on, and the group of a headline expanded.
    bool IsChecked(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// The texts of a combo box, in order.
    QStringList Choices(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// The text of the row label; empty without one.
    QString Label(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// The mark at the row label; None without one.
    RowLabel::Mark Mark(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// What the operator is told who rests the mouse on the row label, or on the control where it has none: tooltip,
    /// value of the device, reason of a refusal; as plain text.
    QString ToolTip(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// The line at the field that tells what it makes of a text that is being typed; empty for none.
    QString Note(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// The entries of the menu that is open; none without one.
    QStringList Entries() const;
    /// Whether the control is on the screen, as far as it was scrolled to: neither hidden nor in a collapsed group.
    bool IsShown(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// Whether the operator could change it: it is shown, and neither disabled nor locked nor read-only.
    bool CanEdit(const QString &path, const CallSite &at = CallSite::Here()) const;
    /// The name of the control with the focus: its parameter path, or the object name of another widget. Empty where
    /// nothing in the form has it.
    QString Focused() const;

    /// The widget of a control, or of a part of it, for what is not offered here. Never null: where there is none the
    /// test fails, and this gives an empty stand-in of the class that no one sees.
    template <class Widget = QWidget> Widget *Find(const QString &path, const CallSite &at = CallSite::Here()) const
    {
        static_assert(std::is_default_constructible_v<Widget>, "name a class of which an object can be made");
        if (QWidget *const found = FindAny(path, at)) {
            if (auto *const widget = qobject_cast<Widget *>(found))
                return widget;
            FailClass(path, *found, Widget::staticMetaObject.className(), at);
        }
        auto *const standIn = new Widget;
        StandIns.emplace_back(standIn);
        return standIn;
    }
    /// The names that Find() knows of controls: parameter paths, in the order of the definition.
    QStringList Paths() const;

protected:
    /// The form of now; null when it has ended.
    virtual KV218::OrbelFormular *GetForm() const;
    /// The parameter path of the control of that name; the name itself where there is none.
    QString PathOf(const QString &name) const;

private:
    /// A control or another widget, and the part of it that was named.
    struct Target;

    Target Look(const QString &path, const CallSite &at) const;
    Target Reach(const QString &path, const CallSite &at, bool edits = false) const;
    QWidget *FindAny(const QString &path, const CallSite &at) const;
    KV218::OrbelDelegate *FindControl(const QString &name) const;
    QWidget *KeysGoTo(const CallSite &at) const;
    void PressInForm(const QString &keys, const CallSite &at);
    static void FailClass(const QString &path, const QWidget &found, const char *wanted, const CallSite &at);

    const QPointer<KV218::OrbelFormular> Bare;
    mutable std::vector<std::unique_ptr<QWidget>> StandIns;
};

} // namespace Orbel
