#pragma once

#include "symboltable.h"
#include "textlines.h"

#include <memory>
#include <vector>

namespace Orbel
{

/// A form of a document, with all that is spoken of in it.
struct OpenForm {
    explicit OpenForm(const PlacedText &source) : Form(source), Symbols(Form) { }

    const FormSnapshot Form;
    const SymbolTable Symbols;
};

/// A document that an editor has open: a form definition, a template of one, or a component list with forms in
/// attributes. Lines and forms are read anew after an edit, when somebody asks for them.
class OpenDocument
{
public:
    enum Kind { Definition, Template, List };

    OpenDocument(const QString &uri, Kind kind, const QString &text);

    const QString &Uri() const { return Name; }
    Kind What() const { return Holds; }
    const QString &Text() const { return Content; }
    /// As the checker takes it: editors know characters, whatever encoding the document declares.
    QByteArray Bytes() const;

    void SetText(const QString &text);
    /// Places beyond the text count as its ends.
    void Replace(const TextRange &range, const QString &text);

    const TextLines &Lines() const;
    /// The form around a place; null where none is. It stays until the next edit.
    const OpenForm *FormAt(int place) const;
    const std::vector<std::unique_ptr<OpenForm>> &Forms() const;
    /// A text as it is written into the document to stand in one of its forms: in a list that is an attribute.
    QString Written(const QString &text) const;

private:
    void ReadForms() const;

    QString Name;
    Kind Holds;
    QString Content;
    mutable std::unique_ptr<TextLines> LineStarts;
    mutable std::vector<std::unique_ptr<OpenForm>> AllForms;
    mutable bool IsRead = false;
};

} // namespace Orbel
