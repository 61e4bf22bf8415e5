#pragma once

#include <QString>

/// What a form takes of the memory. The heap of a process that built forms before would hide it, so each is built in a
/// process of its own, which reads the anonymous pages that it holds.
namespace memory
{

enum class Who { Ours, UiLoader };

/// Runs this program once more, and gives the bytes that the form takes there, over those of a small one.
double InChild(Who who, int controls);

/// The child's part: builds the form and prints the bytes. False when the arguments of the program ask for none.
bool RunAsChild(const QStringList &arguments);

} // namespace memory
