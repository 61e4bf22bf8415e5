#pragma once

#include "hostexport.h"

#include <QString>

/// A range of frequencies in Hz with an id and a comment. Start and stop are kept as they are set, in any
/// order; a number that is none (NaN) changes nothing.
class ORBEL_HOST_EXPORT CommentedRange
{
public:
    CommentedRange() = default;
    CommentedRange(const CommentedRange &) = default;
    CommentedRange &operator=(const CommentedRange &) = default;
    virtual ~CommentedRange();

    void SetID(unsigned int id) { Id = id; }
    unsigned int GetID() const { return Id; }
    void SetRangeStart(const double &start);
    void SetRangeStop(const double &stop);
    double GetRangeStart() const { return Start; }
    double GetRangeStop() const { return Stop; }
    /// Moves the range so that its middle is here; its width stays.
    void SetFrequency(double frequency);
    /// Gives the range this width; its middle stays.
    void SetBandwidth(double bandwidth);
    double GetFrequency() const { return Start + (Stop - Start) / 2; }
    double GetBandwidth() const { return Stop - Start; }
    void SetComment(const QString &comment) { Comment = comment; }
    QString GetComment() const { return Comment; }

    /// By start, then by stop, then by id.
    bool operator<(const CommentedRange &other) const;
    /// True when start, stop, id and comment are equal.
    bool operator==(const CommentedRange &other) const;
    bool operator!=(const CommentedRange &other) const { return !(*this == other); }

private:
    double Start = 0.0;
    double Stop = 0.0;
    unsigned int Id = 0;
    QString Comment;
};
