#pragma once

#include "scriptstudy.h"

namespace Orbel
{

/// Choices of enumerations against the texts that a script compares them with, or sets them to.
class ScriptChoiceCheck
{
public:
    explicit ScriptChoiceCheck(const ScriptStudy &study) : Study(study), Tree(study.Tree) { }

    /// All calls and assignments.
    void Run();
    /// Two sides of a comparison, of which the first may be a choice. True when something was told.
    bool Compare(int choice, int other, bool isStrict);

private:
    bool CompareNumber(const EnumEntry &rows, int other, double number, bool isStrict);
    /// A parameter that gets choices of several enumerations, and is compared with what one of them does not have.
    bool CompareSources(int parameter, int constant);
    bool TellChoice(const EnumEntry &rows, int constant);
    void CheckCall(int call);
    void CheckAssign(int assignment);

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    QSet<int> ToldSources;
};

} // namespace Orbel
