#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel new`: gives a form to start from.
class NewCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
