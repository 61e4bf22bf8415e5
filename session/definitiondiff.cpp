#include "definitiondiff.h"

#include "elementnames.h"
#include "propertynames.h"

#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace Orbel
{

using namespace KV218;

struct DefinitionDiff::Property {
    QString Name;
    QString Type;
    QString Text;
    bool IsCustom;
};

struct DefinitionDiff::Widget {
    QString Name;
    QString Class;
    QVector<Property> Properties;

    bool States(const QString &property) const
    {
        const auto isIt = [&](const Property &each) { return each.Name == property && !each.IsCustom; };
        return std::any_of(Properties.begin(), Properties.end(), isIt);
    }
};

/// Limits move values, which a script may read without naming the limits.
static bool MovesValue(const QString &property)
{
    return property == prop::Minimum || property == prop::Maximum;
}

/// Whether a property does at once in a running form what it does in a new one, and nothing beside.
bool DefinitionDiff::IsLive(const Widget &widget, const Property &property)
{
    // Lists and tables look at them when they are made.
    static const QSet<QString> lists{QStringLiteral("SpinBoxList"), QStringLiteral("DoubleSpinBoxList"),
        QStringLiteral("ShiftList"), QStringLiteral("ChannelSpacingTable")};
    static const QSet<QString> everywhere{prop::LabelText, prop::SpecialValueText, prop::Unit};
    static const QSet<QString> inFields{prop::Prefix, prop::Suffix, prop::Minimum, prop::Maximum, prop::SingleStep};
    const QString &name = property.Name;
    const bool isFrequency = widget.Class.startsWith(QLatin1String("Frequency"));
    if (property.IsCustom || everywhere.contains(name))
        return !property.IsCustom;
    if (!inFields.contains(name) || lists.contains(widget.Class) || (isFrequency && name == prop::SingleStep))
        return false;
    // A limit that is given later is not scaled, and a value that was clamped does not come back.
    const bool isScaled = widget.States(prop::DisplayScalingFactor);
    return name == prop::Prefix || name == prop::Suffix || (!isScaled && widget.States(prop::Value));
}

bool DefinitionDiff::ReadProperty(QXmlStreamReader &reader, bool isCustom, Widget &widget)
{
    Property property{reader.attributes().value(attribute::Name).toString(), {}, {}, isCustom};
    if (!reader.readNextStartElement())
        return false;
    property.Type = reader.name().toString();
    property.Text = reader.readElementText();
    widget.Properties.append(property);
    return !reader.hasError() && !reader.readNextStartElement();
}

/// Nothing but what every definition is made of: what else stands there has rules of its own.
bool DefinitionDiff::ReadWidget(QXmlStreamReader &reader, Widget &widget, bool isCustom)
{
    while (reader.readNextStartElement()) {
        const bool isList = reader.name() == element::CustomProperties && !isCustom;
        const bool isRead = isList ? ReadWidget(reader, widget, true)
                                   : reader.name() == element::Property && ReadProperty(reader, isCustom, widget);
        if (!isRead)
            return false;
    }
    return !reader.hasError();
}

std::optional<DefinitionDiff::Widgets> DefinitionDiff::ReadWidgets(const QByteArray &elements)
{
    QXmlStreamReader reader("<Sheet>" + elements + "</Sheet>");
    reader.readNextStartElement();
    Widgets widgets;
    while (reader.readNextStartElement()) {
        const auto attributes = reader.attributes();
        Widget widget{attributes.value(attribute::Name).toString(), attributes.value(attribute::Class).toString(), {}};
        if (reader.name() != element::Widget || widget.Name.isEmpty() || !ReadWidget(reader, widget, false))
            return std::nullopt;
        widgets.append(widget);
    }
    return reader.hasError() ? std::nullopt : std::make_optional(widgets);
}

namespace
{

/// Whether `place` lies outside of comments and the like, in a document that is UTF-8 and has no entities of its own.
bool IsPlain(const QByteArray &document, int place)
{
    const auto isOpen = [&](const char *start, const char *end) {
        const int from = document.lastIndexOf(start, place);
        const int to = from < 0 ? -1 : document.indexOf(end, from);
        return from >= 0 && (to < 0 || to > place);
    };
    const QByteArray head = document.left(200);
    const bool isUtf8 = !head.startsWith("<?xml") || !head.contains("encoding") || head.toLower().contains("\"utf-8\"")
        || head.toLower().contains("'utf-8'");
    return isUtf8 && !head.contains("<!DOCTYPE") && !head.startsWith("\xfe\xff") && !head.startsWith("\xff\xfe")
        && !isOpen("<!--", "-->") && !isOpen("<![CDATA[", "]]>") && !isOpen("<?", "?>");
}

/// The text of all scripts, in small letters.
QString ScriptsOf(const QByteArray &document)
{
    QString scripts;
    for (int start = 0; (start = document.indexOf("<Script", start)) >= 0; ++start)
        scripts += QString::fromUtf8(document.mid(start, document.indexOf("</Script>", start) - start)).toLower();
    return scripts;
}

int LineAt(const QByteArray &document, int place)
{
    return 1 + int(std::count(document.begin(), document.begin() + place, '\n'));
}

/// The part from `start` to `end` in a sheet of its own, with all that stands before the first widget and with all
/// enumerations, on the lines that it has in the whole.
QByteArray Part(const QByteArray &document, int start, int end)
{
    const QByteArray head = document.left(document.indexOf("<Widget"));
    const int lines = LineAt(document, start) - LineAt(head, head.size());
    QByteArray part = head + QByteArray(lines, '\n') + document.mid(start, end - start) + "</Sheet>";
    const QByteArray endOfEnums = "</Enums>";
    for (int from = end; (from = document.indexOf("<Enums", from)) >= 0;) {
        const int to = document.indexOf(endOfEnums, from) + endOfEnums.size();
        part += document.mid(from, to - from);
        from = qMax(from + 1, to);
    }
    return part + "</ZkParamGui>";
}

} // namespace

std::optional<DefinitionDiff> DefinitionDiff::Between(const QByteArray &before, const QByteArray &after)
{
    const auto shorter = std::min(before.size(), after.size());
    const auto same
        = int(std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first - before.begin());
    const auto rest = shorter - same;
    const auto sameEnd
        = int(std::mismatch(before.rbegin(), before.rbegin() + rest, after.rbegin()).first - before.rbegin());
    const int start = before.lastIndexOf("<Widget", same);
    const QByteArray endTag = "</Widget>";
    const int end = before.indexOf(endTag, before.size() - sameEnd);
    if (start < 0 || end < start || !IsPlain(before, start))
        return std::nullopt;
    const int stop = end + endTag.size();
    const int stopAfter = stop + after.size() - before.size();
    const auto former = ReadWidgets(before.mid(start, stop - start));
    const auto latter = ReadWidgets(after.mid(start, stopAfter - start));
    DefinitionDiff diff;
    if (!former || !latter || !diff.Compare(*former, *latter, ScriptsOf(after)))
        return std::nullopt;
    diff.PartBefore = Part(before, start, stop);
    diff.PartAfter = Part(after, start, stopAfter);
    diff.FirstLine = LineAt(before, start);
    diff.LastLineBefore = LineAt(before, stop);
    diff.LastLineAfter = LineAt(after, stopAfter);
    return diff;
}

/// False where more differs than may.
bool DefinitionDiff::Compare(const Widgets &before, const Widgets &after, const QString &scripts)
{
    QXmlStreamWriter patch(&Patch);
    patch.writeStartElement(element::Form);
    patch.writeStartElement(element::Sheet);
    const auto takes = [&](const Widget &one, const Widget &other) {
        return one.Name == other.Name && one.Class == other.Class && one.Properties.size() == other.Properties.size()
            && TakeProperties(one, other, scripts, patch);
    };
    const bool isLittle = std::equal(before.begin(), before.end(), after.begin(), after.end(), takes);
    patch.writeEndDocument();
    return isLittle;
}

bool DefinitionDiff::TakeProperties(
    const Widget &before, const Widget &after, const QString &scripts, QXmlStreamWriter &patch)
{
    QSet<QString> names;
    for (int i = 0; i < after.Properties.size(); ++i) {
        const Property &one = before.Properties.at(i);
        const Property &other = after.Properties.at(i);
        const QString &name = other.Name;
        const bool isTwice = names.contains(name);
        names.insert(name);
        if (one.Name != name || one.Type != other.Type || one.IsCustom != other.IsCustom)
            return false;
        if (one.Text == other.Text)
            continue;
        const bool isRead
            = scripts.contains(name.toLower()) || (MovesValue(name) && scripts.contains(after.Name.toLower()));
        // A text that comes or goes may make a control, or take one away.
        if (isTwice || !IsLive(after, other) || isRead || one.Text.isEmpty() || other.Text.isEmpty())
            return false;
        Changed.append({after.Name, name});
        patch.writeStartElement(element::Widget);
        patch.writeAttribute(attribute::Name, after.Name);
        patch.writeStartElement(element::Property);
        patch.writeAttribute(attribute::Name, name);
        patch.writeTextElement(other.Type, other.Text);
        patch.writeEndElement();
        patch.writeEndElement();
    }
    return true;
}

} // namespace Orbel
