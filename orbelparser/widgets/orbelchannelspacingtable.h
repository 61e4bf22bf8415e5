#pragma once

#include "orbeldelegate.h"
#include "propertynames.h"

#include <QPoint>
#include <QPointer>

class QMenu;
class QTableWidget;

namespace KV218
{

class ChannelSpacingItemDelegate;

/// A column of channel spacings, which the operator edits in spin boxes. Class name: `ChannelSpacingTable`. It has no
/// node: the values live in the delegate, travel in parameter documents, and are reached by scripts. Rows count from 0
/// here, and from 1 on the screen.
class OrbelChannelSpacingTable : public OrbelDelegate
{
    Q_OBJECT

public:
    explicit OrbelChannelSpacingTable(OrbelWidget *widget);
    ~OrbelChannelSpacingTable() override;

    void CreateValueTree() override;
    void CreateGUI(FloatGroupLayout *layout) override;
    void GetXml(QXmlStreamWriter &writer) const override;
    void ReadXml(QXmlStreamReader &reader) override;
    QVector<Face> GetFaces() const override;
    QVariantList GetEdits() const override;
    void PutEdits(const QVariantList &values) override;
    QVariant ValueOf(const QVariantList &edits) const override { return edits; }
    bool EditsOf(const QVariant &value, QVariantList *edits, QString *error) const override;
    QString SpellEdit(int index, const QVariant &value) const override;

Q_SIGNALS:
    /// The current row and the one before; -1 for none.
    void currentSpacingChanged(int, int);
    void spacingActivated(int);
    /// Operator or script changed this row.
    void spacingChanged(int);
    void spacingClicked(int);
    void spacingDoubleClicked(int);
    void spacingEntered(int);
    void spacingPressed(int);
    /// Follows spacingChanged() and brings the new value.
    void spacingValueChanged(int, double);

public Q_SLOTS:
    void setAllSpacingValues(double value);
    void setHeaderLabel(QString value) { ChangeProperty(prop::HeaderLabel, value); }
    void setSpacingsCount(int value) { ChangeProperty(prop::SpacingsCount, value); }
    void setDecimals(int value) { ChangeProperty(prop::Decimals, value); }
    void setMaximum(double value) { ChangeProperty(prop::Maximum, value); }
    void setMinimum(double value) { ChangeProperty(prop::Minimum, value); }
    void setSingleStep(double value) { ChangeProperty(prop::SingleStep, value); }
    void setFocus() override;
    void forceFinishEditing() override;

public:
    /// 0 for an index out of range.
    Q_INVOKABLE double spacingValue(int index);
    /// Signals and marks the control modified like an edit, once the table is built. An index out of range is ignored.
    Q_INVOKABLE void setSpacingValue(int index, double value);

protected:
    void Retranslate() override;
    void PropertyChanged(const QString &name, const QVariant &value) override;

private Q_SLOTS:
    void sl_cellChanged(int row, int column);
    void sl_currentCellChanged(int currentRow, int currentColumn, int previousRow, int previousColumn);
    void sl_cellActivated(int row, int column);
    void sl_cellClicked(int row, int column);
    void sl_cellDoubleClicked(int row, int column);
    void sl_cellEntered(int row, int column);
    void sl_cellPressed(int row, int column);
    void sl_customContextMenuRequested(QPoint pt);
    void sl_setToAll();

private:
    void ResizeSpacings(int size);
    void FillTable();
    void ShowHeaderLabel(const QString &text);

    QList<double> Spacings;
    /// Null before CreateGUI() and once the window is gone.
    QPointer<QTableWidget> Control;
    ChannelSpacingItemDelegate *Editors = nullptr;
    /// The row under the last request for the context menu; -1 for none.
    int ContextRow = -1;
    /// The table changes by the delegate's own doing, not by the operator's.
    bool Updating = false;
};

} // namespace KV218
