#include "orbelsheetui.h"

#include "assistive.h"
#include "changesbutton.h"
#include "elementnames.h"
#include "floatgrouplayout.h"
#include "floatscrollarea.h"
#include "formchanges.h"
#include "formkeys.h"
#include "inputlock.h"
#include "lockline.h"
#include "openingfocus.h"
#include "vcfrequency.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>
#include <QXmlStreamWriter>

namespace KV218
{

namespace
{

constexpr int DefaultTimeout = 1000;
constexpr int LeastTimeout = 100;

} // namespace

OrbelSheetUi::OrbelSheetUi(FormChanges *changes) : OrbelDelegate(nullptr), Changes(changes) { }

OrbelSheetUi::~OrbelSheetUi() = default;

FloatGroupLayout *OrbelSheetUi::GetLayout() const
{
    return Layout;
}

void OrbelSheetUi::CreateFrame(bool applyUi)
{
    if (Gui)
        return;
    AutoApplyEnabled = GetBool(prop::AutoApplyEnabled, true);

    // What stands in a window that is shown comes up when all of it is made.
    const bool isInside = Taken;
    auto *const takenArea = applyUi ? nullptr : qobject_cast<QScrollArea *>(Taken.data());
    QWidget *frame = applyUi ? std::exchange(Taken, nullptr).data() : nullptr;
    if (applyUi && !frame)
        frame = new QWidget;
    QScrollArea *const area = takenArea ? takenArea : new FloatScrollArea(frame);
    auto *content = new QWidget(area);
    area->setWidget(content);
    (applyUi ? static_cast<QWidget *>(area) : content)->setVisible(!isInside);
    Area = area;
    Layout = new FloatGroupLayout(area);
    if (applyUi) {
        frame->setObjectName(QStringLiteral("sheet"));
        content->setObjectName(QStringLiteral("sheetArea"));
        auto *rows = new QVBoxLayout(frame);
        rows->setContentsMargins(0, 0, 0, 0);
        rows->addWidget(area);
        ApplyBox = BuildApplyBox(frame);
        rows->addWidget(ApplyBox);
        Gui = frame;
    } else {
        area->setObjectName(QStringLiteral("sheetArea"));
        Gui = area;
    }
    // It hears what the area hears, and while nothing out of view is drawn.
    content->installEventFilter(this);
    area->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(area, &QWidget::customContextMenuRequested, this, &OrbelSheetUi::showContextMenu);
    if (Changes)
        new FormKeys(Gui, Changes);
    BuildTimer();
    SetLockReason(LockReason);
}

QWidget *OrbelSheetUi::BuildApplyBox(QWidget *parent)
{
    auto *box = new QWidget(parent);
    box->setObjectName(QStringLiteral("applyButtonBox"));
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);

    ApplyButton = new QPushButton(box);
    ApplyButton->setObjectName(QStringLiteral("applyButton"));
    ApplyButton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ApplyButton->setEnabled(Modified);
    row->addWidget(ApplyButton);
    // Meant: the signal is emitted when the button goes down, so a release outside of it does not cancel.
    connect(ApplyButton, &QPushButton::pressed, this, &OrbelSheetUi::applyNow);

    AutoApplyBox = new QCheckBox(box);
    AutoApplyBox->setObjectName(QStringLiteral("autoApply"));
    AutoApplyBox->setChecked(AutoApplyEnabled);
    row->addWidget(AutoApplyBox);
    connect(AutoApplyBox, &QCheckBox::clicked, this, &OrbelSheetUi::ChooseAutoApply);
    if (Changes)
        new ChangesButton(box, Changes);
    Retranslate();
    return box;
}

void OrbelSheetUi::SetLockReason(const QString &reason)
{
    LockReason = reason;
    if (Gui && Area && !Line && !reason.isEmpty())
        Line = new LockLine(Gui, Area->viewport(), ApplyBox);
    if (Line)
        Line->SetReason(reason);
}

void OrbelSheetUi::Retranslate()
{
    OrbelDelegate::Retranslate();
    if (ApplyButton)
        ApplyButton->setText(tr("Apply"));
    if (AutoApplyBox)
        AutoApplyBox->setText(tr("Auto Apply"));
}

void OrbelSheetUi::FinishFrame()
{
    QWidget *rows = Layout ? Layout->parentWidget() : nullptr;
    if (!Gui || !rows)
        return;
    if (ApplyBox && Gui->layout()) {
        // Tab goes in the order in which widgets come into the window; QWidget::setTabOrder() takes the round for the
        // order and leaves the row before the first control.
        Gui->layout()->removeWidget(ApplyBox);
        ApplyBox->setParent(nullptr);
        Gui->layout()->addWidget(ApplyBox);
    }
    if (IsNew)
        Opening = new OpeningFocus(Gui, rows, [this] { return IsLocked; });
    for (QWidget *part : {rows, static_cast<QWidget *>(Area), ApplyBox.data()}) {
        if (part && part != Gui)
            part->show();
    }
    if (Gui->parentWidget())
        KeepTabPlace();
}

/// The controls of a form that is made in a window in use come last in the order of Tab. What of the window comes
/// behind the form is put behind them.
void OrbelSheetUi::KeepTabPlace() const
{
    const auto takesTab = [](const QWidget *widget) { return widget->focusPolicy() & Qt::TabFocus; };
    QVector<QWidget *> behind;
    QWidget *first = nullptr;
    QWidget *last = nullptr;
    for (QWidget *next = Gui->nextInFocusChain(); next != Gui->window(); next = next->nextInFocusChain()) {
        if (!takesTab(next))
            continue;
        const bool isInside = Gui->isAncestorOf(next);
        if (isInside)
            last = next;
        if (isInside && !first)
            first = next;
        if (!isInside && !first)
            behind.append(next);
    }
    for (QWidget *widget : last ? behind : QVector<QWidget *>()) {
        // Alone it does nothing where the one follows the other by way of the window.
        QWidget::setTabOrder(first, widget);
        QWidget::setTabOrder(last, widget);
        last = widget;
    }
}

QScrollArea *OrbelSheetUi::GetArea() const
{
    return Area;
}

void OrbelSheetUi::LayOut()
{
    if (Gui && Gui->layout())
        Gui->layout()->activate();
    if (!Area || !Layout)
        return;
    // A resized area arranges anew when the request comes through.
    Layout->activate();
    for (QWidget *part : {static_cast<QWidget *>(Area), Area->viewport(), Layout->parentWidget()})
        QCoreApplication::sendPostedEvents(part, QEvent::LayoutRequest);
}

void OrbelSheetUi::TakeWidget(OrbelSheetUi &former)
{
    Taken = std::exchange(former.Gui, nullptr);
    if (!Taken)
        return;
    // No other control of the window is to get the focus when the old ones go.
    const QWidget *const focus = Taken->window()->focusWidget();
    if (focus && Taken->isAncestorOf(focus))
        Taken->setFocus(Qt::OtherFocusReason);
    const auto parts = Taken->children();
    IsNew = false;
    for (QObject *part : parts) {
        const bool isOpening = dynamic_cast<OpeningFocus *>(part);
        IsNew = IsNew || isOpening;
        if (isOpening || dynamic_cast<FormKeys *>(part) || dynamic_cast<Assistive *>(part)
            || dynamic_cast<LockLine *>(part))
            delete part;
    }
    QWidget *content = former.Area;
    if (former.Area == Taken) {
        if (former.Layout)
            Taken->removeEventFilter(former.Layout);
        disconnect(Taken, nullptr, &former, nullptr);
        content = former.Area->takeWidget();
    } else {
        delete Taken->layout();
    }
    for (QWidget *part : {content, former.ApplyBox.data()}) {
        if (!part)
            continue;
        part->setParent(nullptr);
        former.EndControl(part);
    }
}

void OrbelSheetUi::TakeChanges(const OrbelSheetUi &former, bool isModified)
{
    if (former.AutoApplyChosen)
        ChooseAutoApply(former.AutoApplyEnabled);
    Modified = isModified && former.Modified;
    if (ApplyButton)
        ApplyButton->setEnabled(Modified);
    if (Modified && former.AutoApplyTimer && former.AutoApplyTimer->isActive() && AutoApplyTimer)
        AutoApplyTimer->start();
}

void OrbelSheetUi::ChooseAutoApply(bool enable)
{
    AutoApplyChosen = true;
    setAutoApplyEnabled(enable);
}

void OrbelSheetUi::ScrollToFocus()
{
    if (!Area)
        return;
    QTimer::singleShot(0, Area, [area = Area.data()] {
        QWidget *focus = area->window()->focusWidget();
        if (focus && area->isAncestorOf(focus))
            area->ensureWidgetVisible(focus);
    });
}

void OrbelSheetUi::BuildTimer()
{
    AutoApplyTimer.reset();
    // Meant: with neither an apply row nor auto apply now, a later setAutoApplyEnabled(true) finds no timer.
    if (!ApplyBox && !AutoApplyEnabled)
        return;
    AutoApplyTimer = std::make_unique<QTimer>();
    AutoApplyTimer->setSingleShot(true);
    AutoApplyTimer->setInterval(qMax(LeastTimeout, GetInt(prop::AutoApplyTimeout, DefaultTimeout)));
    connect(AutoApplyTimer.get(), &QTimer::timeout, this, &OrbelSheetUi::applyNow);
}

void OrbelSheetUi::WriteRootStart(QXmlStreamWriter &writer) const
{
    writer.writeStartElement(GetString(prop::ParametersXmlRootTag, QStringLiteral("Parameters")));
    const QString type = GetString(prop::ParametersXmlTypeAttribute, QString());
    if (!type.isEmpty())
        writer.writeAttribute(attribute::Type, type);
    for (const QString &name : RootAttributes) {
        // Meant: the custom property gives the attribute its name only; its value is the dynamic property's.
        writer.writeAttribute(name.mid(prop::AttributePrefix.size()), property(name.toLatin1().constData()).toString());
    }
}

void OrbelSheetUi::ParseProperties(QXmlStreamReader &reader, bool custom)
{
    OrbelDelegate::ParseProperties(reader, custom);
    if (!custom)
        return;
    RootAttributes = CustomProperties.keys();
    const auto declaresNone = [](const QString &name) { return !name.startsWith(prop::AttributePrefix); };
    RootAttributes.erase(
        std::remove_if(RootAttributes.begin(), RootAttributes.end(), declaresNone), RootAttributes.end());
}

void OrbelSheetUi::EnableInput(bool enable, bool partial)
{
    const Call call(this);
    IsLocked = !enable && !partial;
    if (ApplyBox)
        ApplyBox->setEnabled(enable);
    // What no lock touches, such as a headline, has it back at once.
    const bool staysParked = !enable && !(Parked && Parked->isEnabled());
    if (!Gui || staysParked)
        return;
    const QPointer<QWidget> former = std::exchange(Parked, nullptr);
    const QWidget *focus = Gui->window()->focusWidget();
    if (former && (!focus || focus == Gui))
        former->setFocus(Qt::OtherFocusReason);
    if (Opening && enable)
        Opening->TakeFocus();
}

void OrbelSheetUi::ParkFocus()
{
    const Call call(this);
    const auto focus = [this] {
        QWidget *widget = Gui ? Gui->window()->focusWidget() : nullptr;
        return widget && widget != Gui && Gui->isAncestorOf(widget) ? widget : nullptr;
    };
    Orbel::InputLock lock;
    if (QWidget *field = focus())
        QCoreApplication::sendEvent(field, &lock);
    if (!lock.isAccepted())
        return;
    // A cell's editor has given the focus to its table.
    QWidget *field = focus();
    if (!field)
        return;
    Parked = field;
    Gui->setFocus(Qt::OtherFocusReason);
}

bool OrbelSheetUi::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && Listener) {
        const Call call(this);
        Listener();
    }
    return OrbelDelegate::eventFilter(watched, event);
}

void OrbelSheetUi::PropertyChanged(const QString &name, const QVariant &value)
{
    OrbelDelegate::PropertyChanged(name, value);
    if (name == prop::HoverTuning && Gui) {
        for (VCFrequency *control : Gui->findChildren<VCFrequency *>())
            control->TuneByHovering(value.toBool());
    }
    if (name != prop::AutoApplyEnabled)
        return;
    // Meant: a running timer is not stopped, so it emits once more after a script has switched this off.
    AutoApplyEnabled = value.toBool();
    if (AutoApplyBox && AutoApplyBox->isChecked() != AutoApplyEnabled)
        AutoApplyBox->setChecked(AutoApplyEnabled);
}

void OrbelSheetUi::applyNow()
{
    const Call call(this);
    if (Modified)
        Q_EMIT si_parametersModified();
}

void OrbelSheetUi::emitParametersXml()
{
    const Call call(this);
    Q_EMIT si_parametersModified();
}

void OrbelSheetUi::emitParametersXml(bool)
{
    // Meant: false emits, too; a caller cannot suppress the signal by it.
    applyNow();
}

void OrbelSheetUi::killAutoApplyTimer()
{
    if (AutoApplyTimer)
        AutoApplyTimer->stop();
}

void OrbelSheetUi::setVisible(bool visible)
{
    const Call call(this);
    SetPropertyAlways(prop::Visible, visible);
    if (Gui)
        Gui->setVisible(visible);
}

void OrbelSheetUi::setModified(bool autoApply)
{
    const Call call(this);
    if (!Modified) {
        Modified = true;
        if (ApplyButton)
            ApplyButton->setEnabled(true);
        else
            Q_EMIT si_parametersModified();
    }
    if (autoApply && AutoApplyEnabled && AutoApplyTimer)
        AutoApplyTimer->start();
}

void OrbelSheetUi::resetModified()
{
    // Meant: while nothing is modified a running timer is not stopped; it then emits nothing.
    if (!Modified)
        return;
    const Call call(this);
    Modified = false;
    // Locking it moves the focus.
    if (ApplyButton)
        ApplyButton->setEnabled(false);
    killAutoApplyTimer();
}

void OrbelSheetUi::showContextMenu(QPoint pt)
{
    if (!Gui)
        return;
    const Call call(this);
    QMenu menu;
    FillTextSizeMenu(menu.addMenu(tr("Text size")));
    menu.exec(Gui->mapToGlobal(pt));
}

void OrbelSheetUi::FillTextSizeMenu(QMenu *sizes)
{
    const int base = QApplication::font().pointSize();
    const int current = Gui->font().pointSize();
    const QPair<QString, int> rows[] = {{tr("Normal"), base}, {tr("Medium"), base + 2}, {tr("Large"), base + 4}};
    for (const auto &row : rows) {
        QAction *action = sizes->addAction(row.first);
        action->setCheckable(true);
        action->setChecked(current == row.second);
        action->setData(row.second);
    }
    connect(sizes, &QMenu::triggered, this, &OrbelSheetUi::chooseFont);
}

void OrbelSheetUi::chooseFont(QAction *pAction)
{
    const Call call(this);
    if (pAction)
        Q_EMIT si_chooseFontSize(pAction->data().toInt());
}

void OrbelSheetUi::resetModifiedParameter(QObject *) { }

} // namespace KV218
