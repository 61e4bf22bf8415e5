#include "formatting.h"

#include "definitionlayout.h"
#include "positionjson.h"
#include "rpcmessage.h"

#include <QJsonObject>

#include <algorithm>

namespace Orbel
{

namespace
{

/// Characters that two texts share at their beginnings and at their ends, so that most cursors stay where they are.
struct Difference {
    Difference(const QString &is, const QString &becomes)
    {
        const int shorter = qMin(is.size(), becomes.size());
        Before = int(std::mismatch(is.begin(), is.begin() + shorter, becomes.begin()).first - is.begin());
        // Editors know no place within the end of a line.
        while (Before > 0 && is.at(Before - 1) == QLatin1Char('\r'))
            --Before;
        const auto limit = is.rbegin() + (shorter - Before);
        Behind = int(std::mismatch(is.rbegin(), limit, becomes.rbegin()).first - is.rbegin());
        while (Behind > 0 && is.at(is.size() - Behind) == QLatin1Char('\n'))
            --Behind;
    }

    int Before;
    int Behind;
};

} // namespace

QJsonArray FormattingOf(const OpenDocument &document)
{
    const DefinitionLayout layout = DefinitionLayout::OfText(document.Text());
    if (!layout.GetRefusal().isEmpty())
        throw RpcFailure{RpcError::RequestFailed, layout.GetRefusal().constFirst().Text};
    const QString &is = document.Text();
    const QString &becomes = layout.GetText();
    if (is == becomes)
        return {};
    const Difference difference(is, becomes);
    const TextSpan span{difference.Before, is.size() - difference.Behind};
    const QString text = becomes.mid(span.From, becomes.size() - difference.Behind - span.From);
    return {QJsonObject{
        {QStringLiteral("range"), ToJson(document.Lines().RangeOf(span))}, {QStringLiteral("newText"), text}}};
}

} // namespace Orbel
