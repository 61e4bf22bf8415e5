#pragma once

#include "checkexport.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace Orbel
{

/// A place of a text that a form translates where it shows it.
struct FormText {
    QString Context; ///< The name of the widget, or of the enumeration.
    QString Source;
    int Line; ///< In the file, from 1.
};

/// The texts of a form definition, or of all those of a component list, in the order of the file. What a script gives a
/// widget to show counts where it stands there as a text: `name.setText("...")`, `name.text = "..."`. Documents are
/// bytes as they stand in a file; a broken one gives the texts up to the fault.
ORBEL_CHECK_INTERNAL QVector<FormText> TextsOf(const QByteArray &document, bool isList);

} // namespace Orbel
