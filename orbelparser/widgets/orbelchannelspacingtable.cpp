#include "orbelchannelspacingtable.h"

#include "celledit.h"
#include "cellgrid.h"
#include "channelspacingitemdelegate.h"
#include "floatgrouplayout.h"
#include "formlimits.h"
#include "listelements.h"
#include "newcontrol.h"
#include "tablefont.h"
#include "tablekeys.h"
#include "typedvalue.h"

#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableWidget>

#include <cmath>

namespace KV218
{

OrbelDelegate *NewChannelSpacingTable(OrbelWidget *widget)
{
    return NewControl<OrbelChannelSpacingTable>(widget);
}

OrbelChannelSpacingTable::OrbelChannelSpacingTable(OrbelWidget *widget) : OrbelDelegate(widget) { }

OrbelChannelSpacingTable::~OrbelChannelSpacingTable()
{
    // The table may stay on the screen, and its editors may be just about to report.
    if (Control)
        Editors->setParent(Control);
}

void OrbelChannelSpacingTable::CreateValueTree()
{
    ResizeSpacings(GetInt(prop::SpacingsCount, 0));
}

void OrbelChannelSpacingTable::ResizeSpacings(int size)
{
    if (size > limit::ListCells)
        return;
    while (Spacings.size() > qMax(0, size))
        Spacings.removeLast();
    while (Spacings.size() < size)
        Spacings.append(0.0);
}

void OrbelChannelSpacingTable::CreateGUI(FloatGroupLayout *layout)
{
    OrbelDelegate::CreateGUI(layout);
    Control = new QTableWidget(0, 1, layout->parentWidget());
    Control->setObjectName(WidgetName());
    Control->setSortingEnabled(false);
    ShowHeaderLabel(GetTranslated(prop::HeaderLabel));
    Control->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    Editors = new ChannelSpacingItemDelegate(this);
    Control->setItemDelegate(Editors);
    Control->setContextMenuPolicy(Qt::CustomContextMenu);
    new TableKeys(Control, this);
    FollowTableFont(Control);
    FillTable();
    // Meant: the tooltip keeps the bounds of this moment, and the definition's `enabled`, `visible` and `toolTip` stay
    // with the delegate until one of them changes.
    SetDoubleTooltip(Control);
    HideIfCollapsed(Control);
    layout->addWidget(Control);
    layout->addGroup();
    using Self = OrbelChannelSpacingTable;
    connect(Control, &QTableWidget::cellChanged, this, &Self::sl_cellChanged);
    connect(Control, &QTableWidget::currentCellChanged, this, &Self::sl_currentCellChanged);
    connect(Control, &QTableWidget::cellActivated, this, &Self::sl_cellActivated);
    connect(Control, &QTableWidget::cellClicked, this, &Self::sl_cellClicked);
    connect(Control, &QTableWidget::cellDoubleClicked, this, &Self::sl_cellDoubleClicked);
    connect(Control, &QTableWidget::cellEntered, this, &Self::sl_cellEntered);
    connect(Control, &QTableWidget::cellPressed, this, &Self::sl_cellPressed);
    connect(Control, &QWidget::customContextMenuRequested, this, &Self::sl_customContextMenuRequested);
}

void OrbelChannelSpacingTable::FillTable()
{
    if (!Control)
        return;
    constexpr int RowHeight = 20;
    const QScopedValueRollback<bool> updating(Updating, true);
    Control->verticalHeader()->setUpdatesEnabled(false);
    // All rows at once: the header measures itself again at each row that is resized alone.
    Control->verticalHeader()->setDefaultSectionSize(qMax(RowHeight, Control->verticalHeader()->minimumSectionSize()));
    Control->setRowCount(Spacings.size());
    // Rows that go may take a cell with them that is being edited, and a handler the window.
    if (!Control)
        return;
    for (int row = 0; row < Spacings.size(); ++row) {
        Control->setVerticalHeaderItem(row, new QTableWidgetItem(QString::number(row + 1)));
        auto *item = new QTableWidgetItem;
        item->setData(Qt::DisplayRole, Spacings.at(row));
        Control->setItem(row, 0, item);
    }
    Control->verticalHeader()->setUpdatesEnabled(true);
    Control->adjustSize();
}

void OrbelChannelSpacingTable::ShowHeaderLabel(const QString &text)
{
    if (Control)
        Control->setHorizontalHeaderItem(0, new QTableWidgetItem(text));
}

void OrbelChannelSpacingTable::GetXml(QXmlStreamWriter &writer) const
{
    if (!GenerateXml)
        return;
    const QString entryName = GetString(prop::ParameterListItemTag, QString());
    const int decimals = qMin(GetInt(prop::Decimals, 0), limit::Decimals);
    WriteEntries(writer, GetXmlTagName(), entryName, Spacings.size(), [&](int i) {
        WriteUnitAttribute(writer);
        writer.writeAttribute(attribute::Index, QString::number(i));
        writer.writeCharacters(QString::number(Spacings.at(i), 'f', decimals));
    });
}

void OrbelChannelSpacingTable::ReadXml(QXmlStreamReader &reader)
{
    const QScopedValueRollback<bool> updating(Updating, true);
    ReadIndexedEntries(reader, [this](int index, const QString &text) {
        setSpacingValue(index, FiniteText(text).toDouble());
        return true;
    });
}

QVector<Face> OrbelChannelSpacingTable::GetFaces() const
{
    const auto limit = [this](const PropertyKey &name) {
        return property(name.data()).isValid() ? formatString(GetDouble(name, 0.0), GetInt(prop::Decimals, 0), {})
                                               : QString();
    };
    const auto bounds = [this, limit] {
        const QString numbers = BoundsText(limit(prop::Minimum), limit(prop::Maximum));
        const QString unit = numbers.isEmpty() ? QString() : property(prop::Unit.data()).toString();
        return QStringLiteral("%1 %2").arg(numbers, unit).trimmed();
    };
    return {{Control.data(), {}, bounds}};
}

void OrbelChannelSpacingTable::setFocus()
{
    const Call call(this);
    if (Control)
        Control->setFocus();
}

void OrbelChannelSpacingTable::forceFinishEditing()
{
    const Call call(this);
    FinishCellEdit(Control);
}

void OrbelChannelSpacingTable::Retranslate()
{
    OrbelDelegate::Retranslate();
    ShowHeaderLabel(GetTranslated(prop::HeaderLabel));
}

void OrbelChannelSpacingTable::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::HeaderLabel) {
        ShowHeaderLabel(Translate(value.toString()));
    } else if (name == prop::SpacingsCount) {
        ResizeSpacings(CellGrid::CountOf(value));
        FillTable();
    } else if (name == prop::Decimals && Control) {
        Control->viewport()->update();
    }
    PropagateProperty(name, Control);
}

double OrbelChannelSpacingTable::spacingValue(int index)
{
    return Spacings.value(index);
}

void OrbelChannelSpacingTable::setSpacingValue(int index, double value)
{
    if (index < 0 || index >= Spacings.size() || Spacings.at(index) == value || !std::isfinite(value))
        return;
    Spacings[index] = value;
    Touch();
    // Meant: the cell's change comes back as sl_cellChanged(), so that a script's change counts as an edit.
    QTableWidgetItem *item = Control ? Control->item(index, 0) : nullptr;
    if (!item)
        return;
    const Call call(this);
    if (item->data(Qt::DisplayRole) == QVariant(value)) {
        // An item takes a number that is nearly the same for the same.
        const QScopedValueRollback<bool> updating(Updating, true);
        item->setData(Qt::DisplayRole, QVariant());
    }
    item->setData(Qt::DisplayRole, value);
}

QVariantList OrbelChannelSpacingTable::GetEdits() const
{
    QVariantList values;
    for (const double spacing : Spacings)
        values.append(spacing);
    return values;
}

void OrbelChannelSpacingTable::PutEdits(const QVariantList &values)
{
    const Call call(this);
    const QVariantList before = GetEdits();
    // What handlers of one row set stays.
    for (int row = 0; row < values.size() && row < before.size(); ++row) {
        if (!IsSameEdit(before.at(row), values.at(row)))
            setSpacingValue(row, values.at(row).toDouble());
    }
}

bool OrbelChannelSpacingTable::EditsOf(const QVariant &value, QVariantList *edits, QString *error) const
{
    *edits = value.toList();
    if (edits->size() != Spacings.size())
        return Refuse(QStringLiteral("A list of %1 values is wanted").arg(Spacings.size()), error);
    // Only what is stated: what the operator may type without a bound is not all that a device can have.
    const auto bound = [this](const PropertyKey &name, double none) {
        return property(name.data()).isValid() ? GetDouble(name, none) : none;
    };
    const double lowest = bound(prop::Minimum, -qInf());
    const double highest = bound(prop::Maximum, qInf());
    for (int row = 0; row < edits->size(); ++row) {
        QVariant &spacing = (*edits)[row];
        bool isNumber = false;
        const double number = spacing.toDouble(&isNumber);
        if (!isNumber || !std::isfinite(number))
            return Refuse(QStringLiteral("\"%1\" is no number").arg(spacing.toString()), error);
        const QString beyond = BeyondLimits(lowest, highest, number);
        // What stands already, such as the 0 of a fresh row, does not keep a host from entering the others.
        if (!beyond.isNull() && number != Spacings.at(row))
            return Refuse(beyond, error);
        spacing = number;
    }
    return true;
}

QString OrbelChannelSpacingTable::SpellEdit(int, const QVariant &value) const
{
    return Editors ? Editors->displayText(value, QLocale()) : value.toString();
}

void OrbelChannelSpacingTable::setAllSpacingValues(double value)
{
    const Call call(this);
    for (int row = 0; row < Spacings.size(); ++row)
        setSpacingValue(row, value);
}

void OrbelChannelSpacingTable::sl_cellChanged(int row, int)
{
    const QTableWidgetItem *item = Updating || !Control ? nullptr : Control->item(row, 0);
    if (!item || row >= Spacings.size())
        return;
    const double value = item->data(Qt::DisplayRole).toDouble();
    Spacings[row] = value;
    const EditNotice notice(this, {row});
    setModified(true);
    Q_EMIT spacingChanged(row);
    Q_EMIT spacingValueChanged(row, value);
}

void OrbelChannelSpacingTable::sl_currentCellChanged(int currentRow, int, int previousRow, int)
{
    const Call call(this);
    Q_EMIT currentSpacingChanged(currentRow, previousRow);
}

void OrbelChannelSpacingTable::sl_cellActivated(int row, int)
{
    const Call call(this);
    Q_EMIT spacingActivated(row);
}

void OrbelChannelSpacingTable::sl_cellClicked(int row, int)
{
    const Call call(this);
    Q_EMIT spacingClicked(row);
}

void OrbelChannelSpacingTable::sl_cellDoubleClicked(int row, int)
{
    const Call call(this);
    Q_EMIT spacingDoubleClicked(row);
}

void OrbelChannelSpacingTable::sl_cellEntered(int row, int)
{
    const Call call(this);
    Q_EMIT spacingEntered(row);
}

void OrbelChannelSpacingTable::sl_cellPressed(int row, int)
{
    const Call call(this);
    Q_EMIT spacingPressed(row);
}

void OrbelChannelSpacingTable::sl_customContextMenuRequested(QPoint pt)
{
    const Call call(this);
    ContextRow = Control->rowAt(pt.y());
    if (ContextRow < 0 || Spacings.size() < 2)
        return;
    const QPointer<QMenu> menu(new QMenu(Control));
    connect(menu->addAction(tr("Set to all")), &QAction::triggered, this, &OrbelChannelSpacingTable::sl_setToAll);
    menu->exec(Control->viewport()->mapToGlobal(pt));
    delete menu;
}

void OrbelChannelSpacingTable::sl_setToAll()
{
    const OperatorChange change(this);
    setAllSpacingValues(spacingValue(ContextRow));
}

} // namespace KV218
