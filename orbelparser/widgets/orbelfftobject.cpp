#include "orbelfftobject.h"

#include "latin1.h"
#include "newcontrol.h"

namespace KV218
{

namespace
{

constexpr double MicrosecondsPerSecond = 1000000.0;
constexpr double MicrosecondsPerMillisecond = 1000.0;

} // namespace

OrbelDelegate *NewSpecialObject_FFT(OrbelWidget *widget)
{
    return NewControl<OrbelFFTObject>(widget);
}

OrbelFFTObject::OrbelFFTObject(OrbelWidget *widget) : OrbelDelegate(widget) { }

void OrbelFFTObject::TakeValues(const OrbelDelegate &former, const QVariantList &)
{
    const auto *object = qobject_cast<const OrbelFFTObject *>(&former);
    if (!object)
        return;
    const Call call(this);
    setFFTLength(object->FFTLength);
    setSignalSampleRate(object->SignalSampleRate);
}

void OrbelFFTObject::setFFTLength(quint32 value)
{
    if (value == FFTLength)
        return;
    FFTLength = value;
    Touch();
    const Call call(this);
    Recompute();
}

void OrbelFFTObject::setSignalSampleRate(qint64 value)
{
    if (value == SignalSampleRate)
        return;
    SignalSampleRate = value;
    Touch();
    const Call call(this);
    Recompute();
    Q_EMIT si_signalSampleRateChanged(SignalSampleRate);
}

void OrbelFFTObject::Recompute()
{
    FrequencyResolution = FFTLength ? double(SignalSampleRate) / double(FFTLength) : 0.0;
    TimeResolution = FrequencyResolution != 0.0 ? 1.0 / FrequencyResolution * MicrosecondsPerSecond : 0.0;
    // Meant: emitted even when both stay as they were, so a script hears of each choice.
    Q_EMIT si_spectralResolutionChanged(FrequencyResolution, TimeResolution);
}

QString OrbelFFTObject::frequencyResolutionString()
{
    if (!(FrequencyResolution > 0.0))
        return QStringLiteral("-");
    return formatHertz(FrequencyResolution);
}

QString OrbelFFTObject::timeResolutionString()
{
    if (!(TimeResolution > 0.0))
        return QStringLiteral("-");
    // Meant: long times stay in milliseconds; there is no row for seconds.
    if (TimeResolution > MicrosecondsPerMillisecond)
        return formatString(TimeResolution / MicrosecondsPerMillisecond, 6, Latin1(" ms"));
    return formatString(TimeResolution, 0, Latin1(" \xB5s"));
}

} // namespace KV218
