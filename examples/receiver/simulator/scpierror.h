#pragma once

#include <QByteArray>
#include <QQueue>

/// The errors of SCPI-99 that the receiver tells, by their numbers there: from -100 to -199 the command was not
/// understood, from -200 to -299 it was not carried out.
enum class ScpiError {
    None = 0,
    InvalidCharacter = -101,
    SyntaxError = -102,
    InvalidSeparator = -103,
    DataTypeError = -104,
    ParameterNotAllowed = -108,
    MissingParameter = -109,
    MnemonicTooLong = -112,
    UndefinedHeader = -113,
    HeaderSuffixOutOfRange = -114,
    InvalidCharacterInNumber = -121,
    ExponentTooLarge = -123,
    TooManyDigits = -124,
    NumberNotAllowed = -128,
    InvalidSuffix = -131,
    SuffixTooLong = -134,
    SuffixNotAllowed = -138,
    InvalidCharacterData = -141,
    CharacterDataTooLong = -144,
    InvalidString = -151,
    StringNotAllowed = -158,
    CommandProtected = -203,
    SettingsConflict = -221,
    DataOutOfRange = -222,
    IllegalParameterValue = -224,
    QueueOverflow = -350,
    InputBufferOverrun = -363,
};

inline bool IsCommandError(ScpiError error)
{
    return int(error) <= -100 && int(error) > -200;
}

/// What went wrong and was not asked for yet, the oldest first. Holds 20 errors; further ones are lost, which the last
/// one that it holds then tells.
class ScpiErrorQueue
{
public:
    /// `about` is what was refused; its beginning stands behind the error's own text.
    void Add(ScpiError error, const QByteArray &about = QByteArray());
    /// Takes the oldest error out, as `-222,"Data out of range;FREQ 30 GHz"`; `0,"No error"` when there is none.
    QByteArray Take();
    int Count() const { return Entries.size(); }
    void Clear() { Entries.clear(); }

private:
    QQueue<QByteArray> Entries;
};
