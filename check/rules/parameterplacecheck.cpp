// What a form will write to its parameter document: places, names, tags.

#include "formcheck.h"
#include "formlimits.h"
#include "propertynames.h"
#include "propertyplace.h"
#include "xmlname.h"

namespace Orbel
{

namespace
{

namespace prop = KV218::prop;
namespace limit = KV218::limit;

class ParameterPlaceCheck
{
public:
    ParameterPlaceCheck(const FormModel &form, FindingSink &sink) : Form(form), Sink(sink) { }

    void CheckWidget(const WidgetEntry &widget)
    {
        CheckWritten(widget);
        const QStringList parts = widget.ParameterPath().split(QLatin1Char('/'), Qt::SkipEmptyParts);
        if (parts.size() > limit::ParameterPathParts) {
            Sink.Add(Code::ParameterTag, PlaceOfPath(widget),
                QStringLiteral("The path has more than %1 parts").arg(limit::ParameterPathParts));
            return;
        }
        CheckPath(widget, parts);
        if (!widget.Writes())
            return;
        Enter(widget, parts);
        if (widget.Has(ekItems))
            CheckItemTag(widget);
        if (IsRange(widget))
            CheckRangeTags(widget);
    }

    void CheckSheet()
    {
        for (const PropertyEntry &property : Form.SheetProperties) {
            if (property.Name == prop::ParametersXmlRootTag && !property.IsCustom && !property.Text.isEmpty())
                CheckName(property.Text, PlaceOfValue(Form, property));
            else if (property.Name.startsWith(prop::AttributePrefix))
                CheckAttribute(property);
        }
    }

    /// A control and an enclosing element cannot both be read at one place.
    void CheckInner()
    {
        for (auto leaf = Leaves.cbegin(); leaf != Leaves.cend(); ++leaf) {
            if (Inner.contains(leaf.key()))
                Sink.Add(Code::ParameterDoubled, PlaceOfPath(**leaf),
                    QStringLiteral("\"%1\" is the place of \"%2\", and encloses other controls as well")
                        .arg(leaf.key(), (*leaf)->Name));
        }
    }

private:
    int PlaceOfPath(const WidgetEntry &widget) const
    {
        const PropertyEntry *tag = widget.Find(prop::ParameterXmlTag);
        return tag && !tag->Text.isEmpty() ? PlaceOfValue(Form, *tag) : Form.Doc.PlaceOf(widget.Element);
    }

    void CheckName(const QString &name, int place)
    {
        if (!IsXmlName(name))
            Sink.Add(Code::ParameterTag, place, QStringLiteral("\"%1\" is no XML name").arg(name));
    }

    void CheckWritten(const WidgetEntry &widget)
    {
        const PropertyEntry *tag = widget.Find(prop::ParameterXmlTag);
        const bool isStated = widget.States(prop::GenerateParameterXml);
        if (!widget.Info || widget.Has(ekFreeProperties | ekAlwaysWrites))
            return;
        if (!widget.Has(ekWrites) && widget.IsTrue(prop::GenerateParameterXml))
            Sink.Add(Code::ParameterUnwritten, Form.Doc.PlaceOf(widget.Find(prop::GenerateParameterXml)->Element),
                QStringLiteral("A %1 writes no parameter element").arg(widget.Class));
        else if (widget.Has(ekWrites) && tag && !tag->Text.isEmpty() && !isStated
            && !Form.ScriptMayCall(widget, "setGenerateParameterXml"))
            Sink.Add(Code::ParameterUnwritten, PlaceOfValue(Form, *tag),
                QStringLiteral("\"%1\" is never written, since \"%2\" does not state generateParameterXml")
                    .arg(tag->Text, widget.Name));
    }

    void CheckPath(const WidgetEntry &widget, const QStringList &parts)
    {
        // Enclosing elements are written even where nothing is written inside.
        const int names = widget.Writes() ? parts.size() : parts.size() - 1;
        for (int i = 0; i < names; ++i)
            CheckName(parts.at(i), PlaceOfPath(widget));
        if (widget.Writes() && !IsRange(widget) && widget.ParameterPath().endsWith(QLatin1Char('/')))
            Sink.Add(Code::ParameterTag, PlaceOfPath(widget),
                QStringLiteral("\"%1\" leaves no name for the element of \"%2\"")
                    .arg(widget.ParameterPath(), widget.Name));
    }

    /// A range writes under tags of its own.
    static bool IsRange(const WidgetEntry &widget)
    {
        return Registry::FindProperty(*widget.Info, prop::StartFrequencyParameterXmlTag);
    }

    void Enter(const WidgetEntry &widget, const QStringList &parts)
    {
        QString path;
        for (int i = 0; i + 1 < parts.size(); ++i) {
            path += parts.at(i) + QLatin1Char('/');
            Inner.insert(path.left(path.size() - 1));
        }
        CheckSpelling(widget, parts);
        for (const QString &tag : widget.ReadTags()) {
            const WidgetEntry *other = Leaves.value(path + tag);
            if (!other)
                Leaves.insert(path + tag, &widget);
            else if (other != &widget)
                Sink.Add(Code::ParameterDoubled, PlaceOfPath(widget),
                    QStringLiteral("\"%1\" is the place of \"%2\" already").arg(path + tag, other->Name));
        }
    }

    void CheckSpelling(const WidgetEntry &widget, const QStringList &parts)
    {
        const QString stated = widget.TextOf(prop::ParameterXmlTag);
        if (stated.startsWith(QLatin1Char('/')) || stated.contains(QLatin1String("//")))
            Sink.Add(
                Code::PathEmpty, PlaceOfPath(widget), QStringLiteral("The empty part of the path counts for nothing"));
        // Who names the root may mean a part of the same name.
        const bool isRootNamed = Form.FindSheetProperty(prop::ParametersXmlRootTag, false);
        if (parts.size() > 1 && !isRootNamed && parts.constFirst() == Form.RootTag())
            Sink.Add(Code::PathRoot, PlaceOfPath(widget),
                QStringLiteral("\"%1\" is the name of the root element already").arg(parts.constFirst()));
        QString path;
        for (const QString &part : parts) {
            path += QLatin1Char('/') + part;
            const QString known = Spellings.value(path.toLower(), path);
            if (known != path && known.toLower() == path.toLower() && !Told.contains(path)) {
                Sink.Add(Code::PathCase, PlaceOfPath(widget),
                    QStringLiteral("\"%1\" stands before as \"%2\"").arg(path.mid(1), known.mid(1)));
                Told.insert(path);
                return;
            }
            Spellings.insert(path.toLower(), known);
        }
    }

    void CheckItemTag(const WidgetEntry &widget)
    {
        const PropertyEntry *tag = widget.Find(prop::ParameterListItemTag);
        if (!tag || tag->Text.isEmpty())
            Sink.Add(Code::ItemTag, Form.Doc.PlaceOf(tag ? tag->Element : widget.Element),
                QStringLiteral("The items of \"%1\" have no parameterListItemTag").arg(widget.Name));
        else
            CheckName(tag->Text, PlaceOfValue(Form, *tag));
    }

    void CheckRangeTags(const WidgetEntry &widget)
    {
        QStringList tags;
        for (const QLatin1String name : {prop::StartFrequencyParameterXmlTag, prop::StopFrequencyParameterXmlTag}) {
            const PropertyEntry *tag = widget.Find(name);
            if (!tag || tag->Text.isEmpty()) {
                Sink.Add(Code::RangeTags, Form.Doc.PlaceOf(tag ? tag->Element : widget.Element),
                    QStringLiteral("The range \"%1\" has no %2").arg(widget.Name, name));
            } else {
                CheckName(tag->Text, PlaceOfValue(Form, *tag));
                if (tags.contains(tag->Text))
                    Sink.Add(Code::RangeTags, PlaceOfValue(Form, *tag),
                        QStringLiteral("Both ends of the range \"%1\" are written under one tag").arg(widget.Name));
                tags.append(tag->Text);
            }
        }
    }

    void CheckAttribute(const PropertyEntry &property)
    {
        const int place = Form.Doc.PlaceOf(property.Element);
        if (!property.IsCustom) {
            if (!Form.FindSheetProperty(property.Name, true))
                Sink.Add(Code::AttributeUndeclared, place,
                    QStringLiteral("\"%1\" makes no attribute without a custom property of that name")
                        .arg(property.Name));
            return;
        }
        CheckName(property.Name.mid(prop::AttributePrefix.size()), place);
        if (!Form.FindSheetProperty(property.Name, false) && !Form.ScriptSpeaksOf(property.Name))
            Sink.Add(Code::AttributeEmpty, place,
                QStringLiteral("The attribute \"%1\" stays empty without a property \"%2\" in Properties")
                    .arg(property.Name.mid(prop::AttributePrefix.size()), property.Name));
    }

    const FormModel &Form;
    FindingSink &Sink;
    QHash<QString, const WidgetEntry *> Leaves;
    QSet<QString> Inner;
    QHash<QString, QString> Spellings; ///< Of each path in small letters.
    QSet<QString> Told;
};

} // namespace

void CheckParameterPlaces(const FormModel &form, FindingSink &sink)
{
    ParameterPlaceCheck check(form, sink);
    check.CheckSheet();
    for (const WidgetEntry &widget : form.Widgets)
        check.CheckWidget(widget);
    check.CheckInner();
}

} // namespace Orbel
