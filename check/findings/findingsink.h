#pragma once

#include "codes.h"
#include "suggestion.h"

namespace Orbel
{

class FileText;

/// Where the checks put what they find, in any order.
class FindingSink
{
public:
    /// `place` is an index into the file's text. Control characters of `text` are told as \n, \t and \xNN, and long
    /// parts in quotation marks are cut.
    void Add(Code code, int place, const QString &text);
    /// `; did you mean "X"?`, or nothing. A document full of unknown names gets no more suggestions after a while, so
    /// that looking for them stays linear.
    QString Suggest(const QString &name, const QStringList &names);

    bool Has(Code code) const;
    /// In the order of the file.
    Findings Sorted(const FileText &file) const;

private:
    struct Entry {
        Code What;
        int Place;
        QString Text;
    };
    QVector<Entry> Entries;
    int Suggestions = 0;
};

} // namespace Orbel
