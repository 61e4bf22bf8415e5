#pragma once

#include "orbelexport.h"

#include <QStringList>

namespace KV218
{

class OrbelDelegate;
class OrbelWidget;

/// Makes the delegate for a class name, compared in the same case; a plain OrbelDelegate for a name that is not in the
/// table. The caller owns it.
OrbelDelegate *NewDelegate(const QString &className, OrbelWidget *widget);

/// All class names of the table, in its order.
QStringList DelegateClassNames();

} // namespace KV218
