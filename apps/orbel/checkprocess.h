#pragma once

#include "finding.h"

#include <QObject>
#include <QProcess>
#include <QTemporaryFile>

#include <functional>

namespace Orbel
{

/// Checks a document and runs its script in a process of its own, while this one goes on. Ends the process with itself.
class CheckProcess : public QObject
{
public:
    using Done = std::function<void(const Findings &findings)>;

    /// `end` is that of a file's name, which tells what the document is. `done` is called once, when all is found,
    /// unless this is destroyed before. Nothing is told of a process that fails.
    CheckProcess(const QByteArray &document, const QString &end, const Done &done, QObject *parent);
    ~CheckProcess() override;

private:
    void End();

    Done Tell;
    QTemporaryFile File;
    QProcess Process;
};

} // namespace Orbel
