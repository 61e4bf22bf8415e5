#pragma once

#include "checkexport.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orbel
{

/// One thing in which two definitions differ.
struct FormDifference {
    /// Moved is what stands behind another neighbour, with nothing else changed.
    enum Kind { Added, Gone, Changed, Moved };
    Kind What; ///< What became of it.
    QString Part; ///< "widget", "enumeration", "sheet", "script" or "form".
    QString Name; ///< Of the widget or the enumeration; of one without a name what it is called after its place.
    QString Detail; ///< What of it: "class", "property gain", "row 2", "place in the parameter document"; empty for all
                    ///< of it.
    QString Before; ///< Empty for what is added.
    QString After; ///< Empty for what is gone.
    int LineBefore; ///< From 1; 0 for what is not there.
    int LineAfter; ///< From 1; 0 for what is gone.
};

/// "added", "gone", "changed" or "moved".
ORBEL_CHECK_EXPORT QString NameOf(FormDifference::Kind kind);

/// What differs between two definitions, by widget and property, in the order of the second one, with what is gone at
/// its end. White space, comments, the order of properties and the spelling in XML are no differences. Documents that
/// are malformed are compared as far as they can be read.
ORBEL_CHECK_EXPORT QVector<FormDifference> CompareForms(const QByteArray &before, const QByteArray &after);

} // namespace Orbel
