#include "exclusiondialog.h"

#include "freqrangetable.h"
#include "valuecommentedrangemap.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace KV218
{

namespace
{

// For the collector of texts: the contexts are the classes that open the dialog.
[[maybe_unused]] constexpr const char *Texts[] = {
    QT_TRANSLATE_NOOP("KV218::OrbelDSCObject", "Excluded ranges (kHz)"),
    QT_TRANSLATE_NOOP("KV218::OrbelDSCObject", "&Sort"),
    QT_TRANSLATE_NOOP("KV218::OrbelDSCObject", "Sort entries by start frequency in ascending order"),
    QT_TRANSLATE_NOOP("KV218::OrbelFHPObject", "Excluded ranges (kHz)"),
    QT_TRANSLATE_NOOP("KV218::OrbelFHPObject", "&Sort"),
    QT_TRANSLATE_NOOP("KV218::OrbelFHPObject", "Sort entries by start frequency in ascending order"),
};

/// The table, then its buttons; the texts follow the language while it is open.
class RangesDialog : public QDialog
{
public:
    RangesDialog(QWidget *parent, const char *context) : QDialog(parent), Context(context)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(Table);
        layout->addWidget(Buttons);
        connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(Sort, &QPushButton::clicked, Table, &FreqRangeTable::SlotSortByStartFrequencies);
        setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
        ShowTexts();
    }

    FreqRangeTable *const Table = new FreqRangeTable(this);

protected:
    void changeEvent(QEvent *event) override
    {
        QDialog::changeEvent(event);
        if (event->type() == QEvent::LanguageChange)
            ShowTexts();
    }

private:
    void ShowTexts()
    {
        const auto translate = [this](const char *text) { return QCoreApplication::translate(Context, text); };
        setWindowTitle(translate("Excluded ranges (kHz)"));
        Sort->setText(translate("&Sort"));
        Sort->setToolTip(translate("Sort entries by start frequency in ascending order"));
    }

    const char *const Context;
    QDialogButtonBox *const Buttons
        = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, Qt::Horizontal, this);
    QPushButton *const Sort = Buttons->addButton(QString(), QDialogButtonBox::ActionRole);
};

} // namespace

void EditExclusionRanges(ValueCommentedRangeMap *ranges, QWidget *parent, const char *context)
{
    if (!ranges)
        return;
    // On the heap: whoever ends the parent ends the dialog, too.
    const QPointer<RangesDialog> dialog(new RangesDialog(parent, context));
    // Not by its path, which is another node's where the tree has refused this one.
    dialog->Table->AttachToNode(ranges);
    if (dialog->exec() == QDialog::Accepted && dialog)
        dialog->Table->StoreToValue();
    delete dialog;
}

} // namespace KV218
