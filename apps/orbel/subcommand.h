#pragma once

#include "failure.h"

class QCommandLineParser;

/// One subcommand of `orbel`. Made after the application object.
class Subcommand
{
public:
    virtual ~Subcommand() = default;

    /// Adds the description, the options and the arguments.
    virtual void Define(QCommandLineParser &parser) const = 0;
    /// Does the work, with a parsed command line that did not ask for help. Throws a Failure, or gives the exit status.
    virtual int Run(const QCommandLineParser &parser) = 0;
};
