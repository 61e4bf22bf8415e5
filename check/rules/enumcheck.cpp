// Enumerations and the combo boxes that show them.

#include "elementnames.h"
#include "formcheck.h"
#include "propertynames.h"
#include "propertyplace.h"
#include "scriptbuiltins.h"

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
namespace element = KV218::element;

/// How many values a message tells.
constexpr int MostValues = 10;

class EnumCheck
{
public:
    EnumCheck(const FormModel &form, FindingSink &sink) : Form(form), Sink(sink) { }

    void CheckRows(const EnumEntry &entry)
    {
        QSet<QString> names;
        QSet<QString> identifiers;
        QSet<QString> values;
        int valueless = 0;
        for (const EnumRow &row : entry.Rows) {
            CheckDoubled(row.DisplayName, "display name", row.Element, names, entry);
            CheckDoubled(row.Identifier, "identifier", row.IdentifierElement, identifiers, entry);
            CheckDoubled(row.Value, "value", row.ValueElement, values, entry);
            if (row.ValueElement == row.Element)
                Sink.Add(Code::EnumValueless, Form.Doc.PlaceOf(row.Element),
                    QStringLiteral("The row \"%1\" of \"%2\" has no Value").arg(row.DisplayName, entry.Name));
            else if (row.Value.isEmpty() && ++valueless > 1)
                Sink.Add(Code::EnumDoubled, Form.Doc.PlaceOf(row.ValueElement),
                    QStringLiteral("Another row of \"%1\" has no value either").arg(entry.Name));
            CheckParts(row.Element);
            if (!row.Identifier.isEmpty() && !IsScriptName(row.Identifier))
                Sink.Add(Code::EnumIdentifier, Form.Doc.PlaceOfText(row.IdentifierElement),
                    QStringLiteral("A script cannot write \"%1.%2\"").arg(entry.Name, row.Identifier));
        }
    }

    void CheckChoice(const WidgetEntry &widget)
    {
        if (!Registry::FindProperty(*widget.Info, prop::EnumName))
            return;
        const PropertyEntry *stated = widget.Find(prop::EnumName);
        if (!stated) {
            Sink.Add(Code::EnumUnknown, Form.Doc.PlaceOf(widget.Element),
                QStringLiteral("The combo box \"%1\" states no enumName").arg(widget.Name));
            return;
        }
        const EnumEntry *entry = Form.FindEnum(stated->Text);
        if (!entry && Form.Doc.IsWhole())
            Sink.AddMisspelt(Code::EnumUnknown, PlaceOfValue(Form, *stated),
                QStringLiteral("There is no enumeration \"%1\"").arg(stated->Text), stated->Text, Form.EnumNames());
        else if (entry)
            CheckShown(widget, *entry);
    }

private:
    void CheckParts(int row)
    {
        QSet<QString> seen;
        for (int part = Form.Doc.At(row).FirstChild; part >= 0; part = Form.Doc.At(part).NextSibling) {
            const QString &name = Form.Doc.At(part).Name;
            const bool isPart
                = name == element::DisplayName || name == element::EnumIdentifier || name == element::Value;
            if (isPart && seen.contains(name))
                Sink.Add(Code::EnumDoubled, Form.Doc.PlaceOf(part),
                    QStringLiteral("This %1 replaces another one of the same row").arg(name));
            seen.insert(name);
        }
    }

    /// What is empty is not there to be found.
    void CheckDoubled(const QString &text, const char *kind, int element, QSet<QString> &seen, const EnumEntry &entry)
    {
        if (!text.isEmpty() && seen.contains(text))
            Sink.Add(Code::EnumDoubled, Form.Doc.PlaceOf(element),
                QStringLiteral("Another row of \"%1\" has the %2 \"%3\"").arg(entry.Name, QLatin1String(kind), text));
        seen.insert(text);
    }

    void CheckShown(const WidgetEntry &widget, const EnumEntry &entry)
    {
        CheckCurrent(widget, entry);
        if (Shown.contains(&entry))
            return;
        Shown.insert(&entry);
        for (const EnumRow &row : entry.Rows) {
            bool hasName = false;
            for (int part = Form.Doc.At(row.Element).FirstChild; part >= 0; part = Form.Doc.At(part).NextSibling)
                hasName = hasName || Form.Doc.At(part).Name == element::DisplayName;
            if (!hasName)
                Sink.Add(Code::EnumNameless, Form.Doc.PlaceOf(row.Element),
                    QStringLiteral("The row \"%1\" of \"%2\" has no DisplayName").arg(row.Value, entry.Name));
        }
    }

    void CheckCurrent(const WidgetEntry &widget, const EnumEntry &entry)
    {
        const PropertyEntry *current = widget.Find(prop::CurrentValue);
        // An enumeration without rows is filled by the host.
        if (!current || entry.Rows.isEmpty())
            return;
        if (entry.Values.contains(current->Text))
            return;
        QStringList values;
        for (const EnumRow &row : entry.Rows.mid(0, MostValues))
            values.append(row.Value);
        Sink.Add(Code::EnumValue, PlaceOfValue(Form, *current),
            QStringLiteral("No row of \"%1\" has the value \"%2\", only %3")
                .arg(entry.Name, current->Text,
                    Quoted(values) + QLatin1String(entry.Rows.size() > MostValues ? " and others" : "")));
    }

    const FormModel &Form;
    FindingSink &Sink;
    QSet<const EnumEntry *> Shown; ///< In combo boxes.
};

} // namespace

void CheckEnums(const FormModel &form, FindingSink &sink)
{
    EnumCheck check(form, sink);
    for (const EnumEntry &entry : form.Enums)
        check.CheckRows(entry);
    for (const WidgetEntry &widget : form.Widgets) {
        if (widget.Info)
            check.CheckChoice(widget);
    }
}

} // namespace Orbel
