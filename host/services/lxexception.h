#pragma once

#include "hostexport.h"

#include <QByteArray>
#include <QString>

#include <exception>

/// An exception of the host libraries, with the place where it was thrown.
class ORBEL_HOST_EXPORT LxException : public std::exception
{
public:
    /// `line` is a line of the source file, 0 when it is not known; a code with all bits set is none.
    LxException(const QString &message, const QString &sourceFile, const QString &className, const QString &method,
        unsigned int line, unsigned int code);
    ~LxException() override;

    /// The message in UTF-8.
    const char *what() const noexcept override;
    QString GetMessage() const { return Message; }
    QString GetSourceFile() const { return SourceFile; }
    QString GetClassName() const { return ClassName; }
    QString GetMethod() const { return Method; }
    unsigned int GetLine() const { return Line; }
    unsigned int GetCode() const { return Code; }

private:
    QString Message;
    QString SourceFile;
    QString ClassName;
    QString Method;
    unsigned int Line;
    unsigned int Code;
    QByteArray Utf8;
};
