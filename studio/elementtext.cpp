#include "elementtext.h"

#include "elementnames.h"
#include "orbeldelegate.h"
#include "registry.h"

#include <QRegularExpression>
#include <QXmlStreamWriter>

#include <algorithm>
#include <limits>

namespace Orbel
{

using namespace KV218;

namespace
{

using Properties = QMap<QString, FormSource::Property>;

void Write(QXmlStreamWriter &writer, const Properties &properties)
{
    QVector<Properties::const_iterator> inOrder;
    for (auto property = properties.begin(); property != properties.end(); ++property)
        inOrder.append(property);
    // As they stand in the file; what was tried out stands behind.
    const auto lineOf = [](const Properties::const_iterator &property) {
        return property->Line > 0 ? property->Line : std::numeric_limits<int>::max();
    };
    std::stable_sort(inOrder.begin(), inOrder.end(),
        [&](const auto &one, const auto &other) { return lineOf(one) < lineOf(other); });
    for (const auto &property : qAsConst(inOrder)) {
        writer.writeStartElement(element::Property);
        writer.writeAttribute(attribute::Name, property.key());
        writer.writeTextElement(property->Type, property->Text);
        writer.writeEndElement();
    }
}

/// A property stands on one line, as authors write it.
QString OnOneLine(QString text)
{
    static const QRegularExpression inner(
        QStringLiteral(">\\s*(<(?!/?Property\\b|/?CustomProperties|/?Widget)[^>]*>)"));
    static const QRegularExpression outer(
        QStringLiteral("(</(?!Property|CustomProperties|Widget)[^>]*>)\\s*</Property>"));
    text.replace(inner, QStringLiteral(">\\1"));
    return text.replace(outer, QStringLiteral("\\1</Property>"));
}

} // namespace

QString ElementText::Spell(const QVariant &value)
{
    return value.type() == QVariant::Double ? QString::number(value.toDouble(), 'g', 15) : value.toString();
}

QString ElementText::OfDefinition(
    const FormSource::Widget &widget, const OrbelDelegate &control, const QStringList &tried)
{
    Properties properties = widget.Properties;
    const ClassInfo *info = Registry::FindClass(widget.Class);
    for (const QString &name : tried) {
        const PropertyInfo *known = info ? Registry::FindProperty(*info, name) : nullptr;
        FormSource::Property &property = properties[name];
        if (property.Type.isEmpty())
            property.Type = known && known->type != ValueType::Other ? NameOf(known->type) : QStringLiteral("String");
        property.Text = Spell(control.property(name.toUtf8().constData()));
    }
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(2);
    writer.writeStartElement(element::Widget);
    if (widget.IsNamed)
        writer.writeAttribute(attribute::Name, widget.Name);
    writer.writeAttribute(attribute::Class, widget.Class);
    Write(writer, properties);
    if (!widget.CustomProperties.isEmpty()) {
        writer.writeStartElement(element::CustomProperties);
        Write(writer, widget.CustomProperties);
        writer.writeEndElement();
    }
    writer.writeEndElement();
    return OnOneLine(text).trimmed() + QLatin1Char('\n');
}

QString ElementText::OfParameter(const OrbelDelegate &control)
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    control.GetXml(writer);
    return text.trimmed();
}

} // namespace Orbel
