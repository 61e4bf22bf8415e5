#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <QXmlStreamAttributes>

#include <functional>

class QXmlStreamReader;
class QXmlStreamWriter;

namespace Orbel
{

/// The texts of forms with their translations: a file of Qt Linguist (TS, version 2.1). Texts are told anew each time;
/// those of before keep their translations, and the translations of texts that are gone stay as "vanished".
class TextCatalogue
{
public:
    /// Of that file, with what it holds where there is one. Throws a Failure when it is there and cannot be read.
    explicit TextCatalogue(const QString &path);

    /// The language of the translations, as "de"; a file that is there keeps the one that it states.
    void SetLanguage(const QString &language);
    /// A text at a place of a form. The same text of one context may stand at several places.
    void Add(const QString &context, const QString &source, const QString &form, int line);
    /// Throws a Failure when the file cannot be written.
    void Write();

    /// How many texts there are, for a person to read.
    QString Summary() const;

private:
    struct Place {
        QString Form;
        int Line;
    };
    struct Message {
        QString Source;
        QString Translation;
        /// "unfinished", or what else the file states; empty for a translation that is done.
        QString Type;
        /// What translators noted: elements without children.
        QVector<QPair<QString, QString>> Notes;
        QVector<Place> Places;
        bool IsNew = false;

        bool IsVanished() const { return Places.isEmpty() && !Translation.isEmpty(); }
    };
    struct Context {
        QString Name;
        QVector<Message> Messages;
    };

    void Read(QXmlStreamReader &reader);
    void ReadContext(QXmlStreamReader &reader);
    static Message ReadMessage(QXmlStreamReader &reader);
    void WriteMessage(QXmlStreamWriter &writer, const Message &message) const;
    Context &Named(const QString &name);
    int CountOf(const std::function<bool(const Message &)> &counts) const;

    QString Path;
    QString Language;
    QString SourceLanguage = QStringLiteral("en");
    QVector<Context> Contexts;
};

} // namespace Orbel
