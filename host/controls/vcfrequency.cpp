#include "vcfrequency.h"

#include "frequencyfield.h"
#include "frequencytext.h"
#include "inputlock.h"
#include "ivaluenumeric.h"
#include "tree.h"
#include "vcbutton.h"
#include "vcminifrequency.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>

static constexpr double TextScale = 1.5;

VCFrequency::VCFrequency(QWidget *parent, const char *name, bool belowZero, QWidget *popupParent, bool history)
    : QWidget(parent), Field(new Orbel::FrequencyField(this, belowZero)), PopupParent(popupParent ? popupParent : this)
{
    setObjectName(QString::fromUtf8(name));
    setFocusProxy(Field);
    Build();
    HistoryButton->setVisible(history);
    ScaleText();
    connect(Field, &Orbel::FrequencyField::signalEntered, this, [this](const QVector<double> &way) {
        for (double hertz : way)
            slotAddToHistory(hertz);
    });
    connect(Field, &VCLineEdit::signalTextEdited, this, &VCFrequency::signalTextEdited);
    connect(Field, &Orbel::FrequencyField::signalNodeLost, this, &VCFrequency::ApplyInput);
    ApplyInput();
}

VCFrequency::~VCFrequency()
{
    if (!BandwidthPath.isEmpty())
        Tree::Instance()->StopObservingPath(BandwidthPath, this);
    // First of all children: it tells this widget when it loses the focus.
    delete Field;
}

void VCFrequency::Build()
{
    Field->setObjectName(QStringLiteral("frequency"));
    UpButton = StepButton(QStringLiteral("increment"), Orbel::GlyphButton::Up, &VCFrequency::slotIncrement);
    DownButton = StepButton(QStringLiteral("decrement"), Orbel::GlyphButton::Down, &VCFrequency::slotDecrement);
    EntryButton = MiniButton(QStringLiteral("entry"), Orbel::GlyphButton::Pencil, &VCFrequency::BeginEntry);
    HistoryButton = MiniButton(QStringLiteral("history"), Orbel::GlyphButton::Clock, &VCFrequency::OpenHistory);
    TuneButton = new VCButton(QString(), this);
    TuneButton->setObjectName(QStringLiteral("tune"));
    connect(TuneButton, &QPushButton::clicked, this, &VCFrequency::Tune);
    BandwidthLabel = new QLabel(this);
    BandwidthLabel->setObjectName(QStringLiteral("bandwidth"));
    BandwidthLabel->setAlignment(Qt::AlignRight);
    BandwidthLabel->hide();
    ShowTexts();

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(1);
    grid->addWidget(Field, 0, 0, 2, 1);
    grid->addWidget(UpButton, 0, 1);
    grid->addWidget(DownButton, 1, 1);
    grid->addWidget(EntryButton, 0, 2);
    grid->addWidget(HistoryButton, 1, 2);
    grid->addWidget(TuneButton, 0, 3, 2, 1);
    grid->addWidget(BandwidthLabel, 2, 0);
    grid->setColumnStretch(0, 1);
}

void VCFrequency::ShowTexts()
{
    Field->setAccessibleName(tr("Frequency"));
    UpButton->setToolTip(tr("Step up the marked digit"));
    UpButton->setAccessibleName(UpButton->toolTip());
    DownButton->setToolTip(tr("Step down the marked digit"));
    DownButton->setAccessibleName(DownButton->toolTip());
    EntryButton->setToolTip(tr("Type a frequency"));
    EntryButton->setAccessibleName(EntryButton->toolTip());
    HistoryButton->setToolTip(tr("Last frequencies (F4)"));
    HistoryButton->setAccessibleName(tr("Last frequencies"));
    TuneButton->setText(tr("Tune"));
}

QToolButton *VCFrequency::StepButton(const QString &name, Orbel::GlyphButton::Glyph glyph, void (VCFrequency::*step)())
{
    auto *button = new Orbel::GlyphButton(glyph, this);
    button->setObjectName(name);
    button->setAutoRepeat(true);
    // The marked digit, which the focus shows, is what the button steps.
    button->setFocusPolicy(Qt::NoFocus);
    // Queued: Qt's button does not survive a handler that ends the form within its click.
    connect(button, &QToolButton::clicked, this, step, Qt::QueuedConnection);
    return button;
}

VCMiniFrequency *VCFrequency::MiniButton(
    const QString &name, Orbel::GlyphButton::Glyph glyph, void (VCFrequency::*action)())
{
    auto *button = new VCMiniFrequency(this, glyph);
    button->setObjectName(name);
    connect(button, &VCMiniFrequency::clicked, this, action);
    return button;
}

bool VCFrequency::SetFrequency_ValuePath(const QString &path)
{
    ValueBase *node = Tree::Instance()->GetNode(path);
    const bool bound = Field->SetValueBase(dynamic_cast<IValueNumeric *>(node) ? node : nullptr);
    ApplyInput();
    return bound;
}

bool VCFrequency::SetBandwidth_ValuePath(const QString &path)
{
    Tree *tree = Tree::Instance();
    if (!BandwidthPath.isEmpty())
        tree->StopObservingPath(BandwidthPath, this);
    BandwidthPath = path;
    if (!BandwidthPath.isEmpty())
        tree->ObservePath(BandwidthPath, this);
    Bandwidth.Release();
    BindBandwidth();
    return bool(Bandwidth);
}

void VCFrequency::DisableButtons()
{
    UpButton->setEnabled(false);
    DownButton->setEnabled(false);
}

void VCFrequency::EnableInput(bool enable)
{
    Orbel::InputLock lock;
    if (!enable && !Orbel::Survives(this, [&] { QCoreApplication::sendEvent(Field, &lock); }))
        return;
    Locked = !enable;
    ApplyInput();
}

void VCFrequency::setReadOnly(bool readOnly)
{
    if (readOnly && !Field->FinishEdit())
        return;
    ReadOnly = readOnly;
    Locked = Locked && readOnly;
    ApplyInput();
}

void VCFrequency::setEnabled(bool enable)
{
    if (!enable && !Field->FinishEdit())
        return;
    QWidget::setEnabled(enable);
    if (enable)
        EnableInput(true);
}

void VCFrequency::SetWholeHertz(bool whole)
{
    Field->SetWholeHertz(whole);
}

void VCFrequency::TuneByHovering(bool tune)
{
    Field->TuneByHovering(tune);
}

void VCFrequency::ApplyInput()
{
    const bool free = !Locked && !ReadOnly && Field->HasNode();
    Field->setReadOnly(!free);
    for (QWidget *button : {UpButton, DownButton})
        button->setEnabled(free);
    EntryButton->enable(free);
    HistoryButton->enable(free);
    TuneButton->setEnabled(free);
}

void VCFrequency::Update(Observable *subject, TChangeCode code)
{
    const bool news = Bandwidth.TakeNotification(subject, code);
    if (!news)
        BindBandwidth();
    ShowBandwidth();
}

void VCFrequency::BindBandwidth()
{
    if (!Bandwidth)
        Bandwidth.Bind(BandwidthPath.isEmpty() ? nullptr : Tree::Instance()->GetNode(BandwidthPath));
    ShowBandwidth();
}

void VCFrequency::ShowBandwidth()
{
    if (Bandwidth)
        BandwidthLabel->setText(
            tr("Bandwidth %1").arg(Orbel::FrequencyText::OfNode(Bandwidth->GetStringValue(), locale())));
    BandwidthLabel->setVisible(bool(Bandwidth));
}

void VCFrequency::slotSetFrequencyValue(double hertz)
{
    Field->Enter(hertz);
}

void VCFrequency::slotAddToHistory(double hertz)
{
    History.Add(hertz);
}

void VCFrequency::slotIncrement()
{
    Step(1);
}

void VCFrequency::slotDecrement()
{
    Step(-1);
}

void VCFrequency::endEdit()
{
    Field->endEdit();
}

void VCFrequency::Step(int steps)
{
    // The focus shows which digit it is.
    Field->setFocus(Qt::OtherFocusReason);
    Field->Step(steps);
}

void VCFrequency::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        ScaleText();
    } else if (event->type() == QEvent::LanguageChange) {
        ShowTexts();
        ShowBandwidth();
    }
}

void VCFrequency::keyPressEvent(QKeyEvent *event)
{
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier;
    if ((event->key() == Qt::Key_F4 || altDown) && HistoryButton->isEnabled() && !HistoryButton->isHidden())
        OpenHistory();
    else
        QWidget::keyPressEvent(event);
}

void VCFrequency::BeginEntry()
{
    Field->setFocus(Qt::OtherFocusReason);
    Field->selectAll();
}

void VCFrequency::OpenHistory()
{
    if (!Field->FinishTuning())
        return;
    auto *menu = new QMenu(PopupParent);
    menu->setObjectName(QStringLiteral("frequencyHistory"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (double hertz : History.Frequencies()) {
        QAction *entry = menu->addAction(Orbel::FrequencyText::Write(hertz, 0, locale().decimalPoint()));
        connect(
            entry, &QAction::triggered, this, [this, hertz] { slotSetFrequencyValue(hertz); }, Qt::QueuedConnection);
    }
    if (menu->isEmpty())
        menu->addAction(tr("No frequency yet"))->setEnabled(false);
    menu->popup(Field->mapToGlobal(QPoint(0, Field->height())));
    if (QAction *first = menu->actions().constFirst(); first->isEnabled())
        menu->setActiveAction(first);
}

void VCFrequency::Tune()
{
    if (const std::optional<double> hertz = Field->Repeat())
        Q_EMIT signalTune(*hertz);
}

/// Text sizes of children follow the widget's, so only the field's own size is set.
void VCFrequency::ScaleText()
{
    QFont large;
    if (font().pointSizeF() > 0)
        large.setPointSizeF(font().pointSizeF() * TextScale);
    else
        large.setPixelSize(qRound(font().pixelSize() * TextScale));
    Field->SetTextFont(large);
}
