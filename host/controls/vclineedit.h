#pragma once

#include "lateacts.h"
#include "nodebinding.h"
#include "typingmark.h"

#include <QLineEdit>

#include <functional>

/// A text field that shows and sets a node of any type by its text. A text that differs from the shown one is pending
/// until Return or leaving the field commits it; Escape takes it back. A field without the focus thus always shows what
/// its node holds: a pending text that the input mask does not accept goes when the focus goes, and so does one in a
/// field that is read-only, disabled or without a node, which commits nothing. A change of the node from elsewhere
/// leaves a pending text alone and is shown when the edit ends; a new input mask or maximum length ends the edit. A
/// switch to another window does not. Disabling the field itself commits a pending text first; a lock of the input
/// (InputLock) takes it back and tells it. F2 selects the whole text.
///
/// A field of the frequency kind lets every text stand while it is typed, and tells by a note what it understands. What
/// is no frequency, or lies beyond the limits of the node, is red, is not committed, and goes like any pending text.
///
/// A receiver of the signals of this class may delete the field, and the window with it; Qt's own textEdited() and
/// textChanged() come out of the middle of the field's work, which it would not survive.
class ORBEL_HOST_EXPORT VCLineEdit : public QLineEdit, public IObserver
{
    Q_OBJECT
    /// As of the base class, told to this class.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(QString inputMask READ inputMask WRITE setInputMask)
    Q_PROPERTY(int maxLength READ maxLength WRITE setMaxLength)

public:
    /// What the field reads: any text, or frequencies in Hz.
    enum LineEditType { ekText = 0, ekFrequency = 1 };
    /// Turns one text into another.
    using Conversion = std::function<QString(const QString &)>;

    /// `name`, which may be null, becomes the object name.
    VCLineEdit(QWidget *parent, const char *name, LineEditType type);

    /// Binds to `node`, which is not owned, in place of the one before. False for null, which unbinds.
    bool SetValueBase(ValueBase *node);
    LineEditType GetType() const { return Type; }
    /// How the text of the node is shown, and how a typed text is read; the latter gives a null string for one that
    /// stands for nothing, which leaves the node alone. Null functions, as at the start, take the texts as they are.
    void SetConversion(const Conversion &nodeToShown, const Conversion &typedToNode);

    /// How a field of the frequency kind reads a text now: NumberReader tells the rules. The shown unit is that of the
    /// node's text that the field last showed, and the limits are those of a numeric node.
    Orbel::NumberReader GetReader() const;
    /// Rounds typed frequencies to whole hertz, as is done for a node of integers; off at the start.
    void SetWholeHertz(bool whole) { WholeHertz = whole; }

    /// These hide those of the base class, which would lose a pending text, or leave a cut one behind.
    void setEnabled(bool enable);
    void setInputMask(const QString &mask);
    void setMaxLength(int length);

    /// Has Up and Down set the node to the next multiple of `grid` above or below, within its limits; in the node's
    /// units, and at least 1 Hz in a field of whole hertz. 0, as at the start, leaves these keys alone, and so does a
    /// field whose node holds no number.
    void SetStepGrid(double grid) { StepGrid = grid; }

    /// As endEdit(). False when somebody who heard of it has deleted the field.
    virtual bool FinishEdit();

    void Update(Observable *subject, TChangeCode code) override;
    bool event(QEvent *event) override;
    /// A field of the frequency kind has room for every frequency below 100 GHz.
    QSize sizeHint() const override;

public Q_SLOTS:
    /// Commits a pending text now, with or without the focus.
    void endEdit() { FinishEdit(); }

Q_SIGNALS:
    /// The operator has changed the text by a key, by pasting, dropping or taking back, and goes on with the edit.
    void signalTextEdited(const QString &text);
    /// The text is another one, by whatever means; comes behind signalTextEdited().
    void signalTextChanged(const QString &text);
    /// The operator committed a text other than the one shown before. Comes before the node is written, and before
    /// returnPressed() and editingFinished(). A receiver may write the node itself; otherwise the field does.
    void signalTextFinallyChanged(const QString &text);

protected:
    /// The node; null when the field has none.
    ValueBase *BoundNode() const { return Node.get(); }
    /// Sets the node by `set`, which leaves the field out, and shows what it holds then. False when the field is gone.
    template <class Set> bool WriteNode(const Set &set) { return Node.Write(this, set); }
    /// Shows what the node holds and drops a pending text. False when the field is gone.
    virtual bool ShowNode();
    /// Zeros lead a shown frequency up to the digit for 10^LeastPower() Hz.
    virtual int LeastPower() const { return 0; }
    /// Whether the node's changes wait: a text is pending.
    virtual bool IsEditing() const { return IsPending(); }

    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;

private:
    class FrequencyValidator;

    bool IsPending() const { return !Showing && (text() != Shown || NodeWaits); }
    bool Commit(const QString &typed);
    void SetContent();
    bool WriteTyped(const QString &typed);
    void DropEdit();
    bool LeaveEdit() { return FinishEdit() && (!IsEditing() || ShowNode()); }
    void EndStrayEdit() { LeaveEdit(); }
    bool ActByKey(const QKeyEvent *event);
    void StepUp() { StepOnGrid(1); }
    void StepDown() { StepOnGrid(-1); }
    void StepOnGrid(int direction);
    void TellEdited() { Q_EMIT signalTextEdited(text()); }
    void TellChanged() { Q_EMIT signalTextChanged(text()); }
    void TakeFrequencies();
    void TellTyping();
    void TellRefused();

    Orbel::NodeBinding<ValueBase> Node{this};
    Orbel::LateActs<VCLineEdit> Late{this};
    LineEditType Type;
    Conversion NodeToShown;
    Conversion TypedToNode;
    double StepGrid = 0;
    // The last text of the node, and what the mask and the maximum length left of it in the field.
    QString Content;
    QString Shown;
    bool Showing = false;
    bool NodeSpoke = false;
    // The node has another text than the shown one by now, and a pending text keeps it from the screen.
    bool NodeWaits = false;
    bool WholeHertz = false;
    Orbel::TypingMark Mark{this};
};
