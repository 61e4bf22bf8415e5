#pragma once

#include <QVector>
#include <QWidget>

/// The level of the last half minute as a line, and the newest one as a number.
class LevelView : public QWidget
{
public:
    LevelView();

    /// Adds a level in dBµV, measured at a frequency in Hz; a level that is no number interrupts the line.
    void Add(double level, double frequency);

private:
    void paintEvent(QPaintEvent *event) override;

    /// The newest last.
    QVector<double> Levels;
    double Frequency = 0;
};
