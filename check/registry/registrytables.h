#pragma once

#include "registry.h"

namespace Orbel
{

/// The data of the registry; Registry looks things up in it.
const QVector<ClassInfo> &ClassTable();
/// What the rows tell of a class, of every control, or of the sheet.
struct ClassRows {
    QVector<PropertyInfo> properties;
    QVector<MemberInfo> members;
    QVector<const char *> cannot;
};
const ClassRows &CommonRows();
const ClassRows &SheetRows();

} // namespace Orbel
