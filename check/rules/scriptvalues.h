#pragma once

#include "scriptstudy.h"

namespace Orbel
{

/// What expressions of a script stand for where they are compared or computed with.
class ScriptValues
{
public:
    explicit ScriptValues(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    /// How a control or a function stands where a value is wanted; empty for anything else.
    QString Misused(int node) const;
    /// Tells that, unless the other side is of that kind, too. Whether it did.
    bool TellMisused(int node, int other, Code code) const;
    /// Whether a property is a number where it is read, since its own signal has just told of a change.
    bool IsNumberBy(int node) const;

private:
    const ScriptStudy &Study;
    const ScriptTree &Tree;
};

/// Whether a text becomes a number where one is wanted. A blank one becomes 0.
bool IsNumberText(const QString &text);

} // namespace Orbel
