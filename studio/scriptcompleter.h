#pragma once

#include <QCompleter>

class QScriptEngine;
class QStringListModel;

namespace Orbel
{

/// Completes the last name of a line of script: globals of an engine, and behind a dot the members of what stands
/// before it, which is looked up and never called.
class ScriptCompleter : public QCompleter
{
    Q_OBJECT

public:
    explicit ScriptCompleter(QObject *parent);

    /// Takes the candidates for the end of the line. A null engine has none.
    void Look(QScriptEngine *engine, const QString &line);

    /// The same as a list, sorted.
    static QStringList Candidates(QScriptEngine &engine, const QString &line);

    QStringList splitPath(const QString &path) const override;
    QString pathFromIndex(const QModelIndex &index) const override;

private:
    QStringListModel *const Names;
    QString Line;
};

} // namespace Orbel
