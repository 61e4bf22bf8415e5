#pragma once

#include <QSet>
#include <QString>

namespace Orbel
{

/// The globals that a script engine has before a form adds its own.
const QSet<QString> &ScriptBuiltins();
/// Words that the script language keeps for itself, as names and behind a dot alike.
const QSet<QString> &ReservedWords();
/// Whether a script can write the text as a name, alone and behind a dot.
bool IsScriptName(const QString &text);

} // namespace Orbel
