#pragma once

#include <QGroupBox>

/// The group box over a section: its title and a line, without the frame that some styles draw around the contents even
/// of a flat group box. There are no contents; the top contents margin is the gap above the line. Margins that a host
/// sets stay, unlike those of a plain group box; ones that equal the frame's are taken for the base class's and do not.
class SectionLine : public QGroupBox
{
public:
    /// `gap` is in pixels.
    SectionLine(const QString &title, int gap, QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QMargins FrameMargins() const;

    QMargins Margins;
};
