#include "receivermodel.h"

#include <cmath>

namespace
{

struct Limits {
    double Lowest, Highest, Preset;
    int Decimals;
};

// clang-format off
const Limits LimitsOf[ReceiverModel::SettingCount] = {
    {   9e3, 26.5e9, 98.5e6, 0}, // Frequency
    {     1,    1e9,   25e3, 0}, // FrequencyStep
    {   100,    2e6,  120e3, 0}, // Bandwidth
    {     0,      6,      1, 0}, // Demodulation
    {     0,      1,      1, 0}, // AutoGain
    {   -30,     60,     20, 0}, // Gain
    {     0,      1,      0, 0}, // Squelch
    {   -30,    130,      6, 1}, // SquelchLevel
    {     0,    100,     30, 0}, // Volume
    {   9e3, 26.5e9,   88e6, 0}, // ScanStart
    {   9e3, 26.5e9,  108e6, 0}, // ScanStop
    {     1,    1e9,  100e3, 0}, // ScanStep
    {  0.01,     10,    0.1, 2}, // ScanDwell
    {     0,      1,      0, 0}, // ScanRun
};

const double Bandwidths[] = {100, 300, 600, 1e3, 1.5e3, 2.4e3, 6e3, 9e3, 12e3, 15e3, 30e3, 50e3, 120e3, 150e3, 250e3,
    500e3, 1e6, 2e6};

/// Somebody who transmits, all the time or for a part of each period.
struct Transmitter {
    double Frequency, Bandwidth; // Hz
    double Level;                // dBµV at the antenna, in the whole bandwidth
    qint64 Period, On;           // milliseconds
};

const Transmitter Transmitters[] = {
    {    77.5e3,   200, 42,     1,    1}, // time signal
    {     999e3,   9e3, 55,     1,    1}, // medium wave
    {    6.07e6,   9e3, 48,     1,    1}, // short wave
    {   14.25e6, 2.4e3, 22,  9000, 6000}, // amateurs
    {    91.8e6, 150e3, 61,     1,    1}, // broadcast
    {    98.5e6, 150e3, 54,     1,    1},
    {   105.2e6, 150e3, 37,     1,    1},
    {  121.75e6,   8e3, 31, 20000, 4000}, // tower
    {   145.5e6,  12e3, 28,  7000, 5000}, // relay
    {  162.55e6,  15e3, 33,     1,    1}, // weather
    { 433.92e6,  100e3, 40,  2000,  300}, // sensors
    {     806e6, 7.6e6, 58,     1,    1}, // television
    {  1090e6,     2e6, 26,   500,   60}, // aircraft
    {    2.44e9,  20e6, 35,    90,   40}, // network
    {  10.489e9, 500e3, 18,     1,    1}, // satellite
};
// clang-format on

/// Thermal noise in dBµV at 50 ohms, and what the receiver adds to it.
const double NoiseInOneHertz = -174 + 107 + 12;
/// How far the gain that the receiver chooses brings a level up, in dB.
const double GainTarget = 60;

double Power(double decibels)
{
    return std::pow(10, decibels / 10);
}
double Decibels(double power)
{
    return 10 * std::log10(power);
}

/// Spreads whatever differs over all bits.
quint64 Mix(quint64 bits)
{
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9u;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebu;
    return bits ^ (bits >> 31);
}

/// Between -2 and 2 and mostly near 0, the same for the same arguments.
double Noise(quint32 seed, qint64 time, double frequency)
{
    const quint64 bits = Mix(Mix(Mix(seed) + quint64(time)) + quint64(frequency));
    double sum = 0;
    for (int part = 0; part < 4; ++part)
        sum += double(bits >> (16 * part) & 0xffff) / 0xffff;
    return sum - 2;
}

bool IsOn(const Transmitter &transmitter, qint64 time)
{
    return time % transmitter.Period < transmitter.On;
}

/// Which part of a transmitter a channel takes in.
double PartWithin(const Transmitter &transmitter, double frequency, double bandwidth)
{
    const double low = std::max(transmitter.Frequency - transmitter.Bandwidth / 2, frequency - bandwidth / 2);
    const double high = std::min(transmitter.Frequency + transmitter.Bandwidth / 2, frequency + bandwidth / 2);
    return std::max(0.0, high - low) / transmitter.Bandwidth;
}

} // namespace

ReceiverModel::ReceiverModel(quint32 seed) : Seed(seed)
{
    Reset();
}

void ReceiverModel::Reset()
{
    for (int setting = 0; setting < SettingCount; ++setting)
        Values[size_t(setting)] = LimitsOf[setting].Preset;
}

ReceiverModel::Answer ReceiverModel::Set(Setting setting, double value)
{
    const double factor = std::pow(10, Decimals(setting));
    const double rounded = std::round(value * factor) / factor;
    if (!(rounded >= Lowest(setting) && rounded <= Highest(setting)))
        return Answer::OutOfRange;
    const QVector<double> choices = Choices(setting);
    if (!choices.isEmpty() && !choices.contains(rounded))
        return Answer::NoChoice;
    const bool isScanned = setting == Frequency || setting == ScanStart || setting == ScanStop || setting == ScanStep;
    if (isScanned && Values[ScanRun] == 1)
        return Answer::Conflict;
    if (setting == ScanRun && rounded == 1 && Values[ScanStart] > Values[ScanStop])
        return Answer::Conflict;

    if (setting == AutoGain)
        Values[Gain] = Get(Gain); // where the receiver has brought it, it stays
    if (setting == Gain)
        Values[AutoGain] = 0;
    Values[setting] = rounded;
    if (setting == ScanRun || setting == ScanDwell)
        ScanBegin = Now;
    if (setting == ScanRun)
        Scan();
    return Answer::Done;
}

double ReceiverModel::Get(Setting setting) const
{
    return setting == Gain && Values[AutoGain] == 1 ? AutomaticGain() : Values[setting];
}

double ReceiverModel::Beside(Setting setting, int direction) const
{
    const double value = Get(setting);
    const QVector<double> choices = Choices(setting);
    if (!choices.isEmpty())
        return choices.value(choices.indexOf(value) + direction, direction > 0 ? INFINITY : -INFINITY);
    return value + direction * (setting == Frequency ? Values[FrequencyStep] : std::pow(10, -Decimals(setting)));
}

double ReceiverModel::Lowest(Setting setting)
{
    return LimitsOf[setting].Lowest;
}

double ReceiverModel::Highest(Setting setting)
{
    return LimitsOf[setting].Highest;
}

double ReceiverModel::Preset(Setting setting)
{
    return LimitsOf[setting].Preset;
}

int ReceiverModel::Decimals(Setting setting)
{
    return LimitsOf[setting].Decimals;
}

QVector<double> ReceiverModel::Choices(Setting setting)
{
    return setting == Bandwidth ? QVector<double>(std::begin(Bandwidths), std::end(Bandwidths)) : QVector<double>();
}

QByteArrayList ReceiverModel::Demodulations()
{
    return {"AM", "FM", "USB", "LSB", "CW", "PULSE", "IQ"};
}

void ReceiverModel::Advance(int milliseconds)
{
    Now += milliseconds;
    Scan();
}

void ReceiverModel::Scan()
{
    if (Values[ScanRun] == 0)
        return;
    const qint64 count = qint64((Values[ScanStop] - Values[ScanStart]) / Values[ScanStep]) + 1;
    const qint64 passed = (Now - ScanBegin) / std::llround(Values[ScanDwell] * 1000);
    Values[Frequency] = Values[ScanStart] + double(passed % count) * Values[ScanStep];
}

double ReceiverModel::Level() const
{
    const double frequency = Values[Frequency];
    const double bandwidth = Values[Bandwidth];
    double power = Power(NoiseInOneHertz + Decibels(bandwidth) + Noise(Seed, Now, frequency));
    for (const Transmitter &transmitter : Transmitters) {
        if (IsOn(transmitter, Now))
            power += Power(transmitter.Level + Noise(Seed + 1, Now, transmitter.Frequency) / 2)
                * PartWithin(transmitter, frequency, bandwidth);
    }
    return Decibels(power);
}

bool ReceiverModel::IsOpen() const
{
    return Values[Squelch] == 0 || Level() >= Values[SquelchLevel];
}

double ReceiverModel::AutomaticGain() const
{
    return std::round(std::min(std::max(GainTarget - Level(), Lowest(Gain)), Highest(Gain)));
}
