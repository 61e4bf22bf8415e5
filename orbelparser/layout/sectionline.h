#pragma once

#include <QGroupBox>

/// The group box over a section: its title and a line, without the frame that some styles draw around the contents even
/// of a flat group box. There are no contents; the top contents margin is the gap above the line. Margins that a host
/// sets stay, unlike those of a plain group box; ones that equal the frame's are taken for the base class's and do not.
/// A style sheet of its own, which names the pictures of its indicator, does not keep it from following its parent's
/// font and colours.
class SectionLine : public QGroupBox
{
public:
    /// `gap` is in pixels.
    SectionLine(const QString &title, int gap, QWidget *parent);

    /// As high as the line of its title, without the room that a style keeps for a frame.
    QSize minimumSizeHint() const override;
    /// To be called when the parent's font or colours have changed.
    void FollowParent();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRect TitleRect() const;
    QMargins FrameMargins() const;

    QMargins Margins;
};
