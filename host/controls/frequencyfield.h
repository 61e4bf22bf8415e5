#pragma once

#include "vclineedit.h"

/// The large field of VCFrequency: a frequency that is tuned digit by digit, or typed. One digit is marked while the
/// field has the focus: Left and Right, Home, End and a click choose it, Up and Down, Page Up and Page Down (ten at a
/// time) and the wheel change it with carry, within the limits of the node. Zeros lead the text up to the marked digit,
/// so that one steps back the way one came. A digit, sign, or point begins a typed entry, which replaces the text; F2
/// begins one with the text that stands there. Return ends it, Escape takes it back.
class ORBEL_HOST_EXPORT FrequencyField : public VCLineEdit
{
    Q_OBJECT

public:
    /// With `belowZero` tuning goes on below 0 Hz, where the node's limits let it.
    FrequencyField(QWidget *parent, bool belowZero);

    /// Changes the marked digit by that many; nothing while the field is locked or a text is being typed.
    void Step(int steps);
    /// Puts a frequency in Hz, clamped to the node's limits, as the operator's own.
    void Enter(double hertz);
    /// Tells the observers of the node its value again, and gives it, in Hz; nothing without a node.
    std::optional<double> Repeat();

    /// Room for every frequency below 100 GHz.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The operator is done with setting a frequency, in Hz: once for each typed one, and once for all tuning up to
    /// leaving the field.
    void signalEntered(double hertz);

protected:
    void Committed() override;

    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool MayTune() const;
    bool TuneByKey(int key);
    void MarkDigit();
    void ChooseDigit(int power);
    int HighestPower() const;
    int TopPower() const;
    std::optional<int> PowerUnder(const QPoint &point) const;
    void TellEntered();

    bool BelowZero;
    // The marked digit stands for 10^Power Hz.
    int Power = 3;
    int WheelRemainder = 0;
    bool Tuned = false;
};
