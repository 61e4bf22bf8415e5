#pragma once

#include "orbelwidget.h"

#include <QExplicitlySharedDataPointer>
#include <QHash>
#include <QList>
#include <QPair>
#include <QStringList>

namespace KV218
{

/// A node of the tree that mirrors the slash-separated parameter paths of a sheet's widgets: the root without a tag,
/// inner nodes with one tag, and leaves with a widget and the tags that are read into it. Writes and reads the body of
/// parameter documents.
class OrbelElement
{
public:
    OrbelElement() = default;
    explicit OrbelElement(const QString &tag);
    explicit OrbelElement(QExplicitlySharedDataPointer<OrbelWidget> widget);
    virtual ~OrbelElement();
    Q_DISABLE_COPY(OrbelElement)

    /// Hangs a leaf for `widget` at its path below this node, making the inner nodes that are missing. A path of more
    /// than limit::ParameterPathParts parts is left out.
    void AddWidget(QExplicitlySharedDataPointer<OrbelWidget> widget);
    /// Lets the leaf of a widget answer to a further element name; a widget without a leaf is none.
    void AddTag(const OrbelWidget *widget, const QString &tag);
    /// The first child that answers to the tag, in the same case; null without one.
    OrbelElement *FindChild(const QString &tag) const;
    /// The widget of the leaf at that path below this node; null for an inner node or when there is none.
    QExplicitlySharedDataPointer<OrbelWidget> FindWidget(const QString &path) const;
    /// Whether a leaf below, selected or not, is modified.
    bool HasModified() const;

    /// Writes this node's element with all below it, and clears the mark of each modified widget that is written,
    /// unless `keepsMarks`.
    void GetXml(QXmlStreamWriter &writer, bool onlyModified, bool keepsMarks = false) const;
    /// Reads the element on whose start `reader` stands, to its end. Elements that fit no node are skipped.
    void ReadXml(QXmlStreamReader &reader);

private:
    OrbelElement *Append(OrbelElement *child);
    void EnterTags(OrbelElement *child);
    void FetchAhead(int index) const;

    QStringList Tags;
    QExplicitlySharedDataPointer<OrbelWidget> LeafWidget;
    /// In order of insertion; owned.
    QList<OrbelElement *> Children;
    /// The first child of each tag.
    QHash<QString, OrbelElement *> ChildByTag;
    /// In the root: the node above the leaf, and the leaf.
    QHash<const OrbelWidget *, QPair<OrbelElement *, OrbelElement *>> Leaves;
};

} // namespace KV218
