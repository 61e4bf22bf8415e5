#pragma once

#include "checkexport.h"

#include <QSet>
#include <QString>

namespace Orbel
{

/// The globals that a script engine has before a form adds its own.
ORBEL_CHECK_INTERNAL const QSet<QString> &ScriptBuiltins();
/// Words that the script language keeps for itself, as names and behind a dot alike.
ORBEL_CHECK_INTERNAL const QSet<QString> &ReservedWords();
/// Whether a script can write the text as a name, alone and behind a dot.
ORBEL_CHECK_INTERNAL bool IsScriptName(const QString &text);

} // namespace Orbel
