#include "structurecheck.h"

#include "elementnames.h"
#include "elementtable.h"
#include "formlimits.h"

namespace Orbel
{

namespace
{

namespace element = KV218::element;
namespace attribute = KV218::attribute;
namespace limit = KV218::limit;

/// "Widget, Properties or CustomProperties"
QString ParentsOf(const ElementInfo &info)
{
    QStringList parents(info.parents.cbegin(), info.parents.cend());
    const QString last = parents.takeLast();
    return parents.isEmpty() ? last : parents.join(QLatin1String(", ")) + QLatin1String(" or ") + last;
}

QString HomeOf(const QString &name)
{
    const ElementInfo *info = FindElement(name);
    if (!info || info->parents.isEmpty())
        return QString();
    return info->IsValue() ? QStringLiteral("; it belongs into a Property")
                           : QStringLiteral("; it belongs directly into %1").arg(ParentsOf(*info));
}

QString WidgetText(const QString &name)
{
    return name.isEmpty() ? QStringLiteral("a widget without a name") : QStringLiteral("the widget \"%1\"").arg(name);
}

QStringList ElementNames()
{
    QStringList names;
    for (const ElementInfo &info : ElementTable()) {
        if (!info.parents.isEmpty() && !info.IsValue())
            names.append(info.name);
    }
    return names;
}

} // namespace

StructureCheck::StructureCheck(const Document &document, FindingSink &sink)
    : Doc(document), Sink(sink), Cursor(document), WasRead(document.Elements().size(), false)
{
}

void StructureCheck::SetChanged(const QSet<QString> &widgets)
{
    IsChange = true;
    KnownWidgets = widgets;
}

void StructureCheck::Run()
{
    int forms = 0;
    while (!Cursor.AtEnd() && Cursor.NextStart()) {
        const int found = Cursor.Current();
        if (Doc.At(found).Name != element::Form)
            continue;
        if (++forms > limit::FormsPerDocument)
            break;
        if (LastForm >= 0)
            Sink.Add(Code::FormReplaced, Doc.PlaceOf(LastForm),
                QStringLiteral("This form is replaced by a later one in the same document"));
        LastForm = found;
        Obstacles.clear();
        ReadForm(found);
    }
    if (LastForm < 0) {
        const int place = Doc.Elements().isEmpty() ? 0 : Doc.PlaceOf(0);
        const QString root = Doc.Elements().isEmpty() ? QString() : Doc.At(0).Name;
        Sink.Add(Code::FormMissing, place,
            QStringLiteral("There is no form in the document") + Sink.Suggest(root, {element::Form}));
        return;
    }
    AssignLost();
    Report();
}

void StructureCheck::ReadForm(int form)
{
    int script = -1;
    Cursor.ForEachStart([&](int child) {
        const QString &name = Doc.At(child).Name;
        if (name == element::Enums) {
            ReadEnums(child);
        } else if (name == element::Sheet) {
            ReadSheet(child);
        } else if (name == element::Script) {
            if (script >= 0)
                Sink.Add(Code::ScriptReplaced, Doc.PlaceOf(script),
                    QStringLiteral("This script is replaced by a later one"));
            script = child;
            ReadText(child);
        } else {
            Skip(child, form, QStringLiteral("in a form, where only Enums, Sheet and Script count"));
        }
        return true;
    });
}

void StructureCheck::ReadEnums(int enums)
{
    Cursor.ForEachStart([&](int child) {
        if (Doc.At(child).Name == element::Enum)
            ReadEnum(child);
        else
            Skip(child, enums, QStringLiteral("in Enums, where only Enum counts"));
        return true;
    });
}

void StructureCheck::ReadEnum(int element)
{
    WasRead[element] = true;
    Cursor.ForEachStart([&](int child) {
        if (Doc.At(child).Name == element::EnumValue)
            ReadEnumValue(child);
        else
            Skip(child, element, QStringLiteral("in an Enum, where only EnumValue counts"));
        return true;
    });
}

void StructureCheck::ReadEnumValue(int row)
{
    Cursor.ForEachStart([&](int child) {
        const QString &name = Doc.At(child).Name;
        if (name == element::DisplayName || name == element::EnumIdentifier || name == element::Value)
            ReadText(child);
        else
            Skip(child, row, QStringLiteral("in an EnumValue, where only DisplayName, EnumIdentifier and Value count"));
        return true;
    });
}

void StructureCheck::ReadSheet(int sheet)
{
    Cursor.ForEachStart([&](int child) {
        const QString &name = Doc.At(child).Name;
        const bool isList = name == element::Properties || name == element::CustomProperties;
        if (name == element::Widget)
            ReadWidget(child);
        else if (isList && !IsChange)
            ReadList(child, name == element::CustomProperties ? 1 : 0);
        else if (isList)
            Cursor.SkipCurrent();
        else
            Skip(child, sheet, QStringLiteral("in a Sheet, where only Properties, CustomProperties and Widget count"));
        return true;
    });
}

void StructureCheck::ReadWidget(int widget)
{
    const QString name = Doc.AttributeOf(widget, attribute::Name);
    if (!IsChange || KnownWidgets.contains(name)) {
        WasRead[widget] = true;
        ReadList(widget, 0);
        return;
    }
    // Entered: its end tag ends the sheet, and its properties are skipped one by one.
    Obstacles.append({Code::ChangeWidget, widget, true,
        name.isEmpty() ? QStringLiteral("A widget without a name is none of the form's")
                       : QStringLiteral("The form has no widget \"%1\"%2")
                             .arg(name, Sink.Suggest(name, QStringList(KnownWidgets.cbegin(), KnownWidgets.cend()))),
        {}});
}

void StructureCheck::ReadList(int list, int depth)
{
    if (depth >= limit::PropertyListDepth) {
        Obstacles.append({Code::ListTooDeep, list, true,
            QStringLiteral("Property lists nest more than %1 deep").arg(limit::PropertyListDepth), {}});
        Cursor.Fail();
        return;
    }
    Cursor.ForEachStart([&](int child) {
        const QString &name = Doc.At(child).Name;
        if (name == element::CustomProperties) {
            ReadList(child, depth + 1);
            return true;
        }
        if (name == element::Property)
            return ReadProperty(child);
        Enter(child, list);
        return true;
    });
}

bool StructureCheck::ReadProperty(int property)
{
    WasRead[property] = true;
    if (!Cursor.NextStart()) {
        Obstacles.append({Code::PropertyEmpty, property, true,
            QStringLiteral("The property \"%1\" has no value element").arg(NameOf(property)), {}});
        return false;
    }
    const int value = Cursor.Current();
    ReadText(value);
    for (int more = Doc.At(value).NextSibling; more >= 0 && !Cursor.AtEnd(); more = Doc.At(more).NextSibling)
        Sink.Add(Code::ElementSkipped, Doc.PlaceOf(more),
            QStringLiteral("\"%1\" is skipped in a Property, which has one value").arg(Doc.At(more).Name));
    Cursor.SkipCurrent();
    return true;
}

void StructureCheck::ReadText(int element)
{
    WasRead[element] = true;
    const int child = Cursor.ReadText();
    if (child >= 0)
        Obstacles.append({Code::ValueNested, child, true,
            QStringLiteral("\"%1\" stands inside the text of \"%2\"").arg(Doc.At(child).Name, Doc.At(element).Name),
            {}});
}

void StructureCheck::Skip(int element, int parent, const QString &text)
{
    // Behind an early end, elements are met at levels where they do not belong; those are lost, not misplaced.
    const QString &name = Doc.At(element).Name;
    const QString home = HomeOf(name);
    if (Doc.At(element).Parent == parent)
        Obstacles.append({Code::ElementSkipped, element, false,
            QStringLiteral("\"%1\" is skipped %2%3")
                .arg(name, text, home.isEmpty() ? Sink.Suggest(name, ElementNames()) : home),
            {}});
    Cursor.SkipCurrent();
}

void StructureCheck::Enter(int element, int list)
{
    // What stands inside an element that was entered goes with it.
    if (Doc.At(element).Parent != list)
        return;
    const QString &name = Doc.At(element).Name;
    const bool isWrapper = name == element::Properties && Doc.At(list).Name == element::Widget;
    const QString place = Doc.At(list).Name == element::Widget
        ? WidgetText(NameOf(list))
        : QLatin1Char('"') + Doc.At(list).Name + QLatin1Char('"');
    const QString home = HomeOf(name);
    const QString hint = isWrapper ? QStringLiteral("; a widget holds its properties directly")
        : home.isEmpty()           ? Sink.Suggest(name, {element::Property, element::CustomProperties})
                                   : home;
    Obstacles.append({isWrapper ? Code::PropertiesWrapper : Code::ElementEntered, element, true,
        QStringLiteral("\"%1\" ends the reading of %2%3").arg(name, place, hint), {}});
}

bool StructureCheck::IsLost(int element) const
{
    if (WasRead.at(element))
        return false;
    const QString &name = Doc.At(element).Name;
    if (name == element::Widget || name == element::Enum || name == element::Script)
        return true;
    // Of a widget that is lost itself, only the widget is told.
    const int parent = Doc.At(element).Parent;
    const bool ofSheet = Doc.At(parent).Name == element::Properties && !IsChange;
    return name == element::Property && (ofSheet || (Doc.At(parent).Name == element::Widget && WasRead.at(parent)));
}

/// Gives each lost element to the obstacle that is to blame: the one it stands in, or the last one before it.
void StructureCheck::AssignLost()
{
    QVector<int> open;
    int next = 0;
    int last = -1;
    for (int i = LastForm + 1; i <= Doc.At(LastForm).Last; ++i) {
        for (; next < Obstacles.size() && Obstacles.at(next).element <= i; ++next) {
            if (Obstacles.at(next).toTheEnd)
                last = next;
            else
                open.append(next);
        }
        while (!open.isEmpty() && Doc.At(Obstacles.at(open.constLast()).element).Last < i)
            open.removeLast();
        const int culprit = open.isEmpty() ? last : open.constLast();
        // A widget that the form does not have is nothing to lose.
        const bool isUnknown
            = culprit >= 0 && Obstacles.at(culprit).what == Code::ChangeWidget && Obstacles.at(culprit).element == i;
        if (culprit >= 0 && !isUnknown && IsLost(i))
            Obstacles[culprit].lost.append(i);
    }
}

QString StructureCheck::NameOf(int element) const
{
    return Doc.AttributeOf(element, attribute::Name);
}

QString StructureCheck::LostText(const Obstacle &obstacle) const
{
    struct Kind {
        QLatin1String element;
        const char *kind;
        const char *kinds;
    };
    const Kind kinds[] = {{element::Property, "property", "properties"}, {element::Widget, "widget", "widgets"},
        {element::Enum, "enumeration", "enumerations"}};
    QStringList parts;
    for (const Kind &kind : kinds) {
        QStringList names;
        for (const int element : obstacle.lost) {
            if (Doc.At(element).Name == kind.element)
                names.append(NameOf(element));
        }
        const int unnamed = names.removeAll(QString());
        if (unnamed > 0)
            parts.append(QStringLiteral("%1 %2 without a name")
                             .arg(QString::number(unnamed), QLatin1String(unnamed == 1 ? kind.kind : kind.kinds)));
        if (!names.isEmpty())
            parts.append(QStringLiteral("the %1 %2")
                             .arg(QLatin1String(names.size() == 1 ? kind.kind : kind.kinds), Quoted(names)));
    }
    for (const int element : obstacle.lost) {
        if (Doc.At(element).Name == element::Script) {
            parts.append(QStringLiteral("the script"));
            break;
        }
    }
    return parts.isEmpty() ? QString() : QStringLiteral("; lost: ") + parts.join(QLatin1String(", "));
}

void StructureCheck::Report()
{
    for (const Obstacle &obstacle : qAsConst(Obstacles)) {
        Cut = Cut || !obstacle.lost.isEmpty();
        Sink.Add(obstacle.what, Doc.PlaceOf(obstacle.element), obstacle.text + LostText(obstacle));
    }
}

} // namespace Orbel
