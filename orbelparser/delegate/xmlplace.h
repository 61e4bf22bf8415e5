#pragma once

#include <QStringList>

namespace KV218
{

/// Where a control stands in parameter documents: the path of its element, with "/" between the names, and the element
/// names that are read into it.
class XmlPlace
{
public:
    /// The whole path.
    const QString &GetPath() const { return Path; }
    /// The last part of the path: the name of the element that is written.
    const QString &GetTagName() const { return TagName; }
    /// Empty for a place that was never given a path.
    const QStringList &GetTags() const { return Tags; }

    /// Goes to the path; for an empty one to `objectName`. True when the name of the element is another one then.
    bool SetPath(const QString &path, const QString &objectName);
    /// Whether the element name, in any case, is read into the control.
    bool Contains(const QString &tag) const { return Tags.contains(tag, Qt::CaseInsensitive); }
    /// Adds an element name, unless it is there in any case.
    void AddTag(const QString &tag);

private:
    QString Path;
    QString TagName;
    QStringList Tags;
};

} // namespace KV218
