#pragma once

#include <QImage>
#include <QString>

namespace Orbel
{

/// The smallest form that shows a control class, cut from the example with all controls. Throws a Failure for a class
/// that does not stand there.
QString ExampleOf(const QString &className);

/// The form as the operator sees it.
QImage PictureOf(const QString &definition);

/// The form's parameter document.
QString DocumentOf(const QString &definition);

} // namespace Orbel
