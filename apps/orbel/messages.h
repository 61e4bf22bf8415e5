#pragma once

#include <QStringList>

namespace Orbel
{

/// Sends what the process has to say to its place: the parameter documents of the form viewer to standard output, and
/// all else that goes through Qt's messages, such as what scripts print, to standard error. Traces of failures go to
/// standard error as well.
void RouteMessages();

/// Writes a parameter document to standard output, in UTF-8 and without blank lines around it. An empty one writes
/// nothing.
void WriteDocument(const QString &xml);

/// Writes "orbel: " and the message to standard error.
void Complain(const QString &message);

/// The names in quotation marks, for messages.
QString QuotedNames(const QStringList &names);

} // namespace Orbel
