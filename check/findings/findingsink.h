#pragma once

#include "codes.h"
#include "finding.h"
#include "suggestion.h"

namespace Orbel
{

class FileText;

/// What a finding's edit is made of: what stands at a place, and what is to stand there. There is no edit when the file
/// spells it otherwise, by entities for instance.
struct Mend {
    int Place = 0;
    QString Is;
    QString Becomes;
};

/// Where the checks put what they find, in any order.
class FindingSink
{
public:
    /// `place` is an index into the file's text. Control characters of `text` are told as \n, \t and \xNN, and long
    /// parts in quotation marks are cut.
    void Add(Code code, int place, const QString &text, const Mend &mend = Mend());
    /// Of a name that stands at the place, and is none of `names`: adds the one that was meant.
    void AddMisspelt(Code code, int place, const QString &text, const QString &name, const QStringList &names);
    /// `; did you mean "X"?`, or nothing. A document full of unknown names gets no more suggestions after a while, so
    /// that looking for them stays linear.
    QString Suggest(const QString &name, const QStringList &names);

    /// What another sink has and `known` has not, nor this one at the same place.
    void TakeNew(const FindingSink &other, const FindingSink &known);

    bool Has(Code code) const;
    /// In the order of the file.
    Findings Sorted(const FileText &file) const;

private:
    struct Entry {
        Code What;
        int Place;
        QString Text;
        Mend Edit;
    };
    QString Nearest(const QString &name, const QStringList &names);
    QVector<Entry> Entries;
    int Suggestions = 0;
};

} // namespace Orbel
