#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel view`: the application frame around the library's own form viewer, which it loads as a plug-in.
class ViewCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
