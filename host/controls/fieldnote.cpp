#include "fieldnote.h"

#include "readablecolor.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace Orbel
{

namespace
{

/// The line itself: a window of its own, so that it may lie over the edge of the form's window, and a child of its
/// field.
class NoteLabel : public QLabel
{
public:
    explicit NoteLabel(QWidget *field);

    QWidget *GetField() const { return Field; }
    void Present(const QString &text, FieldNote::Kind kind, const QRect &part);
    /// Goes by itself after that time on the screen; never for 0.
    void GoAfter(int milliseconds);
    void Dismiss();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void WatchAncestors();
    void TakeLooks();
    QRect VisibleRect() const;
    void Place();

    QWidget *Field;
    FieldNote::Kind Kind = FieldNote::Understood;
    // What it stands at, in the field's pixels; the whole field when null.
    QRect Part;
    QString OwnDescription;
    QTimer Timer;
    bool Times = false;
};

QPointer<NoteLabel> Standing;

NoteLabel *NoteOf(const QWidget *field)
{
    return Standing && Standing->GetField() == field ? Standing.data() : nullptr;
}

NoteLabel::NoteLabel(QWidget *field)
    : QLabel(field, Qt::ToolTip | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus), Field(field),
      OwnDescription(field->accessibleDescription())
{
    setObjectName(QStringLiteral("fieldNote"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFrameStyle(int(QFrame::Box) | QFrame::Plain);
    setMargin(2);
    setAutoFillBackground(true);
    // A text is no markup, whatever was typed.
    setTextFormat(Qt::PlainText);
    Timer.setSingleShot(true);
    connect(&Timer, &QTimer::timeout, this, &NoteLabel::Dismiss);
    WatchAncestors();
    // A part moves away under the note then.
    if (const auto *view = qobject_cast<QAbstractScrollArea *>(Field->parentWidget())) {
        for (QScrollBar *bar : {view->horizontalScrollBar(), view->verticalScrollBar()}) {
            connect(bar, &QScrollBar::valueChanged, this, [this] {
                if (!Part.isNull())
                    Dismiss();
            });
        }
    }
}

void NoteLabel::WatchAncestors()
{
    for (QWidget *widget = Field; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
        widget->installEventFilter(this);
}

void NoteLabel::Present(const QString &text, FieldNote::Kind kind, const QRect &part)
{
    GoAfter(0);
    if (text == this->text() && kind == Kind && part == Part)
        return;
    Kind = kind;
    Part = part;
    setText(text);
    Field->setAccessibleDescription(text);
    TakeLooks();
    Place();
}

void NoteLabel::GoAfter(int milliseconds)
{
    Timer.stop();
    Timer.setInterval(milliseconds);
    Times = milliseconds > 0;
    if (Times && isVisible())
        Timer.start();
}

void NoteLabel::Dismiss()
{
    if (Standing != this)
        return;
    Standing.clear();
    // One that came from elsewhere meanwhile stays.
    if (Field->accessibleDescription() == text())
        Field->setAccessibleDescription(OwnDescription);
    hide();
    deleteLater();
}

bool NoteLabel::eventFilter(QObject *, QEvent *event)
{
    // A dismissed note only waits for the event loop to delete it.
    if (Standing != this)
        return false;
    switch (event->type()) {
    case QEvent::ParentChange:
        WatchAncestors();
        Place();
        break;
    case QEvent::PaletteChange:
    case QEvent::FontChange:
    case QEvent::LayoutDirectionChange:
        TakeLooks();
        Place();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::WindowStateChange:
        Place();
        break;
    default:
        break;
    }
    return false;
}

/// A window inherits none of these. The letters are those around the field, which may have larger ones itself.
void NoteLabel::TakeLooks()
{
    const QWidget *around = Field->isWindow() ? Field : Field->parentWidget();
    QPalette looks = around->palette();
    const QColor background = looks.color(QPalette::ToolTipBase);
    const QColor letters = Kind == FieldNote::Refused
        ? ReadableColor::Refused(background)
        : ReadableColor::On(background, looks.color(QPalette::ToolTipText));
    looks.setColor(QPalette::Window, background);
    looks.setColor(QPalette::WindowText, letters);
    setPalette(looks);
    setFont(around->font());
    setLayoutDirection(Field->layoutDirection());
    adjustSize();
}

/// What of the field is to be seen, in pixels of the screen; empty for nothing.
QRect NoteLabel::VisibleRect() const
{
    const QWidget *window = Field->window();
    if (!Field->isVisible() || !window->isActiveWindow() || window->isMinimized())
        return QRect();
    QRect visible = Part.isNull() ? Field->rect() : Part & Field->rect();
    const QWidget *widget = Field;
    for (; !widget->isWindow(); widget = widget->parentWidget())
        visible = visible.translated(widget->pos()) & widget->parentWidget()->rect();
    return visible.isEmpty() ? QRect() : QRect(widget->mapToGlobal(visible.topLeft()), visible.size());
}

void NoteLabel::Place()
{
    if (Standing != this)
        return;
    const QRect field = VisibleRect();
    if (field.isNull()) {
        hide();
        return;
    }
    const QScreen *at = QGuiApplication::screenAt(field.center());
    const QRect screen = (at ? at : Field->screen())->availableGeometry();
    const int under = field.bottom() + 1;
    const bool fitsUnder = under + height() <= screen.bottom() + 1;
    const int start = layoutDirection() == Qt::RightToLeft ? field.right() + 1 - width() : field.left();
    const int left = std::max(screen.left(), std::min(start, screen.right() + 1 - width()));
    move(left, fitsUnder ? under : field.top() - height());
    show();
    if (Times && !Timer.isActive())
        Timer.start();
}

void Put(QWidget *field, const QString &text, FieldNote::Kind kind, int milliseconds, const QRect &part)
{
    if (Standing && (text.isEmpty() ? Standing->GetField() == field : Standing->GetField() != field))
        Standing->Dismiss();
    if (text.isEmpty())
        return;
    if (!Standing)
        Standing = new NoteLabel(field);
    Standing->Present(text, kind, part);
    // A window that comes up may let an event through that ends the edit.
    if (Standing)
        Standing->GoAfter(milliseconds);
}

} // namespace

void FieldNote::Show(QWidget *field, const QString &text, Kind kind)
{
    Put(field, text, kind, 0, QRect());
}

void FieldNote::Tell(QWidget *field, const QString &text, int milliseconds, Kind kind, const QRect &part)
{
    Put(field, text, kind, milliseconds, part);
}

void FieldNote::TellDropped(QWidget *field, const QString &text, const QRect &part)
{
    constexpr int most = 40;
    const QString told = text.size() > most ? text.left(most) + QChar(0x2026) : text;
    Tell(field, QCoreApplication::translate("Orbel::FieldNote", "not taken: %1").arg(told), 2000, Refused, part);
}

void FieldNote::Hide(const QWidget *field)
{
    if (NoteLabel *note = NoteOf(field))
        note->Dismiss();
}

QString FieldNote::TextOf(const QWidget *field)
{
    const NoteLabel *note = NoteOf(field);
    return note ? note->text() : QString();
}

} // namespace Orbel
