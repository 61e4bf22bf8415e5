#include "vclineedit.h"

#include "decimalarithmetic.h"
#include "editend.h"
#include "editquery.h"
#include "fieldnote.h"
#include "frequencytext.h"
#include "inputlock.h"
#include "keptcaret.h"
#include "outofview.h"
#include "typingundo.h"
#include "valuenumeric.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <cmath>

/// Tells a field whether it may commit a text; any other may stand there while it is typed.
class VCLineEdit::FrequencyValidator : public QValidator
{
public:
    explicit FrequencyValidator(VCLineEdit *field) : QValidator(field), Field(field) { }
    State validate(QString &text, int &) const override
    {
        // Nobody asks about the node's text now, and reading it would cost each field that a form opens with.
        return !Field->Showing && Field->GetReader().Read(text).IsNumber() ? Acceptable : Intermediate;
    }

private:
    VCLineEdit *Field;
};

VCLineEdit::VCLineEdit(QWidget *parent, const char *name, LineEditType type) : QLineEdit(parent), Type(type)
{
    setObjectName(QString::fromUtf8(name));
    connect(this, &QLineEdit::textEdited, this, [this] { Late.RequestLater(&VCLineEdit::TellEdited); });
    connect(this, &QLineEdit::textChanged, this, [this] { Late.RequestLater(&VCLineEdit::TellChanged); });
    if (Type == ekFrequency)
        TakeFrequencies();
}

void VCLineEdit::TakeFrequencies()
{
    setValidator(new FrequencyValidator(this));
    NodeToShown = [this](const QString &node) { return Orbel::FrequencyText::OfNode(node, locale(), LeastPower()); };
    TypedToNode = [this](const QString &typed) {
        const Orbel::TypedNumber hertz = GetReader().Read(typed);
        return hertz.IsNumber() ? Orbel::FrequencyText::Plain(hertz.Number) : QString();
    };
    connect(this, &QLineEdit::textChanged, this, [this] { Late.RequestLater(&VCLineEdit::TellTyping); });
}

Orbel::NumberReader VCLineEdit::GetReader() const
{
    Orbel::NumberReader reader = Orbel::NumberReader::OfHertz(locale());
    reader.ShownPower = Orbel::FrequencyText::ShownPower(Content);
    if (const auto *node = dynamic_cast<const IValueNumeric *>(Node.get())) {
        reader.IsWhole = WholeHertz || !dynamic_cast<const ValueDouble *>(node);
        reader.Minimum = node->GetMin();
        reader.Maximum = node->GetMax();
    }
    return reader;
}

void VCLineEdit::TellTyping()
{
    if (Type == ekFrequency)
        Mark.Show(IsPending() && !isReadOnly() ? GetReader().Read(text()) : Orbel::TypedNumber());
}

void VCLineEdit::TellRefused()
{
    if (Type == ekFrequency && IsPending())
        Mark.Show(GetReader().Read(text()).AsFinal());
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
    // The focus goes when the field is disabled already and commits nothing.
    if (enable || LeaveEdit())
        QLineEdit::setEnabled(enable);
}

void VCLineEdit::setInputMask(const QString &mask)
{
    Late.After([&] {
        QLineEdit::setInputMask(mask);
        ShowNode();
    });
}

void VCLineEdit::setMaxLength(int length)
{
    Late.After([&] {
        QLineEdit::setMaxLength(length);
        ShowNode();
    });
}

void VCLineEdit::Update(Observable *subject, TChangeCode code)
{
    if (!Node.TakeNotification(subject, code))
        return;
    NodeSpoke = true;
    NodeWaits = IsPending();
    if (IsEditing()) {
        TellTyping();
        return;
    }
    const KeptCaret caret(this, 0, 0, !Orbel::OperatorAct::On(subject));
    ShowNode();
}

bool VCLineEdit::event(QEvent *event)
{
    if (event->type() == EditQuery::Kind()) {
        event->setAccepted(IsEditing());
        return true;
    }
    if (event->type() == Orbel::InputLock::Kind()) {
        DropEdit();
        return true;
    }
    // Nobody tells a field in another window than the active one that the focus has gone from it.
    if (event->type() == QEvent::WindowActivate && IsEditing() && window()->focusWidget() != this)
        Late.RequestLater(&VCLineEdit::EndStrayEdit);
    if (Orbel::LeavesUndoToForm(*this, *event)) {
        event->ignore();
        return false;
    }
    // The base class would not survive a commit that ends the field.
    if (Orbel::EndsEdit(*event) && !FinishEdit())
        return true;
    bool handled = true;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!IsEditing() || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
            return QLineEdit::event(event);
        event->accept();
        break;
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonRelease:
    case QEvent::Drop:
        Late.After([&] { handled = QLineEdit::event(event); });
        break;
    default:
        return QLineEdit::event(event);
    }
    return handled;
}

QSize VCLineEdit::sizeHint() const
{
    const QSize base = QLineEdit::sizeHint();
    if (Type != ekFrequency)
        return base;
    constexpr int roomOfBase = 17; // the letters that the base class makes room for
    const QFontMetrics metrics(font());
    const QString widest = Orbel::FrequencyText::Write(88888888888.0, 0, locale().decimalPoint()) + QLatin1Char(' ');
    const int frame = base.width() - metrics.horizontalAdvance(QLatin1Char('x')) * roomOfBase;
    return {metrics.horizontalAdvance(widest) + std::max(0, frame), base.height()};
}

bool VCLineEdit::FinishEdit()
{
    if (hasFocus() && !Late.After([] { QGuiApplication::inputMethod()->commit(); }))
        return false;
    if (!IsEditing() && !Orbel::RemembersTyping(*this))
        return true;
    const bool mayCommit = Node && isEnabled() && !isReadOnly();
    if (!IsPending() || !mayCommit)
        return ShowNode();
    if (hasAcceptableInput())
        return Commit(text());
    Late.RequestLater(&VCLineEdit::TellRefused);
    return true;
}

void VCLineEdit::DropEdit()
{
    if (hasFocus() && !Late.After([] { QGuiApplication::inputMethod()->reset(); }))
        return;
    const QString typed = text() == Shown ? QString() : text();
    if (IsEditing() && ShowNode() && !typed.isEmpty())
        Orbel::FieldNote::TellDropped(this, typed);
}

void VCLineEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && IsEditing())
        ShowNode();
    else if (!ActByKey(event))
        QLineEdit::keyPressEvent(event);
}

bool VCLineEdit::ActByKey(const QKeyEvent *event)
{
    if (event->modifiers() & ~Qt::KeypadModifier)
        return false;
    const bool steps = std::isfinite(StepGrid) && StepGrid > 0 && dynamic_cast<IValueNumeric *>(BoundNode());
    if (event->key() == Qt::Key_F2)
        selectAll();
    else if (steps && event->key() == Qt::Key_Up)
        Late.Request(&VCLineEdit::StepUp);
    else if (steps && event->key() == Qt::Key_Down)
        Late.Request(&VCLineEdit::StepDown);
    else
        return false;
    return true;
}

/// What is being typed counts first.
void VCLineEdit::StepOnGrid(int direction)
{
    if (isReadOnly() || !FinishEdit() || IsPending())
        return;
    auto *node = dynamic_cast<IValueNumeric *>(BoundNode());
    if (!node)
        return;
    const double grid = Type == ekFrequency && GetReader().IsWhole ? std::max(1.0, std::round(StepGrid)) : StepGrid;
    const double place = Orbel::WithoutNoise(node->GetValue() / grid);
    const double next = direction > 0 ? std::floor(place) + 1 : std::ceil(place) - 1;
    const double target = qBound(node->GetMin(), Orbel::WithoutNoise(next * grid), node->GetMax());
    if (target != node->GetValue() && WriteNode([&] { node->SetValue(target, this); }))
        ShowNode();
}

void VCLineEdit::focusOutEvent(QFocusEvent *event)
{
    const bool refused = Orbel::EndsEdit(*event) && IsEditing();
    if (!refused || ShowNode())
        QLineEdit::focusOutEvent(event);
}

void VCLineEdit::dropEvent(QDropEvent *event)
{
    QLineEdit::dropEvent(event);
    // Otherwise no end of an edit would come after a text dropped into a field that is not being edited.
    setFocus(Qt::OtherFocusReason);
}

void VCLineEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        Mark.FollowPalette();
    else if (event->type() == QEvent::LanguageChange || event->type() == QEvent::ReadOnlyChange)
        // A lock has colours of its own, with which the red would take turns without an end.
        TellTyping();
    else if (event->type() == QEvent::LocaleChange && Type == ekFrequency && !IsEditing())
        ShowNode();
}

/// Commits before the focus moves: Qt would go on with the field that gets it.
bool VCLineEdit::focusNextPrevChild(bool next)
{
    return !FinishEdit() || QLineEdit::focusNextPrevChild(next);
}

bool VCLineEdit::Commit(const QString &typed)
{
    const Orbel::OperatorAct act(Node.get());
    Shown = typed;
    NodeSpoke = false;
    NodeWaits = false;
    if (!Orbel::Survives(this, [&] { Q_EMIT signalTextFinallyChanged(typed); }))
        return false;
    // A node that spoke meanwhile was written by a receiver, perhaps with another text, which counts.
    if (Node && !NodeSpoke && !WriteTyped(typed))
        return false;
    return ShowNode();
}

bool VCLineEdit::WriteTyped(const QString &typed)
{
    const QString text = TypedToNode ? TypedToNode(typed) : typed;
    const bool standsForNothing = TypedToNode && text.isNull();
    return standsForNothing || WriteNode([&] { Node->SetStringValue(text, this); });
}

/// Shows the content; a field out of view asks for no repaint.
void VCLineEdit::SetContent()
{
    // A mask has text() tell less than the base class compares.
    if (hasSelectedText() || !inputMask().isEmpty() || !Orbel::IsOutOfView(this)) {
        setText(Content);
        return;
    }
    const QString formerText = text();
    const int former = cursorPosition();
    {
        const Orbel::RepaintsNothing quiet(this);
        setText(Content);
    }
    const int now = cursorPosition();
    // What is longer than the field holds may come to the text that stands there.
    const bool changes = text() != formerText;
    if ((!changes || Orbel::Survives(this, [&] { Q_EMIT textChanged(text()); })) && former != now)
        Q_EMIT cursorPositionChanged(former, now);
}

bool VCLineEdit::ShowNode()
{
    if (Node)
        Content = NodeToShown ? NodeToShown(Node->GetStringValue()) : Node->GetStringValue();
    return Late.After([this] {
        const QScopedValueRollback<bool> showing(Showing, true);
        NodeWaits = false;
        if (text() != Content)
            SetContent();
        else
            Orbel::ForgetTyping(this);
        Shown = text();
        Mark.Clear();
    });
}
