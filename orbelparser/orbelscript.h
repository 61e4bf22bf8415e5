#pragma once

#include "orbelexport.h"

#include <QString>

class QXmlStreamReader;

namespace KV218
{

/// The text of a form's script. The language is kept as the definition states it and selects nothing.
class ORBEL_EXPORT OrbelScript
{
public:
    OrbelScript() = default;
    OrbelScript(const OrbelScript &) = default;
    OrbelScript &operator=(const OrbelScript &) = default;
    virtual ~OrbelScript();

    /// The attribute `language` as it stands, and the text to run.
    const QString &GetLanguage() const { return Language; }
    const QString &GetCode() const { return Code; }
    /// The line of the definition in which the text begins, from 1.
    int GetLine() const { return Line; }

    /// Reads the `Script` element on which `reader` stands. "{{CR}}" and "{{LF}}" in the code become line ends.
    void ParseORBEL(QXmlStreamReader &reader);

private:
    QString Language;
    QString Code;
    int Line = 1;
};

} // namespace KV218
