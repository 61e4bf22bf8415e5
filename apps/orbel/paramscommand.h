#pragma once

#include "formfile.h"
#include "subcommand.h"

namespace Orbel
{

/// `orbel params`: the road of a form from its definition to its parameter document, without an operator.
class ParamsCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;

private:
    void Set(KV218::OrbelFormular &form, const QString &assignment) const;
    static int Carry(const QCommandLineParser &parser);

    QString Path;
};

} // namespace Orbel
