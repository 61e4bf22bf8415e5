#pragma once

#include <QStringList>

namespace Orbel
{

/// Those for which there is a catalogue FORM_LANGUAGE.qm beside the form, that of the process, and English.
QStringList LanguagesOf(const QString &form);

/// Makes it the language of the process; all open forms follow.
void SwitchLanguage(const QString &name);

} // namespace Orbel
