#pragma once

#include <QStringList>

/// How the receiver is to misbehave, and when.
struct SimOptions {
    /// Milliseconds that each line waits before it is carried out.
    int Slow = 0;
    /// Commands that are refused, with the wildcards '*' and '?'.
    QStringList Refused;
    /// How many lines a client may send before its connection is dropped; 0 for any number.
    int DropAfter = 0;
    /// Reports a second for clients that did not ask for any.
    double Rate = 0;
    /// How many seconds of the receiver pass in one.
    double Speed = 1;
    quint32 Seed = 1;
};
