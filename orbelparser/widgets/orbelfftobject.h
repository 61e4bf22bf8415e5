#pragma once

#include "orbeldelegate.h"

namespace KV218
{

/// Tells a form's script how finely a spectrum of a given length and sample rate resolves frequency and time. Class
/// name: `SpecialObject_FFT`. It has no node and writes no parameters.
class OrbelFFTObject : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelFFTObject(OrbelWidget *widget);

    void TakeValues(const OrbelDelegate &former, const QVariantList &edits) override;

Q_SIGNALS:
    void si_signalSampleRateChanged(qint64);
    /// Frequency resolution in Hz, time resolution in microseconds; comes before the sample rate's own signal.
    void si_spectralResolutionChanged(double, double);

public Q_SLOTS:
    /// In bins. An equal value does nothing.
    void setFFTLength(quint32 value);
    /// In Hz. An equal value does nothing.
    void setSignalSampleRate(qint64 value);

public:
    /// The resolutions with the unit that suits them, or "-" while they are not known.
    Q_INVOKABLE QString frequencyResolutionString();
    Q_INVOKABLE QString timeResolutionString();
    /// In Hz; 0 while length or sample rate is 0.
    Q_INVOKABLE double frequencyResolution() { return FrequencyResolution; }
    /// In microseconds; 0 while length or sample rate is 0.
    Q_INVOKABLE double timeResolution() { return TimeResolution; }
    Q_INVOKABLE qint64 signalSampleRate() { return SignalSampleRate; }

private:
    void Recompute();

    quint32 FFTLength = 0;
    qint64 SignalSampleRate = 0;
    double FrequencyResolution = 0.0;
    double TimeResolution = 0.0;
};

} // namespace KV218
