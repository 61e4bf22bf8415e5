#pragma once

#include "ifrequencymapitem.h"
#include "ikeyitemtemplate.h"

#include <QString>

/// A range of frequencies in Hz with an id and a comment. Start and stop are kept as they are set, in any order.
class ORBEL_HOST_EXPORT CommentedRange : public IFrequencyMapItem, public valueitemmap::IKeyItemTemplate<unsigned int>
{
public:
    CommentedRange() = default;
    CommentedRange(const CommentedRange &) = default;
    CommentedRange &operator=(const CommentedRange &) = default;
    ~CommentedRange() override;

    void SetID(unsigned int id) override { Id = id; }
    unsigned int GetID() const override { return Id; }
    void SetRangeStart(const double &start) override;
    void SetRangeStop(const double &stop) override;
    double GetRangeStart() const override { return Start; }
    double GetRangeStop() const override { return Stop; }
    void SetFrequency(double frequency) override;
    void SetBandwidth(double bandwidth) override;
    double GetFrequency() const override { return Start + (Stop - Start) / 2; }
    double GetBandwidth() const override { return Stop - Start; }
    /// A text for the operator; empty at first.
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
