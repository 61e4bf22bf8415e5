#pragma once

#include "checkexport.h"

#include <QLatin1String>
#include <QString>
#include <QVector>

namespace Orbel
{

/// An element that means something in form definitions.
struct ORBEL_CHECK_INTERNAL ElementInfo {
    QLatin1String name;
    QVector<QLatin1String> parents; ///< Into which it belongs directly; none for the form itself.
    QVector<QLatin1String> attributes;
    const char *meaning; ///< One sentence.

    /// Whether it holds a mere text: a value, or a part of a choice.
    bool IsText() const;
    /// Whether it is the value element of a property.
    bool IsValue() const;
};

/// All of them, from the outermost in; the elements of values come last.
ORBEL_CHECK_INTERNAL const QVector<ElementInfo> &ElementTable();
/// Null for an element that means nothing anywhere.
ORBEL_CHECK_INTERNAL const ElementInfo *FindElement(const QString &name);

} // namespace Orbel
