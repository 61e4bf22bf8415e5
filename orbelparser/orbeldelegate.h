#pragma once

#include "applymode.h"
#include "face.h"
#include "formlife.h"
#include "iobserver.h"
#include "orbelexport.h"
#include "owntooltips.h"
#include "propertykey.h"
#include "rowlabel.h"
#include "value.h"
#include "valuenumeric.h"
#include "xmlplace.h"

#include <memory>
#include <optional>
#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <utility>

class FloatGroupLayout;
class IValueNumeric;
class QXmlStreamReader;
class QXmlStreamWriter;
class ValueSelection;
template <class T> class ValuePtr;

namespace KV218
{

class DeviceNote;
class FormDoor;
class OrbelEnum;
class OrbelWidget;

/// The base of all controls of a form. A delegate holds a control's configuration in dynamic properties: definition,
/// script and library set the same named properties, and PropertyChanged() turns each change into behaviour. It exists
/// before its Qt control, which takes the properties over when it is made.
///
/// Three stores of named values are kept apart: dynamic properties, the main one; the names among them that are
/// forwarded to the Qt control (DefineProperty()); and custom properties, which never reach the control and never run
/// PropertyChanged().
///
/// Any handler that is called from in here may end the form. The delegate then lives on until the calls that run inside
/// of it have returned: its events, its notifications and its sets of properties keep it, and whatever else goes on
/// after it has called somebody begins with a Call. What it still asks of its form is harmless.
///
/// A plain OrbelDelegate is a valid control that shows at most a label. All of it belongs to the GUI thread.
class ORBEL_EXPORT OrbelDelegate : public QObject, public IObserver
{
    Q_OBJECT

public:
    /// `widget` is the element that owns this delegate; not owned; null for the sheet's own delegate.
    explicit OrbelDelegate(OrbelWidget *widget);
    ~OrbelDelegate() override;

    /// Makes the control's nodes under the path that SetVTPath() set. Called once, before any control exists.
    virtual void CreateValueTree();
    /// Brings the node in line with a changed definition.
    virtual void ResyncValueTree();
    /// Has the value property state what the node holds, where that is another value than it was given: no signal, no
    /// mark. The base has no value property.
    virtual void TakeNode() { }
    /// Commits what the operator is still typing, in every face of the control. The base does what the slot
    /// forceFinishEditing() does.
    virtual void FinishEditing() { forceFinishEditing(); }
    /// Adds the row label, when there is a `labelText`, and the control to `layout`. Controls belong to the layout's
    /// parent widget.
    virtual void CreateGUI(FloatGroupLayout *layout);
    /// Writes the control's parameter element, or nothing when `generateParameterXml` is not true.
    virtual void GetXml(QXmlStreamWriter &writer) const;
    /// Reads the parameter element on whose start `reader` stands, up to and including its end.
    virtual void ReadXml(QXmlStreamReader &reader);
    /// The control's main node; owned by the delegate; null when it has none.
    virtual ValueBase *GetVTValue() const;
    /// Reads property elements from just inside the element on which `reader` stands, to the first end tag that no
    /// `Property` consumes. `custom` puts them into the custom store instead.
    virtual void ParseProperties(QXmlStreamReader &reader, bool custom);
    /// The widgets by which the operator meets the control, for assistive tools; a widget that is gone is null. The
    /// base has none.
    virtual QVector<Face> GetFaces() const { return {}; }
    /// The row label; null without `labelText` and before CreateGUI().
    RowLabel *GetRowLabel() const { return Label; }
    /// Locks or frees the operator's input. `partial` leaves a control's secondary part alone, where it has one.
    virtual void EnableInput(bool enable, bool partial);
    /// Passes a node's notification to NodeChanged().
    void Update(Observable *subject, TChangeCode code) final;

    /// Sets a property that differs, and returns whether it did. Numbers differ when any digit does.
    bool ChangeProperty(const PropertyKey &name, const QVariant &value);
    /// Sets a property, equal or not, and runs PropertyChanged() in every case. An invalid value removes the property.
    void SetPropertyAlways(const PropertyKey &name, const QVariant &value);
    /// Lets a property reach the control, or keeps it back: then the control is given `disabledValue` (unless null) and
    /// the property itself keeps its value for later.
    void EnableProperty(const QString &name, bool enable, const QVariant *disabledValue);

    /// Typed reading of a property. The default counts for a property that is absent or does not convert; for a text
    /// also for an empty one.
    bool GetBool(const PropertyKey &name, bool defaultValue) const;
    int GetInt(const PropertyKey &name, int defaultValue) const;
    qint64 GetInt64(const PropertyKey &name, qint64 defaultValue) const;
    quint64 GetUInt64(const PropertyKey &name, quint64 defaultValue) const;
    double GetDouble(const PropertyKey &name, double defaultValue) const;
    QString GetString(const PropertyKey &name, const QString &defaultValue) const;
    /// The property's text in the operator's language, in the translation context of the object name.
    QString GetTranslated(const PropertyKey &name) const;

    /// The property; on where none is stated.
    bool isEnabled() const;
    /// False while the group of this control is collapsed.
    bool isGroupVisible() const { return GroupVisible; }
    /// Whether there is a change that no parameter document has carried yet.
    bool isModified() const { return Modified; }
    /// Whether the operator sees such a change: a value that was put back to the applied one is none.
    bool IsChanged() const;
    /// What was applied last, in the places of GetEdits(), where values that have come since stand as they are. Nothing
    /// while that is not known, when the places are others now, and for a control that is not modified.
    std::optional<QVariantList> GetApplied() const;
    /// Shows the mark of such a change at the row label, or what the device says, which counts for more.
    void ShowChanged(bool changed);

    /// The values that the operator changes by this control. The base gives the texts of the nodes.
    virtual QVariantList GetEdits() const;
    /// What the places of these values depend on; with another one they are other values. The base counts nodes, of
    /// which one that is withdrawn leaves its place to the next.
    virtual int GetEditShape() const { return GetNodes().size(); }
    /// Puts such values as if the operator had: nodes, property, signals and mark follow. Those that stand are left
    /// alone.
    virtual void PutEdits(const QVariantList &values);
    /// The same to undo or redo a change. What a control that is not modified holds is what was applied. Gives what the
    /// values have become; when the operator changed them while handlers heard of it, what they had become by then.
    QVariantList MoveEdits(const QVariantList &values);
    /// Has the form record what the operator has changed so far, while handlers hear of it.
    void RecordSoFar();
    /// Whether a change of the operator's is on its way, of which handlers hear.
    bool IsBeingChanged() const { return Act || OpenChange; }
    /// Such a value, and a change of them, in the operator's words: "Frequency: 145.500 MHz → 146.000 MHz".
    virtual QString SpellEdit(int index, const QVariant &value) const;
    QString SpellChange(const QVariantList &before, const QVariantList &after) const;
    /// The first three of a list of such values.
    QString SpellEdits(const QVariantList &edits) const;
    /// Those of two lists of such values that differ, in the operator's words; many are only counted.
    QPair<QString, QString> SpellSides(const QVariantList &before, const QVariantList &after) const;

    /// The value of the control as a host has it, made of such a list: bool, int, double or QString as the node is, a
    /// QVariantList of these for several nodes, and invalid for none. Numbers are those of parameter documents.
    virtual QVariant ValueOf(const QVariantList &edits) const;
    QVariant GetValue() const { return ValueOf(GetEdits()); }
    /// The way back, of a value or of a text that reads as one. False, with the reason in `error`, for one that the
    /// control cannot have.
    virtual bool EditsOf(const QVariant &value, QVariantList *edits, QString *error) const;

    /// The device has this value now. It is shown, node and signals notify of it, but it is no change
    /// of the operator's: no mark, no automatic apply, nothing to undo. What the operator has changed and not applied
    /// stays, and then counts as changed from this value; what is being typed goes on. The control then shows that the
    /// device differs. False, with the reason in `error`, for a value that the control cannot have.
    bool Report(const QVariant &value, QString *error = nullptr);
    /// Puts a value as the operator would: marked, recorded, to be applied. False as for Report().
    bool EnterValue(const QVariant &value, QString *error = nullptr);
    /// Gives up what the operator has changed, or is typing, for what the device has, as a change of the operator's.
    /// False where the device does not differ, or the control is locked.
    bool TakeReported();
    /// Is changed from now on, without a change of a value, if another value stands than `applied`; null is one that is
    /// not known, as for a control that was modified without it. Does not tell the sheet.
    void BecomeChanged(const QVariantList *applied);
    /// Whether it is modified, and still holds what was applied.
    bool IsAsApplied() const { return Modified && Applied && AreSameEdits(GetEdits(), Applied->Values); }
    /// What the device has where the operator's value stands in its place, in the order of GetEdits(); null without
    /// such.
    const QVariantList *GetReported() const;
    QString SpellReported() const;
    /// How the device has answered a value that was applied: RowLabel::Refused or Unconfirmed, with what the operator
    /// is to read of it, empty for words of the form's own, or None. It stands until the operator's next change.
    void SetAnswer(RowLabel::Mark answer, const QString &reason);
    RowLabel::Mark GetAnswer() const;
    /// What the device says, in the operator's language, a line each; empty for nothing.
    QString GetDeviceText() const;
    /// Has the marks looked at again when the event loop comes round: an edit may be over.
    void LookAgain();
    static bool IsSameEdit(const QVariant &one, const QVariant &other);
    /// The label without its colon, in the operator's language; the name of the element without one.
    QString GetCaption() const;
    /// Whether the operator may change the control now.
    bool MayEdit() const;
    /// Brings the control before the operator's eyes, with the focus.
    void ComeIntoView();
    /// Whether anybody has set the value since the form's script ran at the start: the operator, a document, the host,
    /// a handler. Otherwise the definition's counts.
    bool IsTouched() const { return Touched; }

    /// What a control of the same class, in whose place this one comes, had as GetEdits(), in the places and terms of
    /// this one; a place for which it had nothing keeps what stands. `former` may be closed.
    QVariantList TranslateEdits(const OrbelDelegate &former, const QVariantList &edits) const;
    /// The place that one of GetEdits() of such a control has here; -1 for none. The base keeps the places.
    virtual int TranslatePlace(const OrbelDelegate &former, int place) const;
    /// Such a value in the terms of this control. The base keeps it.
    virtual QVariant TranslateEdit(const OrbelDelegate &former, const QVariant &value) const;
    /// Has the tooltips that the control made of its label, `former`, say the label of now, as those of a new control
    /// do.
    void RenewToolTips(const QString &former);
    /// Takes such values in, and emits the signals of a change, but marks nothing for the host. The base sets the
    /// nodes, or puts the edits of a control without any.
    virtual void TakeValues(const OrbelDelegate &former, const QVariantList &edits);

    /// Shows the control in the present language: what the definition, a script or the host gave it to show is
    /// translated anew. Properties, nodes, marks and documents stay as they are, and nothing is emitted.
    void LanguageChanged();

    /// The first time makes the nodes under `path`, by CreateValueTree(). After that nodes and their bindings stay;
    /// another path moves them.
    void EnterValueTree(const QString &path);
    /// Sets the full path of the node: `path`, "/", the parameter path. No "/" is added behind one, nor to an empty
    /// path.
    void SetVTPath(const QString &path);
    const QString &GetVTPath() const { return VTPath; }
    /// The node path before the last "/"; empty when that is missing or leads the path.
    QString GetVTNodePath() const;
    /// The node path behind the last "/"; empty when that is missing or leads the path.
    QString GetVTName() const;

    /// Sets the path of the parameter element; an empty `tag` means the object name.
    void SetXmlPath(const QString &tag);
    const QString &GetXmlPath() const { return Place.GetPath(); }
    /// The last part of the path: the name of the element that the control writes.
    const QString &GetXmlTagName() const { return Place.GetTagName(); }
    /// The element names that are read into this control; empty for one named after its object name.
    const QStringList &GetAllTags() const { return Place.GetTags(); }
    /// Whether the element name, in any case, is read into this control.
    bool ContainsXmlTag(const QString &tag) const { return Place.Contains(tag); }
    bool HasSeveralXmlTags() const { return Place.GetTags().size() > 1; }

Q_SIGNALS:
    /// A custom property changed through setCustomProperty().
    void customPropertyChanged(QString name, QVariant value);

public Q_SLOTS:
    /// Each of these sets the property of its name; the first one the apply mode itself.
    void setApplyMode(eApplyMode applyMode) { ApplyMode = applyMode; }
    void setEnabled(bool flag);
    void setGenerateParameterXml(bool flag);
    void setReadOnly(bool flag);
    void setVisible(bool flag);
    void setLabelText(QString text);
    void setCustomProperty(QString name, QVariant value);
    /// Hides the control and its label with their group, or gives them back the `visible` they have.
    virtual void setGroupVisible(bool flag);
    virtual void setFocus();
    /// Marks a control that writes parameters as modified, and the sheet with it. True for a finished change, which may
    /// start automatic apply; false for an edit in progress.
    virtual void setModified(bool autoApply);
    virtual void resetModified();
    /// Commits what the operator is still typing.
    virtual void forceFinishEditing();

public:
    /// The custom property; invalid when there is none.
    Q_INVOKABLE QVariant customProperty(QString name);

    bool event(QEvent *e) override;

    /// Keeps a delegate, and all of its form, for the length of a block.
    class Call : public CallScope
    {
    public:
        explicit Call(const OrbelDelegate *delegate) : CallScope(delegate->Life.get()) { }
    };

    class EditNotice;

    /// The values of GetEdits() at some moment, and their GetEditShape().
    struct EditState {
        /// Both as the delegate gave them.
        QVariantList Values;
        int Shape = 0;
    };

    /// Stands where the operator changes values that are no nodes, or sets a node by no control of its own, and has the
    /// form record the change at its end. Within another one it is a part of that; but what he changes while handlers
    /// hear of the other one, or of an entry that moves, is a change of its own, and the other one is recorded up to
    /// there.
    class OperatorChange
    {
    public:
        explicit OperatorChange(OrbelDelegate *delegate);
        ~OperatorChange();
        OperatorChange(const OperatorChange &) = delete;
        OperatorChange &operator=(const OperatorChange &) = delete;

    private:
        friend class EditNotice;
        friend class OrbelDelegate;

        void Begin();
        void Record();

        const Call Running;
        /// Null for a part.
        OrbelDelegate *Delegate;
        EditState AtStart;
        /// What has been recorded so far left this.
        EditState Before;
        /// The indices that notices have named.
        QSet<int> Own;
        OperatorChange *Outer = nullptr;
        EditState *OuterBefore = nullptr;
        int OuterNotices = 0;
    };

    /// Stands while a control notifies others that its values at `indices` of GetEdits() have changed. What changes
    /// meanwhile is the work of those who are notified, and no part of the operator's change.
    class EditNotice
    {
    public:
        EditNotice(OrbelDelegate *delegate, const QSet<int> &indices);
        ~EditNotice() { --Delegate->Notices; }
        EditNotice(const EditNotice &) = delete;
        EditNotice &operator=(const EditNotice &) = delete;

    private:
        const Call Running;
        OrbelDelegate *const Delegate;
    };

    /// Makes this a part of a form.
    void SetLife(const std::shared_ptr<FormLife> &life) { Life = life; }
    /// The form has ended: removes the nodes from the tree and blocks all signals.
    void Close();
    /// Closes a delegate that nobody holds any more and destroys it when nothing runs inside its form; null is none.
    static void End(OrbelDelegate *delegate);

protected:
    /// Deletes a control of this delegate's when nothing runs inside its form and no handler's event loop.
    void EndControl(QWidget *control);
    /// A node of this delegate changed or is destroyed; see IObserver. The base does nothing.
    virtual void NodeChanged(Observable *subject, TChangeCode code);
    /// The nodes that the delegate owns, in the order in which it makes them. The base gives the main one.
    virtual QVector<ValueBase *> GetNodes() const;
    /// Must be called by a control that sets its node itself for the operator, before it does: the form then records
    /// it.
    void JoinAct(const Observable *node);
    /// The operator types and has changed no value yet: setModified(false).
    void MarkTyping();
    /// Which one of several values that is, in the operator's words.
    virtual QString SpellEditPart(int index) const;
    /// Shows anew what the control translated itself. An override calls the base first, which has the row label and the
    /// tooltips of SetOwnToolTip().
    virtual void Retranslate();
    /// A number of a node as a host has it, and the way back. The base leaves both as they are.
    virtual QVariant HostNumber(const QVariant &held) const { return held; }
    virtual double NodeNumber(double number) const { return number; }
    /// Whether the value is a list, be it of one item.
    virtual bool HasSeveralValues() const { return false; }
    /// The text for a node that stands for a value of the host's; as EditsOf().
    virtual bool EditOf(const ValueBase &node, const QVariant &value, QString *text, QString *error) const;
    /// Puts values of the device as a host would, in the order of GetEdits(). The base sets the nodes.
    virtual void PutReported(const QVariantList &values);
    /// Two lists of such values, as texts of those that differ.
    struct Sides {
        /// In the operator's words, and the index of the last one that differs.
        QStringList Before;
        QStringList After;
        int LastIndex = 0;
    };
    /// See Sides.
    virtual Sides TellSides(const QVariantList &before, const QVariantList &after) const;
    /// Whether the operator is in the middle of an edit in one of the control's widgets.
    bool IsBeingEdited() const;
    /// The nodes stand under another path now. The base has nothing else to do.
    virtual void NodesMoved() { }
    /// Takes what the delegate owns in the window out of it: the form has ended. The base owns nothing there.
    virtual void LeaveWindow() { }

    /// The one hook for every change of a dynamic property. An override calls the base first, then acts, and ends with
    /// PropagateProperty().
    virtual void PropertyChanged(const QString &name, const QVariant &value);

    /// Emits `own`, a signal of this delegate, whenever `control` emits `its`; arguments that `own` does not take are
    /// left out.
    template <class Control, class Base, class... Its, class Self, class... Own>
    void Relay(const Control *control, void (Base::*its)(Its...), void (Self::*own)(Own...))
    {
        connect(control, its, this, [this, own](Its... arguments) {
            const Call call(this);
            if constexpr (sizeof...(Own) == sizeof...(Its))
                (static_cast<Self *>(this)->*own)(arguments...);
            else
                (static_cast<Self *>(this)->*own)();
        });
    }

    /// Makes `names` the list of those that are forwarded to the control. A class has one list for all its controls:
    /// what GetDefinedProperties() gives in its constructor, and its own names behind.
    void DefineProperties(const QStringList &names) { DefinedProperties = names; }
    /// Puts a further name on the list.
    void DefineProperty(const QString &name);
    void UndefineProperty(const QString &name);
    bool IsDefined(const QString &name) const { return DefinedProperties.contains(name); }
    /// In the order in which they were defined.
    const QStringList &GetDefinedProperties() const { return DefinedProperties; }
    /// Forwards one property to `target`, if it is defined, set, and different there. A null target is none. A
    /// `visible` or `enabled` that is not set gives back to `target` what it was before a collapse or a lock.
    void PropagateProperty(const QString &name, QObject *target);
    /// Forwards all defined properties that are set to a control just made, and hides it when its group
    /// is collapsed.
    void PropagateProperties(QObject *target);
    /// Gives a control just made the `visible` and `enabled` that the delegate has, whatever is collapsed or locked.
    void PropagateState(QWidget *target);
    /// Hides a control just made, when its group was collapsed before it existed.
    void HideIfCollapsed(QObject *target);

    /// Stores `value` under the name and notifies nobody.
    void SetPropertyQuietly(const PropertyKey &name, const QVariant &value);
    /// The property as int: a number beyond int gives the nearest bound, all else counts as for GetInt().
    int GetNearestInt(const PropertyKey &name, int defaultValue) const;
    /// Has the property state `held`, the number that the node holds, where it states another one: no signal, no mark.
    /// A text that is no number stays.
    void TakeNumber(const PropertyKey &name, const QVariant &held);
    /// The number that the property states: 0 where it is absent, no number (NaN) where a text is none.
    double GetStatedNumber(const PropertyKey &name) const;
    /// Whether the property of that name is read as a number. An infinite one, or one that is none, then counts for
    /// nothing, as a text too: the property takes HeldNumber() again. The base knows those of limits and counts.
    virtual bool IsNumber(const QString &name) const;
    /// What the nodes hold of the property of that name, in its units, a text where that is one; invalid for nothing,
    /// as in the base.
    virtual QVariant HeldNumber(const QString &name) const;
    /// The text in the operator's language, in the translation context of the object name.
    QString Translate(const QString &text) const;

    /// Node makers. `name` is the property that holds the start value. Each gives null when the tree refuses the node;
    /// an `index` of 0 or above is appended to the node's name.
    ValueBoolean *CreateValueBoolean(const QString &name);
    ValueInt *CreateValueNumericInt(const QString &name, int index = -1);
    ValueDouble *CreateValueNumericFloat(const QString &name, int index = -1);
    /// Gives the node even when the tree refuses it.
    ValueString *CreateValueString(const QString &name);
    /// One item for each row of `values`, with keys from 1; null gives null. Selects the row whose value text the
    /// property holds, or the first, and then makes the property agree.
    ValueSelection *CreateValueSelection(const QString &name, QExplicitlySharedDataPointer<OrbelEnum> values);
    /// Limits in the units of a node: the properties `minimum`, `maximum` and `singleStep`, divided by
    /// `displayScalingFactor`. An absent bound is -1e308 or 1e308.
    struct NodeLimits {
        /// The bounds and the step, as the node takes them.
        double Minimum;
        double Maximum;
        double Step;
    };
    /// See NodeLimits.
    NodeLimits LimitsForNode() const;
    /// Sets these limits on `value`, which must have no observer yet that could destroy it.
    void ConfigureValueNumeric(IValueNumeric *value);

    /// A tooltip as it is made anew in each language.
    using ToolTipText = OwnToolTips::Text;
    /// Gives `control` a tooltip in place of any other. It follows the language for as long as nobody gives the control
    /// another one. A null control is none.
    void SetOwnToolTip(QWidget *control, const ToolTipText &text);
    /// The text of the row label where there is one, or else the name of the parameter element.
    ToolTipText LabelOrTag() const;
    /// Tooltips that tell the label and the bounds, in display units. A null control is none.
    void SetIntTooltip(QWidget *control);
    void SetInt64Tooltip(QWidget *control);
    void SetDoubleTooltip(QWidget *control);
    /// The number with at most `decimals` digits behind the point, no trailing zeros, and `suffix`.
    static QString formatString(double value, int decimals, const QString &suffix);
    /// A frequency by formatString(), in MHz or kHz where it is greater than one of them, down to 0.001 Hz.
    static QString formatHertz(double hertz);

    /// The number in a property's value; the default for one that is infinite or none.
    static double FiniteNumber(const QVariant &value, double defaultValue);
    /// The number of a text in a parameter document: one that is infinite or none is 0.
    static QString FiniteText(const QString &text);
    /// Adds an element name to be read into this control, unless it is there in any case.
    void AddXmlTag(const QString &tag);
    /// Writes the attribute `unit` when the property is not empty.
    void WriteUnitAttribute(QXmlStreamWriter &writer) const;

    /// A CellGrid in a list of the control's own, in rows of `columns` cells.
    static QVariant GetListValue(const QList<QVariant> &list, int row, int column, int columns);
    static bool SetListValue(QList<QVariant> &list, const QVariant &value, int row, int column, int columns);
    static bool ResizeList(QList<QVariant> &list, int rows, int columns, int oldColumns);

    /// Enters a node at its path. False, with a trace, when the tree refuses it; false, too, when the form has ended,
    /// and with `node` null when whoever waited for the path has removed the node.
    bool EnterNode(ValueBase *&node);
    /// Whether the form has ended.
    bool IsClosed() const { return Closed; }
    /// Must be called where a value is set that is neither node nor property and setModified() is not called.
    void Touch();

    /// All that the delegate may ask its form; harmless once that has ended.
    FormDoor Form() const;
    /// Name of the owning element; empty without one.
    QString WidgetName() const;

    /// The state that controls read: custom properties, whether the control writes parameters, its modified mark, and
    /// whether its group is expanded.
    QMap<QString, QVariant> CustomProperties;
    bool GenerateXml = false;
    bool Modified = false;
    bool GroupVisible = true;
    /// The row label, made by CreateGUI(); belongs to the layout's parent widget.
    QPointer<RowLabel> Label;

private:
    friend class OrbelWidget;
    friend class KeptControl;

    struct JoinedAct;

    static bool IsSame(const QVariant &value, const QVariant &before);
    static bool AreSameEdits(const QVariantList &one, const QVariantList &other);
    static QString ToldEdit(const QString &text);
    void NoteSet(const QString &name);
    void KeepApplied();
    void SetApplied(const QVariantList &values);
    QVariantList NodeTexts() const;
    EditState GetEditState() const { return {GetEdits(), GetEditShape()}; }
    void BeginAnew();
    void EndMove(const QVariantList &now);
    void TakeReport(const QVariantList &values, bool stands);
    void KeepAgainst(const QVariantList &values);
    DeviceNote *NeedDevice();
    void SettleDevice(bool changed);
    void TellDevice();
    bool HoldsAlready(const QVariant &value) const;
    QVariant &StatedValue(const QString &name);
    bool IsNoNumber(const QString &name, const QVariant &value, bool isNumber) const;
    bool Store(const PropertyKey &name, const QVariant &value, const QVariant &before);
    void TakeProperty(const QString &name, const QVariant &value);
    void GiveBack(const QString &name, QObject *target);

    void SetBoundsTooltip(QWidget *control, const QString &lowest, const QString &highest);

    /// What others set in one of the nodes, while the operator sets another one, is no part of his change.
    void LeaveToOthers(const Observable *node);
    ValueBase *LastLiveNode() const;
    void MoveNodes(const QString &formerName);
    template <class Node> Node *Enter(Node *node, bool keepRefused = false);
    template <class Node> Node *NewNumeric(const QString &name, int index);
    bool ParseProperty(QXmlStreamReader &reader, bool custom);
    void ReadBackProperties();

    /// An own set of a property until its event comes, which needs no look-up then.
    struct SetInProgress {
        const PropertyKey *Name;
        const QVariant *Value;
        bool Told;
    };

    OrbelWidget *OwnerWidget;
    /// Null for a delegate in no form.
    std::shared_ptr<FormLife> Life;
    XmlPlace Place;
    /// The property `unit`.
    QString Unit;
    QString VTPath;
    QStringList DefinedProperties;
    /// What was last stated under names that are read as numbers, for when no number comes and no node holds one.
    QVector<QPair<QString, QVariant>> Stated;
    /// Null until there is one.
    std::unique_ptr<OwnToolTips> ToolTips;

    SetInProgress *InProgress = nullptr;
    /// The property that EnableProperty() forces while the delegate has no value of its own for it.
    const QString *Forced = nullptr;
    /// What controls were before that, by name and control; an entry goes when it is given back.
    QHash<QPair<QString, const QObject *>, bool> BeforeForced;
    /// The node of which the tree notifies observers that it enters.
    const ValuePtr<ValueBase> *Entering = nullptr;

    /// What stood before the outermost change of the operator's that is on its way, or at an apply since; null without
    /// one.
    EditState *EditsBefore = nullptr;
    /// While the operator sets a node of the control's.
    JoinedAct *Act = nullptr;
    OperatorChange *OpenChange = nullptr;
    /// While an entry moves the values: what they had become when the operator began to change them again.
    std::optional<QVariantList> *Reached = nullptr;
    /// How many notices run within it.
    int Notices = 0;
    int ListDepth = 0;
    std::unique_ptr<EditState> Applied;
    /// Null while the device has nothing to say of the control.
    std::unique_ptr<DeviceNote> Device;

    eApplyMode ApplyMode = eApplyMode(0);
    /// While this sets a property of its own, until its event comes.
    bool OwnSet = false;
    /// While a set notifies nobody.
    bool Quiet = false;
    /// The sheet was active at a change: what a form's script sets at its start is none.
    bool ChangeShows = false;
    bool InValueTree = false;
    bool Closed = false;
    bool Touched = false;
    /// Properties that are state and no value of a node, and custom properties, set since the start.
    QStringList SetSince;
    QStringList CustomSetSince;
};

} // namespace KV218
