#pragma once

#include "scriptstudy.h"

namespace Orbel
{

/// The values that the variable of a plain loop takes: `for (var i = 0; i < 3; ++i)`.
struct LoopRange {
    int Variable = -1; ///< -1 for another loop.
    double First = 0;
    double Last = -1; ///< Where it is a number.
    QString LastOf; ///< Code of what ends it, when that is no number: the last value is one less, or that itself.
    bool IsLastIncluded = false;
};

/// What the variables of counting loops are, and how long the lists of a script.
class ScriptLoops
{
public:
    explicit ScriptLoops(const ScriptStudy &study);

    /// 1 and -1 for a step that counts the variable up and down; 0 for anything else.
    int StepOf(int step, int variable) const;
    bool IsSetInBody(int loop, int variable) const;
    /// Of a list that stands in the script, and which nobody makes longer; -1 of anything else.
    int LengthOf(int list) const;
    /// The greatest number that an index takes; false when it cannot be told. `endOf` is the code of what the count is.
    bool GreatestOf(int index, const QString &endOf, double count, double *greatest) const;

private:
    LoopRange RangeOf(int loop) const;
    bool GreatestOfName(int name, const QString &endOf, double count, double *greatest) const;
    bool IsLeftEarly(int loop, int variable) const;
    bool Asks(int expression, int variable) const;
    bool IsTest(int outer, int part, int variable) const;
    bool IsOnlyRead(const ScriptVariable &list) const;

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QHash<int, LoopRange> Ranges; ///< Of each `for`.
    QHash<int, int> Lengths; ///< Of variables that are lists.
};

} // namespace Orbel
