#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel schema`: prints the XML schema of form definitions.
class SchemaCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
