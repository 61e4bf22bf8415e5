#pragma once

#include "orbelcheck.h"

namespace Orbel
{

/// A finding with the file that it is about.
struct FileFinding {
    QString Path;
    Finding Found;
};

/// What `orbel check --format` can be; the first one without it.
QStringList CheckFormats();

/// The findings as text in one of these formats: one a line, JSON, SARIF 2.1.0, or the commands by which a run on GitHub
/// marks lines.
QString Formatted(const QVector<FileFinding> &findings, const QString &format);

} // namespace Orbel
