#include "xmlplace.h"

namespace KV218
{

bool XmlPlace::SetPath(const QString &path, const QString &objectName)
{
    const QString before = TagName;
    Path = path.isEmpty() ? objectName : path;
    TagName = Path.mid(Path.lastIndexOf(QLatin1Char('/')) + 1);
    // Meant: each further parse of the same element adds the name again, so callers see it more than once.
    if (!path.isEmpty())
        Tags.append(TagName);
    return TagName != before;
}

void XmlPlace::AddTag(const QString &tag)
{
    if (!Contains(tag))
        Tags.append(tag);
}

} // namespace KV218
