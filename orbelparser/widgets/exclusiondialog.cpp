#include "exclusiondialog.h"

#include "freqrangetable.h"
#include "orbeldelegate.h"
#include "valuecommentedrangemap.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <optional>

namespace KV218
{

void EditExclusionRanges(
    ValueCommentedRangeMap *ranges, QWidget *parent, const char *context, OrbelDelegate *control)
{
    if (!ranges)
        return;
    const auto translate = [=](const char *text) {
        return QCoreApplication::translate(context, text);
    };
    // On the heap: whoever ends the parent ends the dialog, too.
    const QPointer<QDialog> dialog(new QDialog(parent));
    dialog->setWindowTitle(translate("Excluded ranges (kHz)"));
    dialog->setWindowFlags(dialog->windowFlags() & ~Qt::WindowContextHelpButtonHint);
    auto *layout = new QVBoxLayout(dialog);
    auto *table = new FreqRangeTable(dialog);
    // Not by its path, which is another node's where the tree has refused this one.
    table->AttachToNode(ranges);
    layout->addWidget(table);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, dialog);
    QPushButton *sort = buttons->addButton(translate("&Sort"), QDialogButtonBox::ActionRole);
    sort->setToolTip(translate("Sort entries by start frequency in ascending order"));
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(sort, &QPushButton::clicked, table, &FreqRangeTable::SlotSortByStartFrequencies);
    if (dialog->exec() == QDialog::Accepted && dialog) {
        std::optional<OrbelDelegate::OperatorChange> change;
        if (control)
            change.emplace(control);
        table->StoreToValue();
    }
    delete dialog;
}

} // namespace KV218
