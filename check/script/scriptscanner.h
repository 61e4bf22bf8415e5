#pragma once

#include "checkexport.h"

#include <QString>
#include <QVector>

namespace Orbel
{

struct ScriptToken {
    enum Kind { Name, Literal, Mark };
    Kind What;
    QString Text; ///< Of a text what stands between its quotation marks, of another literal nothing.
    int Index; ///< In the code.
    int End; ///< Behind its last character.
};

/// Names and marks of a script, without comments and white space; texts, numbers and regular expressions count as
/// literals. Meant for code that the engine takes.
ORBEL_CHECK_INTERNAL QVector<ScriptToken> ScanScript(const QString &code);
/// Where the comments begin that end with their line.
ORBEL_CHECK_INTERNAL QVector<int> LineComments(const QString &code);

} // namespace Orbel
