#include "commentedrangeitemformat.h"

#include "numbertext.h"

#include <QStringList>

static const QLatin1String BoundSeparator("..");

QString CommentedRangeItemFormat::ToText(const CommentedRange &range)
{
    return Orbel::NumberToText(range.GetRangeStart()) + BoundSeparator + Orbel::NumberToText(range.GetRangeStop());
}

bool CommentedRangeItemFormat::FromText(const QString &text, CommentedRange &range)
{
    const QStringList bounds = text.split(BoundSeparator);
    double start = 0;
    double stop = 0;
    if (bounds.size() != 2 || !Orbel::TextToNumber(bounds[0], start) || !Orbel::TextToNumber(bounds[1], stop))
        return false;
    range.SetRangeStart(start);
    range.SetRangeStop(stop);
    return true;
}
