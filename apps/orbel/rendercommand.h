#pragma once

#include "subcommand.h"

namespace Orbel
{

/// `orbel render`: draws a form into a picture file, without a display.
class RenderCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    void Prepare(const QCommandLineParser &parser) override;
    int Run(const QCommandLineParser &parser) override;
};

} // namespace Orbel
