#pragma once

#include <QTemporaryDir>

/// From the start of a process to the picture of a form in a file.
namespace startup
{

/// An example drawn by the command `orbel render`, and a .ui file with the same rows drawn by a program that has
/// nothing but QUiLoader. Both take their style and their fonts from where they find them.
class Pictures
{
public:
    Pictures();

    /// Nanoseconds of processor time that the process takes.
    double Ours() const;
    double Peer() const;

private:
    QString UiFile() const;

    QTemporaryDir folder;
};

} // namespace startup
