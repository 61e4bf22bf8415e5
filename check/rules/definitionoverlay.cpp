#include "definitionoverlay.h"

#include <algorithm>

namespace Orbel
{

DefinitionOverlay::DefinitionOverlay(const FormModel &form, const FormModel &change) : Form(form), Change(change)
{
    QSet<const WidgetEntry *> seen;
    for (const WidgetEntry &widget : Change.Widgets) {
        const WidgetEntry *former = Form.FindWidget(widget.Name);
        if (former && !seen.contains(former))
            AddWidget(widget, *former);
        seen.insert(former);
    }
    AddEnums();
    std::sort(Pieces.begin(), Pieces.end(), [](const Piece &a, const Piece &b) { return a.From < b.From; });
    std::sort(Places.begin(), Places.end(), [](const Range &a, const Range &b) { return a.From < b.From; });
}

void DefinitionOverlay::SetPlace(int element, int place)
{
    const Element &here = Form.Doc.At(element);
    Places.append({here.Offset, here.ContentTo, place});
    FirstPlace = FirstPlace < 0 ? place : qMin(FirstPlace, place);
}

DefinitionOverlay::Piece DefinitionOverlay::AtEndOf(int element) const
{
    const Element &here = Form.Doc.At(element);
    const bool isClosed = Form.Doc.Text().midRef(here.ContentFrom - 2, 2) == QLatin1String("/>");
    if (!isClosed)
        return {here.ContentTo, here.ContentTo, 0, 0, {}, {}};
    return {here.ContentFrom - 2, here.ContentFrom, 0, 0, QStringLiteral(">"), QStringLiteral("</%1>").arg(here.Name)};
}

/// What the change states goes to the end of the widget, and what the form states of it gives way.
void DefinitionOverlay::AddWidget(const WidgetEntry &change, const WidgetEntry &former)
{
    QSet<QString> stated;
    for (const PropertyEntry &property : change.Properties)
        stated.insert(property.Name + (property.IsCustom ? QLatin1String("*") : QLatin1String()));
    const QString &text = Form.Doc.Text();
    for (const PropertyEntry &property : former.Properties) {
        const Element &here = Form.Doc.At(property.Element);
        const int end = text.indexOf(QLatin1Char('>'), here.ContentTo);
        const bool isClosed = text.midRef(here.ContentFrom - 2, 2) == QLatin1String("/>");
        if (stated.contains(property.Name + (property.IsCustom ? QLatin1String("*") : QLatin1String())))
            Pieces.append({here.Offset, isClosed ? here.ContentFrom : end + 1, 0, 0, {}, {}});
    }
    const Element &content = Change.Doc.At(change.Element);
    Piece piece = AtEndOf(former.Element);
    piece.ChangeFrom = content.ContentFrom;
    piece.ChangeTo = content.ContentTo;
    Pieces.append(piece);
    SetPlace(former.Element, Change.Doc.PlaceOf(change.Element));
}

void DefinitionOverlay::AddEnums()
{
    for (const EnumEntry &entry : Change.Enums) {
        const Element &content = Change.Doc.At(entry.Element);
        const EnumEntry *former = Form.FindEnum(entry.Name);
        if (!former)
            continue;
        Piece piece = AtEndOf(former->Element);
        if (piece.Before.isEmpty())
            piece.From = Form.Doc.At(former->Element).ContentFrom;
        piece.ChangeFrom = content.ContentFrom;
        piece.ChangeTo = content.ContentTo;
        Pieces.append(piece);
        SetPlace(former->Element, Change.Doc.PlaceOf(entry.Element));
    }
}

PlacedText DefinitionOverlay::GetDefinition() const
{
    PlacedText merged;
    const QString &text = Form.Doc.Text();
    const QString &change = Change.Doc.Text();
    int range = 0;
    int at = 0;
    const auto copyTo = [&](int end) {
        for (; at < end; ++at) {
            while (range < Places.size() && at >= Places.at(range).To)
                ++range;
            const bool isInside = range < Places.size() && at >= Places.at(range).From;
            merged.Append(text.at(at), isInside ? Places.at(range).Place : FirstPlace);
        }
    };
    const auto write = [&](const QString &mark) {
        for (const QChar letter : mark)
            merged.Append(letter, FirstPlace);
    };
    for (const Piece &piece : Pieces) {
        if (piece.From < at)
            continue;
        copyTo(piece.From);
        write(piece.Before);
        for (int i = piece.ChangeFrom; i < piece.ChangeTo; ++i)
            merged.Append(change.at(i), Change.Doc.PlaceAt(i));
        write(piece.Behind);
        at = piece.To;
    }
    copyTo(text.size());
    merged.Close(FirstPlace);
    return merged;
}

} // namespace Orbel
