#include "orbelelement.h"

#include "fetchsoon.h"
#include "formlimits.h"
#include "orbeldelegate.h"
#include "xmlwalk.h"

#include <QXmlStreamWriter>

namespace KV218
{

namespace
{

QStringList PathParts(const QString &path)
{
    // Most paths have one part.
    if (!path.isEmpty() && !path.contains(QLatin1Char('/')))
        return QStringList(path);
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

} // namespace

OrbelElement::OrbelElement(const QString &tag) : Tags(tag) { }

OrbelElement::OrbelElement(QExplicitlySharedDataPointer<OrbelWidget> widget) : LeafWidget(widget)
{
    const OrbelDelegate *delegate = widget->GetDelegate();
    Tags = delegate->HasSeveralXmlTags() ? delegate->GetAllTags() : QStringList(delegate->GetXmlTagName());
}

OrbelElement::~OrbelElement()
{
    while (!Children.isEmpty())
        delete Children.takeLast();
}

OrbelElement *OrbelElement::Append(OrbelElement *child)
{
    Children.append(child);
    EnterTags(child);
    return child;
}

void OrbelElement::EnterTags(OrbelElement *child)
{
    for (const QString &tag : qAsConst(child->Tags)) {
        OrbelElement *&known = ChildByTag[tag];
        if (!known)
            known = child;
    }
}

void OrbelElement::AddWidget(QExplicitlySharedDataPointer<OrbelWidget> widget)
{
    QStringList parts = PathParts(widget->GetDelegate()->GetXmlPath());
    if (parts.size() > limit::ParameterPathParts)
        return;
    if (!parts.isEmpty())
        parts.removeLast();
    OrbelElement *node = this;
    for (const QString &part : qAsConst(parts)) {
        OrbelElement *child = node->FindChild(part);
        node = child ? child : node->Append(new OrbelElement(part));
    }
    OrbelElement *const leaf = node->Append(new OrbelElement(widget));
    Leaves.insert(widget.data(), {node, leaf});
}

void OrbelElement::AddTag(const OrbelWidget *widget, const QString &tag)
{
    const auto place = Leaves.value(widget);
    if (!place.second)
        return;
    if (!place.second->Tags.contains(tag))
        place.second->Tags.append(tag);
    place.first->EnterTags(place.second);
}

OrbelElement *OrbelElement::FindChild(const QString &tag) const
{
    return ChildByTag.value(tag);
}

QExplicitlySharedDataPointer<OrbelWidget> OrbelElement::FindWidget(const QString &path) const
{
    const OrbelElement *node = this;
    for (const QString &part : PathParts(path)) {
        node = node->FindChild(part);
        if (!node)
            return QExplicitlySharedDataPointer<OrbelWidget>();
    }
    return node->LeafWidget;
}

bool OrbelElement::HasModified() const
{
    // Meant: a widget that is not selected counts too, so its enclosing elements are written without it.
    if (LeafWidget)
        return LeafWidget->isModified();
    for (const OrbelElement *child : Children) {
        if (child->HasModified())
            return true;
    }
    return false;
}

void OrbelElement::GetXml(QXmlStreamWriter &writer, bool onlyModified, bool keepsMarks) const
{
    if (LeafWidget) {
        LeafWidget->GetXml(writer, onlyModified, keepsMarks);
        return;
    }
    const bool isRoot = Tags.isEmpty();
    if (!isRoot && onlyModified && !HasModified())
        return;
    if (!isRoot)
        writer.writeStartElement(Tags.first());
    for (int i = 0; i < Children.size(); ++i) {
        FetchAhead(i);
        Children.at(i)->GetXml(writer, onlyModified, keepsMarks);
    }
    if (!isRoot)
        writer.writeEndElement();
}

/// Of what the next children are written from.
void OrbelElement::FetchAhead(int index) const
{
    constexpr int stage = 4;
    const auto leafAhead = [&](int stages) {
        const OrbelElement *child = Children.value(index + stages * stage);
        return child ? child->LeafWidget.data() : nullptr;
    };
    Orbel::FetchSoon(Children.value(index + 4 * stage), sizeof(OrbelElement));
    Orbel::FetchSoon(leafAhead(3), sizeof(OrbelWidget));
    if (const OrbelWidget *widget = leafAhead(2))
        Orbel::FetchSoon(widget->GetDelegate(), sizeof(OrbelDelegate) + 128);
    if (const OrbelWidget *widget = leafAhead(1))
        Orbel::FetchSoon(widget->GetXmlTagName().constData());
}

void OrbelElement::ReadXml(QXmlStreamReader &reader)
{
    if (LeafWidget) {
        LeafWidget->ReadXml(reader);
        return;
    }
    ForEachStart(reader, [&](const QStringRef &name) {
        if (OrbelElement *child = FindChild(name.toString()))
            child->ReadXml(reader);
        else
            reader.skipCurrentElement();
    });
}

} // namespace KV218
