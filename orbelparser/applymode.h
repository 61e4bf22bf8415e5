#pragma once

#include <QMetaType>

namespace KV218
{

/// When a control's changes are meant to be applied, as the property `applyMode` states it. The library stores the
/// mode for the host and acts on it nowhere; 0 means that the definition names no mode. A script may set any number.
enum eApplyMode : int { ekInstantApplyMode = 1, ekNormalApplyMode = 2 };

} // namespace KV218

Q_DECLARE_METATYPE(KV218::eApplyMode)
