// How a script that can be read uses controls and language.

#include "formcheck.h"
#include "scriptstudy.h"

#include <algorithm>

namespace Orbel
{

void CheckScriptUse(const FormModel &form, FindingSink &sink)
{
    if (form.Script < 0 || sink.Has(Code::ScriptSyntax))
        return;
    const ScriptStudy study(form, sink);
    // Behind `with` a name may be that of any object's member.
    const auto isWith = [](const ScriptNode &node) { return node.What == ScriptNode::With; };
    if (!study.Tree.IsWhole() || std::any_of(study.Tree.All().cbegin(), study.Tree.All().cend(), isWith))
        return;
    constexpr ScriptRule rules[] = {CheckScriptNames, CheckScriptMembers, CheckScriptProperties, CheckScriptCalls,
        CheckScriptConnections, CheckScriptNumbers, CheckScriptComparisons, CheckScriptChoices, CheckScriptSums,
        CheckScriptObjects, CheckScriptStatements, CheckScriptConditions, CheckScriptAssignments, CheckScriptReach,
        CheckScriptMargins, CheckScriptLoops, CheckScriptIndices};
    for (const ScriptRule rule : rules)
        rule(study);
}

} // namespace Orbel
