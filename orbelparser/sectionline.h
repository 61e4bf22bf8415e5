#pragma once

#include <QGroupBox>

/// The group box over a section: its title and a line, without the frame that some styles draw around the contents even
/// of a flat group box. There are no contents.
class SectionLine : public QGroupBox
{
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent *event) override;
};
