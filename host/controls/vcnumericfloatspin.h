#pragma once

#include "ivaluenumeric.h"
#include "lateacts.h"
#include "nodebinding.h"
#include "scalednumber.h"
#include "typedspinbox.h"
#include "undorecordingcontrolbase.h"

#include <QElapsedTimer>

/// A spin box that shows a numeric node times a factor, and sets it. The node keeps every digit it has: only a number
/// that the operator really changed is written, so that showing never rounds it, and steps are exact in decimal numbers
/// however many there are.
///
/// What is typed is pending while it differs from what was shown, until Return, leaving the box or disabling it commits
/// it, clamped to the limits; Escape takes it back, and so does a lock of the input (InputLock). What is no number
/// stays after Return and goes back when the box is left. A change of the node or of the limits from elsewhere leaves a
/// pending number alone and counts when the edit ends. The wheel steps only while the box has the focus; otherwise the
/// turn goes on to what lies behind. Without a node the box keeps its last number, and edits fall back to it. The size
/// hint has room for the limits, for 18 characters at most.
class ORBEL_HOST_EXPORT VCNumericFloatSpin : public Orbel::TypedSpinBox,
                                             public IObserver,
                                             public virtual UndoRecordingControlBase
{
    Q_OBJECT
    /// As of the base class, told to this class.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(double value READ value WRITE setValue USER true)

public:
    /// `name`, which may be null, becomes the object name. With `keyboardTracking` value() and valueChanged() follow
    /// each number while it is typed; the node waits for the end of the edit in either case.
    explicit VCNumericFloatSpin(QWidget *parent = nullptr, const char *name = nullptr, bool keyboardTracking = true);

    /// Binds to `node`, which is not owned, in place of the one before, and takes limits and step from it. False for
    /// null, which unbinds, and for a node that is no ValueBase.
    bool SetNumericValue(IValueNumeric *node);
    /// Binds to the node at that full path of the tree. False, and unbound, when there is no numeric node.
    bool SetNumeric_ValuePath(const QString &path);

    /// As of the base class; the name and the suffix are translated in the context that the name gives.
    void setObjectName(const QString &name) { QDoubleSpinBox::setObjectName(name); }
    void setSuffix(const QString &suffix);
    /// Decimal places beyond those that the step needs; negative counts as 0. In any case there are as many as it takes
    /// to tell two neighbouring whole numbers of the node apart: 3 for a factor of 0.001.
    void setAdditionalPrecision(int places);
    /// A step past one limit goes to the other one. Beside a limit that is none, the full range of an integer node
    /// among them, it stops: there is no other end to go on from.
    void EnableWrapAround(bool enable) { setWrapping(enable); }
    /// The shown number is the node's value times this. Zero, infinity and NaN count as 1.
    virtual void SetFactor(double factor);
    /// With true neither buttons nor keys nor the wheel step.
    virtual void disableStep(bool disable);

    /// In shown units, as all of this group: the limits of the node, or a tighter one set here since the node last
    /// changed its own. Neither they nor the decimal places ever change the node.
    double minimum() const;
    double maximum() const;
    void setMinimum(double minimum);
    void setMaximum(double maximum);
    virtual double value() const { return QDoubleSpinBox::value(); }
    /// Writes the node, clamped to the limits, and ends an edit. NaN and infinity do nothing.
    virtual void setValue(double number);
    /// Hides that of the base class, which would lose a pending number.
    void setEnabled(bool enable);

    void Update(Observable *subject, TChangeCode code) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void fixup(QString &) const override { }
    void stepBy(int steps) override;
    bool event(QEvent *event) override;

public Q_SLOTS:
    /// Commits a pending number now, with or without the focus.
    void endEdit() { FinishEdit(); }

Q_SIGNALS:
    /// The operator has changed the text in the field and goes on with the edit. A receiver may delete the box.
    void signalTextEdited(const QString &text);

protected:
    std::pair<double, double> TypedRange() const override { return {minimum(), maximum()}; }
    bool IsTyping() const override { return IsPending(); }
    double Scale() const override { return Number.GetFactor(); }
    StepEnabled stepEnabled() const override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool StandsAlready(double shown) const;
    bool IsPending() const;
    std::optional<double> PendingNumber() const;
    bool HasStep() const;
    bool Wraps() const;

    template <class Base> QSize SharedHint(bool isMinimum, int height, const Base &measure) const;

    bool FinishEdit();
    void DropEdit();
    void LeaveEdit();
    void TellTyping();
    bool Put(double shown, int session = 0);
    void WriteNode();
    void ReadNode();
    void SetNumber(double shown);
    void ShowNode();
    void ShowNodeAfterEdit();
    void ShowLimits();

    Orbel::NodeBinding<IValueNumeric> Node{this};
    Orbel::LateActs<VCNumericFloatSpin> Late{this};
    // What the node held when it last spoke.
    Orbel::ScaledNumber Number;
    // What the base class was last given: its limits, and the number; and what it made of that: the number rounded to
    // the decimal places, and its text.
    std::pair<double, double> AppliedRange{qQNaN(), qQNaN()};
    double Given = qQNaN();
    double Shown = 0;
    QString ShownText;
    // The base class keeps a hint.
    mutable bool MeasuredItself = false;
    // What the operator made of that; what anybody else puts there is no edit.
    QString Typed;
    // The node has another number than the shown one by now, and a pending text keeps it from the screen.
    bool NodeWaits = false;
    bool StepDisabled = false;
    // Whether there was a step when the node was last shown.
    bool ShownStep = false;
    // Of the change that is written, and of the steps that are one change; see OperatorAct.
    int Session = 0;
    int StepSession = 0;
    QElapsedTimer LastStep;
};
