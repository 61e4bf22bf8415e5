#pragma once

#include "controlpointer.h"
#include "studiodock.h"

class QAction;
class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;

namespace Orbel
{

class FormOverlay;

/// All that is known of one control: its element and class, node and parameter, each property with what is stated, what
/// counts and what the widget has, and its signals. Properties can be tried out.
class InspectorDock : public StudioDock
{
    Q_OBJECT

public:
    InspectorDock(Workbench &bench, FormOverlay &overlay);

    /// Starts pointing at a control; checked while that goes on.
    QAction *GetPointAction() const { return PointAction; }
    QAction *GetHintsAction() const { return HintsAction; }
    /// Of the control of now; empty without one.
    QString GetElement() const;

private:
    QWidget *NewHead();
    void TakeForm();
    void Show(const QString &name);
    void Renew();
    void ShowFacts();
    void ShowProperties();
    void ShowSignals();
    QStringList PropertyNames() const;
    QString OriginOf(const QString &property) const;
    void TryOut(QTreeWidgetItem *row, int column);

    FormOverlay &Overlay;
    ControlPointer Pointer;
    QAction *const PointAction;
    QAction *const HintsAction;
    QAction *const CopyAction;
    QComboBox *const Names;
    QTreeWidget *const Facts;
    QTreeWidget *const Properties;
    QTreeWidget *const Signals;
    QString Name;
    QString Class;
    /// By the names of controls; since the form was read.
    QHash<QString, QStringList> Tried;
    bool IsFilling = false;
};

} // namespace Orbel
