#pragma once

#include <QGroupBox>

/// The group box over a section: its title and a line, without the frame that some styles draw around the contents even
/// of a flat group box. There are no contents; the top contents margin is the gap above the line.
class SectionLine : public QGroupBox
{
public:
    /// `gap` is in pixels.
    SectionLine(const QString &title, int gap, QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    const QMargins Margins;
};
