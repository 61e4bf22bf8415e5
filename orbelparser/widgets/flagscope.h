#pragma once

#include <QObject>
#include <QPointer>

namespace KV218
{

/// Sets a flag of an object and gives it back its state at the end of a block, unless the object ends before.
class FlagScope
{
public:
    FlagScope(QObject *owner, bool &flag) : Owner(owner), Flag(flag), Before(flag) { Flag = true; }
    ~FlagScope()
    {
        if (Owner)
            Flag = Before;
    }
    Q_DISABLE_COPY(FlagScope)

private:
    QPointer<QObject> Owner;
    bool &Flag;
    bool Before;
};

} // namespace KV218
