#include "parametercarry.h"

#include "formlimits.h"
#include "propertynames.h"
#include "structurecheck.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <functional>

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;

int FormOf(const Document &document)
{
    FindingSink ignored;
    StructureCheck reading(document, ignored);
    reading.Run();
    return reading.Form();
}

QString StatedOr(const WidgetEntry &widget, QLatin1String name, const char *otherwise)
{
    const QString text = widget.TextOf(name);
    return text.isEmpty() ? QString::fromLatin1(otherwise) : text;
}

bool IsSwitch(const WidgetEntry &widget)
{
    return widget.Info->delegate->valueType == ValueType::Bool;
}

/// Numbers that are written in two ways are one value.
bool IsSameValue(const QString &one, const QString &other)
{
    bool isNumber = false;
    bool isOther = false;
    const double number = one.toDouble(&isNumber);
    return one == other || (number == other.toDouble(&isOther) && isNumber && isOther);
}

/// The row of an enumeration that is meant by a row of a former version; null without one.
const EnumRow *FindRow(const EnumEntry &rows, const EnumRow &former)
{
    for (QString EnumRow::*part : {&EnumRow::Value, &EnumRow::Identifier, &EnumRow::DisplayName}) {
        for (const EnumRow &row : rows.Rows) {
            if (!(former.*part).isEmpty() && row.*part == former.*part)
                return &row;
        }
    }
    return nullptr;
}

QString PlaceOfItem(const Document &document, int item, int turn)
{
    QString place;
    for (const char *name : {"index", "row", "column", "key"})
        place += document.AttributeOf(item, QLatin1String(name)) + QLatin1Char(' ');
    return place.trimmed().isEmpty() ? QString::number(turn) : place.trimmed();
}

/// The elements on the way to a place, made where they are not there.
struct CarriedElement {
    QString Tag;
    QVector<CarriedElement> Children;
    int Value = -1; ///< The index of what stands there.

    CarriedElement &Child(const QString &tag)
    {
        const auto found = std::find_if(
            Children.begin(), Children.end(), [&](const CarriedElement &each) { return each.Tag == tag; });
        if (found != Children.end())
            return *found;
        Children.append({tag, {}, -1});
        return Children.last();
    }
};

} // namespace

ParameterCarry::Version::Version(const QByteArray &bytes)
    : File(bytes, FileText::AsForm), Text(File.Source()), Form(Text, FormOf(Text))
{
}

ParameterCarry::ParameterCarry(const QByteArray &parameters, const QByteArray &before, const QByteArray &after)
    : File(parameters), Old(File.Source()), Before(before), After(after), NewLeaves(LeavesOf(After.Form))
{
    const QString root = Before.Form.RootTag();
    for (int i = 0; i < Old.Elements().size(); ++i) {
        if (Old.At(i).Name != root)
            continue;
        Walk(i);
        return;
    }
    if (!Old.Elements().isEmpty())
        Lose(0, QStringLiteral("The former version reads \"%1\", and the document has no such element").arg(root));
}

QString ParameterCarry::PathOf(const WidgetEntry &widget, int turn)
{
    const QStringList tags = widget.ReadTags();
    QStringList parts = widget.ParameterPath().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (!parts.isEmpty())
        parts.removeLast();
    return (parts << tags.value(turn)).join(QLatin1Char('/'));
}

/// By their places; the first of several at one place reads.
QHash<QString, ParameterCarry::Leaf> ParameterCarry::LeavesOf(const FormModel &form)
{
    QHash<QString, Leaf> leaves;
    for (const WidgetEntry &widget : form.Widgets) {
        const int parts = widget.ParameterPath().count(QLatin1Char('/')) + 1;
        const bool isRead = widget.Writes() && parts <= KV218::limit::ParameterPathParts;
        for (int turn = 0; isRead && turn < widget.ReadTags().size(); ++turn) {
            const QString path = PathOf(widget, turn);
            if (!leaves.contains(path))
                leaves.insert(path, {&widget, turn});
        }
    }
    return leaves;
}

/// Goes down where controls may stand below, without recursion.
void ParameterCarry::Walk(int root)
{
    const QHash<QString, Leaf> leaves = LeavesOf(Before.Form);
    QSet<QString> inner;
    for (auto leaf = leaves.cbegin(); leaf != leaves.cend(); ++leaf) {
        for (int slash = leaf.key().indexOf(QLatin1Char('/')); slash >= 0;
             slash = leaf.key().indexOf(QLatin1Char('/'), slash + 1))
            inner.insert(leaf.key().left(slash));
    }
    QHash<int, QString> pathOf{{root, QString()}};
    for (int i = root + 1; i <= Old.At(root).Last; ++i) {
        const QString above = pathOf.value(Old.At(i).Parent);
        const QString path = above.isEmpty() ? Old.At(i).Name : above + QLatin1Char('/') + Old.At(i).Name;
        if (leaves.contains(path)) {
            Move(i, path, leaves.value(path));
            i = Old.At(i).Last;
        } else if (inner.contains(path)) {
            pathOf.insert(i, path);
        } else {
            Lose(i, QStringLiteral("No control of the former version stands at \"%1\"").arg(path));
            i = Old.At(i).Last;
        }
    }
}

const WidgetEntry *ParameterCarry::HeirOf(const WidgetEntry &widget, const QString &path) const
{
    const WidgetEntry *heir = widget.IsNamed ? After.Form.FindWidget(widget.Name) : nullptr;
    if (heir && heir->Info && heir->Writes())
        return heir;
    return NewLeaves.value(path).Widget;
}

void ParameterCarry::Move(int element, const QString &path, const Leaf &leaf)
{
    const WidgetEntry *heir = HeirOf(*leaf.Widget, path);
    if (!heir || leaf.Turn >= heir->ReadTags().size()) {
        Lose(element, QStringLiteral("The new version has no parameter \"%1\" of \"%2\"").arg(path, leaf.Widget->Name));
        return;
    }
    Moved moved{PathOf(*heir, leaf.Turn), element, Old.At(element).Text, QString()};
    const bool hasItems = Old.At(element).FirstChild >= 0;
    if (hasItems && leaf.Widget->Has(ekItems) != heir->Has(ekItems))
        Lose(element, QStringLiteral("\"%1\" has no items in the new version").arg(heir->Name));
    else if (hasItems || MoveText(element, *leaf.Widget, *heir, &moved)) {
        if (heir->Has(ekItems))
            moved.ItemTag = heir->TextOf(prop::ParameterListItemTag);
        Values.append(moved);
    }
}

/// False where the new control has nothing like it.
bool ParameterCarry::MoveText(int element, const WidgetEntry &from, const WidgetEntry &to, Moved *moved)
{
    if (IsSwitch(from) && IsSwitch(to)) {
        const bool isOn = moved->Text == StatedOr(from, prop::CheckedValue, "true");
        moved->Text = isOn ? StatedOr(to, prop::CheckedValue, "true") : StatedOr(to, prop::UncheckedValue, "false");
        return true;
    }
    const EnumEntry *rows = After.Form.FindEnum(to.TextOf(prop::EnumName));
    if (!to.States(prop::EnumName) || !rows || rows->Rows.isEmpty())
        return true;
    EnumRow former{QString(), QString(), moved->Text, -1, -1, -1};
    if (const EnumEntry *known = Before.Form.FindEnum(from.TextOf(prop::EnumName))) {
        for (const EnumRow &row : known->Rows) {
            if (row.Value == moved->Text)
                former = row;
        }
    }
    const EnumRow *row = FindRow(*rows, former);
    if (row)
        moved->Text = row->Value;
    else
        Lose(element, QStringLiteral("\"%1\" of \"%2\" is no choice of the new version").arg(moved->Text, to.Name));
    return row;
}

void ParameterCarry::Lose(int element, const QString &text)
{
    const int place = Old.PlaceOf(element);
    Lost.append({element, {File.LineOf(place), File.ColumnOf(place), text}});
}

QString ParameterCarry::GetDocument() const
{
    CarriedElement root{After.Form.RootTag(), {}, -1};
    for (int i = 0; i < Values.size(); ++i) {
        CarriedElement *node = &root;
        for (const QString &part : Values.at(i).Path.split(QLatin1Char('/')))
            node = &node->Child(part);
        node->Value = i;
    }
    QString text;
    QXmlStreamWriter writer(&text);
    const std::function<void(const CarriedElement &)> write = [&](const CarriedElement &node) {
        writer.writeStartElement(node.Tag);
        if (node.Value >= 0) {
            const Moved &value = Values.at(node.Value);
            if (Old.At(value.Element).FirstChild < 0)
                writer.writeCharacters(value.Text);
            else
                WriteChildren(Old, value.Element, value.ItemTag, writer);
        }
        for (const CarriedElement &child : node.Children)
            write(child);
        writer.writeEndElement();
    };
    write(root);
    return text;
}

/// With another name for the nearest ones, unless it is empty.
void ParameterCarry::WriteChildren(
    const Document &document, int element, const QString &itemTag, QXmlStreamWriter &writer)
{
    QVector<int> open;
    for (int i = element + 1; i <= document.At(element).Last; ++i) {
        const Element &each = document.At(i);
        for (; !open.isEmpty() && document.At(open.constLast()).Last < i; open.removeLast())
            writer.writeEndElement();
        writer.writeStartElement(each.Parent == element && !itemTag.isEmpty() ? itemTag : each.Name);
        for (const Attribute &attribute : each.Attributes)
            writer.writeAttribute(attribute.Name, attribute.Value);
        writer.writeCharacters(each.FirstChild < 0 ? each.Text : QString());
        open.append(i);
    }
    for (; !open.isEmpty(); open.removeLast())
        writer.writeEndElement();
}

void ParameterCarry::Compare(const QString &held)
{
    const Document document{PlacedText(held)};
    QHash<QString, int> places;
    QHash<int, QString> paths{{0, QString()}};
    for (int i = 1; i < document.Elements().size(); ++i) {
        const QString above = paths.value(document.At(i).Parent);
        paths.insert(i, above.isEmpty() ? document.At(i).Name : above + QLatin1Char('/') + document.At(i).Name);
        if (!places.contains(paths.value(i)))
            places.insert(paths.value(i), i);
    }
    for (const Moved &value : qAsConst(Values)) {
        const int place = places.value(value.Path, -1);
        if (place < 0) {
            Lose(value.Element, QStringLiteral("The new version writes no \"%1\"").arg(value.Path));
        } else if (Old.At(value.Element).FirstChild < 0) {
            TellOther(value.Element, value.Text, document.At(place).Text, value.Path);
        } else {
            CompareItems(value, document, place);
        }
    }
}

void ParameterCarry::TellOther(int element, const QString &wanted, const QString &held, const QString &path)
{
    if (!IsSameValue(wanted, held))
        Lose(element, QStringLiteral("\"%1\" of \"%2\" has become \"%3\"").arg(wanted, path, held));
}

/// Each is known by its place: attributes that count, or else the order.
void ParameterCarry::CompareItems(const Moved &value, const Document &held, int place)
{
    QHash<QString, int> now;
    int turn = 0;
    for (int item = held.At(place).FirstChild; item >= 0; item = held.At(item).NextSibling)
        now.insert(PlaceOfItem(held, item, turn++), item);
    turn = 0;
    for (int item = Old.At(value.Element).FirstChild; item >= 0; item = Old.At(item).NextSibling) {
        const int same = now.value(PlaceOfItem(Old, item, turn++), -1);
        if (same < 0)
            Lose(item, QStringLiteral("An item of \"%1\" has no place in the new version").arg(value.Path));
        else
            TellOther(item, Old.At(item).Text, held.At(same).Text, value.Path);
    }
}

QVector<LostParameter> ParameterCarry::GetLost() const
{
    auto sorted = Lost;
    std::stable_sort(
        sorted.begin(), sorted.end(), [](const auto &one, const auto &other) { return one.first < other.first; });
    QVector<LostParameter> lost;
    for (const auto &each : sorted)
        lost.append(each.second);
    return lost;
}

} // namespace Orbel
