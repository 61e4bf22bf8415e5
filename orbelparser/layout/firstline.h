#pragma once

#include <optional>

class QSize;
class QWidget;

/// Where the first line of a control's text has its baseline, in pixels from the control's top, when the control has
/// that size; nothing for a widget of which it is not known. A control without a text counts as if one stood in its
/// middle, a table begins with its header, and a container with what its layout holds first: that layout is placed for
/// it.
std::optional<int> FirstBaseline(QWidget *control, const QSize &size);
