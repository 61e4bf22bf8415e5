#pragma once

#include <QImage>
#include <QString>

namespace Orbel
{

/// The smallest form that shows a control class, or the sheet with one control, cut from the example with all controls.
/// Throws a Failure for a class that does not stand there.
QString ExampleOf(const QString &className);

/// A script for that form, of examples/scripts. Throws a Failure for a class that has none.
QString ScriptOf(const QString &className);

/// The form as the operator sees it, with an apply row or without.
QImage PictureOf(const QString &definition, bool applyUi);

/// The list of excluded ranges, as an object of that class opens it.
QImage PictureOfDialog(const QString &className);

/// The form's parameter document.
QString DocumentOf(const QString &definition);

} // namespace Orbel
