#pragma once

#include <QGroupBox>
#include <QIcon>

/// The group box over a section: its title and a line, without the frame that some styles draw around the contents even
/// of a flat group box. There are no contents; the top contents margin is the gap above the line. Margins that a host
/// sets stay, unlike those of a plain group box; ones that equal the frame's are taken for the base class's and do not.
class SectionLine : public QGroupBox
{
public:
    /// `gap` is in pixels.
    SectionLine(const QString &title, int gap, QWidget *parent);

    /// As high as the line of its title, without the room that a style keeps for a frame.
    QSize minimumSizeHint() const override;
    /// What a checkable line shows in place of the style's indicator.
    void SetIndicator(const QIcon &unchecked, const QIcon &checked);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect TitleRect() const;
    QMargins FrameMargins() const;

    QMargins Margins;
    // None for the style's own indicator.
    QIcon Unchecked;
    QIcon Checked;
};
