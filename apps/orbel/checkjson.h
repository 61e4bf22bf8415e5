#pragma once

#include "orbelcheck.h"

class QJsonArray;
class QJsonObject;

namespace Orbel
{

/// One finding as `orbel check --json` prints it.
QJsonObject ToJson(const Finding &finding, const QString &path);
/// The array as text, one finding or property a line.
QString JsonText(const QJsonArray &array);

/// Findings on their way from one process to another.
QString FindingsToJson(const Findings &findings);
/// Not valid when the text is no list of findings.
Findings FindingsFromJson(const QByteArray &text, bool *isValid);

} // namespace Orbel
