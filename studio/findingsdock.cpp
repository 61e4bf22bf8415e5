#include "findingsdock.h"

#include "emptyhint.h"

#include <QStyle>
#include <QTreeWidget>

namespace Orbel
{

namespace
{

enum FindingColumn { LevelColumn, LineColumn, TextColumn, CodeColumn };

int LineOf(const QTreeWidgetItem *item)
{
    return item->data(LineColumn, Qt::DisplayRole).toInt();
}

} // namespace

FindingsDock::FindingsDock(Workbench &bench) : StudioDock(bench, tr("Findings"), "findings"), List(new QTreeWidget)
{
    List->setHeaderLabels({tr("Severity"), tr("Line"), tr("Finding"), tr("Code")});
    List->setRootIsDecorated(false);
    List->setWordWrap(true);
    setWidget(List);
    new EmptyHint(List, tr("The checker finds no mistakes, and no script has failed."));
    connect(&Bench, &Workbench::findingsChanged, this, &FindingsDock::Fill);
    connect(List, &QTreeWidget::itemClicked, this,
        [this](const QTreeWidgetItem *item) { Bench.Pick(Bench.GetSource().WidgetAt(LineOf(item))); });
    connect(
        List, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem *item) { Bench.Edit(LineOf(item)); });
}

void FindingsDock::Fill()
{
    List->clear();
    for (const Workbench::Failure &failure : Bench.GetFailures()) {
        Add(NameOf(Severity::Error), failure.Line, failure.Time.toString(QStringLiteral("HH:mm:ss ")) + failure.Text,
            QStringLiteral("script-exception"));
    }
    for (const Finding &finding : Bench.GetFindings())
        Add(NameOf(finding.Level), finding.Line, finding.Text, finding.Code);
    for (int column : {LevelColumn, LineColumn})
        List->resizeColumnToContents(column);
    List->setColumnWidth(TextColumn, qMax(300, List->viewport()->width() - 260));
    const int count = List->topLevelItemCount();
    setWindowTitle(count == 0 ? tr("Findings") : tr("Findings (%1)").arg(count));
}

void FindingsDock::Add(const QString &level, int line, const QString &text, const QString &code)
{
    auto *item = new QTreeWidgetItem(List, {level, QString(), text, code});
    if (line > 0)
        item->setData(LineColumn, Qt::DisplayRole, line);
    const bool isError = level == NameOf(Severity::Error);
    const auto icon = isError                ? QStyle::SP_MessageBoxCritical
        : level == NameOf(Severity::Warning) ? QStyle::SP_MessageBoxWarning
                                             : QStyle::SP_MessageBoxInformation;
    item->setIcon(LevelColumn, style()->standardIcon(icon));
    item->setToolTip(TextColumn, QStringLiteral("%1:%2: %3").arg(Bench.GetFile()).arg(line).arg(text));
}

} // namespace Orbel
