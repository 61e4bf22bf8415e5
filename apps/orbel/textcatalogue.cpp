#include "textcatalogue.h"

#include "failure.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orbel
{

namespace
{

// The format's own names.
const QLatin1String Root("TS");
const QLatin1String ContextElement("context");
const QLatin1String MessageElement("message");
const QLatin1String Name("name");
const QLatin1String Source("source");
const QLatin1String Translation("translation");
const QLatin1String Location("location");
const QLatin1String Type("type");
const QLatin1String Unfinished("unfinished");
const QLatin1String Vanished("vanished");

} // namespace

TextCatalogue::TextCatalogue(const QString &path) : Path(path)
{
    QFile file(path);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly))
        throw InputFailure(path, file.errorString());
    QXmlStreamReader reader(&file);
    if (reader.readNextStartElement() && reader.name() != Root)
        reader.raiseError(QStringLiteral("it is no file of Qt Linguist"));
    Read(reader);
    if (reader.hasError())
        throw InputFailure(QStringLiteral("%1:%2").arg(path).arg(reader.lineNumber()), reader.errorString());
}

void TextCatalogue::Read(QXmlStreamReader &reader)
{
    Language = reader.attributes().value(QLatin1String("language")).toString();
    const QString source = reader.attributes().value(QLatin1String("sourcelanguage")).toString();
    if (!source.isEmpty())
        SourceLanguage = source;
    while (reader.readNextStartElement()) {
        if (reader.name() == ContextElement)
            ReadContext(reader);
        else
            reader.skipCurrentElement();
    }
}

void TextCatalogue::ReadContext(QXmlStreamReader &reader)
{
    QString name;
    QVector<Message> messages;
    while (reader.readNextStartElement()) {
        if (reader.name() == Name)
            name = reader.readElementText();
        else if (reader.name() == MessageElement)
            messages.append(ReadMessage(reader));
        else
            reader.skipCurrentElement();
    }
    Named(name).Messages += messages;
}

TextCatalogue::Message TextCatalogue::ReadMessage(QXmlStreamReader &reader)
{
    Message message;
    while (reader.readNextStartElement()) {
        const QString part = reader.name().toString();
        if (part == Translation)
            message.Type = reader.attributes().value(Type).toString();
        const QString text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
        if (part == Source)
            message.Source = text;
        else if (part == Translation)
            message.Translation = text;
        else if (part != Location)
            message.Notes.append({part, text});
    }
    return message;
}

TextCatalogue::Context &TextCatalogue::Named(const QString &name)
{
    const auto known
        = std::find_if(Contexts.begin(), Contexts.end(), [&](const Context &context) { return context.Name == name; });
    if (known != Contexts.end())
        return *known;
    Contexts.append({name, {}});
    return Contexts.last();
}

void TextCatalogue::SetLanguage(const QString &language)
{
    if (Language.isEmpty())
        Language = language;
}

void TextCatalogue::Add(const QString &context, const QString &source, const QString &form, int line)
{
    QVector<Message> &messages = Named(context).Messages;
    auto message
        = std::find_if(messages.begin(), messages.end(), [&](const Message &known) { return known.Source == source; });
    if (message == messages.end()) {
        Message fresh;
        fresh.Source = source;
        fresh.Type = Unfinished;
        fresh.IsNew = true;
        messages.append(fresh);
        message = messages.end() - 1;
    }
    // It is back.
    if (message->Type == Vanished || message->Type == QLatin1String("obsolete"))
        message->Type.clear();
    message->Places.append({form, line});
}

void TextCatalogue::Write()
{
    QSaveFile file(Path);
    if (!file.open(QIODevice::WriteOnly))
        throw InputFailure(Path, file.errorString());
    QXmlStreamWriter writer(&file);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeDTD(QStringLiteral("<!DOCTYPE TS>"));
    writer.writeStartElement(Root);
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
    if (!Language.isEmpty())
        writer.writeAttribute(QStringLiteral("language"), Language);
    writer.writeAttribute(QStringLiteral("sourcelanguage"), SourceLanguage);
    const auto isWanted = [](const Message &message) { return !message.Places.isEmpty() || message.IsVanished(); };
    for (const Context &context : qAsConst(Contexts)) {
        if (std::none_of(context.Messages.cbegin(), context.Messages.cend(), isWanted))
            continue;
        writer.writeStartElement(ContextElement);
        writer.writeTextElement(Name, context.Name);
        for (const Message &message : context.Messages) {
            if (isWanted(message))
                WriteMessage(writer, message);
        }
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    if (writer.hasError() || !file.commit())
        throw InputFailure(Path, file.errorString());
}

void TextCatalogue::WriteMessage(QXmlStreamWriter &writer, const Message &message) const
{
    const QDir folder = QFileInfo(Path).absoluteDir();
    writer.writeStartElement(MessageElement);
    for (const Place &place : message.Places) {
        writer.writeEmptyElement(Location);
        writer.writeAttribute(
            QStringLiteral("filename"), folder.relativeFilePath(QFileInfo(place.Form).absoluteFilePath()));
        writer.writeAttribute(QStringLiteral("line"), QString::number(place.Line));
    }
    writer.writeTextElement(Source, message.Source);
    for (const auto &[name, text] : message.Notes)
        writer.writeTextElement(name, text);
    writer.writeStartElement(Translation);
    const QString type = message.Places.isEmpty() ? QString(Vanished) : message.Type;
    if (!type.isEmpty())
        writer.writeAttribute(Type, type);
    writer.writeCharacters(message.Translation);
    writer.writeEndElement();
    writer.writeEndElement();
}

QString TextCatalogue::Summary() const
{
    const int all = CountOf([](const Message &message) { return !message.Places.isEmpty(); });
    const int fresh = CountOf([](const Message &message) { return message.IsNew; });
    const int gone = CountOf([](const Message &message) { return message.IsVanished(); });
    return QStringLiteral("%1 texts, %2 of them new, %3 vanished").arg(all).arg(fresh).arg(gone);
}

int TextCatalogue::CountOf(const std::function<bool(const Message &)> &counts) const
{
    int count = 0;
    for (const Context &context : Contexts)
        count += int(std::count_if(context.Messages.cbegin(), context.Messages.cend(), counts));
    return count;
}

} // namespace Orbel
