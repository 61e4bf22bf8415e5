#include "formtexts.h"

#include "elementnames.h"
#include "filetext.h"
#include "formlimits.h"
#include "formmodel.h"
#include "propertynames.h"
#include "scriptscanner.h"
#include "scriptsourcemap.h"
#include "structurecheck.h"

#include <algorithm>
#include <QScriptEngine>

namespace Orbel
{

namespace
{

namespace attribute = KV218::attribute;
namespace element = KV218::element;
namespace prop = KV218::prop;

struct Found {
    FormText Text;
    int Place;
};
using Collection = QVector<Found>;

/// An unknown class shows its label at most.
bool IsTranslated(const WidgetEntry &widget, const QString &property)
{
    if (property == prop::LabelText)
        return !widget.Info || widget.Has(ekRow);
    const PropertyInfo *known = widget.Info ? Registry::FindProperty(*widget.Info, property) : nullptr;
    return known && known->use == PropertyUse::Translated;
}

void Add(const QString &context, const QString &source, int place, Collection &texts)
{
    if (!source.isEmpty())
        texts.append({{context, source.left(KV218::limit::ShownText), 0}, place});
}

void AddRows(const FormModel &form, Collection &texts)
{
    for (const EnumEntry &values : form.Enums) {
        for (const EnumRow &row : values.Rows)
            Add(values.Name, row.DisplayName, form.Doc.PlaceOf(row.Element), texts);
    }
}

void AddProperties(const FormModel &form, Collection &texts)
{
    for (const WidgetEntry &widget : form.Widgets) {
        for (const PropertyEntry &property : widget.Properties) {
            if (!property.IsCustom && !property.IsBool() && IsTranslated(widget, property.Name))
                Add(widget.Name, property.Text, form.Doc.PlaceOf(property.Element), texts);
        }
    }
}

/// The property that a member of a control sets; empty for another member.
QString PropertySetBy(const QString &member)
{
    static const QHash<QString, QString> setters{{QStringLiteral("setLabelText"), prop::LabelText},
        {QStringLiteral("setText"), prop::Text}, {QStringLiteral("setHeaderLabel"), prop::HeaderLabel}};
    return setters.value(member);
}

void AddScript(const FormModel &form, Collection &texts)
{
    const ScriptSourceMap &script = form.GetScriptSource();
    const QVector<ScriptToken> tokens = ScanScript(script.Code());
    const auto isMark = [&](int at, char mark) {
        return tokens.at(at).What == ScriptToken::Mark && tokens.at(at).Text == QLatin1Char(mark);
    };
    QScriptEngine engine;
    // name . member ( "text" )  or  name . member = "text" ;
    for (int i = 0; i + 5 < tokens.size(); ++i) {
        const bool isCall = isMark(i + 3, '(') && isMark(i + 5, ')');
        const bool isSet = isMark(i + 3, '=') && isMark(i + 5, ';');
        const ScriptToken &text = tokens.at(i + 4);
        if (!isMark(i + 1, '.') || !(isCall || isSet) || text.What != ScriptToken::Literal || text.Text.isEmpty())
            continue;
        const WidgetEntry *widget = form.FindWidget(tokens.at(i).Text);
        const QString member = tokens.at(i + 2).Text;
        if (widget && IsTranslated(*widget, isCall ? PropertySetBy(member) : member)) {
            const QString quoted = script.Code().mid(text.Index, text.Text.size() + 2);
            Add(widget->Name, engine.evaluate(quoted).toString(), script.PlaceOf(text.Index), texts);
        }
    }
}

void AddForm(const Document &document, Collection &texts)
{
    FindingSink ignored;
    StructureCheck reading(document, ignored);
    reading.Run();
    const FormModel form(document, reading.Form());
    AddRows(form, texts);
    AddProperties(form, texts);
    AddScript(form, texts);
}

} // namespace

QVector<FormText> TextsOf(const QByteArray &bytes, bool isList)
{
    const FileText file(bytes, isList ? FileText::AsBytes : FileText::AsForm);
    const Document document(file.Source());
    Collection found;
    if (!isList)
        AddForm(document, found);
    for (int i = 0; isList && i < document.Elements().size(); ++i) {
        const Attribute *value = document.FindAttribute(i, attribute::Value);
        if (value && document.At(i).Name == element::ValueString
            && document.AttributeOf(i, attribute::Id) == QLatin1String("ORBEL"))
            AddForm(Document(document.ValueOf(*value)), found);
    }
    std::stable_sort(found.begin(), found.end(), [](const Found &a, const Found &b) { return a.Place < b.Place; });
    QVector<FormText> texts;
    for (Found &text : found) {
        text.Text.Line = file.LineOf(text.Place);
        texts.append(text.Text);
    }
    return texts;
}

} // namespace Orbel
