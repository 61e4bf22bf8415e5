#pragma once

#include "checkexport.h"
#include "finding.h"

#include <QByteArray>

namespace Orbel
{

/// The plain definition that a template gives: UTF-8, in the canonical layout.
class ORBEL_CHECK_EXPORT ExpandedTemplate
{
public:
    /// `name` is how the definition names its template, a path from its own folder; empty for not at all. All of it
    /// stands for `bytes` as they stand in a file.
    explicit ExpandedTemplate(const QByteArray &bytes, const QString &name = QString());

    /// Why there is none, with places in the template; empty when there is one.
    const Findings &GetErrors() const { return Errors; }
    const QByteArray &GetDefinition() const { return Definition; }

    /// The template that a definition names as its own; empty without one.
    static QString NamedIn(const QByteArray &definition);

private:
    Findings Errors;
    QByteArray Definition;
};

} // namespace Orbel
