#pragma once

#include "registry.h"

#include <QString>

namespace Orbel
{

/// The pages of the reference, in Markdown. They need a QApplication, since they load the examples that they show.

/// The page of a class.
QString ClassPage(const ClassInfo &info);
/// The page of the sheet.
QString SheetPage();
/// The list of all pages, and what every control has.
QString IndexPage();

} // namespace Orbel
