#pragma once

#include "valuebase.h"

#include <functional>

/// Writes down what it is told, as its name and the code, and then reacts.
struct Witness : IObserver {
    explicit Witness(const QString &name = QString(), QStringList *log = nullptr)
        : Name(name), Log(log ? log : &Own) { }
    void Update(Observable *subject, TChangeCode code) override
    {
        *Log << Name + QString::number(code);
        if (const auto reaction = Reaction) // a copy: it may put another one in its place
            reaction(subject, code);
    }
    /// Reacts to the next notification alone.
    void Once(const std::function<void()> &action)
    {
        Reaction = [this, action](Observable *, TChangeCode) {
            const auto now = action;
            Reaction = nullptr;
            now();
        };
    }
    /// What it was told since the last time, joined with blanks.
    QString Told() { return std::exchange(*Log, {}).join(' '); }

    std::function<void(Observable *, TChangeCode)> Reaction;

private:
    QString Name;
    QStringList Own, *Log;
};
