#pragma once

#include "hostexport.h"
#include "typingmark.h"

#include <QDoubleSpinBox>
#include <QLineEdit>

#include <utility>

namespace Orbel
{

/// A spin box into which any text may be typed or pasted. NumberReader tells what it means, with the decimal places
/// that the box shows; where the suffix is a frequency it understands units, and a number without one is in the unit
/// that the box shows. A text that is no number is red, and its FieldNote tells why; for a number the note tells what
/// is understood where that says more than the text, and which limit is taken in its place. Another window, or the
/// box's own menu, leaves the text alone. F2 selects the number.
class ORBEL_HOST_EXPORT TypedSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit TypedSpinBox(QWidget *parent = nullptr);

    /// Whether the text that stands there is a number, within the limits or not.
    bool IsReadable() const;
    /// The unit that the box's numbers are in, times Scale(). It is not shown; where there is no suffix and it is a
    /// frequency, units may be typed.
    void SetUnit(const QString &unit) { Unit = unit.trimmed(); }
    /// Whether an edit may end with the text that stands there; one that is no number is marked, and told why.
    bool Finish();
    /// Takes a text as if it were typed, but rounds a number that has more decimal places than are shown. False, and no
    /// change, for one that is no number. `note` gets which limit is taken in its place, or nothing.
    bool Enter(const QString &text, QString *note);

    QString textFromValue(double number) const override;
    double valueFromText(const QString &text) const override;
    /// Intermediate for all but a number within the limits.
    QValidator::State validate(QString &text, int &position) const override;
    /// Clamps a number to the limits.
    void fixup(QString &text) const override;

protected:
    /// The limits that count for what is typed, in shown units.
    virtual std::pair<double, double> TypedRange() const { return {minimum(), maximum()}; }
    /// Whether the text is one that the box has not taken yet.
    virtual bool IsTyping() const;
    virtual double Scale() const { return 1; }

    /// setDecimals() in a fresh box, which shows its first number next and need not lay out one in its place.
    void PrepareDecimals(int places);
    /// What a text means to the box now, in shown units.
    TypedNumber ReadText(const QString &text) const;
    /// Marks the text that stands there, and tells what it means.
    void TellReading();
    /// The text that stands there is the box's own again.
    void ForgetReading() { Mark.Clear(); }

    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool IsOwnText(const QString &text) const;
    bool IsFrequency() const;
    bool WritesBlank() const;
    std::optional<int> ShownPower() const;
    NumberReader Reader() const;
    QString WithoutPrefix(const QString &text) const;
    int EndOfNumber(const QString &text) const;
    QString Bare(const QString &text) const;
    bool IsUnusual(const QString &text) const;
    QString LimitNote(const TypedNumber &number) const;
    QString NoteFor(const TypedNumber &number, const QString &text) const;
    QString SpellShown(double shown) const;
    void KeepCursorInNumber();

    QString Unit;
    // What was spelled last, of which number.
    mutable QString Spelled;
    mutable double SpelledNumber = 0;
    // Another window takes the focus, and the edit goes on.
    bool KeepsText = false;
    // An edit should have ended, so that what might become a number by typing on is wrong, too.
    bool IsFinal = false;
    // The decimal places change, and the number that is to be shown comes behind.
    bool IsPreparing = false;
    TypingMark Mark{this};
};

} // namespace Orbel
