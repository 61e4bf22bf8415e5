#include "exclusionlistdelegate.h"

#include "numbertext.h"
#include "propertynames.h"
#include "valuecommentedrangemap.h"
#include "xmlwalk.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <map>

namespace KV218
{

namespace
{

constexpr QLatin1String IndexAttribute = Latin1("index");

double FiniteNumber(const QString &text)
{
    const double number = text.toDouble();
    return std::isfinite(number) ? number : 0.0;
}

/// Reads the range on whose start the reader stands; a text that is no number counts as 0.
CommentedRange ReadRange(QXmlStreamReader &reader, const ExclusionListFormat &format)
{
    CommentedRange range;
    ForEachStart(reader, [&](const QStringRef &name) {
        // Meant: the numbers are in Hz, whatever the attribute `unit` says.
        if (name == format.start)
            range.SetRangeStart(FiniteNumber(reader.readElementText()));
        else if (name == format.stop)
            range.SetRangeStop(FiniteNumber(reader.readElementText()));
        else
            reader.skipCurrentElement();
    });
    return range;
}

void ReadRanges(
    QXmlStreamReader &reader, const ExclusionListFormat &format, ValueCommentedRangeMap *ranges, IObserver *except)
{
    unsigned int key = 0;
    ForEachStart(reader, [&](const QStringRef &name) {
        // Meant: an unknown element is entered, so its end tag ends this list and what follows is left to the caller.
        if (name != format.range)
            return;
        const QString index = reader.attributes().value(IndexAttribute).toString();
        if (format.detailed && !index.isEmpty())
            key = index.toUInt();
        ranges->SetAt(key++, ReadRange(reader, format), except);
    });
}

} // namespace

ExclusionListDelegate::ExclusionListDelegate(OrbelWidget *widget, const ExclusionListFormat &format)
    : OrbelDelegate(widget), Format(format)
{
}

void ExclusionListDelegate::GetXml(QXmlStreamWriter &writer) const
{
    ValueCommentedRangeMap *ranges = GetRanges();
    if (!ranges)
        return;
    // Meant: not even a script that sets `generateParameterXml` to false keeps the list out.
    writer.writeStartElement(GetXmlTagName());
    int index = 0;
    for (const auto &entry : ranges->data()) {
        writer.writeStartElement(Format.range);
        if (Format.detailed)
            writer.writeAttribute(IndexAttribute, QString::number(index++));
        WriteFrequency(writer, Format.start, entry.second.GetRangeStart());
        WriteFrequency(writer, Format.stop, entry.second.GetRangeStop());
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void ExclusionListDelegate::WriteFrequency(QXmlStreamWriter &writer, const QString &name, double frequency) const
{
    writer.writeStartElement(name);
    if (Format.detailed)
        writer.writeAttribute(attribute::Unit, QStringLiteral("Hz"));
    writer.writeCharacters(QString::number(frequency, 'f', Format.decimals));
    writer.writeEndElement();
}

void ExclusionListDelegate::ReadXml(QXmlStreamReader &reader)
{
    ValueCommentedRangeMap *ranges = GetRanges();
    if (!ranges)
        return;
    ranges->StartTransaction(this);
    ranges->Clear(this);
    ReadRanges(reader, Format, ranges, this);
    // Whoever is notified may end the form or withdraw the node.
    ranges->EndTransaction(ekChangeContent, this);
    if (GetRanges())
        GetRanges()->NotifyObservers(ekChangeValue, this);
}

QVariantList ExclusionListDelegate::GetEdits() const
{
    const ValueCommentedRangeMap *ranges = GetRanges();
    if (!ranges)
        return {};
    const auto &items = ranges->data();
    // Ids and keys that both count the rows come from the dialog, which counts ids anew each time.
    const bool isDialogs = std::all_of(items.begin(), items.end(),
        [&](const auto &item) { return item.first < items.size() && item.second.GetID() < items.size(); });
    std::map<unsigned, QString> texts;
    for (const auto &[key, range] : items) {
        texts[key] = QStringLiteral("%1 %2 %3 %4 ")
                         .arg(key)
                         .arg(isDialogs ? key : range.GetID())
                         .arg(Orbel::NumberToText(range.GetRangeStart()), Orbel::NumberToText(range.GetRangeStop()))
            + range.GetComment();
    }
    QStringList list;
    for (const auto &entry : texts)
        list.append(entry.second);
    return {QVariant(list)};
}

void ExclusionListDelegate::PutEdits(const QVariantList &values)
{
    if (!GetRanges() || values.isEmpty())
        return;
    constexpr QLatin1Char separator(' ');
    ValueCommentedRangeMap content;
    for (const QString &text : values.first().toStringList()) {
        CommentedRange range;
        const unsigned key = text.section(separator, 0, 0).toUInt();
        range.SetID(text.section(separator, 1, 1).toUInt());
        range.SetRangeStart(text.section(separator, 2, 2).toDouble());
        range.SetRangeStop(text.section(separator, 3, 3).toDouble());
        range.SetComment(text.section(separator, 4));
        content.SetAt(key, range, nullptr);
    }
    GetRanges()->Assign(content);
}

QString ExclusionListDelegate::SpellEdit(int, const QVariant &value) const
{
    const int count = value.toStringList().size();
    return count == 1 ? tr("1 range") : tr("%1 ranges").arg(count);
}

void ExclusionListDelegate::ParseProperties(QXmlStreamReader &reader, bool custom)
{
    OrbelDelegate::ParseProperties(reader, custom);
    if (!custom) {
        // Meant: the list is always written, whatever the definition says.
        GenerateXml = true;
        return;
    }
    // Meant: the default name comes from here alone, so without custom properties it is the object name.
    const QVariant tag = customProperty(QStringLiteral("customXmlTag"));
    SetPropertyAlways(prop::ParameterXmlTag, tag.isValid() ? tag : QVariant(QString(Format.list)));
}

QVector<ValueBase *> ExclusionListDelegate::GetNodes() const
{
    ValueBase *const ranges = GetRanges();
    return ranges ? QVector<ValueBase *>{ranges} : QVector<ValueBase *>();
}

} // namespace KV218
