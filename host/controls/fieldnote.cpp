#include "fieldnote.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTimer>

namespace
{

/// The line itself: a window of its own, so that it may lie over the edge of the form's window.
class NoteLabel : public QLabel
{
public:
    explicit NoteLabel(QWidget *field) : QLabel(field, Qt::ToolTip), Field(field)
    {
        setObjectName(QStringLiteral("fieldNote"));
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setMargin(2);
        // A text is no markup, whatever was typed.
        setTextFormat(Qt::PlainText);
        Timer.setSingleShot(true);
        connect(&Timer, &QTimer::timeout, this, &QWidget::hide);
        field->installEventFilter(this);
    }

    void Present(const QString &text, FieldNote::Kind kind)
    {
        setForegroundRole(QPalette::ToolTipText);
        setBackgroundRole(QPalette::ToolTipBase);
        setAutoFillBackground(true);
        setProperty("refused", kind == FieldNote::Refused);
        setText(text);
        adjustSize();
        Place();
        Field->setAccessibleDescription(text);
        show();
    }

    QTimer Timer;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide)
            hide();
        else if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            Place();
        return QLabel::eventFilter(watched, event);
    }

private:
    void Place()
    {
        move(Field->mapToGlobal(QPoint(0, Field->height())));
    }

    QWidget *Field;
};

NoteLabel *NoteOf(const QWidget *field)
{
    return static_cast<NoteLabel *>(
        field->findChild<QLabel *>(QStringLiteral("fieldNote"), Qt::FindDirectChildrenOnly));
}

void Put(QWidget *field, const QString &text, FieldNote::Kind kind, int milliseconds)
{
    if (text.isEmpty()) {
        FieldNote::Hide(field);
        return;
    }
    static QPointer<NoteLabel> standing;
    NoteLabel *note = NoteOf(field);
    if (!note)
        note = new NoteLabel(field);
    if (standing && standing != note)
        standing->hide();
    standing = note;
    note->Timer.stop();
    note->Present(text, kind);
    if (milliseconds > 0)
        note->Timer.start(milliseconds);
}

} // namespace

void FieldNote::Show(QWidget *field, const QString &text, Kind kind)
{
    Put(field, text, kind, 0);
}

void FieldNote::Tell(QWidget *field, const QString &text, int milliseconds)
{
    Put(field, text, Refused, milliseconds);
}

void FieldNote::Hide(QWidget *field)
{
    if (NoteLabel *note = NoteOf(field))
        note->hide();
}

QString FieldNote::TextOf(const QWidget *field)
{
    const NoteLabel *note = NoteOf(field);
    return note && !note->isHidden() ? note->text() : QString();
}
