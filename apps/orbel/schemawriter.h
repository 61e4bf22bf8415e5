#pragma once

#include <QByteArray>

namespace Orbel
{

/// The XML schema of form definitions: the elements and their order, all class names, and the names of all properties
/// with their meanings. Which class reads which property a schema cannot tell; `orbel check` does.
QByteArray FormSchema();

} // namespace Orbel
