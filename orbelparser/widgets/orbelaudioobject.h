#pragma once

#include "orbeldelegate.h"

namespace KV218
{

/// Lets a form's script choose the source of the application's audio. Class name: `SpecialObject_Audio`. It remembers
/// nothing: each call is passed on, the same one again too.
class OrbelAudioObject : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelAudioObject(OrbelWidget *widget);

Q_SIGNALS:
    void si_audioSourceAnalog();
    void si_audioSourceDigital();
    void si_audioSourceNone();

public:
    Q_INVOKABLE void setAudioSourceToAnalog()
    {
        const Call call(this);
        Q_EMIT si_audioSourceAnalog();
    }
    Q_INVOKABLE void setAudioSourceToDigital()
    {
        const Call call(this);
        Q_EMIT si_audioSourceDigital();
    }
    Q_INVOKABLE void setAudioSourceToNone()
    {
        const Call call(this);
        Q_EMIT si_audioSourceNone();
    }
};

} // namespace KV218
