#pragma once

#include "opendocument.h"

namespace Orbel
{

/// What an author is told about a thing in a form.
struct HoverText {
    TextSpan Span;
    QString Markdown; ///< Empty where there is nothing to tell.
};

HoverText HoverAt(const OpenForm &form, int place);

} // namespace Orbel
