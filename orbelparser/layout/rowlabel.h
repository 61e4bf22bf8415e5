#pragma once

#include "orbelexport.h"

#include <optional>
#include <QLabel>
#include <QPointer>

/// The label at the start of a row: FloatGroupLayout::addLabel() makes it. Its text stands on the baseline of the first
/// line of the control beside it, whatever the height of either.
class ORBEL_EXPORT RowLabel : public QLabel
{
    Q_OBJECT

public:
    RowLabel(const QString &text, QWidget *parent);

    /// What is to be known of the control besides its value: its change has not been applied yet; it was applied, and
    /// no answer came; the device has another value; the device has refused the value.
    enum Mark { None, Changed, Unconfirmed, Differs, Refused };
    /// Shows a small mark, or none. It takes no room, and each looks otherwise in its shape as well.
    void SetMark(Mark mark);
    Mark GetMark() const { return Shown; }
    /// Whether the change of the control has not been applied.
    bool IsMarked() const { return Shown == Changed || Shown == Differs; }

    /// Takes `control` as the one beside it, which is to have that size, or null. Gives the height that the text needs
    /// for it, `least` or more, in pixels; `own` is that of the size hint.
    int StandBeside(QWidget *control, const QSize &size, int least, int own);
    /// Where the text has its first baseline, in pixels from the top.
    int Baseline() const;

    /// Those of QLabel, which measures a text three times for them.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    int BaselineIn(int height, std::optional<int> beside) const;
    void PaintText(QPainter &painter) const;
    void PaintMark(QPainter &painter) const;
    bool IsPlainText() const;
    std::optional<QSize> PlainSize() const;

    /// A size of the text and what it was measured of.
    struct Measure {
        QString Text;
        QFont Font;
        int Flags = 0;
        QSize Size;
    };
    mutable Measure Measured;
    QPointer<QWidget> Control;
    QSize ControlSize;
    QFont ControlFont;
    /// The text, what it takes, and what the label needs beside the control; written by StandBeside().
    QString TextBeside;
    int TextHeight = -1;
    int NeededHeight = 0;
    Mark Shown = None;
};
