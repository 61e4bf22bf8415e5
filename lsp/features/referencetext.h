#pragma once

#include "elementtable.h"
#include "formmodel.h"
#include "scriptmembers.h"

namespace Orbel
{

/// What the reference tells, in Markdown, for hovers and completions.
QString TextOf(const ElementInfo &element);
QString TextOf(const ClassInfo &info);
QString TextOf(const PropertyInfo &property);
QString TextOf(const ScriptMember &member);
QString TextOf(const EnumEntry &entry);
QString TextOf(const EnumRow &row, const EnumEntry &entry);
QString TextOf(const WidgetEntry &widget);

} // namespace Orbel
