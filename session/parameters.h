#pragma once

#include "change.h"
#include "controlinfo.h"

#include <QVector>

namespace KV218
{
class OrbelDelegate;
class OrbelFormular;
} // namespace KV218

namespace Orbel
{

/// The control at a parameter path, or the first one with that element name; null, and a text in `error` that names the
/// nearest path, for none. `error` may be null.
KV218::OrbelDelegate *FindControl(KV218::OrbelFormular &form, const QString &path, QString *error);

/// Puts the control before the reason that it gave.
void NameInError(const KV218::OrbelDelegate &control, QString *error);

/// All controls as data, in the order of the definition.
QVector<ControlInfo> ControlsOf(KV218::OrbelFormular &form);

/// What is changed and not applied, in the order of the changes.
QVector<Change> ChangesOf(KV218::OrbelFormular &form);

} // namespace Orbel
