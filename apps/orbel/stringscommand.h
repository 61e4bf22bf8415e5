#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel strings`: collects the texts of forms for translators.
class StringsCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
