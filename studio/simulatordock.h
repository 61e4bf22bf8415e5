#pragma once

#include "studiodock.h"
#include "valuegenerator.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPalette>
#include <QTimer>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QTableWidget;
class QTableWidgetItem;

namespace Orbel
{

/// A host that is not there: reports values of a device, typed or made twenty times a second, locks the form, and
/// chooses language, colours and text size.
class SimulatorDock : public StudioDock
{
    Q_OBJECT

public:
    explicit SimulatorDock(Workbench &bench);
    ~SimulatorDock() override;

private:
    QWidget *NewSurroundings();
    void TakeForm();
    void FillRow(int row, const ControlInfo &control);
    void ShowValues();
    void TakeCell(QTableWidgetItem *cell);
    void TakeNumber(QTableWidgetItem *cell, double &number);
    void Generate();
    void Tell(const QString &error);
    void Lock();
    void SetLanguage(const QString &name);
    void SetPalette(const QString &name);
    void SetTextSize(int points);
    void OpenScaled(const QString &factor);

    const QPalette OwnPalette;
    QTableWidget *const Table;
    QCheckBox *const Locked;
    QLineEdit *const Reason;
    QComboBox *const Languages;
    QComboBox *const Palettes;
    QSpinBox *const TextSize;
    QComboBox *const Scales;
    QLabel *const Error;
    QVector<ControlInfo> Controls;
    /// By path.
    QHash<QString, ValueGenerator> Generators;
    QTimer Beat;
    QTimer Look;
    QElapsedTimer Clock;
    bool IsFilling = false;
};

} // namespace Orbel
