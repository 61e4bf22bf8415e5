#pragma once

#include "elementnames.h"

#include <QXmlStreamReader>

namespace KV218
{

/// Walks a component list, a document that holds form definitions as text, to its end or to where it is malformed.
/// `onDefinition(component, definition)` gets the name of the component last begun, empty before the first one, and
/// each text; whether it is a form at all is not looked at.
template <class OnDefinition> void ForEachDefinition(QXmlStreamReader &reader, OnDefinition onDefinition)
{
    QString component;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == element::Component)
            component = attributes.value(attribute::Name).toString();
        else if (reader.name() == element::ValueString && attributes.value(attribute::Id) == QLatin1String("ORBEL"))
            onDefinition(component, attributes.value(attribute::Value).toString());
    }
}

} // namespace KV218
