#pragma once

#include "orbelcheck.h"

/// Whether a file is read as a component list, by its name.
bool IsComponentList(const QString &path);

/// Builds and runs the forms of a file in this process. A script is stopped after two seconds; one that cannot be
/// stopped keeps the process.
Orbel::Findings RunForms(const QString &path);

/// The same in a process of its own, which is ended when it does not end by itself, and whose end by a fault is a
/// finding as well.
Orbel::Findings RunInProcess(const QString &path);
