#pragma once

#include <QByteArrayList>
#include <QVector>

#include <array>

/// A monitoring receiver without its connections: its settings with their limits, the transmitters around it, and a
/// clock of its own. The same settings at the same time give the same level, for one seed.
class ReceiverModel
{
public:
    /// Switches are 1 or 0.
    enum Setting {
        Frequency, ///< Hz
        FrequencyStep, ///< Hz; one step up or down
        Bandwidth, ///< Hz; one of Choices()
        Demodulation, ///< index into Demodulations()
        AutoGain, ///< whether the receiver chooses the gain
        Gain, ///< dB; to set it ends the automatic gain
        Squelch, ///< whether weak signals are silenced
        SquelchLevel, ///< dBµV
        Volume, ///< percent
        ScanStart, ///< Hz
        ScanStop, ///< Hz
        ScanStep, ///< Hz
        ScanDwell, ///< seconds on a frequency
        ScanRun, ///< whether a scan runs, which then tunes the receiver
        SettingCount
    };
    enum class Answer { Done, OutOfRange, NoChoice, Conflict };

    explicit ReceiverModel(quint32 seed = 1);

    /// Back to what the receiver has when it is switched on. Its clock goes on.
    void Reset();
    /// Changes a setting, rounded to its resolution, or tells why not: then nothing has changed. While a scan runs
    /// neither the frequency nor the scan's range can be set; no scan runs from a start above its stop.
    Answer Set(Setting setting, double value);
    double Get(Setting setting) const;
    /// The value one step above (1) or below (-1); may lie beyond the limits.
    double Beside(Setting setting, int direction) const;

    static double Lowest(Setting setting);
    static double Highest(Setting setting);
    static double Preset(Setting setting);
    /// How many decimal places a setting has.
    static int Decimals(Setting setting);
    /// The values that a setting may have, in their order; empty where it may have any within its limits.
    static QVector<double> Choices(Setting setting);
    static QByteArrayList Demodulations();

    /// Lets time pass.
    void Advance(int milliseconds);
    /// At the antenna, in dBµV: noise of the bandwidth and whatever transmits in it now.
    double Level() const;
    /// Whether something is to be heard: the squelch is off, or the level is not below its threshold.
    bool IsOpen() const;

private:
    void Scan();
    double AutomaticGain() const;

    std::array<double, SettingCount> Values;
    quint32 Seed;
    qint64 Now = 0;
    qint64 ScanBegin = 0;
};
