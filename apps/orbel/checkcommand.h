#pragma once

#include "checkformats.h"
#include "failure.h"
#include "inputfile.h"
#include "subcommand.h"

namespace Orbel
{

/// `orbel check`: tells what is wrong with definitions, component lists, and documents that go with them.
class CheckCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;

private:
    void CheckFile(const QString &path);
    InputFile WithTemplate(const InputFile &input);
    void CheckAgainst(const QString &option, const QByteArray &form);
    void Take(const QString &path, const Findings &findings);

    const QCommandLineParser *Parser = nullptr;
    QVector<FileFinding> Lines;
    bool IsAlone = true; ///< There is one FILE.
    ExitStatus Status = ekFine;
};

} // namespace Orbel
