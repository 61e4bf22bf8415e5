// How a script that can be read uses controls and language.

#include "formcheck.h"
#include "scriptstudy.h"

namespace Orbel
{

void CheckScriptUse(const FormModel &form, FindingSink &sink)
{
    if (form.Script < 0 || sink.Has(Code::ScriptSyntax))
        return;
    const ScriptStudy study(form, sink);
    if (!study.Tree.IsWhole())
        return;
    constexpr ScriptRule rules[] = {CheckScriptNames, CheckScriptMembers, CheckScriptConnections, CheckScriptNumbers,
        CheckScriptKinds, CheckScriptObjects, CheckScriptStatements, CheckScriptLoops};
    for (const ScriptRule rule : rules)
        rule(study);
}

} // namespace Orbel
