#include "vclineedit.h"

#include "frequencytext.h"
#include "frequencyvalidator.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QPointer>

VCLineEdit::VCLineEdit(QWidget *parent, const char *name, LineEditType type) : QLineEdit(parent), Type(type)
{
    setObjectName(QString::fromUtf8(name));
    if (Type == ekFrequency)
        TakeFrequencies();
}

void VCLineEdit::TakeFrequencies()
{
    setValidator(new FrequencyValidator(this));
    NodeToShown = [this](const QString &node) { return FrequencyValidator::Shown(node, locale()); };
    TypedToNode = [this](const QString &typed) { return FrequencyValidator::ForNode(typed, locale()); };
    connect(this, &QLineEdit::textChanged, this, &VCLineEdit::MarkWrongText);
}

/// A text that cannot be committed turns red, in a shade that the background lets through.
void VCLineEdit::MarkWrongText()
{
    const bool wrong = isModified() && !text().isEmpty() && !hasAcceptableInput();
    if (wrong == Unmarked.has_value())
        return;
    if (!wrong) {
        setPalette(*std::exchange(Unmarked, std::nullopt));
        return;
    }
    Unmarked = palette();
    QPalette marked = *Unmarked;
    const bool dark = marked.color(QPalette::Base).lightness() < 128;
    marked.setColor(QPalette::Text, dark ? QColor(255, 110, 110) : QColor(190, 0, 0));
    setPalette(marked);
}

bool VCLineEdit::SetValueBase(ValueBase *node)
{
    const bool bound = Node.Bind(node);
    NodeSpoke = true;
    ShowNode();
    return bound;
}

void VCLineEdit::SetConversion(const Conversion &nodeToShown, const Conversion &typedToNode)
{
    NodeToShown = nodeToShown;
    TypedToNode = typedToNode;
    ShowNode();
}

void VCLineEdit::setEnabled(bool enable)
{
    const QPointer<VCLineEdit> self(this);
    // The focus goes when the field is disabled already and commits nothing.
    if (!enable)
        endEdit();
    if (self)
        QLineEdit::setEnabled(enable);
}

void VCLineEdit::setInputMask(const QString &mask)
{
    QLineEdit::setInputMask(mask);
    ShowNode();
}

void VCLineEdit::setMaxLength(int length)
{
    QLineEdit::setMaxLength(length);
    ShowNode();
}

void VCLineEdit::Update(Observable *subject, TChangeCode code)
{
    if (!Node.HasNews(subject, code))
        return;
    NodeSpoke = true;
    if (!isModified())
        ShowNode();
}

bool VCLineEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isModified()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

QSize VCLineEdit::sizeHint() const
{
    const QSize base = QLineEdit::sizeHint();
    if (Type != ekFrequency)
        return base;
    constexpr int roomOfBase = 17; // the letters that the base class makes room for
    const QFontMetrics metrics(font());
    const QString widest = FrequencyText::Write(88888888888.0, 0, locale().decimalPoint()) + QLatin1Char(' ');
    const int frame = base.width() - metrics.horizontalAdvance(QLatin1Char('x')) * roomOfBase;
    return {metrics.horizontalAdvance(widest) + std::max(0, frame), base.height()};
}

void VCLineEdit::endEdit()
{
    if (hasFocus())
        QGuiApplication::inputMethod()->commit();
    if (!isModified())
        return;
    const bool differs = text() != Shown;
    const bool mayCommit = Node && isEnabled() && !isReadOnly();
    if (!differs || !mayCommit)
        ShowNode();
    else if (hasAcceptableInput())
        Commit(text());
}

void VCLineEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isModified()) {
        ShowNode();
        return;
    }
    const QPointer<VCLineEdit> self(this);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        endEdit();
    if (self)
        QLineEdit::keyPressEvent(event);
}

void VCLineEdit::focusOutEvent(QFocusEvent *event)
{
    const QPointer<VCLineEdit> self(this);
    // The field's own context menu takes the focus too, and the edit goes on after it.
    if (event->reason() != Qt::PopupFocusReason) {
        endEdit();
        if (self && isModified())
            ShowNode();
    }
    if (self)
        QLineEdit::focusOutEvent(event);
}

void VCLineEdit::dropEvent(QDropEvent *event)
{
    QLineEdit::dropEvent(event);
    // Otherwise no end of an edit would come after a text dropped into a field that is not being edited.
    setFocus(Qt::OtherFocusReason);
}

void VCLineEdit::Commit(const QString &typed)
{
    const QPointer<VCLineEdit> self(this);
    setModified(false);
    NodeSpoke = false;
    Q_EMIT signalTextFinallyChanged(typed);
    // A node that spoke meanwhile was written by a receiver, perhaps with another text, which counts.
    if (self && Node && !NodeSpoke)
        WriteNode(typed);
    if (!self)
        return;
    ShowNode();
    Committed();
}

void VCLineEdit::WriteNode(const QString &typed)
{
    const QString text = TypedToNode ? TypedToNode(typed) : typed;
    const bool standsForNothing = TypedToNode && text.isNull();
    if (!standsForNothing)
        Node->SetStringValue(text, this);
}

void VCLineEdit::ShowNode()
{
    if (Node)
        Content = NodeToShown ? NodeToShown(Node->GetStringValue()) : Node->GetStringValue();
    if (text() != Content)
        setText(Content);
    setModified(false);
    Shown = text();
}
