#pragma once

#include "document.h"

namespace Orbel
{

/// Steps over the tags of a document just as the library's readers step over its tokens, so that a reading can be
/// repeated with its exact ends.
class TagCursor
{
public:
    explicit TagCursor(const Document &document);

    /// At the end of the document, or behind an error.
    bool AtEnd() const { return Failed || Next >= Doc.Tags().size(); }
    void Fail() { Failed = true; }
    /// The element last begun.
    int Current() const { return Element; }

    /// Goes to the next tag. False when it is an end tag, or when there is none.
    bool NextStart();
    /// Goes behind the end tag of the innermost element that is open.
    void SkipCurrent();
    /// Reads the text of the element last begun. Gives -1, or the child that stands in it, which is an error.
    int ReadText();

    /// Walks one level: `onStart(element)` consumes the element or leaves it standing, which enters it.
    template <class OnStart> void ForEachStart(OnStart onStart)
    {
        while (!AtEnd() && NextStart()) {
            if (!onStart(Element))
                return;
        }
    }

private:
    const Document &Doc;
    QVector<int> EndTags;
    int Next = 0;
    int Element = -1;
    bool Failed = false;
};

} // namespace Orbel
