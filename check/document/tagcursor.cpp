#include "tagcursor.h"

namespace Orbel
{

TagCursor::TagCursor(const Document &document) : Doc(document), EndTags(document.Elements().size(), -1)
{
    for (int i = 0; i < Doc.Tags().size(); ++i) {
        if (!Doc.Tags().at(i).IsStart)
            EndTags[Doc.Tags().at(i).Element] = i;
    }
}

bool TagCursor::NextStart()
{
    if (AtEnd())
        return false;
    const Tag &tag = Doc.Tags().at(Next++);
    if (tag.IsStart)
        Element = tag.Element;
    return tag.IsStart;
}

void TagCursor::SkipCurrent()
{
    while (NextStart()) {
        const int end = EndTags.at(Element);
        Next = end < 0 ? Doc.Tags().size() : end + 1;
    }
}

int TagCursor::ReadText()
{
    if (!NextStart())
        return -1;
    Fail();
    return Element;
}

} // namespace Orbel
