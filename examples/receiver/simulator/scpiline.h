#pragma once

#include "scpierror.h"

#include <QByteArrayList>
#include <QVector>

/// One parameter of a command, read but not judged.
struct ScpiParameter {
    enum Kind { Number, Word, String };

    Kind What = Word;
    /// The number as it was written, without its suffix.
    double Value = 0;
    /// Behind a number, in capitals: "KHZ". Empty without one.
    QByteArray Suffix;
    /// The word in capitals, or the string without its quotes.
    QByteArray Text;
};

/// One command or query of a line.
struct ScpiUnit {
    /// The mnemonics in capitals from the root on, what the command before it left out included: for the second unit of
    /// "SCAN:STAR 1 MHz;STOP 2 MHz" these are SCAN and STOP. A common command is one that begins with '*'.
    QByteArrayList Header;
    bool IsQuery = false;
    QVector<ScpiParameter> Parameters;
    /// As it was sent.
    QByteArray Text;
    /// Why the unit could not be read; nothing behind it was.
    ScpiError Error = ScpiError::None;
};

/// Reads a line, without its end, into its commands. Empty ones are left out. Ends at the first one that cannot be
/// read.
QVector<ScpiUnit> ParseScpiLine(const QByteArray &line);

/// A header as manuals write it: "[SENSe:]BANDwidth|BWIDth[:RESolution]". Capitals are the short form of a mnemonic,
/// the whole of it the long one, "|" parts two mnemonics for the same, and what stands in brackets may be left out.
class ScpiPattern
{
public:
    explicit ScpiPattern(const QByteArray &text);
    /// Whether a header, in capitals, is one that the pattern means.
    bool Matches(const QByteArrayList &header) const { return MatchesFrom(0, header, 0); }
    /// The shortest header that the pattern means: "BAND".
    QByteArray Shortest() const;

private:
    struct Node {
        QByteArrayList Mnemonics;
        bool IsOptional;
    };

    bool MatchesFrom(int node, const QByteArrayList &header, int mnemonic) const;

    QVector<Node> Nodes;
};
