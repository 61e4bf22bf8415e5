#pragma once

class QWidget;
class ValueCommentedRangeMap;

namespace KV218
{

class OrbelDelegate;

/// Shows the modal list in which the operator edits the ranges that a scan leaves out, above `parent`, and returns when
/// it closes. Ok stores the list in the node, sorted, even if nothing was changed; Cancel leaves the node as it is.
/// Nothing happens without a node. `context` is the translation context of the texts, the class name of the caller.
/// The form of `control`, which must be there to the end, records what was stored; null records nothing. Handlers run
/// meanwhile: the caller's form, the node and `parent`, which takes an open list with it, may be gone afterwards.
void EditExclusionRanges(
    ValueCommentedRangeMap *ranges, QWidget *parent, const char *context, OrbelDelegate *control = nullptr);

} // namespace KV218
