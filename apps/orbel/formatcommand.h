#pragma once

#include "failure.h"
#include "subcommand.h"

namespace Orbel
{

/// `orbel format`: brings definitions into the canonical layout.
class FormatCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;

private:
    void Format(const QString &path, bool isCheck);

    ExitStatus Status = ekFine;
};

} // namespace Orbel
