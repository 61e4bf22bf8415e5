#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel studio`: the form live while its author edits it, with docks around it.
class StudioCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
