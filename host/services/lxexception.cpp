#include "lxexception.h"

LxException::LxException(const QString &message, const QString &sourceFile, const QString &className,
    const QString &method, unsigned int line, unsigned int code)
    : Message(message), SourceFile(sourceFile), ClassName(className), Method(method), Line(line), Code(code),
      Utf8(message.toUtf8())
{
}

LxException::~LxException() = default;

const char *LxException::what() const noexcept
{
    return Utf8.constData();
}
