#include "outline.h"

#include "elementnames.h"
#include "positionjson.h"
#include "propertynames.h"

#include <QJsonObject>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

/// As the protocol numbers them.
enum Kind { Namespace = 3, Class = 5, Enum = 10, Function = 12, Object = 19, EnumMember = 22, Field = 8 };

class Outline
{
public:
    Outline(const OpenForm &form, const OpenDocument &document) : Form(form.Form), Symbols(form.Symbols), Doc(document)
    {
    }

    QJsonArray Run() const
    {
        QJsonArray all;
        for (const EnumEntry &entry : Form.Model.Enums)
            all.append(EnumSymbol(entry));
        for (const int sheet : Form.Model.Sheets) {
            const QString name = Form.Model.Doc.AttributeOf(sheet, KV218::attribute::Name);
            all.append(Item(name.isEmpty() ? QStringLiteral("Sheet") : name, QString(), Class, Form.SpanOf(sheet),
                Form.SpanOfName(sheet), Widgets(sheet)));
        }
        if (Form.Model.Script >= 0)
            all.append(Item(QStringLiteral("Script"), QString(), Namespace, Form.SpanOf(Form.Model.Script),
                Form.SpanOfName(Form.Model.Script), Functions()));
        return all;
    }

private:
    /// Without a name editors refuse a symbol, and with it all others.
    QJsonObject Item(const QString &name, const QString &detail, Kind kind, TextSpan all, TextSpan selected,
        const QJsonArray &children = QJsonArray()) const
    {
        const TextSpan whole{qMin(all.From, selected.From), qMax(all.To, selected.To)};
        return {{QStringLiteral("name"), name.trimmed().isEmpty() ? QStringLiteral("?") : name},
            {QStringLiteral("detail"), detail}, {QStringLiteral("kind"), int(kind)},
            {QStringLiteral("range"), ToJson(Doc.Lines().RangeOf(whole))},
            {QStringLiteral("selectionRange"), ToJson(Doc.Lines().RangeOf(selected))},
            {QStringLiteral("children"), children}};
    }

    QJsonObject EnumSymbol(const EnumEntry &entry) const
    {
        QJsonArray rows;
        for (const EnumRow &row : entry.Rows)
            rows.append(Item(row.Identifier.isEmpty() ? row.DisplayName : row.Identifier, row.Value, EnumMember,
                Form.SpanOf(row.Element), Form.SpanOfName(row.Element)));
        return Item(entry.Name, QString(), Enum, Form.SpanOf(entry.Element), Form.SpanOfName(entry.Element), rows);
    }

    QJsonObject WidgetSymbol(const WidgetEntry &widget, Kind kind, TextSpan all, const QJsonArray &children) const
    {
        const QString label = widget.TextOf(kind == Object ? prop::Text : prop::LabelText);
        return Item(widget.Name, label.isEmpty() ? widget.Class : widget.Class + QLatin1String(": ") + label, kind, all,
            Form.SpanOfName(widget.Element), children);
    }

    /// A headline holds what stands below it, up to the next one.
    QJsonArray Widgets(int sheet) const
    {
        QJsonArray groups;
        const WidgetEntry *headline = nullptr;
        QJsonArray members;
        TextSpan extent;
        const auto close = [&] {
            if (headline)
                groups.append(WidgetSymbol(*headline, Object, extent, members));
            members = QJsonArray();
        };
        for (const WidgetEntry &widget : Form.Model.Widgets) {
            if (widget.Element < sheet || widget.Element > Form.Model.Doc.At(sheet).Last)
                continue;
            const TextSpan own = Form.SpanOf(widget.Element);
            if (widget.Class == KV218::widgetclass::Headline) {
                close();
                headline = &widget;
                extent = own;
                continue;
            }
            (headline ? members : groups).append(WidgetSymbol(widget, Field, own, {}));
            extent.To = own.To;
        }
        close();
        return groups;
    }

    QJsonArray Functions() const
    {
        QJsonArray functions;
        for (const auto &[name, end] : Symbols.GetScopes().Functions()) {
            const TextSpan span = Form.SpanOfToken(name);
            functions.append(
                Item(Form.Tokens.at(name).Text, QString(), Function, {span.From, Form.SpanOfToken(end).To}, span));
        }
        return functions;
    }

    const FormSnapshot &Form;
    const SymbolTable &Symbols;
    const OpenDocument &Doc;
};

} // namespace

QJsonArray OutlineOf(const OpenDocument &document)
{
    QJsonArray all;
    for (const std::unique_ptr<OpenForm> &form : document.Forms()) {
        const QJsonArray symbols = Outline(*form, document).Run();
        for (const QJsonValue &symbol : symbols)
            all.append(symbol);
    }
    return all;
}

} // namespace Orbel
