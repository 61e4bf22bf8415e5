#pragma once

#include <QString>
#include <QStringList>

namespace Orbel
{

/// The author's editor, as a command line that opens a file at a line.
class EditorCommand
{
public:
    /// The words of `command`, in which {file} and {line} are replaced; without them the words that editors of that
    /// name take are added, or the file alone. Editors that live in a terminal get one of their own.
    static QStringList Words(const QString &command, const QString &file, int line);
    /// `stated`, $VISUAL or $EDITOR, the first that is not empty; empty for none.
    static QString Choose(const QString &stated);
    /// Starts it; where there is none, asks the desktop to open the file. False where that fails.
    static bool Open(const QString &stated, const QString &file, int line);
};

} // namespace Orbel
