#include "formoperator.h"

#include "clickpoint.h"
#include "fieldnote.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "suggestion.h"
#include "testsupport.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHelpEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

namespace Orbel
{

using KV218::OrbelDelegate;

struct FormOperator::Target {
    /// Null for a widget that is no control of the definition.
    QPointer<OrbelDelegate> Control;
    /// Null when there is none, which has failed the test.
    QPointer<QWidget> Widget;
    /// Of a cell; -1 for the whole.
    int Row = -1;
    int Column = -1;

    explicit operator bool() const { return Widget; }
    QAbstractItemView *View() const { return qobject_cast<QAbstractItemView *>(Widget.data()); }
    QModelIndex Cell() const { return View() ? View()->model()->index(Row, Column) : QModelIndex(); }
    RowLabel *Label() const { return Control ? Control->GetRowLabel() : nullptr; }
};

namespace
{

/// "Table[2,1]": a name, and the place of a part, whose numbers are -1 where they are not stated.
struct Place {
    explicit Place(const QString &path) : Name(path)
    {
        static const QRegularExpression parts(QStringLiteral("^(.*)\\[(\\d+)(?:,\\s*(\\d+))?\\]$"));
        const QRegularExpressionMatch match = parts.match(path);
        if (!match.hasMatch())
            return;
        Name = match.captured(1);
        First = Number(match.captured(2));
        Second = match.captured(3).isEmpty() ? -1 : Number(match.captured(3));
    }
    static int Number(const QString &digits)
    {
        bool fits = false;
        const int number = digits.toInt(&fits);
        return fits ? number : std::numeric_limits<int>::max();
    }

    QString Name;
    int First = -1;
    int Second = -1;
};

/// In the order of the definition; none of a form that has ended.
QVector<OrbelDelegate *> ControlsOf(const KV218::OrbelFormular *form)
{
    QVector<OrbelDelegate *> controls;
    for (int i = 0; form && i < form->GetSheet().GetWidgetCount(); ++i) {
        if (OrbelDelegate *const control = form->GetSheet().GetWidgetAt(i)->GetDelegate())
            controls << control;
    }
    return controls;
}

QString Quote(const QString &path)
{
    return QStringLiteral("Control \"%1\"").arg(path);
}

/// Why the operator cannot get at a widget; empty where he can.
QString ObstacleTo(const QWidget &widget, const OrbelDelegate *control, bool edits)
{
    const QWidget *const dialog = QApplication::activeModalWidget();
    if (!widget.window()->isVisible())
        return QStringLiteral("its window is not shown");
    if (!widget.isVisible())
        return control && !control->isGroupVisible() ? QStringLiteral("its group is collapsed")
                                                     : QStringLiteral("it is hidden");
    if (dialog && dialog != widget.window())
        return QStringLiteral("a dialog stands before it: %1 %2")
            .arg(QLatin1String(dialog->metaObject()->className()), dialog->windowTitle());
    if (qobject_cast<const QMenu *>(QApplication::activePopupWidget()))
        return QStringLiteral("a menu is open before it");
    if (!widget.isEnabled())
        return QStringLiteral("it is disabled or locked");
    if (edits && widget.property("readOnly").toBool())
        return QStringLiteral("it is read-only");
    return QString();
}

/// The widget to which keys go that a control gets.
QWidget *FieldOf(QWidget *widget)
{
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

bool TakesText(const QWidget *field)
{
    const auto *const box = qobject_cast<const QComboBox *>(field);
    return box ? box->isEditable() : field->property("readOnly").isValid();
}

/// While an act runs. What that opens and waits for, nobody else would close, and the test would hang.
class Patience : public QTimer
{
public:
    explicit Patience(const CallSite &at)
    {
        setSingleShot(true);
        connect(this, &QTimer::timeout, this, [at] {
            QWidget *const menu = QApplication::activePopupWidget();
            QWidget *const open = menu ? menu : QApplication::activeModalWidget();
            if (!open)
                return;
            FailTest(QStringLiteral("The act has opened %1 \"%2\" and waits for it; make a ModalVisitor before")
                         .arg(QLatin1String(open->metaObject()->className()), open->windowTitle()),
                at);
            open->close();
        });
        start(Milliseconds);
    }

private:
    static constexpr int Milliseconds = 3000;
};

QString ToolTipOf(QWidget *widget)
{
    QHelpEvent asked(QEvent::ToolTip, QPoint(), QPoint());
    QCoreApplication::sendEvent(widget, &asked);
    const QString text = asked.isAccepted() ? QToolTip::text() : QString();
    // Hiding it would take a timer's time.
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->inherits("QTipLabel"))
            delete window;
    }
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

} // namespace

FormOperator::FormOperator(KV218::OrbelFormular *form) : Bare(form) { }

FormOperator::~FormOperator() = default;

KV218::OrbelFormular *FormOperator::GetForm() const
{
    return Bare;
}

QStringList FormOperator::Paths() const
{
    QStringList paths;
    for (const OrbelDelegate *control : ControlsOf(GetForm()))
        paths << control->GetXmlPath();
    return paths;
}

QString FormOperator::PathOf(const QString &name) const
{
    const OrbelDelegate *const control = GetForm() ? FindControl(name) : nullptr;
    return control ? control->GetXmlPath() : name;
}

OrbelDelegate *FormOperator::FindControl(const QString &name) const
{
    if (const KV218::OrbelSheet::Widget widget = GetForm()->GetSheet().GetWidget(name))
        return widget->GetDelegate();
    const QVector<OrbelDelegate *> controls = ControlsOf(GetForm());
    const auto named = [&name](const OrbelDelegate *control) { return control->objectName() == name; };
    const auto found = std::find_if(controls.begin(), controls.end(), named);
    return found == controls.end() ? nullptr : *found;
}

FormOperator::Target FormOperator::Look(const QString &path, const CallSite &at) const
{
    Settle();
    const KV218::OrbelFormular *const form = GetForm();
    QWidget *const gui = form ? form->GetGUI() : nullptr;
    if (!gui) {
        FailTest(Quote(path) + QStringLiteral(": the form has ended or has no window"), at);
        return {};
    }
    const Place place(path);
    Target target;
    const bool isNamed = !place.Name.isEmpty();
    target.Control = isNamed ? FindControl(place.Name) : nullptr;
    if (!target.Control) {
        target.Widget = isNamed && place.First < 0 ? gui->findChild<QWidget *>(place.Name) : nullptr;
        if (!target.Widget)
            FailTest(QStringLiteral("There is no control \"%1\"").arg(path) + DidYouMean(place.Name, Paths()), at);
        return target;
    }
    const QVector<KV218::Face> faces = target.Control->GetFaces();
    const auto *const table = qobject_cast<QAbstractItemView *>(faces.value(0).Widget.data());
    target.Widget = faces.value(table ? 0 : qMax(0, place.First)).Widget;
    if (table && place.First >= 0) {
        target.Row = place.First;
        target.Column = qMax(0, place.Second);
    }
    const bool isMissing = place.First >= 0 && (table ? !target.Cell().isValid() : place.Second >= 0);
    if (!target || isMissing) {
        FailTest(Quote(path) + QStringLiteral(" has no such part, or nothing to be seen"), at);
        return {};
    }
    return target;
}

FormOperator::Target FormOperator::Reach(const QString &path, const CallSite &at, bool edits) const
{
    const Target target = Look(path, at);
    const QString obstacle = target ? ObstacleTo(*FieldOf(target.Widget), target.Control, edits) : QString();
    if (obstacle.isEmpty()) {
        // Of several windows a person works in the active one.
        if (target && !target.Widget->isActiveWindow())
            QApplication::setActiveWindow(target.Widget->window());
        return target;
    }
    FailTest(Quote(path) + QStringLiteral(" cannot be reached: ") + obstacle, at);
    return {};
}

QWidget *FormOperator::FindAny(const QString &path, const CallSite &at) const
{
    return Look(path, at).Widget;
}

void FormOperator::FailClass(const QString &path, const QWidget &found, const char *wanted, const CallSite &at)
{
    FailTest(QStringLiteral("%1 is a %2 and no %3")
                 .arg(Quote(path), QLatin1String(found.metaObject()->className()), QLatin1String(wanted)),
        at);
}

void FormOperator::Focus(const QString &path, const CallSite &at)
{
    if (const Target target = Reach(path, at))
        target.Widget->setFocus();
    Settle();
}

void FormOperator::Click(const QString &path, const CallSite &at)
{
    const Target target = Reach(path, at);
    if (!target)
        return;
    const Patience patience(at);
    if (target.Row >= 0) {
        target.View()->scrollTo(target.Cell());
        QTest::mouseClick(
            target.View()->viewport(), Qt::LeftButton, {}, target.View()->visualRect(target.Cell()).center());
    } else {
        QTest::mouseClick(target.Widget, Qt::LeftButton, {}, ClickPoint(*target.Widget));
    }
    Settle();
}

void FormOperator::Type(const QString &path, const QString &text, const CallSite &at)
{
    const Target target = Reach(path, at, true);
    if (!target)
        return;
    QWidget *const field = target.Row < 0 ? FieldOf(target.Widget) : OpenCell(target.View(), target.Row, target.Column);
    if (!field || (target.Row < 0 && !TakesText(field))) {
        FailTest(Quote(path)
                + (!target                       ? QStringLiteral(" has ended")
                        : field && target.View() ? QStringLiteral(" has no text of its own; name a cell of it")
                        : field                  ? QStringLiteral(" takes no text")
                                                 : QStringLiteral(" cannot be edited")),
            at);
        return;
    }
    TypeOver(field, text);
    Settle();
}

void FormOperator::Enter(const QString &path, const QString &text, const CallSite &at)
{
    const Target target = Reach(path, at, true);
    if (!target)
        return;
    Type(path, text, at);
    // What was typed may have ended it all.
    QWidget *const field = !target ? nullptr
        : target.Row < 0           ? FieldOf(target.Widget)
                                   : target.View()->indexWidget(target.Cell());
    if (field)
        QTest::keyClick(field, Qt::Key_Return);
    Settle();
}

void FormOperator::Choose(const QString &path, const QString &text, const CallSite &at)
{
    const Target target = Reach(path, at, true);
    if (!target)
        return;
    auto *const box = qobject_cast<QComboBox *>(target.Widget.data());
    const int row = box ? box->findText(text) : -1;
    if (row < 0) {
        FailTest(Quote(path)
                + (box ? QStringLiteral(" has no item \"%1\", but %2").arg(text, Quoted(Choices(path, at)))
                       : QStringLiteral(" is no combo box")),
            at);
        return;
    }
    box->setFocus();
    // An edit that this finishes may have ended it all.
    if (target) {
        box->showPopup();
        box->view()->setCurrentIndex(box->model()->index(row, box->modelColumn(), box->rootModelIndex()));
        QTest::keyClick(box->view(), Qt::Key_Return);
    }
    Settle();
}

void FormOperator::Check(const QString &path, bool on, const CallSite &at)
{
    const Target target = Reach(path, at);
    if (!target || IsChecked(path, at) == on)
        return;
    if (!target.Widget->property("checked").isValid())
        return;
    Click(path, at);
    if (IsChecked(path, at) != on)
        FailTest(Quote(path) + QStringLiteral(" stays as it is"), at);
}

void FormOperator::Wheel(const QString &path, int notches, const CallSite &at)
{
    const Target target = Reach(path, at);
    for (int left = qAbs(notches); target && left > 0; --left) {
        const QPointer<QWidget> field = FieldOf(target.Widget);
        field->setFocus();
        if (!field)
            break;
        const QPoint place = field->rect().center();
        QWheelEvent turn(place, field->mapToGlobal(place), QPoint(), QPoint(0, notches > 0 ? 120 : -120), Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(field, &turn);
    }
    Settle();
}

QWidget *FormOperator::KeysGoTo(const CallSite &at) const
{
    Settle();
    QWidget *const open
        = QApplication::activePopupWidget() ? QApplication::activePopupWidget() : QApplication::activeModalWidget();
    const KV218::OrbelFormular *const form = GetForm();
    QWidget *const gui = form ? form->GetGUI() : nullptr;
    QWidget *const window = open ? open : gui ? gui->window() : nullptr;
    if (!window) {
        FailTest(QStringLiteral("No key can be pressed: the form has ended or has no window"), at);
        return nullptr;
    }
    if (!window->isVisible()) {
        FailTest(QStringLiteral("No key can be pressed: the window of the form is not shown"), at);
        return nullptr;
    }
    if (!window->isActiveWindow() && !open)
        QApplication::setActiveWindow(window);
    return window->focusWidget() ? window->focusWidget() : window;
}

void FormOperator::Press(const QString &keys, const CallSite &at)
{
    const Patience patience(at);
    const QStringList all = keys.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (all.isEmpty())
        FailTest(QStringLiteral("\"%1\" is no key").arg(keys), at);
    for (const QString &key : all) {
        const QKeySequence sequence(key);
        if (sequence.isEmpty() || sequence[0] == Qt::Key_unknown)
            FailTest(QStringLiteral("\"%1\" is no key").arg(key), at);
        else if (QWidget *const focus = KeysGoTo(at))
            QTest::keySequence(focus, sequence);
    }
    Settle();
}

QStringList FormOperator::Entries() const
{
    const QWidget *const menu = QApplication::activePopupWidget();
    QStringList texts;
    for (const QAction *entry : menu ? menu->actions() : QList<QAction *>())
        texts << entry->text();
    return texts;
}

void FormOperator::ChooseEntry(const QString &text, const CallSite &at)
{
    Settle();
    const Patience patience(at);
    auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    for (QAction *entry : menu ? menu->actions() : QList<QAction *>()) {
        if (!entry->text().startsWith(text))
            continue;
        menu->setActiveAction(entry);
        QTest::keyClick(menu, Qt::Key_Return);
        Settle();
        return;
    }
    FailTest(menu ? QStringLiteral("There is no entry \"%1\", but %2").arg(text, Quoted(Entries()))
                  : QStringLiteral("No menu is open"),
        at);
}

void FormOperator::TypeOn(const QString &text, const CallSite &at)
{
    if (QWidget *const focus = KeysGoTo(at))
        TypeText(focus, text);
    Settle();
}

/// The keys of a form count while the focus is in it.
void FormOperator::PressInForm(const QString &keys, const CallSite &at)
{
    const KV218::OrbelFormular *const form = GetForm();
    QWidget *const gui = form ? form->GetGUI() : nullptr;
    QWidget *const focus = KeysGoTo(at);
    if (focus && gui)
        QTest::keySequence(gui->isAncestorOf(focus) ? focus : gui, QKeySequence(keys));
    Settle();
}

void FormOperator::Undo(const CallSite &at)
{
    PressInForm(QStringLiteral("Ctrl+Z"), at);
}

void FormOperator::Redo(const CallSite &at)
{
    PressInForm(QStringLiteral("Ctrl+Shift+Z"), at);
}

void FormOperator::Apply(const CallSite &at)
{
    PressInForm(QStringLiteral("Ctrl+Return"), at);
}

QString FormOperator::Shown(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    if (!target)
        return QString();
    if (target.Row >= 0)
        return target.Cell().data().toString();
    const QWidget *const field = FieldOf(target.Widget);
    const QVariant text = field->property(qobject_cast<const QComboBox *>(field) ? "currentText"
            : qobject_cast<const QGroupBox *>(field)                             ? "title"
                                                                                 : "text");
    if (!text.isValid())
        FailTest(Quote(path) + QStringLiteral(" has no text of its own"), at);
    return text.toString();
}

bool FormOperator::IsChecked(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    const QVariant state = target ? target.Widget->property("checked") : QVariant();
    if (target && !state.isValid())
        FailTest(Quote(path) + QStringLiteral(" is neither on nor off"), at);
    return state.toBool();
}

QStringList FormOperator::Choices(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    const auto *const box = qobject_cast<QComboBox *>(target.Widget.data());
    if (target && !box)
        FailTest(Quote(path) + QStringLiteral(" is no combo box"), at);
    QStringList texts;
    for (int i = 0; box && i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

QString FormOperator::Label(const QString &path, const CallSite &at) const
{
    const RowLabel *const label = Look(path, at).Label();
    return label ? label->text() : QString();
}

RowLabel::Mark FormOperator::Mark(const QString &path, const CallSite &at) const
{
    const RowLabel *const label = Look(path, at).Label();
    return label ? label->GetMark() : RowLabel::None;
}

QString FormOperator::ToolTip(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    if (!target)
        return QString();
    return ToolTipOf(target.Label() ? target.Label() : target.Widget.data());
}

QString FormOperator::Note(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    return target ? FieldNote::TextOf(FieldOf(target.Widget)) : QString();
}

bool FormOperator::IsShown(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    return target && target.Widget->isVisible();
}

bool FormOperator::CanEdit(const QString &path, const CallSite &at) const
{
    const Target target = Look(path, at);
    return target && ObstacleTo(*FieldOf(target.Widget), target.Control, true).isEmpty();
}

QString FormOperator::Focused() const
{
    Settle();
    const KV218::OrbelFormular *const form = GetForm();
    QWidget *const gui = form ? form->GetGUI() : nullptr;
    const QWidget *const focus = gui ? gui->window()->focusWidget() : nullptr;
    if (!focus || !gui->isAncestorOf(focus))
        return QString();
    for (const OrbelDelegate *control : ControlsOf(form)) {
        const QVector<KV218::Face> faces = control->GetFaces();
        for (int part = 0; part < faces.size(); ++part) {
            const QWidget *const face = faces.at(part).Widget;
            if (face && (face == focus || face->isAncestorOf(focus)))
                return control->GetXmlPath() + (part > 0 ? QStringLiteral("[%1]").arg(part) : QString());
        }
    }
    return focus->objectName();
}

} // namespace Orbel
