#include "inspectordock.h"

#include "classmembers.h"
#include "controlwidgets.h"
#include "elementtext.h"
#include "emptyhint.h"
#include "formoverlay.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "registry.h"
#include "valuebase.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QMetaMethod>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace Orbel
{

using KV218::OrbelDelegate;

namespace
{

enum PropertyColumn { NameColumn, StatedColumn, EffectiveColumn, ControlColumn, OriginColumn };

QTreeWidget *NewList(const char *name, const QStringList &header)
{
    auto *list = new QTreeWidget;
    list->setObjectName(QString::fromLatin1(name));
    list->setHeaderLabels(header);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(false);
    list->setAlternatingRowColors(true);
    return list;
}

/// The row of that name, a new one where there is none.
QTreeWidgetItem *RowOf(QTreeWidget *list, const QString &name)
{
    const QList<QTreeWidgetItem *> found = list->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    return found.isEmpty() ? new QTreeWidgetItem(list, {name}) : found.constFirst();
}

void Put(QTreeWidgetItem *row, int column, const QString &text)
{
    if (row->text(column) == text)
        return;
    row->setText(column, text);
    row->setToolTip(column, text);
}

/// What QObject keeps to itself.
struct Receivers : QObject {
    static int Of(const QObject &object, const QMetaMethod &signal)
    {
        const QByteArray code = '2' + signal.methodSignature();
        return (object.*(&Receivers::receivers))(code.constData());
    }
};

} // namespace

InspectorDock::InspectorDock(Workbench &bench, FormOverlay &overlay)
    : StudioDock(bench, tr("Inspector"), "inspector"), Overlay(overlay), Pointer(bench),
      PointAction(new QAction(tr("&Point at a control"), this)), HintsAction(new QAction(tr("&Layout"), this)),
      CopyAction(new QAction(tr("&Copy as XML"), this)), Names(new QComboBox),
      Facts(NewList("facts", {tr("What"), tr("Is")})),
      Properties(NewList("properties", {tr("Property"), tr("Stated"), tr("Effective"), tr("Widget"), tr("Set by")})),
      Signals(NewList("signals", {tr("Signal"), tr("Receivers"), tr("Connected in the script")}))
{
    PointAction->setCheckable(true);
    PointAction->setShortcut(QKeySequence(tr("Ctrl+Shift+I")));
    PointAction->setToolTip(tr("The next click on the form chooses a control (%1); Escape ends that")
                                .arg(PointAction->shortcut().toString(QKeySequence::NativeText)));
    HintsAction->setCheckable(true);
    HintsAction->setToolTip(tr("Draws place and size of every label and control over the form"));
    CopyAction->setToolTip(tr("Copies the element, with what has been tried out, to be put into the file"));
    Names->setPlaceholderText(tr("No control"));
    const QString hint = tr("Choose a control above, or point at one in the form: %1, then a click.")
                             .arg(PointAction->shortcut().toString(QKeySequence::NativeText));
    for (QTreeWidget *list : {Facts, Properties, Signals})
        new EmptyHint(list, hint);
    auto *page = new QWidget;
    auto *lines = new QVBoxLayout(page);
    auto *tabs = new QTabWidget;
    tabs->addTab(Properties, tr("Properties"));
    tabs->addTab(Facts, tr("Element"));
    tabs->addTab(Signals, tr("Signals"));
    lines->addWidget(NewHead());
    lines->addWidget(tabs);
    setWidget(page);
    Facts->setWordWrap(true);
    Properties->setEditTriggers(QAbstractItemView::NoEditTriggers);

    connect(PointAction, &QAction::toggled, this, [this](bool on) {
        Pointer.SetOn(on);
        show();
        raise();
    });
    connect(HintsAction, &QAction::toggled, &Overlay, &FormOverlay::SetHints);
    connect(CopyAction, &QAction::triggered, this, [this] { QApplication::clipboard()->setText(GetElement()); });
    connect(&Pointer, &ControlPointer::moved, &Overlay, &FormOverlay::Point);
    connect(&Pointer, &ControlPointer::ended, this, [this](const QString &name) {
        PointAction->setChecked(false);
        Overlay.Point(QString());
        if (!name.isEmpty())
            Bench.Pick(name);
    });
    connect(Names, &QComboBox::textActivated, &Bench, &Workbench::Pick);
    connect(&Bench, &Workbench::formChanged, this, &InspectorDock::TakeForm);
    connect(&Bench, &Workbench::picked, this, &InspectorDock::Show);
    connect(Properties, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem *row, int column) {
        if (column == EffectiveColumn)
            Properties->editItem(row, column);
    });
    connect(Properties, &QTreeWidget::itemChanged, this, &InspectorDock::TryOut);
    auto *again = new QTimer(this);
    connect(again, &QTimer::timeout, this, [this] {
        if (isVisible())
            Renew();
    });
    again->start(500);
}

QWidget *InspectorDock::NewHead()
{
    auto *head = new QWidget;
    auto *line = new QHBoxLayout(head);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(Names, 1);
    for (QAction *action : {PointAction, HintsAction, CopyAction}) {
        auto *button = new QToolButton;
        button->setDefaultAction(action);
        line->addWidget(button);
    }
    return head;
}

void InspectorDock::TakeForm()
{
    QStringList names;
    for (const FormSource::Widget &widget : Bench.GetSource().GetWidgets())
        names.append(widget.Name);
    const QSignalBlocker blocker(Names);
    Names->clear();
    Names->addItems(names);
    Tried.clear();
    Show(names.contains(Name) ? Name : QString());
}

void InspectorDock::Show(const QString &name)
{
    // A control of another class has other rows.
    const FormSource::Widget *const widget = Bench.GetSource().Find(name);
    const QString className = widget ? widget->Class : QString();
    if (name != Name || className != Class) {
        for (QTreeWidget *list : {Facts, Properties, Signals})
            list->clear();
    }
    Name = name;
    Class = className;
    Names->setCurrentIndex(Names->findText(name));
    Renew();
    for (QTreeWidget *list : {Facts, Properties, Signals}) {
        for (int column = 0; column < list->columnCount() - 1; ++column)
            list->resizeColumnToContents(column);
        // The last column is to be seen as well; tooltips have the whole texts.
        for (int column = 0; list == Properties && column < OriginColumn; ++column)
            list->setColumnWidth(column, qMin(list->columnWidth(column), column == NameColumn ? 140 : 80));
    }
}

void InspectorDock::Renew()
{
    const bool isEdited = Properties->viewport()->isAncestorOf(QApplication::focusWidget());
    if (isEdited || !Bench.FindControl(Name))
        return;
    const QScopedValueRollback<bool> filling(IsFilling, true);
    ShowFacts();
    ShowProperties();
    ShowSignals();
}

void InspectorDock::ShowFacts()
{
    const OrbelDelegate *const control = Bench.FindControl(Name);
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const ValueBase *const node = control->GetVTValue();
    const auto fact = [&](const QString &what, const QString &is) { Put(RowOf(Facts, what), 1, is); };
    if (widget) {
        fact(tr("Place"),
            widget->FirstLine > 0
                ? QStringLiteral("%1:%2–%3").arg(Bench.GetFile()).arg(widget->FirstLine).arg(widget->LastLine)
                : tr("in a component list"));
        fact(tr("Class"), widget->Class);
    }
    fact(tr("Delegate"), QString::fromLatin1(control->metaObject()->className()));
    fact(tr("Node"), node ? control->GetVTPath() : tr("none"));
    fact(tr("Value of the node"), node ? node->GetStringValue() : QString());
    fact(tr("Parameter"), control->GetXmlPath());
    fact(tr("Parameter element"), ElementText::OfParameter(*control));
    fact(tr("Modified"), control->isModified() ? tr("yes") : tr("no"));
    fact(tr("Device"), control->GetDeviceText());
    QStringList widgets;
    for (const QWidget *each : ControlWidgets::Of(Bench, Name)) {
        widgets.append(QStringLiteral("%1 %2×%3 at %4, %5")
                           .arg(QString::fromLatin1(each->metaObject()->className()))
                           .arg(each->width())
                           .arg(each->height())
                           .arg(each->x())
                           .arg(each->y()));
    }
    fact(tr("Widgets"), widgets.join(QLatin1Char('\n')));
}

/// Those that the class reads, and those that somebody has set.
QStringList InspectorDock::PropertyNames() const
{
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const ClassInfo *const info = widget ? Registry::FindClass(widget->Class) : nullptr;
    QStringList names = info ? Registry::PropertyNames(*info) : QStringList();
    if (widget)
        names += widget->Properties.keys();
    for (const QByteArray &name : Bench.FindControl(Name)->dynamicPropertyNames())
        names.append(QString::fromUtf8(name));
    names.removeDuplicates();
    names.sort();
    return names;
}

void InspectorDock::ShowProperties()
{
    const OrbelDelegate *const control = Bench.FindControl(Name);
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const ClassInfo *const info = widget ? Registry::FindClass(widget->Class) : nullptr;
    const QVector<QWidget *> widgets = ControlWidgets::Of(Bench, Name);
    const QWidget *const shown
        = widgets.isEmpty() || widgets.constFirst() == control->GetRowLabel() ? nullptr : widgets.constFirst();
    const QStringList names = PropertyNames();
    for (int i = Properties->topLevelItemCount() - 1; i >= 0; --i) {
        if (!names.contains(Properties->topLevelItem(i)->text(NameColumn)))
            delete Properties->topLevelItem(i);
    }
    for (const QString &name : names) {
        QTreeWidgetItem *const row = RowOf(Properties, name);
        const QByteArray key = name.toUtf8();
        const QVariant value = control->property(key.constData());
        const PropertyInfo *const known = info ? Registry::FindProperty(*info, name) : nullptr;
        const QString absent = known ? tr("(%1)").arg(QString::fromUtf8(known->absent)) : QString();
        row->setFlags(row->flags() | Qt::ItemIsEditable);
        Put(row, StatedColumn, widget ? widget->Properties.value(name).Text : QString());
        Put(row, EffectiveColumn, value.isValid() ? ElementText::Spell(value) : absent);
        Put(row, ControlColumn, shown ? ElementText::Spell(shown->property(key.constData())) : QString());
        Put(row, OriginColumn, OriginOf(name));
        if (known)
            row->setToolTip(NameColumn, QString::fromUtf8(known->meaning));
    }
}

QString InspectorDock::OriginOf(const QString &property) const
{
    const OrbelDelegate *const control = Bench.FindControl(Name);
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const bool isStated = widget && widget->Properties.contains(property);
    const QVariant value = control->property(property.toUtf8().constData());
    const QString origin = Bench.GetOrigins().Of(control, property);
    // A reload in place sets what is stated now.
    const bool isAsStated = isStated && ElementText::Spell(value) == widget->Properties.value(property).Text;
    if (isStated && (origin.isEmpty() || (origin == tr("unknown") && isAsStated))) {
        const int line = widget->Properties.value(property).Line;
        return line > 0 ? tr("definition, line %1").arg(line) : tr("definition");
    }
    if (!origin.isEmpty())
        return origin;
    return value.isValid() ? tr("the class itself") : tr("nobody");
}

void InspectorDock::ShowSignals()
{
    const OrbelDelegate *const control = Bench.FindControl(Name);
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const QString className = widget ? widget->Class : QString();
    for (const QString &signature : MembersOf(control->metaObject(), QObject::staticMetaObject).Signals) {
        const QString name = signature.section(QLatin1Char('('), 0, 0);
        QStringList handlers;
        for (const auto &handler : Bench.GetSource().HandlersOf(Name, name))
            handlers.append(tr("line %1: %2").arg(handler.Line).arg(handler.Text));
        for (const auto &handler : Bench.GetSource().HandlersOf(QString(), name))
            handlers.append(tr("perhaps line %1: %2").arg(handler.Line).arg(handler.Text));
        int receivers = 0;
        for (int i = 0; i < control->metaObject()->methodCount(); ++i) {
            const QMetaMethod method = control->metaObject()->method(i);
            if (method.methodType() == QMetaMethod::Signal && QString::fromLatin1(method.name()) == name)
                receivers = qMax(receivers, Receivers::Of(*control, method));
        }
        QTreeWidgetItem *const row = RowOf(Signals, signature);
        // A tooltip shows no Markdown.
        row->setToolTip(0, Registry::MeaningOf(className, signature).remove(QLatin1Char('`')));
        Put(row, 1, QString::number(receivers));
        Put(row, 2,
            handlers.isEmpty() ? (receivers > 0 ? tr("unknown") : QString()) : handlers.join(QLatin1Char('\n')));
    }
}

/// Given as a definition gives it: a truth value, or a text.
void InspectorDock::TryOut(QTreeWidgetItem *row, int column)
{
    OrbelDelegate *const control = Bench.FindControl(Name);
    if (IsFilling || column != EffectiveColumn || !control)
        return;
    const QString name = row->text(NameColumn);
    const QString text = row->text(EffectiveColumn);
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const ClassInfo *const info = widget ? Registry::FindClass(widget->Class) : nullptr;
    const PropertyInfo *const known = info ? Registry::FindProperty(*info, name) : nullptr;
    const bool isBool = known ? known->type == ValueType::Bool
                              : control->property(name.toUtf8().constData()).type() == QVariant::Bool;
    if (!Tried[Name].contains(name))
        Tried[Name].append(name);
    {
        const PropertyOrigins::Act act(Bench.GetOrigins(), tr("studio, tried out"));
        const OrbelDelegate::Call call(control);
        control->setProperty(
            name.toUtf8().constData(), isBool ? QVariant(text == QLatin1String("true")) : QVariant(text));
    }
    QTimer::singleShot(0, this, &InspectorDock::Renew);
}

QString InspectorDock::GetElement() const
{
    const FormSource::Widget *const widget = Bench.GetSource().Find(Name);
    const OrbelDelegate *const control = Bench.FindControl(Name);
    return widget && control ? ElementText::OfDefinition(*widget, *control, Tried.value(Name)) : QString();
}

} // namespace Orbel
