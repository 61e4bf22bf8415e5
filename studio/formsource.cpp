#include "formsource.h"

#include "componentlist.h"
#include "elementnames.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Orbel
{

using namespace KV218;

FormSource::FormSource(const QByteArray &document)
{
    QXmlStreamReader reader(document);
    Read(reader);
}

FormSource FormSource::OfComponent(const QByteArray &list, const QString &component)
{
    FormSource source;
    QXmlStreamReader reader(list);
    ForEachDefinition(reader, [&](const QString &name, const QString &text) {
        if (!source.Widgets.isEmpty() || (!component.isEmpty() && name != component))
            return;
        QXmlStreamReader definition(text);
        source.Read(definition);
    });
    source.ForgetLines();
    return source;
}

void FormSource::ForgetLines()
{
    Script.clear();
    for (Widget &widget : Widgets) {
        widget.FirstLine = widget.LastLine = 0;
        for (auto *properties : {&widget.Properties, &widget.CustomProperties}) {
            for (Property &property : *properties)
                property.Line = 0;
        }
    }
}

void FormSource::Read(QXmlStreamReader &reader)
{
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == element::Widget) {
            ReadWidget(reader);
        } else if (reader.name() == element::Script) {
            int line = int(reader.lineNumber());
            for (const QString &text : reader.readElementText().split(QLatin1Char('\n')))
                Script.insert(line++, text);
        }
    }
}

void FormSource::ReadWidget(QXmlStreamReader &reader)
{
    Widget widget;
    widget.Name = reader.attributes().value(attribute::Name).toString();
    widget.Class = reader.attributes().value(attribute::Class).toString();
    widget.IsNamed = !widget.Name.isEmpty();
    if (!widget.IsNamed)
        widget.Name = QStringLiteral("%1_%2").arg(widget.Class).arg(Widgets.size());
    widget.FirstLine = int(reader.lineNumber());
    ReadProperties(reader, widget.Properties, widget);
    widget.LastLine = int(reader.lineNumber());
    if (!Indices.contains(widget.Name))
        Indices.insert(widget.Name, Widgets.size());
    Widgets.append(widget);
}

void FormSource::ReadProperties(QXmlStreamReader &reader, QMap<QString, Property> &properties, Widget &widget)
{
    while (reader.readNextStartElement()) {
        if (reader.name() == element::CustomProperties) {
            ReadProperties(reader, widget.CustomProperties, widget);
            continue;
        }
        const QString name = reader.attributes().value(attribute::Name).toString();
        const int line = int(reader.lineNumber());
        if (!reader.readNextStartElement())
            continue;
        const QString type = reader.name().toString();
        properties.insert(name, {type, reader.readElementText(QXmlStreamReader::SkipChildElements), line});
        reader.skipCurrentElement();
    }
}

const FormSource::Widget *FormSource::Find(const QString &name) const
{
    const int index = Indices.value(name, -1);
    return index < 0 ? nullptr : &Widgets.at(index);
}

QString FormSource::WidgetAt(int line) const
{
    for (const Widget &widget : Widgets) {
        if (line > 0 && line >= widget.FirstLine && line <= widget.LastLine)
            return widget.Name;
    }
    return QString();
}

QVector<FormSource::Handler> FormSource::HandlersOf(const QString &widget, const QString &signal) const
{
    static const QRegularExpression connection(
        QStringLiteral("([\\w$]+)(?:\\.([\\w$]+)|\\[[\"'](\\w+)[^\\]]*\\])\\.connect\\s*\\(\\s*(.*)$"));
    QVector<Handler> handlers;
    for (auto line = Script.begin(); line != Script.end(); ++line) {
        const QString text = line->trimmed();
        const QRegularExpressionMatch match = connection.match(text);
        if (!match.hasMatch() || text.startsWith(QLatin1String("//")))
            continue;
        const QString owner = match.captured(1);
        const bool isIt = widget.isEmpty() ? !Find(owner) : owner == widget;
        if (isIt && (match.captured(2) == signal || match.captured(3) == signal))
            handlers.append({line.key(), text});
    }
    return handlers;
}

} // namespace Orbel
