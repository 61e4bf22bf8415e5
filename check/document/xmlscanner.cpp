#include "xmlscanner.h"

namespace Orbel
{

namespace
{

class Scanner
{
public:
    explicit Scanner(const QString &document) : All(document) { }

    QVector<XmlToken> Run()
    {
        while (At < All.size())
            Step();
        return Tokens;
    }

private:
    void Step()
    {
        if (All.at(At) != QLatin1Char('<'))
            Take(XmlToken::Text, NextOr(QLatin1String("<"), At, 0));
        else if (!Stands("<!") && !Stands("<?"))
            TakeTag();
        else if (Stands("<!--"))
            Take(XmlToken::Comment, NextOr(QLatin1String("-->"), At + 4, 3));
        else if (Stands("<![CDATA["))
            Take(XmlToken::Section, NextOr(QLatin1String("]]>"), At + 9, 3));
        else if (Stands("<?"))
            Take(XmlToken::Instruction, NextOr(QLatin1String("?>"), At + 2, 2));
        else
            Take(XmlToken::Doctype, EndOfDoctype());
    }

    bool Stands(const char *mark) const
    {
        const QLatin1String text(mark);
        return All.midRef(At, text.size()) == text;
    }

    /// Behind the next such mark, by `size`; the end without one.
    int NextOr(QLatin1String mark, int from, int size) const
    {
        const int found = All.indexOf(mark, from);
        return found < 0 ? All.size() : found + size;
    }

    void Take(XmlToken::Kind kind, int to)
    {
        Tokens.append({kind, At, to});
        At = to;
    }

    void TakeTag()
    {
        int to = At + 1;
        while (to < All.size() && All.at(to) != QLatin1Char('>'))
            to = All.at(to) == QLatin1Char('"') || All.at(to) == QLatin1Char('\'') ? BehindQuoted(to) : to + 1;
        to = qMin(to + 1, All.size());
        const bool isEmpty = All.midRef(At, to - At).endsWith(QLatin1String("/>"));
        Take(Stands("</") ? XmlToken::EndTag : isEmpty ? XmlToken::EmptyTag : XmlToken::StartTag, to);
    }

    int BehindQuoted(int from) const
    {
        const int found = All.indexOf(All.at(from), from + 1);
        return found < 0 ? All.size() : found + 1;
    }

    /// Its own declarations stand in brackets, with quoted texts and comments, which may hold marks of all kinds.
    int EndOfDoctype() const
    {
        int depth = 0;
        for (int to = At + 2; to < All.size();) {
            const QChar character = All.at(to);
            if (All.midRef(to, 4) == QLatin1String("<!--")) {
                to = NextOr(QLatin1String("-->"), to + 4, 3);
                continue;
            }
            if (character == QLatin1Char('"') || character == QLatin1Char('\'')) {
                to = BehindQuoted(to);
                continue;
            }
            depth += character == QLatin1Char('[') ? 1 : character == QLatin1Char(']') ? -1 : 0;
            ++to;
            if (character == QLatin1Char('>') && depth == 0)
                return to;
        }
        return All.size();
    }

    const QString &All;
    int At = 0;
    QVector<XmlToken> Tokens;
};

} // namespace

QVector<XmlToken> ScanXml(const QString &document)
{
    return Scanner(document).Run();
}

QString NameOfTag(const QStringRef &tag)
{
    int from = tag.startsWith(QLatin1String("</")) ? 2 : 1;
    int to = from;
    for (;
         to < tag.size() && !IsXmlBlank(tag.at(to)) && tag.at(to) != QLatin1Char('>') && tag.at(to) != QLatin1Char('/');
         ++to) {
        if (tag.at(to) == QLatin1Char(':'))
            from = to + 1;
    }
    return tag.mid(from, to - from).toString();
}

bool IsXmlBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\n') || character == QLatin1Char('\t')
        || character == QLatin1Char('\r');
}

} // namespace Orbel
