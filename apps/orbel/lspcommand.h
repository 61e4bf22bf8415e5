#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel lsp`: a language server for editors.
class LspCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
