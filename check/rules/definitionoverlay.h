#pragma once

#include "formmodel.h"

namespace Orbel
{

/// A form with a changed definition laid over it, as one text: what the form is once it is changed. Characters of the
/// change stand where they do in its file; those of the form stand at the widget or enumeration of the change that is
/// about them, or else at the first one.
class DefinitionOverlay
{
public:
    DefinitionOverlay(const FormModel &form, const FormModel &change);

    /// Whether the change is about anything that the form has.
    bool IsEmpty() const { return Pieces.isEmpty(); }
    PlacedText GetDefinition() const;

private:
    /// A part of the form's text that gives way to a part of the change's.
    struct Piece {
        int From;
        int To;
        int ChangeFrom;
        int ChangeTo;
        QString Before; ///< What the form's spelling lacks around it.
        QString Behind;
    };
    void AddWidget(const WidgetEntry &change, const WidgetEntry &former);
    void AddEnums();
    /// Where the content of an element ends, as an empty piece; an element without an end tag gets one.
    Piece AtEndOf(int element) const;
    void SetPlace(int element, int place);

    const FormModel &Form;
    const FormModel &Change;
    QVector<Piece> Pieces;
    /// Parts of the form's text, behind each other, with the place in the change.
    struct Range {
        int From;
        int To;
        int Place;
    };
    QVector<Range> Places;
    int FirstPlace = -1;
};

} // namespace Orbel
