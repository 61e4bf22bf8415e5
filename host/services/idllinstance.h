#pragma once

#include "hostexport.h"

#include <QString>

/// What a plug-in library gives to the application frame.
class ORBEL_HOST_EXPORT IDllInstance
{
public:
    explicit IDllInstance(QString name);
    virtual ~IDllInstance();

    /// Called once with the arguments of the command line. False when the plug-in cannot work.
    virtual bool Init(int argc, const char **argv);
    /// Called when all plug-ins have been initialised, and before they go. Both do nothing by themselves.
    virtual void Start();
    virtual void Stop();

    /// The name that the plug-in was made with.
    const QString &GetInstanceName() const { return InstanceName; }

private:
    QString InstanceName;
};
