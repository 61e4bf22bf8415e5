#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel classes`: the control classes, their properties, signals, slots and invokables.
class ClassesCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
