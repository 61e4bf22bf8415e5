#pragma once

#include "studiodock.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

namespace Orbel
{

/// Parameter documents: the one of now, which can be edited and read back, the changes that wait to be applied, and
/// what the last apply has sent.
class ParametersDock : public StudioDock
{
    Q_OBJECT

public:
    explicit ParametersDock(Workbench &bench);

private:
    void Follow();
    void ShowNow();
    void ReadBack();
    void ShowChanges();
    void TakeApplied(const QVector<Orbel::Change> &changes, const QString &document);

    QPlainTextEdit *const Now;
    QPushButton *const Back;
    QPushButton *const Renew;
    /// What the checker says of the document that was read back last.
    QLabel *const Wrong;
    QTreeWidget *const Changes;
    QPlainTextEdit *const Last;
    QTimer Later;
    /// What stands in the list of changes.
    QVector<QStringList> Shown;
};

} // namespace Orbel
