#pragma once

#include "elementnames.h"

#include <QStringRef>
#include <QXmlStreamReader>
#include <type_traits>

namespace KV218
{

/// Walks one level of a document. The reader stands just inside an element; `onStart(name)` gets each start element
/// and consumes it, or leaves it standing, which *enters* it: then that element's own end tag ends this walk. An
/// `onStart` that returns false ends the walk at once. A malformed document ends it where the reader met the error.
/// The name is valid until the reader moves on.
template <class OnStart> void ForEachStart(QXmlStreamReader &reader, OnStart onStart)
{
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::EndElement)
            return;
        if (token != QXmlStreamReader::StartElement)
            continue;
        if constexpr (std::is_same_v<std::invoke_result_t<OnStart, QStringRef>, bool>) {
            if (!onStart(reader.name()))
                return;
        } else {
            onStart(reader.name());
        }
    }
}

/// Goes down a document in search of forms. Elements of other names are entered, not skipped, so a form is found along
/// the chain of first children, and the first end tag outside a form ends the search. `onForm()` consumes the form.
template <class OnForm> void ForEachForm(QXmlStreamReader &reader, OnForm onForm)
{
    while (!reader.atEnd() && reader.readNextStartElement()) {
        if (reader.name() == element::Form)
            onForm();
    }
}

} // namespace KV218
