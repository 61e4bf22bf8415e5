#pragma once

#include "subcommand.h"

#include <QDir>

class QImage;

namespace Orbel
{

/// `orbel reference`: writes the reference of all control classes into a folder.
class ReferenceCommand : public Subcommand
{
public:
    void Define(QCommandLineParser &parser) const override;
    int Run(const QCommandLineParser &parser) override;

private:
    void Write(const QString &name, const QString &page) const;
    void Keep(const QString &name, const QImage &picture) const;

    QDir Folder;
};

} // namespace Orbel
