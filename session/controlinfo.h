#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

namespace Orbel
{

/// One of the values that a control lets the operator choose.
struct Choice {
    /// As Session::Value() gives it and parameter documents hold it.
    QString Value;
    /// What the operator reads, in his language.
    QString Text;
};

/// What a host may want to know of a control, for a table of its commands for instance. Limits and step are in the
/// units of the value, which are those of parameter documents, whatever the control shows.
struct ControlInfo {
    /// What Session::Value() gives. List is a QVariantList: of the items of a list, the cells of a table by rows, or
    /// the start and stop of a range. None is a control without a value, a headline for instance.
    enum Kind { None, Switch, Whole, Real, Text, OneOf, List };

    /// The parameter path.
    QString Path;
    /// The name and the class of the widget, as the definition states them.
    QString Name;
    QString Class;
    /// Without its colon, in the operator's language; the name of the element for a control without a label.
    QString Label;
    Kind What = None;
    /// Invalid where there is none.
    QVariant Minimum;
    QVariant Maximum;
    QVariant Step;
    /// As the definition states it, untranslated; empty for none.
    QString Unit;
    /// Decimal places that the operator sees.
    int Decimals = 0;
    /// In the order of the definition, for OneOf.
    QVector<Choice> Choices;
};

} // namespace Orbel
