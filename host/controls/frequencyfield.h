#pragma once

#include "vclineedit.h"

namespace Orbel
{

/// The large field of VCFrequency: a frequency that is tuned digit by digit, or typed. One digit is marked while the
/// field has the focus: Left and Right, Home, End and a click choose it, Up and Down, Page Up and Page Down (ten at a
/// time) change it with carry, within the limits of the node, and so does the wheel for the digit under the mouse; the
/// wheel needs the focus, so that scrolling a form tunes nothing, unless TuneByHovering() says otherwise. The digit
/// under the mouse is lit. Zeros lead the text up to the marked digit, and one steps back the way one came. A
/// character begins a typed entry, which replaces the text; F2 begins one with the text that stands there. Return
/// ends it, Escape takes it back.
class ORBEL_HOST_EXPORT FrequencyField : public VCLineEdit
{
    Q_OBJECT

public:
    /// With `belowZero` tuning goes on below 0 Hz, where the node's limits let it.
    FrequencyField(QWidget *parent, bool belowZero);

    /// Whether the field is bound.
    bool HasNode() const { return BoundNode(); }
    /// Lets the wheel tune the digit under the mouse without the focus, too. The tuning ends when the mouse leaves
    /// then.
    void TuneByHovering(bool tune) { HoverTunes = tune; }
    /// Changes the marked digit by that many; nothing while the field is locked or a text is being typed.
    void Step(int steps);
    /// Puts a frequency in Hz, clamped to the node's limits, as the operator's own.
    void Enter(double hertz);
    /// Tells the observers of the node its value again, and gives it, in Hz; nothing without a node.
    std::optional<double> Repeat();

    /// Tells what was tuned up to now as entered. False when somebody who heard of it has deleted the field.
    bool FinishTuning();

    bool FinishEdit() override { return VCLineEdit::FinishEdit() && FinishTuning(); }
    /// The font of a text that has room. One that has not is shown smaller before a digit of it is cut.
    void SetTextFont(const QFont &font);
    /// That of the text font, whatever size is shown.
    QSize sizeHint() const override { return FullHint.isValid() ? FullHint : VCLineEdit::sizeHint(); }
    QSize minimumSizeHint() const override { return {sizeHint().width() * 2 / 3, sizeHint().height()}; }
    void Update(Observable *subject, TChangeCode code) override;

Q_SIGNALS:
    /// The operator is done with setting a frequency: after a typed one, after Return and on leaving the field. In Hz,
    /// what stood there before, then what he set: by tuning, all of which counts as one, and by typing.
    void signalEntered(const QVector<double> &way);
    /// The node went away.
    void signalNodeLost();

protected:
    bool ShowNode() override;
    int LeastPower() const override { return hasFocus() && MayTune() ? Power : 0; }
    bool IsEditing() const override { return Entry || VCLineEdit::IsEditing(); }

    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool MayTune() const;
    bool IsAtRest() const { return MayTune() && !IsEditing(); }
    void ReplaceBy(const std::function<void()> &insertion);
    void LeaveFrequency();
    bool TuneByKey(int key);
    void FitText();
    void ShowLock();
    void MarkDigit();
    void ChooseDigit(int power);
    int HighestPower() const;
    int TopPower() const;
    std::optional<int> PowerUnder(const QPoint &point) const;
    void Hover(std::optional<int> power);
    QRect DigitRect(int power) const;

    QFont TextFont;
    QSize FullHint;
    bool LockShown = false;
    bool BelowZero;
    // The marked digit stands for 10^Power Hz.
    int Power = 3;
    int WheelRemainder = 0;
    bool HoverTunes = false;
    // The digit under the mouse, as that above.
    std::optional<int> Hovered;
    // The operator is at the text, be it the shown one.
    bool Entry = false;
    // What stood there before each change that nobody was told of; all tuning is one.
    QVector<double> Way;
    // All tuning of one way.
    int Session = 0;
};

} // namespace Orbel
