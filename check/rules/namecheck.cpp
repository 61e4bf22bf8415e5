// Names of widgets, enumerations and the sheet: missing, doubled, hidden, not to be written by a script.

#include "elementnames.h"
#include "formcheck.h"
#include "scriptbuiltins.h"

#include <algorithm>

namespace Orbel
{

namespace
{

namespace attribute = KV218::attribute;

/// A global of the form's script.
struct Global {
    QString Name;
    QLatin1String Kind;
    int Element;
};

class NameCheck
{
public:
    NameCheck(const FormModel &form, FindingSink &sink) : Form(form), Sink(sink) { }

    void Run()
    {
        for (const int sheet : Form.Sheets)
            Publish({Form.Doc.AttributeOf(sheet, attribute::Name), QLatin1String("sheet"), sheet});
        for (const WidgetEntry &widget : Form.Widgets) {
            CheckMissing(widget);
            if (widget.IsNamed)
                Publish({widget.Name, QLatin1String("widget"), widget.Element});
        }
        for (const EnumEntry &entry : Form.Enums) {
            if (entry.Name.isEmpty())
                Sink.Add(Code::NameMissing, Form.Doc.PlaceOf(entry.Element),
                    QStringLiteral("The enumeration has no name, and nothing can refer to it"));
            Publish({entry.Name, QLatin1String("enumeration"), entry.Element});
        }
    }

private:
    void CheckMissing(const WidgetEntry &widget)
    {
        if (widget.IsNamed || widget.Has(ekScriptOnly))
            return;
        Sink.Add(Code::NameMissing, Form.Doc.PlaceOf(widget.Element),
            QStringLiteral("The widget has no name, and is called \"%1\" after its place").arg(widget.Name));
    }

    void Publish(const Global &global)
    {
        if (global.Name.isEmpty())
            return;
        const int place = Form.Doc.PlaceOfAttribute(global.Element, attribute::Name);
        const QString kind = global.Kind;
        QVector<Global> &others = Globals[global.Name];
        const bool isDoubled = std::any_of(
            others.cbegin(), others.cend(), [&](const Global &other) { return other.Kind == global.Kind; });
        if (others.isEmpty())
            CheckWord(global.Name, kind, place);
        else if (isDoubled)
            Sink.Add(Code::NameDoubled, place,
                QStringLiteral("There is another %1 \"%2\" before this one").arg(kind, global.Name));
        else
            Sink.Add(Code::NameHidden, place,
                QStringLiteral("The %1 and the %2 share the name \"%3\", and the script sees only one of them")
                    .arg(kind, others.constFirst().Kind, global.Name));
        if (!isDoubled)
            others.append(global);
    }

    void CheckWord(const QString &name, const QString &kind, int place)
    {
        if (ScriptBuiltins().contains(name))
            Sink.Add(Code::NameBuiltin, place,
                QStringLiteral("The %1 \"%2\" hides what the script language calls so").arg(kind, name));
        else if (Form.Script >= 0 && !IsScriptName(name))
            Sink.Add(Code::NameUnwritable, place,
                QStringLiteral("A script cannot write the name \"%1\" of the %2").arg(name, kind));
    }

    const FormModel &Form;
    FindingSink &Sink;
    QHash<QString, QVector<Global>> Globals; ///< By name, the first of each kind.
};

} // namespace

void CheckNames(const FormModel &form, FindingSink &sink)
{
    NameCheck(form, sink).Run();
}

} // namespace Orbel
