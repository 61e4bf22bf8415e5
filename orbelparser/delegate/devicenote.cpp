#include "devicenote.h"

#include "orbeldelegate.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QRegularExpression>
#include <QTextDocument>
#include <QToolTip>

namespace KV218
{

static QString TranslatedNote(const char *text)
{
    return QCoreApplication::translate("KV218::DeviceNote", text);
}

DeviceNote::DeviceNote(OrbelDelegate *control) : Control(control)
{
    Watch();
}

void DeviceNote::Watch()
{
    if (RowLabel *label = Control->GetRowLabel())
        label->installEventFilter(this);
    for (const Face &face : Control->GetFaces()) {
        if (face.Widget)
            face.Widget->installEventFilter(this);
    }
}

QString DeviceNote::GetText() const
{
    QStringList lines;
    if (!Reason.isEmpty())
        lines.append(Reason);
    else if (Answer == RowLabel::Unconfirmed)
        lines.append(TranslatedNote(QT_TRANSLATE_NOOP("KV218::DeviceNote", "The device has not confirmed the value")));
    else if (Answer == RowLabel::Refused)
        lines.append(TranslatedNote(QT_TRANSLATE_NOOP("KV218::DeviceNote", "The device has refused the value")));
    if (Reported)
        lines.append(
            TranslatedNote(QT_TRANSLATE_NOOP("KV218::DeviceNote", "The device has %1")).arg(Control->SpellReported()));
    return lines.join(QLatin1Char('\n'));
}

bool DeviceNote::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ToolTip:
        return ShowToolTip(static_cast<QWidget *>(watched), static_cast<QHelpEvent *>(event)->globalPos());
    case QEvent::KeyPress:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // An edit may be over by it, and with it what the device says.
        Control->LookAgain();
        break;
    default:
        break;
    }
    return false;
}

/// Keeps a number in one line, with its groups and its unit.
static QString Unbroken(QString text)
{
    static const QRegularExpression behindDigit(QStringLiteral("(?<=\\d) (?=\\S)"));
    return text.replace(behindDigit, QChar(QChar::Nbsp));
}

bool DeviceNote::ShowToolTip(QWidget *widget, const QPoint &place) const
{
    const QString own = widget->toolTip();
    const QString ownLine = own.isEmpty() || Qt::mightBeRichText(own) ? own : own.toHtmlEscaped();
    const QString note = Unbroken(GetText()).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
    const QString separator = own.isEmpty() ? QString() : QStringLiteral("<br>");
    QToolTip::showText(place, QStringLiteral("<html>") + ownLine + separator + note, widget);
    return true;
}

} // namespace KV218
