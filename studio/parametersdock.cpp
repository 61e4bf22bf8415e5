#include "parametersdock.h"

#include "emptyhint.h"
#include "orbelcheck.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTime>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>

namespace Orbel
{

/// How much of what is wrong with a document stands below it.
static constexpr int MostTold = 3;

static QPlainTextEdit *NewDocumentView(const char *name)
{
    auto *view = new QPlainTextEdit;
    view->setObjectName(QString::fromLatin1(name));
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    return view;
}

ParametersDock::ParametersDock(Workbench &bench)
    : StudioDock(bench, tr("Parameters"), "parameters"), Now(NewDocumentView("documentNow")),
      Back(new QPushButton(tr("&Read back"))), Renew(new QPushButton(tr("&Discard"))), Wrong(new QLabel),
      Changes(new QTreeWidget), Last(NewDocumentView("documentApplied"))
{
    auto *page = new QWidget;
    auto *lines = new QVBoxLayout(page);
    auto *buttons = new QHBoxLayout;
    lines->addWidget(Now);
    lines->addWidget(Wrong);
    Wrong->setObjectName(QStringLiteral("documentWrong"));
    Wrong->setWordWrap(true);
    lines->addLayout(buttons);
    buttons->addStretch();
    buttons->addWidget(Renew);
    buttons->addWidget(Back);
    Back->setObjectName(QStringLiteral("readBack"));
    Back->setToolTip(tr("Puts the values of the edited document, as one change that can be undone"));
    Renew->setToolTip(tr("Shows the document of the form again"));
    Changes->setObjectName(QStringLiteral("changesNow"));
    Changes->setHeaderLabels({tr("Parameter"), tr("Applied"), tr("Now")});
    Changes->setRootIsDecorated(false);
    new EmptyHint(Changes, tr("No changes wait to be applied."));
    Last->setReadOnly(true);
    Last->setPlaceholderText(tr("Nothing has been applied yet."));
    auto *tabs = new QTabWidget;
    tabs->addTab(page, tr("Now"));
    tabs->addTab(Changes, tr("Changes"));
    tabs->addTab(Last, tr("Last apply"));
    setWidget(tabs);

    connect(Back, &QPushButton::clicked, this, &ParametersDock::ReadBack);
    connect(Renew, &QPushButton::clicked, this, &ParametersDock::ShowNow);
    connect(Now, &QPlainTextEdit::modificationChanged, Back, &QWidget::setEnabled);
    connect(Now, &QPlainTextEdit::modificationChanged, Renew, &QWidget::setEnabled);
    connect(&Bench, &Workbench::formChanged, this, &ParametersDock::Follow);
    Later.setSingleShot(true);
    Later.setInterval(100);
    connect(&Later, &QTimer::timeout, this, &ParametersDock::Follow);
    connect(&Bench, &Workbench::changesChanged, this, [this] {
        if (!Later.isActive())
            Later.start();
    });
    connect(&Bench, &Workbench::applied, this, &ParametersDock::TakeApplied);
    connect(Changes, &QTreeWidget::itemClicked, this,
        [this](const QTreeWidgetItem *item) { Bench.PickPath(item->text(0)); });
    // Scripts and reports change values without a word.
    auto *again = new QTimer(this);
    connect(again, &QTimer::timeout, this, [this] {
        if (isVisible())
            Follow();
    });
    again->start(1000);
    Follow();
}

void ParametersDock::Follow()
{
    if (!Now->document()->isModified())
        ShowNow();
    ShowChanges();
}

void ParametersDock::ShowNow()
{
    const Session *const session = Bench.GetSession();
    const QString document = session ? session->Document().trimmed() : QString();
    // A selection stays where nothing has changed.
    if (document != Now->toPlainText()) {
        Now->setPlainText(document);
        Wrong->clear();
    }
    Now->document()->setModified(false);
    Back->setEnabled(false);
    Renew->setEnabled(false);
}

void ParametersDock::ReadBack()
{
    if (!Bench.GetSession())
        return;
    const Findings findings = Check::Parameters(Now->toPlainText().toUtf8(), Bench.GetDefinition());
    const bool isWhole = std::none_of(findings.begin(), findings.end(),
        [](const Finding &finding) { return finding.Code == QLatin1String("xml-malformed"); });
    QStringList told;
    for (const Finding &finding : findings)
        told.append(tr("Line %1: %2").arg(finding.Line).arg(finding.Text));
    // What cannot be read stays, to be mended.
    if (isWhole) {
        const PropertyOrigins::Act act(Bench.GetOrigins(), tr("studio, a document"));
        Bench.GetSession()->SetDocument(Now->toPlainText());
        ShowNow();
    }
    Wrong->setText(told.mid(0, MostTold).join(QLatin1Char('\n')));
}

void ParametersDock::ShowChanges()
{
    const QVector<Change> changes = Bench.GetSession() ? Bench.GetSession()->Changes() : QVector<Change>();
    QVector<QStringList> rows;
    for (const Change &change : changes)
        rows.append({change.Path, change.OldText, change.NewText});
    if (rows == Shown)
        return;
    Shown = rows;
    Changes->clear();
    for (const QStringList &row : qAsConst(rows))
        new QTreeWidgetItem(Changes, row);
}

void ParametersDock::TakeApplied(const QVector<Change> &changes, const QString &document)
{
    QStringList lines{tr("<!-- %1 -->").arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss")))};
    for (const Change &change : changes)
        lines.append(QStringLiteral("<!-- %1: %2 → %3 -->").arg(change.Path, change.OldText, change.NewText));
    Last->setPlainText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n') + document.trimmed());
    Follow();
}

} // namespace Orbel
