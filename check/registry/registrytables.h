#pragma once

#include "registry.h"

namespace Orbel
{

/// The data of the registry; Registry looks things up in it.
const QVector<ClassInfo> &ClassTable();
const QVector<PropertyInfo> &CommonTable();
const QVector<PropertyInfo> &SheetTable();

} // namespace Orbel
