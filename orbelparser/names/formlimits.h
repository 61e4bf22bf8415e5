#pragma once

namespace KV218
{

/// Bounds against hostile definitions, each at least ten times what a real form needs. docs/limits.md tells authors.
namespace limit
{

/// How deep property lists may nest. A deeper list ends the reading of its document there.
inline constexpr int PropertyListDepth = 64;

/// How many forms one document may hold, of which the last counts. What comes behind them is not read.
inline constexpr int FormsPerDocument = 16;

/// How many parts a `parameterXmlTag` may have. A control with a longer path shows and works, but stands outside the
/// parameter document.
inline constexpr int ParameterPathParts = 256;

/// The greatest text size of a form, in points. A greater one is ignored.
inline constexpr int TextSize = 512;

/// How many cells a list or table may hold, rows times columns. A larger shape is refused and changes nothing.
inline constexpr int ListCells = 100000;

/// How many controls a list of spin controls makes. A greater count makes this many.
inline constexpr int ListItems = 1000;

/// How many rows an enumeration may have. Those behind are not read.
inline constexpr int EnumRows = 10000;

/// How many characters of a text a control shows: label, caption, headline, tooltip, row of a choice. The rest does not
/// show.
inline constexpr int ShownText = 50000;

/// How many decimal places a number has in a parameter document. A greater count counts as this one, which is also the
/// most that a spin control shows.
inline constexpr int Decimals = 323;

/// How many changes of the operator a form can undo. Earlier ones are forgotten.
inline constexpr int UndoneChanges = 1000;

/// How many characters of a value the name of a change tells.
inline constexpr int ToldValue = 40;

} // namespace limit

} // namespace KV218
