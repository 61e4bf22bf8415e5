#include "assistive.h"

#include "assistiveview.h"
#include "orbeldelegate.h"
#include "propertynames.h"

#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <utility>

namespace KV218
{

namespace
{

/// The forms that stand in windows, by the widget in which they do.
QHash<const QWidget *, Assistive *> &Forms()
{
    static QHash<const QWidget *, Assistive *> forms;
    return forms;
}

QString Translated(const char *text)
{
    return QCoreApplication::translate("KV218::Assistive", text);
}

QString PlainText(const QString &text)
{
    const QString plain = Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
    return plain.simplified();
}

/// What is told one after the other, each thing once.
QString Joined(const QStringList &parts)
{
    QStringList told;
    for (const QString &part : parts) {
        if (!part.isEmpty() && !told.contains(part))
            told.append(part);
    }
    return told.join(QStringLiteral(", "));
}

/// Whether a name says all that a tooltip does.
bool Says(const QString &name, const QString &toolTip)
{
    const QStringList words = toolTip.split(QLatin1Char(' '));
    return std::all_of(
        words.begin(), words.end(), [&](const QString &word) { return name.contains(word, Qt::CaseInsensitive); });
}

bool IsRefused(const QWidget *widget)
{
    if (const auto *field = qobject_cast<const QLineEdit *>(widget))
        return !field->isReadOnly() && !field->text().isEmpty() && !field->hasAcceptableInput();
    const auto *spin = qobject_cast<const QAbstractSpinBox *>(widget);
    return spin && !spin->hasAcceptableInput();
}

} // namespace

/// Qt makes a view of each widget that is shown, though no tool listens yet; that of its own is the cheapest. When a
/// tool comes, the forms' views take their places.
class Assistive::Listening : public QAccessible::ActivationObserver
{
public:
    static Listening &Instance()
    {
        static Listening listening;
        return listening;
    }
    void Start()
    {
        IsOn = QAccessible::isActive();
        QAccessible::installActivationObserver(this);
        QAccessible::installFactory(&AssistiveView::Make);
    }
    /// The library may be unloaded after this.
    void Stop()
    {
        QAccessible::removeFactory(&AssistiveView::Make);
        QAccessible::removeActivationObserver(this);
    }
    void accessibilityActiveChanged(bool active) override
    {
        if (!std::exchange(IsOn, active) && active) {
            const QList<const QWidget *> forms = Forms().keys();
            for (const QWidget *form : forms) {
                for (QWidget *widget : form->findChildren<QWidget *>())
                    AssistiveView::Renew(widget);
            }
        }
    }

    bool IsOn = false;
};

bool Assistive::IsHeard()
{
    return Listening::Instance().IsOn;
}

Assistive::Assistive(QWidget *form) : QObject(form), Form(form)
{
    if (Forms().isEmpty())
        Listening::Instance().Start();
    Forms().insert(form, this);
}

Assistive::~Assistive()
{
    Forms().remove(Form);
    if (Forms().isEmpty())
        Listening::Instance().Stop();
}

void Assistive::Add(OrbelDelegate *delegate)
{
    Delegates.append(delegate);
    FacesFound = false;
}

void Assistive::PropertyChanged(OrbelDelegate *delegate, const QString &property)
{
    static const QSet<QString> told{prop::LabelText, prop::ToolTip, prop::Text, prop::Minimum, prop::Maximum,
        prop::Suffix, prop::Unit, prop::Decimals, prop::DisplayScalingFactor};
    if (!IsHeard() || !told.contains(property))
        return;
    // A delegate acts on its new properties after this.
    QMetaObject::invokeMethod(
        delegate,
        [delegate] {
            for (const Face &face : delegate->GetFaces()) {
                for (QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::DescriptionChanged}) {
                    if (!face.Widget)
                        continue;
                    QAccessibleEvent event(face.Widget, kind);
                    QAccessible::updateAccessibility(&event);
                }
            }
        },
        Qt::QueuedConnection);
}

Assistive *Assistive::Of(const QWidget *widget)
{
    const QHash<const QWidget *, Assistive *> &forms = Forms();
    // A form's dialogs and menus stand for themselves; the list of a combo box belongs to it.
    while (widget && !widget->isWindow()) {
        widget = widget->parentWidget();
        if (Assistive *form = forms.value(widget))
            return form;
        if (widget && widget->isWindow() && widget->windowType() == Qt::Popup
            && widget->inherits("QComboBoxPrivateContainer"))
            widget = widget->parentWidget();
    }
    return nullptr;
}

void Assistive::FindFaces()
{
    FacesFound = true;
    Faces.clear();
    for (const QPointer<OrbelDelegate> &delegate : qAsConst(Delegates)) {
        if (!delegate)
            continue;
        for (const Face &face : delegate->GetFaces())
            Faces.insert(face.Widget, {delegate, face});
    }
}

Assistive::Shown Assistive::FaceAround(const QWidget *widget)
{
    if (!FacesFound)
        FindFaces();
    for (; widget && widget != Form; widget = widget->parentWidget()) {
        const auto shown = Faces.constFind(widget);
        // Another widget may stand at the address of one that is gone.
        if (shown != Faces.constEnd() && shown->Delegate && shown->Of.Widget == widget)
            return *shown;
    }
    return {};
}

QString Assistive::NameOfFace(const Shown &shown)
{
    const QWidget *widget = shown.Of.Widget;
    const RowLabel *label = shown.Delegate->GetRowLabel();
    const QString name = Joined({label ? PlainText(label->text()) : QString(), shown.Of.GetPart()});
    if (!name.isEmpty())
        return name;
    const QString toolTip = PlainText(widget->toolTip());
    return toolTip.isEmpty() ? shown.Delegate->objectName() : toolTip;
}

QString Assistive::NameOf(const QWidget *widget, const QString &own)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->pixmap(Qt::ReturnByValue).isNull() ? PlainText(label->text()) : PlainText(label->toolTip());
    const Shown shown = FaceAround(widget);
    if (!shown.Of.Widget)
        return own;
    const QString face = NameOfFace(shown);
    if (shown.Of.Widget == widget)
        return face;
    if (!widget->accessibleName().isEmpty())
        return Joined({face, widget->accessibleName()});
    return widget->focusPolicy() != Qt::NoFocus ? Joined({face, own}) : own;
}

QString Assistive::DescriptionOf(const QWidget *widget, const QString &own)
{
    const Shown shown = FaceAround(widget);
    if (shown.Of.Widget != widget) {
        const QString told = PlainText(own);
        return Says(NameOf(widget, QString()), told) ? QString() : told;
    }
    // What somebody has set for the moment, the line at a field for instance, counts for the limits.
    const QString set = PlainText(widget->accessibleDescription());
    const QString name = NameOfFace(shown);
    const RowLabel *label = shown.Delegate->GetRowLabel();
    QString toolTip = PlainText(widget->toolTip());
    const QString bounds = shown.Of.GetBounds();
    if (!bounds.isEmpty() || Says(name, toolTip))
        toolTip.clear();
    return Joined({IsRefused(widget) ? Translated(QT_TRANSLATE_NOOP("KV218::Assistive", "not accepted")) : QString(),
        set.isEmpty() ? bounds : set, toolTip, shown.Delegate->GetDeviceText(),
        label && label->IsMarked() ? Translated(QT_TRANSLATE_NOOP("KV218::Assistive", "changed, not applied"))
                                   : QString()});
}

RowLabel *Assistive::LabelOf(const QWidget *widget)
{
    const Shown shown = FaceAround(widget);
    return shown.Of.Widget == widget ? shown.Delegate->GetRowLabel() : nullptr;
}

QVector<QWidget *> Assistive::LabelledBy(const RowLabel *label) const
{
    QVector<QWidget *> widgets;
    for (const QPointer<OrbelDelegate> &delegate : Delegates) {
        if (!delegate || delegate->GetRowLabel() != label)
            continue;
        for (const Face &face : delegate->GetFaces()) {
            if (face.Widget)
                widgets.append(face.Widget);
        }
    }
    return widgets;
}

} // namespace KV218
