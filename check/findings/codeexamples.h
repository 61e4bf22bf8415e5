#pragma once

#include "codes.h"

namespace Orbel
{

/// The same piece of a form with a mistake and without.
struct CodeExample {
    QString Broken;
    QString Mended;
};

ORBEL_CHECK_INTERNAL CodeExample ExampleOf(Code code);
/// A piece of an example as a whole document: widgets, properties, enumerations and scripts get a form around them, and
/// a script that stands alone gets ExampleForm(). A document stays as it is.
ORBEL_CHECK_INTERNAL QString ExampleDocument(const QString &piece);
/// The form in which the scripts of the examples stand, with the script.
ORBEL_CHECK_INTERNAL QString ExampleForm(const QString &script);
/// All codes with their examples, as a page.
QString ExplainCodes();
/// The section of one code in that page, without its headline.
ORBEL_CHECK_INTERNAL QString Explain(Code code);

} // namespace Orbel
