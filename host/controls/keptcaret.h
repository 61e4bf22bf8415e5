#pragma once

#include <QLineEdit>
#include <QPointer>

/// While one of these lives, a field with the focus gets another text that the operator has not typed: at the end the
/// caret stands where it stood, and what was selected is selected. The whole text stays the whole text, and a caret
/// behind it stays behind it.
class KeptCaret
{
public:
    /// `head` and `tail` are the letters before and behind the text that the operator can change. `keeps` false keeps
    /// nothing.
    KeptCaret(QLineEdit *field, int head, int tail, bool keeps)
        : Field(keeps && field->hasFocus() ? field : nullptr), Head(head), Tail(tail)
    {
        if (!Field)
            return;
        Text = Field->text();
        Start = Field->selectionStart();
        Length = Field->selectionLength();
        Caret = Field->cursorPosition();
    }
    ~KeptCaret()
    {
        if (!Field || Field->text() == Text)
            return;
        const int formerEnd = Text.size() - Tail;
        const int end = qMax(Head, Field->text().size() - Tail);
        if (Start < 0)
            Field->setCursorPosition(Caret >= formerEnd ? end : qMin(Caret, end));
        else if (Start <= Head && Start + Length >= formerEnd)
            Field->setSelection(Head, end - Head);
        else
            Field->setSelection(qMin(Start, end), qMin(Length, end - qMin(Start, end)));
    }
    KeptCaret(const KeptCaret &) = delete;
    KeptCaret &operator=(const KeptCaret &) = delete;

private:
    const QPointer<QLineEdit> Field;
    const int Head;
    const int Tail;
    QString Text;
    int Start = -1;
    int Length = 0;
    int Caret = 0;
};
