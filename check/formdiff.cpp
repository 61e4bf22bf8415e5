#include "formdiff.h"

#include "elementnames.h"
#include "filetext.h"
#include "formmodel.h"
#include "propertynames.h"
#include "scriptsourcemap.h"
#include "structurecheck.h"
#include "templateexpansion.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace Orbel
{

namespace
{

namespace attribute = KV218::attribute;
namespace element = KV218::element;

/// A definition that has been read, with the lines of its file.
struct ReadForm {
    ReadForm(const FileText &file, const PlacedText &definition, const QString &component = QString())
        : File(file), Text(definition), Form(Text, FormOf(Text)), Name(component)
    {
    }

    static int FormOf(const Document &document)
    {
        FindingSink ignored;
        StructureCheck reading(document, ignored);
        reading.Run();
        return reading.Form();
    }

    int LineOf(int element) const { return element < 0 ? 0 : File.LineOf(Text.PlaceOf(element)); }

    const FileText &File;
    Document Text;
    FormModel Form;
    QString Name; ///< Of its component.
};

/// A file with all its definitions.
struct ReadFile {
    explicit ReadFile(const ComparedFile &file)
        : File(file.Bytes, file.What == ComparedFile::List ? FileText::AsBytes : FileText::AsForm)
    {
        FindingSink ignored;
        if (file.What == ComparedFile::List)
            ReadList();
        else if (file.What == ComparedFile::Template)
            Add(TemplateExpansion(File.Source(), ignored).GetDefinition());
        else
            Add(File.Source());
    }

    void ReadList()
    {
        const Document list(File.Source());
        QString component;
        for (int i = 0; i < list.Elements().size(); ++i) {
            if (list.At(i).Name == element::Component)
                component = list.AttributeOf(i, attribute::Name);
            const Attribute *value = list.FindAttribute(i, attribute::Value);
            if (value && list.At(i).Name == element::ValueString
                && list.AttributeOf(i, attribute::Id) == QLatin1String("ORBEL"))
                Add(list.ValueOf(*value), component);
        }
    }

    void Add(const PlacedText &definition, const QString &component = QString())
    {
        Forms.push_back(std::make_unique<ReadForm>(File, definition, component));
    }

    /// Null for none.
    const ReadForm *Find(const QString &component, int turn) const
    {
        for (const auto &form : Forms) {
            if (form->Name == component && turn-- == 0)
                return form.get();
        }
        return nullptr;
    }

    FileText File;
    std::vector<std::unique_ptr<ReadForm>> Forms;
};

/// One of several things by name, with its place in the order.
template <class Entry> struct Named {
    QString Key;
    const Entry *What;
};

/// The greatest number of places in rising order, as a mark for each.
QVector<bool> Rising(const QVector<int> &places)
{
    QVector<int> ends;
    QVector<int> before(places.size(), -1);
    for (int i = 0; i < places.size(); ++i) {
        const auto less = [&](int end, int place) { return places.at(end) < place; };
        const auto slot = std::lower_bound(ends.begin(), ends.end(), places.at(i), less);
        before[i] = slot == ends.begin() ? -1 : *(slot - 1);
        if (slot == ends.end())
            ends.append(i);
        else
            *slot = i;
    }
    QVector<bool> rising(places.size(), false);
    for (int i = ends.isEmpty() ? -1 : ends.constLast(); i >= 0; i = before.at(i))
        rising[i] = true;
    return rising;
}

/// What is equal in names is told apart by its turn.
template <class Entry, class KeyOf> QVector<Named<Entry>> WithKeys(const QVector<Entry> &entries, KeyOf keyOf)
{
    QHash<QString, int> turns;
    QVector<Named<Entry>> named;
    for (const Entry &entry : entries) {
        const QString key = keyOf(entry);
        named.append({QStringLiteral("%1 %2").arg(turns[key]++).arg(key), &entry});
    }
    return named;
}

class Comparison
{
public:
    Comparison(const ReadForm &before, const ReadForm &after) : Before(before), After(after) { }

    QVector<FormDifference> Run()
    {
        CompareForm();
        CompareAll(
            Before.Form.Enums, After.Form.Enums, QStringLiteral("enumeration"),
            [](const EnumEntry &each) { return each.Name; },
            [this](const EnumEntry &one, const EnumEntry &other) { CompareRows(one, other); });
        CompareSheet();
        CompareAll(
            Before.Form.Widgets, After.Form.Widgets, QStringLiteral("widget"),
            [](const WidgetEntry &each) { return each.IsNamed ? each.Name : QLatin1Char('\n') + each.Class; },
            [this](const WidgetEntry &one, const WidgetEntry &other) { CompareWidget(one, other); });
        CompareScript();
        return Differences;
    }

private:
    template <class Entry, class KeyOf, class CompareEntries>
    void CompareAll(const QVector<Entry> &before, const QVector<Entry> &after, const QString &part, KeyOf keyOf,
        CompareEntries compare)
    {
        const auto former = WithKeys(before, keyOf);
        const auto latter = WithKeys(after, keyOf);
        QHash<QString, int> places;
        for (int i = 0; i < former.size(); ++i)
            places.insert(former.at(i).Key, i);
        QVector<int> order;
        for (const auto &each : latter) {
            if (places.contains(each.Key))
                order.append(places.value(each.Key));
        }
        const QVector<bool> stays = Rising(order);
        int common = 0;
        for (const auto &each : latter) {
            const Entry &other = *each.What;
            if (!places.contains(each.Key)) {
                Tell(FormDifference::Added, part, other.Name, {}, {}, DescriptionOf(other), -1, other.Element);
                continue;
            }
            const Entry &one = *former.at(places.take(each.Key)).What;
            if (!stays.at(common++))
                Tell(FormDifference::Moved, part, other.Name, {}, {}, {}, one.Element, other.Element);
            compare(one, other);
        }
        for (const auto &each : former) {
            if (places.contains(each.Key))
                Tell(FormDifference::Gone, part, each.What->Name, {}, DescriptionOf(*each.What), {}, each.What->Element,
                    -1);
        }
    }

    static QString DescriptionOf(const WidgetEntry &widget) { return widget.Class; }
    static QString DescriptionOf(const EnumEntry &entry) { return QStringLiteral("%1 rows").arg(entry.Rows.size()); }

    /// Elements are those of either document; -1 for none.
    void Tell(FormDifference::Kind what, const QString &part, const QString &name, const QString &detail,
        const QString &before, const QString &after, int elementBefore, int elementAfter)
    {
        Differences.append(
            {what, part, name, detail, before, after, Before.LineOf(elementBefore), After.LineOf(elementAfter)});
    }

    void TellChange(const QString &part, const QString &name, const QString &detail, const QString &before,
        const QString &after, int elementBefore, int elementAfter)
    {
        if (before != after)
            Tell(FormDifference::Changed, part, name, detail, before, after, elementBefore, elementAfter);
    }

    void CompareForm()
    {
        const auto version = [](const ReadForm &read) {
            return read.Form.Form < 0 ? QString() : read.Text.AttributeOf(read.Form.Form, attribute::Version);
        };
        TellChange(QStringLiteral("form"), {}, QStringLiteral("version"), version(Before), version(After),
            Before.Form.Form, After.Form.Form);
    }

    void CompareSheet()
    {
        const QString part = QStringLiteral("sheet");
        const int before = Before.Form.Sheets.value(0, -1);
        const int after = After.Form.Sheets.value(0, -1);
        const auto name = [](const ReadForm &read, int sheet) {
            return sheet < 0 ? QString() : read.Text.AttributeOf(sheet, attribute::Name);
        };
        TellChange(part, {}, QStringLiteral("name"), name(Before, before), name(After, after), before, after);
        CompareProperties(Before.Form.SheetProperties, After.Form.SheetProperties, part, {}, before, after);
    }

    void CompareWidget(const WidgetEntry &one, const WidgetEntry &other)
    {
        const QString part = QStringLiteral("widget");
        TellChange(part, other.Name, QStringLiteral("class"), one.Class, other.Class, one.Element, other.Element);
        if (one.Writes() != other.Writes() || (one.Writes() && one.ParameterPath() != other.ParameterPath()))
            TellChange(part, other.Name, QStringLiteral("place in the parameter document"),
                one.Writes() ? one.ParameterPath() : QString(), other.Writes() ? other.ParameterPath() : QString(),
                one.Element, other.Element);
        CompareProperties(one.Properties, other.Properties, part, other.Name, one.Element, other.Element);
    }

    /// Of statements of one property the last one counts.
    void CompareProperties(const QVector<PropertyEntry> &before, const QVector<PropertyEntry> &after,
        const QString &part, const QString &name, int elementBefore, int elementAfter)
    {
        QHash<QString, const PropertyEntry *> former;
        for (const PropertyEntry &property : before)
            former.insert(KeyOf(property), &property);
        QHash<QString, const PropertyEntry *> latter;
        for (const PropertyEntry &property : after)
            latter.insert(KeyOf(property), &property);
        for (const PropertyEntry &other : after) {
            const QString key = KeyOf(other);
            if (latter.value(key) != &other)
                continue;
            const PropertyEntry *one = former.take(key);
            if (!one)
                Tell(FormDifference::Added, part, name, key, {}, other.Text, elementBefore, other.Element);
            else
                CompareValues(*one, other, part, name, key);
        }
        for (const PropertyEntry &one : before) {
            if (former.value(KeyOf(one)) == &one)
                Tell(FormDifference::Gone, part, name, KeyOf(one), one.Text, {}, one.Element, elementAfter);
        }
    }

    void CompareValues(const PropertyEntry &one, const PropertyEntry &other, const QString &part, const QString &name,
        const QString &key)
    {
        const bool isTyped = one.Type != other.Type;
        const auto text = [&](const PropertyEntry &property) {
            return (isTyped ? property.Type + QLatin1Char(' ') : QString()) + property.Text;
        };
        TellChange(part, name, key, text(one), text(other), one.Element, other.Element);
    }

    static QString KeyOf(const PropertyEntry &property)
    {
        return QLatin1String(property.IsCustom ? "custom property " : "property ") + property.Name;
    }

    /// Rows are what their values are.
    void CompareRows(const EnumEntry &one, const EnumEntry &other)
    {
        const QString part = QStringLiteral("enumeration");
        const auto text
            = [](const EnumRow &row) { return QStringLiteral("%1, %2").arg(row.DisplayName, row.Identifier); };
        const auto value = [](const EnumRow &row) { return row.Value; };
        const auto before = WithKeys(one.Rows, value);
        const auto after = WithKeys(other.Rows, value);
        QHash<QString, const EnumRow *> former;
        for (const auto &row : before)
            former.insert(row.Key, row.What);
        QVector<QString> orderBefore;
        QVector<QString> orderAfter;
        for (const auto &[key, row] : after) {
            const QString detail = QStringLiteral("row ") + row->Value;
            const EnumRow *known = former.take(key);
            if (known)
                TellChange(part, other.Name, detail, text(*known), text(*row), known->Element, row->Element);
            else
                Tell(FormDifference::Added, part, other.Name, detail, {}, text(*row), one.Element, row->Element);
            if (known)
                orderAfter.append(key);
        }
        for (const auto &[key, row] : before) {
            if (former.contains(key))
                Tell(FormDifference::Gone, part, other.Name, QStringLiteral("row ") + row->Value, text(*row), {},
                    row->Element, other.Element);
            else
                orderBefore.append(key);
        }
        if (orderBefore != orderAfter)
            Tell(FormDifference::Moved, part, other.Name, QStringLiteral("rows"), {}, {}, one.Element, other.Element);
    }

    /// The lines that differ between what both begin and what both end with.
    void CompareScript()
    {
        const ScriptSourceMap &before = Before.Form.GetScriptSource();
        const ScriptSourceMap &after = After.Form.GetScriptSource();
        if (before.Code() == after.Code())
            return;
        const QStringList one = before.Code().split(QLatin1Char('\n'));
        const QStringList other = after.Code().split(QLatin1Char('\n'));
        const int shorter = qMin(one.size(), other.size());
        int same = 0;
        while (same < shorter && one.at(same) == other.at(same))
            ++same;
        int sameEnd = 0;
        while (sameEnd < shorter - same && one.at(one.size() - 1 - sameEnd) == other.at(other.size() - 1 - sameEnd))
            ++sameEnd;
        const auto part = [&](const QStringList &lines) {
            return lines.mid(same, lines.size() - same - sameEnd).join(QLatin1Char('\n'));
        };
        const auto line = [&](const ReadForm &read, const ScriptSourceMap &script) {
            return read.Form.Script < 0 ? 0 : read.File.LineOf(script.PlaceOfLine(same + 1));
        };
        const auto what = Before.Form.Script < 0 ? FormDifference::Added
            : After.Form.Script < 0              ? FormDifference::Gone
                                                 : FormDifference::Changed;
        Differences.append(
            {what, QStringLiteral("script"), {}, {}, part(one), part(other), line(Before, before), line(After, after)});
    }

    const ReadForm &Before;
    const ReadForm &After;
    QVector<FormDifference> Differences;
};

} // namespace

QString NameOf(FormDifference::Kind kind)
{
    switch (kind) {
    case FormDifference::Added:
        return QStringLiteral("added");
    case FormDifference::Gone:
        return QStringLiteral("gone");
    case FormDifference::Changed:
        return QStringLiteral("changed");
    case FormDifference::Moved:
        break;
    }
    return QStringLiteral("moved");
}

QVector<FormDifference> CompareForms(const QByteArray &before, const QByteArray &after)
{
    return CompareForms(ComparedFile{before, ComparedFile::Definition}, {after, ComparedFile::Definition});
}

QVector<FormDifference> CompareForms(const ComparedFile &before, const ComparedFile &after)
{
    const ReadFile former(before);
    const ReadFile latter(after);
    const QString part = QStringLiteral("component");
    QVector<FormDifference> differences;
    QHash<QString, int> turns;
    for (const auto &form : latter.Forms) {
        const ReadForm *other = former.Find(form->Name, turns[form->Name]++);
        if (!other)
            differences.append(
                {FormDifference::Added, part, form->Name, {}, {}, {}, 0, form->LineOf(form->Form.Form), form->Name});
        for (FormDifference &each : other ? Comparison(*other, *form).Run() : QVector<FormDifference>()) {
            each.Component = form->Name;
            differences.append(each);
        }
    }
    turns.clear();
    for (const auto &form : former.Forms) {
        if (!latter.Find(form->Name, turns[form->Name]++))
            differences.append(
                {FormDifference::Gone, part, form->Name, {}, {}, {}, form->LineOf(form->Form.Form), 0, form->Name});
    }
    return differences;
}

} // namespace Orbel
