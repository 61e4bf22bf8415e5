#pragma once

#include "assistiveproxy.h"

namespace KV218
{

/// What an assistive tool sees of a cell: all that Qt tells of it, and where it stands. That is the name of a cell that
/// shows nothing, and the description of one that shows something.
class AssistiveCell : public AssistiveProxy
{
public:
    /// `inner` is the number of Qt's own view of the cell, which goes when the table changes its shape.
    explicit AssistiveCell(QAccessible::Id inner) : AssistiveProxy(inner) { }

    using AssistiveProxy::Inner;

    QString text(QAccessible::Text kind) const override;
};

} // namespace KV218
