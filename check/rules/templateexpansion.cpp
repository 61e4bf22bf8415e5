#include "templateexpansion.h"

#include "elementnames.h"
#include "scriptbuiltins.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Orbel
{

namespace
{

constexpr QLatin1String ItemElement("Item", 4);
constexpr QLatin1String EachAttribute("each", 4);
constexpr QLatin1String OverAttribute("over", 4);
constexpr QLatin1String FromAttribute("from", 4);
constexpr QLatin1String ToAttribute("to", 2);
constexpr QLatin1String StepAttribute("step", 4);

/// Of all repetitions together.
constexpr int MostItems = 20000;
constexpr int MostCharacters = 20000000;
/// The greatest number of a range.
constexpr qint64 Farthest = 1LL << 50;

/// The attributes of a tag that stands alone.
QXmlStreamAttributes AttributesOf(QString tag)
{
    const QString alone = tag.remove(QRegularExpression(QStringLiteral("/?>$"))) + QLatin1String("/>");
    QXmlStreamReader reader(alone);
    reader.readNextStartElement();
    return reader.attributes();
}

/// A value as it stands in a piece of that kind.
QString WrittenIn(XmlToken::Kind kind, QString value)
{
    if (kind == XmlToken::Section)
        return value.replace(QLatin1String("]]>"), QLatin1String("]]]]><![CDATA[>"));
    const QLatin1Char dash('-');
    if (kind == XmlToken::Comment
        && (value.contains(QLatin1String("--")) || value.startsWith(dash) || value.endsWith(dash)))
        return value.replace(dash, QLatin1String(" - "));
    if (kind == XmlToken::Comment)
        return value;
    return value.toHtmlEscaped().replace(QLatin1Char('\''), QLatin1String("&apos;"));
}

} // namespace

TemplateExpansion::TemplateExpansion(const PlacedText &source, FindingSink &sink)
    : Source(source), Sink(sink), Tokens(ScanXml(source.Text())), Ends(Tokens.size(), -1)
{
    PairTags();
    Expand(0, Tokens.size(), true);
    Definition.Close(Source.OffsetOf(Source.Text().size()));
}

void TemplateExpansion::PairTags()
{
    QVector<int> open;
    for (int i = 0; i < Tokens.size(); ++i) {
        if (Tokens.at(i).What == XmlToken::StartTag)
            open.append(i);
        else if (Tokens.at(i).What == XmlToken::EndTag && !open.isEmpty())
            Ends[open.takeLast()] = i;
    }
}

QStringRef TemplateExpansion::Raw(int token) const
{
    return Source.Text().midRef(Tokens.at(token).From, Tokens.at(token).To - Tokens.at(token).From);
}

/// Comments of a repetition are written once.
void TemplateExpansion::Expand(int from, int to, bool isFirst)
{
    for (int i = from; i < to && !IsFull; ++i) {
        const XmlToken &token = Tokens.at(i);
        const bool isTag = token.What == XmlToken::StartTag || token.What == XmlToken::EmptyTag;
        if (Skipped.contains(i))
            continue;
        if (isTag && NameOfTag(Raw(i)) == KV218::element::Repeat)
            i = Repeat(i, isFirst);
        else if (isFirst || token.What != XmlToken::Comment)
            Write(i);
    }
}

bool TemplateExpansion::Refuse(int token, const QString &text)
{
    Tell(Code::TemplateRepeat, Tokens.at(token).From, text);
    return false;
}

void TemplateExpansion::Tell(Code code, int at, const QString &text)
{
    if (!Told.contains(at))
        Sink.Add(code, Source.OffsetOf(at), text);
    Told.insert(at);
}

/// Gives the piece at which the repetition ends.
int TemplateExpansion::Repeat(int start, bool isFirst)
{
    const int end = Tokens.at(start).What == XmlToken::EmptyTag ? start : Ends.at(start);
    Repetition repetition;
    if (!ReadRepetition(start, &repetition))
        return end;
    Skipped += repetition.ItemTokens;
    Names.append(repetition.Each);
    for (int i = 0; i < repetition.Items.size() && !IsFull; ++i) {
        IsFull = ++Count > MostItems || Definition.Text().size() > MostCharacters;
        if (IsFull)
            Refuse(start, QStringLiteral("The repetitions make more than a form can hold"));
        Engine.globalObject().setProperty(repetition.Each, repetition.Items.at(i));
        Expand(start + 1, end, isFirst && i == 0);
    }
    Engine.globalObject().setProperty(repetition.Each, QScriptValue());
    Names.removeLast();
    return end;
}

bool TemplateExpansion::ReadRepetition(int start, Repetition *repetition)
{
    const QXmlStreamAttributes attributes = AttributesOf(Replaced(start).Text());
    repetition->Each = attributes.value(EachAttribute).toString();
    for (const QXmlStreamAttribute &attribute : attributes) {
        const QStringList known{EachAttribute, OverAttribute, FromAttribute, ToAttribute, StepAttribute};
        const QString name = attribute.name().toString();
        if (!known.contains(name))
            return Refuse(start, QStringLiteral("A repetition has no \"%1\"%2").arg(name, Sink.Suggest(name, known)));
    }
    if (!IsScriptName(repetition->Each) || ScriptBuiltins().contains(repetition->Each))
        return Refuse(start, QStringLiteral("A repetition wants \"each\", the name of its item"));
    if (Names.contains(repetition->Each))
        return Refuse(start, QStringLiteral("A repetition around this one has the name \"%1\"").arg(repetition->Each));
    const bool isRange = attributes.hasAttribute(FromAttribute) || attributes.hasAttribute(ToAttribute);
    if (isRange && !ReadRange(start, attributes, repetition))
        return false;
    for (const QString &word : attributes.value(OverAttribute).toString().split(QLatin1Char(' '), Qt::SkipEmptyParts))
        repetition->Items.append(ValueOf(word));
    ReadItems(start, repetition);
    const int ways = (isRange ? 1 : 0) + (attributes.hasAttribute(OverAttribute) ? 1 : 0)
        + (repetition->ItemTokens.isEmpty() ? 0 : 1);
    if (ways != 1)
        return Refuse(
            start, QStringLiteral("A repetition wants one of \"from\" and \"to\", \"over\", or Item elements"));
    return !repetition->Items.isEmpty() || Refuse(start, QStringLiteral("The repetition has no items"));
}

bool TemplateExpansion::ReadRange(int start, const QXmlStreamAttributes &attributes, Repetition *repetition)
{
    bool isFrom = false;
    bool isTo = false;
    bool isStep = true;
    const qint64 from = attributes.value(FromAttribute).toLongLong(&isFrom);
    const qint64 to = attributes.value(ToAttribute).toLongLong(&isTo);
    const qint64 step
        = attributes.hasAttribute(StepAttribute) ? attributes.value(StepAttribute).toLongLong(&isStep) : 1;
    if (!isFrom || !isTo || !isStep || step < 1 || qAbs(from) > Farthest || qAbs(to) > Farthest)
        return Refuse(start, QStringLiteral("\"from\" and \"to\" are whole numbers, and \"step\" one above 0"));
    for (qint64 number = from; number <= to && repetition->Items.size() <= MostItems;
         number += qMin(step, 2 * Farthest + 1))
        repetition->Items.append(QScriptValue(double(number)));
    return true;
}

/// The Item elements directly inside; their attributes are the parts of the item.
void TemplateExpansion::ReadItems(int start, Repetition *repetition)
{
    for (int i = start + 1; i < Ends.at(start); ++i) {
        const XmlToken::Kind kind = Tokens.at(i).What;
        const bool isItem
            = (kind == XmlToken::EmptyTag || kind == XmlToken::StartTag) && NameOfTag(Raw(i)) == ItemElement;
        const int last = kind == XmlToken::StartTag ? Ends.at(i) : i;
        if (isItem) {
            QScriptValue item = Engine.newObject();
            for (const QXmlStreamAttribute &part : AttributesOf(Replaced(i).Text()))
                item.setProperty(part.name().toString(), ValueOf(part.value().toString()));
            repetition->Items.append(item);
            for (int token = i; token <= last; ++token)
                repetition->ItemTokens.insert(token);
        }
        i = last;
    }
}

/// A number where the text is spelled as one.
QScriptValue TemplateExpansion::ValueOf(const QString &text)
{
    bool isNumber = false;
    const QScriptValue number(text.toDouble(&isNumber));
    return isNumber && number.toString() == text ? number : QScriptValue(text);
}

/// A piece with all values in it.
PlacedText TemplateExpansion::Replaced(int token)
{
    const XmlToken::Kind kind = Tokens.at(token).What;
    const QString raw = Raw(token).toString();
    const int from = Tokens.at(token).From;
    PlacedText replaced;
    for (int i = 0; i < raw.size();) {
        const int place = Source.OffsetOf(from + i);
        const int close = raw.midRef(i, 2) == QLatin1String("${") ? raw.indexOf(QLatin1Char('}'), i) : -1;
        if (Names.isEmpty() || close < 0) {
            replaced.Append(raw.at(i++), place);
            continue;
        }
        const QString value = Evaluate(raw.mid(i + 2, close - i - 2), from + i);
        for (const QChar character : WrittenIn(kind, value))
            replaced.Append(character, place);
        i = close + 1;
    }
    return replaced;
}

void TemplateExpansion::Write(int token)
{
    const PlacedText piece = Replaced(token);
    for (int i = 0; i < piece.Text().size(); ++i)
        Definition.Append(piece.Text().at(i), piece.OffsetOf(i));
}

/// Without braces and quotation marks, nothing can be written that runs on.
QString TemplateExpansion::Evaluate(const QString &expression, int at)
{
    static const QRegularExpression allowed(QStringLiteral("^[\\w$.+*/%() -]+$"));
    static const QRegularExpression name(QStringLiteral("(?<![\\w$.])[A-Za-z_$][\\w$]*"));
    QString unknown;
    for (auto found = name.globalMatch(expression); found.hasNext();) {
        const QString word = found.next().captured();
        if (!Names.contains(word))
            unknown = word;
    }
    const auto refuse = [&](const QString &text) {
        Tell(Code::TemplateValue, at, text);
        return QString();
    };
    if (!unknown.isEmpty())
        return refuse(
            QStringLiteral("No repetition around this has an item \"%1\"").arg(unknown) + Sink.Suggest(unknown, Names));
    const QScriptValue value = allowed.match(expression).hasMatch() ? Engine.evaluate(expression) : QScriptValue();
    const bool isNumber = value.isNumber() && qIsFinite(value.toNumber());
    if (!isNumber && !value.isString())
        return refuse(QStringLiteral("\"%1\" is no text and no number").arg(expression));
    return value.toString();
}

} // namespace Orbel
