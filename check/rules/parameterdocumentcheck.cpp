#include "parameterdocumentcheck.h"

#include "elementnames.h"
#include "formlimits.h"
#include "inputmask.h"
#include "latin1.h"
#include "propertynames.h"
#include "widgetnumbers.h"

#include <QVariant>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
namespace limit = KV218::limit;

// Attributes of items.
constexpr QLatin1String Index = KV218::Latin1("index");
constexpr QLatin1String Row = KV218::Latin1("row");
constexpr QLatin1String Column = KV218::Latin1("column");

/// A place in the parameter document: an enclosing element, or that of a control.
struct Place {
    QHash<QString, int> Children;
    const WidgetEntry *Leaf = nullptr;
};

class ParameterReading
{
public:
    ParameterReading(const Document &parameters, const FormModel &form, FindingSink &sink)
        : Doc(parameters), Form(form), Sink(sink), Places(1)
    {
        for (const WidgetEntry &widget : form.Widgets)
            Enter(widget);
    }

    void Run()
    {
        const QString root = Form.RootTag();
        bool found = false;
        for (int i = 0; i < Doc.Elements().size(); ++i) {
            if (Doc.At(i).Name != root)
                continue;
            found = true;
            Walk(i);
            i = Doc.At(i).Last;
        }
        if (!found && !Doc.Elements().isEmpty())
            Sink.Add(Code::DocumentRoot, Doc.PlaceOf(0),
                QStringLiteral("The form reads \"%1\", and the document has no such element").arg(root));
    }

private:
    int ChildOf(int place, const QString &tag)
    {
        const auto found = Places.at(place).Children.constFind(tag);
        if (found != Places.at(place).Children.constEnd())
            return *found;
        Places.append(Place());
        Places[place].Children.insert(tag, Places.size() - 1);
        return Places.size() - 1;
    }

    void Enter(const WidgetEntry &widget)
    {
        QStringList parts = widget.ParameterPath().split(QLatin1Char('/'), Qt::SkipEmptyParts);
        if (parts.size() > limit::ParameterPathParts)
            return;
        if (!parts.isEmpty())
            parts.removeLast();
        int place = 0;
        for (const QString &part : qAsConst(parts))
            place = ChildOf(place, part);
        for (const QString &tag : widget.ReadTags()) {
            // The first of equal ones reads.
            if (Places.at(place).Children.contains(tag))
                continue;
            const int leaf = ChildOf(place, tag);
            Places[leaf].Leaf = &widget;
        }
    }

    /// Walks without recursion: a document nests as deep as it likes, its places do not.
    void Walk(int root)
    {
        QHash<int, int> placeOf{{root, 0}};
        QSet<int> read;
        for (int i = root + 1; i <= Doc.At(root).Last; ++i) {
            const int above = placeOf.value(Doc.At(i).Parent);
            const int place = Places.at(above).Children.value(Doc.At(i).Name, -1);
            if (place < 0) {
                Sink.Add(Code::DocumentElement, Doc.PlaceOf(i),
                    QStringLiteral("No control stands at \"%1\"%2")
                        .arg(Doc.At(i).Name, Sink.Suggest(Doc.At(i).Name, Places.at(above).Children.keys())));
                i = Doc.At(i).Last;
            } else if (Places.at(place).Leaf) {
                ReadLeaf(i, *Places.at(place).Leaf, read.contains(place));
                read.insert(place);
                i = Doc.At(i).Last;
            } else {
                placeOf.insert(i, place);
            }
        }
    }

    void ReadLeaf(int element, const WidgetEntry &widget, bool again)
    {
        if (again)
            Sink.Add(Code::DocumentRepeated, Doc.PlaceOf(element),
                QStringLiteral("\"%1\" comes again, and replaces what \"%2\" was before")
                    .arg(Doc.At(element).Name, widget.Name));
        CheckEnds(element, widget);
        if (widget.Has(ekItems)) {
            ReadItems(element, widget);
        } else if (widget.Has(ekWrites) && !widget.Has(ekAlwaysWrites)) {
            if (Doc.At(element).FirstChild >= 0)
                Sink.Add(Code::ValueNested, Doc.PlaceOf(Doc.At(element).FirstChild),
                    QStringLiteral("\"%1\" stands inside the text of \"%2\"")
                        .arg(Doc.At(Doc.At(element).FirstChild).Name, Doc.At(element).Name));
            else
                CheckText(element, widget);
        }
    }

    /// The two ends of a range against each other.
    void CheckEnds(int element, const WidgetEntry &widget)
    {
        const QString start = widget.TextOf(prop::StartFrequencyParameterXmlTag);
        const QString stop = widget.TextOf(prop::StopFrequencyParameterXmlTag);
        if (start.isEmpty() || stop.isEmpty())
            return;
        QHash<QString, int> &ends = Ends[&widget];
        ends.insert(Doc.At(element).Name, element);
        if (!ends.contains(start) || !ends.contains(stop))
            return;
        const double from = Doc.At(ends.value(start)).Text.toDouble();
        if (from >= Doc.At(ends.value(stop)).Text.toDouble())
            TellText(
                ends.value(start), QStringLiteral("The range \"%1\" does not begin below its end").arg(widget.Name));
    }

    bool ScriptMayCount(const WidgetEntry &widget, const QString &count) const
    {
        const QString setter = QLatin1String("set") + count.at(0).toUpper() + count.mid(1);
        return Form.ScriptMayCall(widget, count.toLatin1()) || Form.ScriptMayCall(widget, setter.toLatin1());
    }

    void CheckText(int element, const WidgetEntry &widget)
    {
        const QString &text = Doc.At(element).Text;
        CheckUnit(element, widget);
        if (Takes(widget, text)) {
            CheckLimits(element, widget);
            CheckPlaces(element, widget);
            CheckLength(element, widget);
        } else {
            Sink.Add(Code::DocumentValue, Doc.PlaceOfText(element),
                QStringLiteral("\"%1\" is nothing that \"%2\" can take").arg(text, widget.Name));
        }
    }

    void TellText(int element, const QString &text) { Sink.Add(Code::DocumentValue, Doc.PlaceOfText(element), text); }

    /// The unit is written beside a value, and not read.
    void CheckUnit(int element, const WidgetEntry &widget)
    {
        const WidgetNumbers numbers(widget);
        const Attribute *unit = Doc.FindAttribute(element, KV218::attribute::Unit);
        const Number scale = numbers.NumberOf(prop::UnitScale);
        const QString own = scale && numbers.Reads(prop::Suffix) ? QString() : widget.TextOf(prop::Unit);
        if (unit && numbers.Reads(prop::Unit) && !own.isEmpty() && unit->Value != own)
            Sink.Add(Code::DocumentValue, Doc.PlaceOf(*unit),
                QStringLiteral("\"%1\" reads its value in %2, whatever unit stands here").arg(widget.Name, own));
    }

    void CheckPlaces(int element, const WidgetEntry &widget)
    {
        const WidgetNumbers numbers(widget);
        const QString text = Doc.At(element).Text.trimmed();
        const int point = text.indexOf(QLatin1Char('.'));
        if (widget.Info->delegate->valueType != ValueType::Double || point < 0 || !numbers.Reads(prop::Decimals)
            || Form.ScriptMayCall(widget, "setDecimals"))
            return;
        int places = text.size() - point - 1;
        while (places > 0 && text.at(point + places) == QLatin1Char('0'))
            --places;
        const Number decimals = numbers.NumberOf(prop::Decimals);
        if (places > decimals.Value && (decimals || !widget.States(prop::Decimals)))
            TellText(element,
                QStringLiteral("%1 has more places than the %2 that \"%3\" writes")
                    .arg(text, QString::number(decimals.Value), widget.Name));
    }

    void CheckLength(int element, const WidgetEntry &widget)
    {
        const WidgetNumbers numbers(widget);
        if (!numbers.Reads(prop::MaxLength))
            return;
        const QString &text = Doc.At(element).Text;
        const Number most = numbers.NumberOf(prop::MaxLength);
        const QString mask = widget.TextOf(prop::InputMask);
        if (mask.isEmpty() && most && text.size() > most.Value && !Form.ScriptMayCall(widget, "setMaxLength"))
            TellText(element,
                QStringLiteral("\"%1\" has more than the %2 characters of \"%3\"").arg(text, most.Text, widget.Name));
        else if (!FitsInputMask(text, mask) && !Form.ScriptMayCall(widget, "setInputMask"))
            TellText(element, QStringLiteral("\"%1\" does not fit the mask \"%2\"").arg(text, mask));
    }

    void CheckLimits(int element, const WidgetEntry &widget)
    {
        const WidgetNumbers numbers(widget);
        // Spacings are bounded only while they are typed.
        if (!widget.Has(ekLimits) || numbers.Reads(prop::SpacingsCount) || Form.ScriptMayCall(widget, "setMinimum")
            || Form.ScriptMayCall(widget, "setMaximum"))
            return;
        const bool isList = widget.Has(ekItems);
        const double offset = isList ? 0 : numbers.NumberOf(prop::DisplayAdditiveOffset).Value;
        const QString fault = BeyondLimits(Doc.At(element).Text.toDouble() + offset, numbers.LimitOf(prop::Minimum),
            numbers.LimitOf(prop::Maximum), numbers.Scale());
        if (!fault.isEmpty())
            Sink.Add(Code::DocumentValue, Doc.PlaceOfText(element),
                QStringLiteral("\"%1\"%2 of \"%3\"").arg(Doc.At(element).Text, fault, widget.Name));
    }

    void ReadItems(int element, const WidgetEntry &widget)
    {
        qint64 next = 0;
        QSet<QString> seen;
        for (int item = Doc.At(element).FirstChild; item >= 0; item = Doc.At(item).NextSibling) {
            CheckText(item, widget);
            CheckPlaceOfItem(item, widget, seen);
            if (const Attribute *index = Doc.FindAttribute(item, Index))
                next = index->Value.toInt();
            CheckIndex(item, widget, prop::ItemCount, next);
            if (!widget.States(prop::ItemCount))
                CheckIndex(item, widget, prop::ShiftCount, next);
            CheckIndex(item, widget, prop::SpacingsCount, next);
            ++next;
            CheckIndex(item, widget, prop::RowCount, Doc.AttributeOf(item, Row).toInt());
            CheckIndex(item, widget, prop::ColumnCount, Doc.AttributeOf(item, Column).toInt());
        }
    }

    /// Two items of one place, and places that are no numbers.
    void CheckPlaceOfItem(int item, const WidgetEntry &widget, QSet<QString> &seen)
    {
        QString place;
        for (const Attribute &attribute : Doc.At(item).Attributes) {
            const bool isKey = attribute.Name == QLatin1String("key");
            if (!isKey && attribute.Name != Index && attribute.Name != Row && attribute.Name != Column)
                continue;
            bool isNumber = isKey;
            place += attribute.Name + QLatin1Char('=') + attribute.Value + QLatin1Char(' ');
            if (!isKey)
                attribute.Value.toInt(&isNumber);
            if (!isNumber)
                Sink.Add(Code::DocumentValue, Doc.PlaceOf(attribute),
                    QStringLiteral("The %1 \"%2\" is no number, and counts as 0").arg(attribute.Name, attribute.Value));
        }
        if (!place.isEmpty() && seen.contains(place))
            Sink.Add(Code::DocumentRepeated, Doc.PlaceOf(item),
                QStringLiteral("Another item of \"%1\" stands at %2").arg(widget.Name, place.trimmed()));
        seen.insert(place);
    }

    /// `count` is the property that says how many there are.
    void CheckIndex(int item, const WidgetEntry &widget, QLatin1String count, qint64 index)
    {
        const Number number = WidgetNumbers(widget).NumberOf(count);
        // A hidden list makes room for what is read.
        const bool grows = count == prop::ItemCount && !widget.Has(ekShown);
        if (!number || grows || (index >= 0 && double(index) < number.Value) || ScriptMayCount(widget, count))
            return;
        Sink.Add(Code::DocumentValue, Doc.PlaceOf(item),
            QStringLiteral("\"%1\" has no place %2: its %3 is %4")
                .arg(widget.Name, QString::number(index), count, number.Text));
    }

    bool Takes(const WidgetEntry &widget, const QString &text) const
    {
        bool isNumber = true;
        switch (widget.Info->delegate->valueType) {
        case ValueType::Int:
            text.toInt(&isNumber);
            return isNumber;
        case ValueType::Int64:
            text.toLongLong(&isNumber);
            return isNumber;
        case ValueType::Double:
            text.toDouble(&isNumber);
            return isNumber;
        case ValueType::Bool:
            return text == StatedOr(widget, prop::CheckedValue, "true")
                || text == StatedOr(widget, prop::UncheckedValue, "false");
        default:
            break;
        }
        const EnumEntry *rows = widget.States(prop::EnumName) ? Form.FindEnum(widget.TextOf(prop::EnumName)) : nullptr;
        return !rows || rows->Rows.isEmpty() || rows->Values.contains(text);
    }

    static QString StatedOr(const WidgetEntry &widget, QLatin1String name, const char *otherwise)
    {
        const QString text = widget.TextOf(name);
        return text.isEmpty() ? QString::fromLatin1(otherwise) : text;
    }

    const Document &Doc;
    const FormModel &Form;
    FindingSink &Sink;
    QVector<Place> Places;
    QHash<const WidgetEntry *, QHash<QString, int>> Ends; ///< Elements of ranges by their names.
};

} // namespace

void CheckParameterDocument(const Document &parameters, const FormModel &form, FindingSink &sink)
{
    ParameterReading(parameters, form, sink).Run();
}

} // namespace Orbel
