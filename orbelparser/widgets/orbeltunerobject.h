#pragma once

#include "orbeldelegate.h"

namespace KV218
{

/// Through which a form's script tells the application what its tuner covers and which spectra are wanted. Class name:
/// `SpecialObject_Tuner`. It remembers nothing: each call is passed on, the same one again too.
class OrbelTunerObject : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelTunerObject(OrbelWidget *widget);

Q_SIGNALS:
    void si_IFPanSpectrumEnabled(bool);
    void si_PIFPanSpectrumEnabled(bool);
    /// Centre frequency and bandwidth in Hz.
    void si_segmentChanged(qint64, quint32);

public:
    Q_INVOKABLE void setIFPanSpectrumEnabled(bool enabled)
    {
        const Call call(this);
        Q_EMIT si_IFPanSpectrumEnabled(enabled);
    }
    Q_INVOKABLE void setPIFPanSpectrumEnabled(bool enabled)
    {
        const Call call(this);
        Q_EMIT si_PIFPanSpectrumEnabled(enabled);
    }
    /// Both in Hz, passed on as they are.
    Q_INVOKABLE void emitSegment(qint64 centerFreq, quint32 bandwidth)
    {
        const Call call(this);
        Q_EMIT si_segmentChanged(centerFreq, bandwidth);
    }
};

} // namespace KV218
