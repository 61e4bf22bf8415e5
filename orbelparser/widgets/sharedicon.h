#pragma once

#include <QIcon>

namespace KV218
{

/// The icon ":/OrbelParser/`name`.svg", one for all forms: for every icon that was ever drawn Qt keeps an entry to the
/// end of the process, so that icons of each form's own would add up.
QIcon SharedIcon(const QString &name);

} // namespace KV218
