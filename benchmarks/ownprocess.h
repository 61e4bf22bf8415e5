#pragma once

#include <QStringList>

/// Measures that start from an empty heap: what the work before them leaves behind takes part in them otherwise.
namespace ownprocess
{

/// Runs this program once more with these arguments, and gives what it prints. Ends this one when that one fails.
QString OutputOf(const QStringList &arguments);

} // namespace ownprocess
