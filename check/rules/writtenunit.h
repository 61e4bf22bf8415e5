#pragma once

#include <QString>

namespace Orbel
{

/// A unit as authors write it: " kHz" is a thousand of "Hz".
struct WrittenUnit {
    QString Base; ///< Empty for a text that is no unit known here.
    double Size = 1; ///< In the base.

    static WrittenUnit Of(const QString &text);
    /// What stands in brackets at the end of a label.
    static WrittenUnit OfLabel(const QString &label);
};

} // namespace Orbel
