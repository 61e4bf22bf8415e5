#pragma once

#include "formdiff.h"
#include "subcommand.h"

namespace Orbel
{

/// `orbel diff`: tells what differs between two definitions.
class DiffCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;

private:
    void PrintLine(const FormDifference &difference) const;
    void PrintJson(const QVector<FormDifference> &differences) const;

    QString Before;
    QString After;
};

} // namespace Orbel
