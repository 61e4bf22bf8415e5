#pragma once

#include <QPointer>
#include <QString>
#include <QVector>
#include <QWidget>

namespace KV218
{

/// The tooltips that a delegate has made for its widgets. They follow the language for as long as nobody else gives a
/// widget another one.
class OwnToolTips
{
public:
    /// A text in the operator's language between parts that stay as they are.
    struct Text {
        /// The translated part, and what stands before and behind it.
        QString Source;
        QString Head = QString();
        QString Tail = QString();
        /// The translation context; null for the object name of the delegate.
        const char *Context = nullptr;

        /// The text with that context in place of the delegate's.
        QString InLanguage(const QString &objectName) const;
    };

    /// A label with bounds in a second line, of which an empty one is not set; without bounds just the label.
    static Text WithBounds(const QString &label, const QString &lowest, const QString &highest);

    /// Gives a widget, not null, a tooltip in place of any other.
    void Set(QWidget *widget, const Text &text, const QString &objectName);
    /// Has those that say `former` say `now`.
    void Replace(const QString &former, const QString &now, const QString &objectName);
    /// Shows all in the present language.
    void Retranslate(const QString &objectName);

private:
    struct Entry {
        QPointer<QWidget> Widget;
        Text Source;
        QString Shown;
    };
    QVector<Entry> Entries;
};

/// A text in the operator's language, in the translation context of a delegate of that object name; no more of it than
/// can be shown.
QString TranslateOf(const QString &objectName, const QString &text);

} // namespace KV218
