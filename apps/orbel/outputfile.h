#pragma once

#include <QByteArray>
#include <QString>

namespace Orbel
{

/// Puts the bytes into the file, or to standard output for "-". A file that is there keeps its permissions, and stays
/// as it was when the bytes cannot all be written. Throws a Failure then.
void WriteWhole(const QString &path, const QByteArray &bytes);

} // namespace Orbel
