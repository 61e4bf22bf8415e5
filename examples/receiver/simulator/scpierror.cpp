#include "scpierror.h"

namespace
{

const int QueueLength = 20;
const int AboutLength = 60;

const char *TextOf(ScpiError error)
{
    switch (error) {
    case ScpiError::None:
        return "No error";
    case ScpiError::InvalidCharacter:
        return "Invalid character";
    case ScpiError::SyntaxError:
        return "Syntax error";
    case ScpiError::InvalidSeparator:
        return "Invalid separator";
    case ScpiError::DataTypeError:
        return "Data type error";
    case ScpiError::ParameterNotAllowed:
        return "Parameter not allowed";
    case ScpiError::MissingParameter:
        return "Missing parameter";
    case ScpiError::MnemonicTooLong:
        return "Program mnemonic too long";
    case ScpiError::UndefinedHeader:
        return "Undefined header";
    case ScpiError::HeaderSuffixOutOfRange:
        return "Header suffix out of range";
    case ScpiError::InvalidCharacterInNumber:
        return "Invalid character in number";
    case ScpiError::ExponentTooLarge:
        return "Exponent too large";
    case ScpiError::TooManyDigits:
        return "Too many digits";
    case ScpiError::NumberNotAllowed:
        return "Numeric data not allowed";
    case ScpiError::InvalidSuffix:
        return "Invalid suffix";
    case ScpiError::SuffixTooLong:
        return "Suffix too long";
    case ScpiError::SuffixNotAllowed:
        return "Suffix not allowed";
    case ScpiError::InvalidCharacterData:
        return "Invalid character data";
    case ScpiError::CharacterDataTooLong:
        return "Character data too long";
    case ScpiError::InvalidString:
        return "Invalid string data";
    case ScpiError::StringNotAllowed:
        return "String data not allowed";
    case ScpiError::CommandProtected:
        return "Command protected";
    case ScpiError::SettingsConflict:
        return "Settings conflict";
    case ScpiError::DataOutOfRange:
        return "Data out of range";
    case ScpiError::IllegalParameterValue:
        return "Illegal parameter value";
    case ScpiError::QueueOverflow:
        return "Queue overflow";
    case ScpiError::InputBufferOverrun:
        return "Input buffer overrun";
    }
    return "";
}

/// In quotes that the text itself cannot end, and in characters that every terminal shows.
QByteArray Quoted(QByteArray text)
{
    for (char &letter : text) {
        if (letter == '"')
            letter = '\'';
        else if (letter < ' ' || letter > '~')
            letter = '?';
    }
    return '"' + text + '"';
}

QByteArray Entry(ScpiError error, const QByteArray &about)
{
    const QByteArray detail = about.isEmpty() ? QByteArray() : ';' + about.left(AboutLength);
    return QByteArray::number(int(error)) + ',' + Quoted(TextOf(error) + detail);
}

} // namespace

void ScpiErrorQueue::Add(ScpiError error, const QByteArray &about)
{
    if (Entries.size() < QueueLength)
        Entries.enqueue(Entry(error, about));
    else
        Entries.last() = Entry(ScpiError::QueueOverflow, {});
}

QByteArray ScpiErrorQueue::Take()
{
    return Entries.isEmpty() ? Entry(ScpiError::None, {}) : Entries.dequeue();
}
