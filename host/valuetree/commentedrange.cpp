#include "commentedrange.h"

#include <cmath>
#include <tuple>

CommentedRange::~CommentedRange() = default;

void CommentedRange::SetRangeStart(const double &start)
{
    if (!std::isnan(start))
        Start = start;
}

void CommentedRange::SetRangeStop(const double &stop)
{
    if (!std::isnan(stop))
        Stop = stop;
}

void CommentedRange::SetFrequency(double frequency)
{
    const double half = GetBandwidth() / 2;
    SetRangeStart(frequency - half);
    SetRangeStop(frequency + half);
}

void CommentedRange::SetBandwidth(double bandwidth)
{
    const double middle = GetFrequency();
    SetRangeStart(middle - bandwidth / 2);
    SetRangeStop(middle + bandwidth / 2);
}

bool CommentedRange::operator<(const CommentedRange &other) const
{
    return std::tie(Start, Stop, Id) < std::tie(other.Start, other.Stop, other.Id);
}

bool CommentedRange::operator==(const CommentedRange &other) const
{
    return std::tie(Start, Stop, Id, Comment) == std::tie(other.Start, other.Stop, other.Id, other.Comment);
}
