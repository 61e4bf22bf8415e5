#pragma once

#include "failure.h"

class QCommandLineParser;

namespace Orbel
{

/// One subcommand of `orbel`.
class Subcommand
{
public:
    virtual ~Subcommand() = default;

    /// Adds the description, the options and the arguments.
    virtual void Define(QCommandLineParser &parser) const = 0;
    /// Sets up what must stand before there is an application; called for a subcommand that runs without a display.
    /// Throws a Failure.
    virtual void Prepare(const QCommandLineParser &) { }
    /// Does the work, with a parsed command line that did not ask for help. Throws a Failure, or gives the exit status.
    virtual int Run(const QCommandLineParser &parser) = 0;
};

} // namespace Orbel
