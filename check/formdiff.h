#pragma once

#include "checkexport.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orbel
{

/// One thing in which two definitions differ.
struct FormDifference {
    /// Moved is what stands behind another neighbour; what changed in it, too, is told beside that.
    enum Kind { Added, Gone, Changed, Moved };
    Kind What; ///< What became of it.
    QString Part; ///< "widget", "enumeration", "sheet", "script", "form" or "component".
    QString Name; ///< Of the widget, enumeration or component; of a widget without one what its place calls it.
    QString Detail; ///< What of it: "class", "property gain", "row 2", "place in the parameter document"; empty for all
                    ///< of it.
    QString Before; ///< Empty for what is added.
    QString After; ///< Empty for what is gone.
    int LineBefore; ///< From 1; 0 for what is not there.
    int LineAfter; ///< From 1; 0 for what is gone.
    QString Component = {}; ///< Of a component list the component whose form it is; empty otherwise.
};

/// A file to be compared.
struct ComparedFile {
    /// One definition, a template that gives one, or a component list.
    enum Kind { Definition, Template, List };
    QByteArray Bytes; ///< As they stand in the file.
    Kind What; ///< A template counts as the definition that it gives, with lines of the template.
};

/// "added", "gone", "changed" or "moved".
ORBEL_CHECK_EXPORT QString NameOf(FormDifference::Kind kind);

/// What differs between two definitions, by widget and property, in the order of the second one, with what is gone at
/// its end. White space, comments, the order of properties and the spelling in XML are no differences. Documents that
/// are malformed are compared as far as they can be read.
ORBEL_CHECK_EXPORT QVector<FormDifference> CompareForms(const QByteArray &before, const QByteArray &after);
/// The same of files; forms of component lists are compared with those of the same name.
ORBEL_CHECK_EXPORT QVector<FormDifference> CompareForms(const ComparedFile &before, const ComparedFile &after);

} // namespace Orbel
