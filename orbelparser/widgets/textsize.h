#pragma once

class QWidget;

namespace KV218
{

/// Sets the text size, in points, of the form whose frame this is: on its parent, or on the frame while it has none.
/// There it replaces the font's size or, where there is a style sheet, the whole of that.
void SetTextSize(QWidget *frame, int size);

} // namespace KV218
