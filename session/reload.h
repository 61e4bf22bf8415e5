#pragma once

#include "definition.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class QFileSystemWatcher;

namespace Orbel
{

class DefinitionDiff;
class SessionBody;

/// Puts new definitions under the running form of a session: a form of its own in the place of the running one, or,
/// where only properties differ that can be changed in place, these. What comes while the form is not at rest waits
/// until it is.
class Reload : public QObject
{
    Q_OBJECT

public:
    /// `body` holds this.
    explicit Reload(SessionBody &body);
    ~Reload() override;

    /// See Session::Reload().
    QVector<Finding> Take(const QByteArray &document);
    /// See Session::Watch().
    void Watch(const QString &path);

private:
    bool TakeInPlace(const QByteArray &document);
    bool MayPatch(const DefinitionDiff &diff) const;
    QVector<Finding> FindingsAfter(const DefinitionDiff &diff) const;
    void Patch(const DefinitionDiff &diff, QVector<Finding> &told);
    void TakeWaiting();
    void Replace(const Definition &definition);
    bool IsRefused(const QVector<Finding> &told) const;
    void Tell(const QVector<Finding> &findings);
    void FileChanged();
    void ReadFile();
    void TakeBack();

    SessionBody &Body;
    std::optional<Definition> Waiting;
    /// What waits was read from the watched file.
    bool IsFiles = false;
    /// What the watched file had last where that has errors; told once.
    QByteArray Refused;
    QTimer Rest;

    QString File;
    /// Null while nothing is watched.
    std::unique_ptr<QFileSystemWatcher> Files;
    QTimer Quiet;
    QByteArray Seen;
    int Tries = 0;
};

} // namespace Orbel
