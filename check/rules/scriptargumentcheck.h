#pragma once

#include "scriptstudy.h"

namespace Orbel
{

/// A value that a script gives to a function, or sets a property to, against the type that is wanted.
class ScriptArgumentCheck
{
public:
    /// `wants` is the property or function.
    ScriptArgumentCheck(const ScriptStudy &study, int value, const QString &wants)
        : Study(study), Tree(study.Tree), Value(value), Wants(wants)
    {
    }

    /// Where a Bool counts as a script takes it (`isScriptBool`), any text but the empty one is true; a property's is
    /// false for "false" and "0", too.
    void Run(ValueType type, bool isScriptBool = false);

private:
    bool TellItself();
    void CheckBool(const QString &text, bool isScriptBool);
    void CheckNumber(const QString &text, bool isWhole);

    const ScriptStudy &Study;
    const ScriptTree &Tree;
    const int Value;
    const QString Wants;
};

} // namespace Orbel
