#pragma once

#include "subcommand.h"

/// `orbel strings`: collects the texts of forms for translators.
class StringsCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;
};
