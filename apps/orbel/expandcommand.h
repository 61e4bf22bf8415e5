#pragma once

#include "failure.h"
#include "subcommand.h"

namespace Orbel
{

/// `orbel expand`: makes definitions of templates.
class ExpandCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;

private:
    void Expand(const QString &path, const QString &output, bool isCheck);

    ExitStatus Status = ekFine;
};

} // namespace Orbel
