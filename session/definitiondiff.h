#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

#include <optional>

class QXmlStreamReader;
class QXmlStreamWriter;

namespace Orbel
{

/// What differs between two definitions, where that is little: properties that a running form can be given in place, so
/// that it is as if it had been opened with them. Only what lies between the first and the last difference is read.
class DefinitionDiff
{
public:
    /// Nothing where more has changed, or a form's script could have read at its start what has: names, classes, the
    /// order, enumerations, the script, a property that is gone or is looked at only when the form is made.
    static std::optional<DefinitionDiff> Between(const QByteArray &before, const QByteArray &after);

    /// Each property that has changed, with the name of its widget.
    const QVector<QPair<QString, QString>> &GetChanged() const { return Changed; }
    /// A changed definition that states them.
    const QString &GetPatch() const { return Patch; }

    /// A definition of those widgets of either that lie where they differ; lines are those of the whole.
    const QByteArray &GetPartBefore() const { return PartBefore; }
    const QByteArray &GetPartAfter() const { return PartAfter; }
    /// Lines, from 1, from which on the two differ, and up to which they do.
    int GetFirstLine() const { return FirstLine; }
    int GetLastLineBefore() const { return LastLineBefore; }
    int GetLastLineAfter() const { return LastLineAfter; }

private:
    struct Property;
    struct Widget;
    using Widgets = QVector<Widget>;

    static bool IsLive(const Widget &widget, const Property &property);
    static bool ReadProperty(QXmlStreamReader &reader, bool isCustom, Widget &widget);
    static bool ReadWidget(QXmlStreamReader &reader, Widget &widget, bool isCustom);
    static std::optional<Widgets> ReadWidgets(const QByteArray &elements);
    bool Compare(const Widgets &before, const Widgets &after, const QString &scripts);
    bool TakeProperties(const Widget &before, const Widget &after, const QString &scripts, QXmlStreamWriter &patch);

    QVector<QPair<QString, QString>> Changed;
    QString Patch;
    QByteArray PartBefore;
    QByteArray PartAfter;
    int FirstLine = 1;
    int LastLineBefore = 1;
    int LastLineAfter = 1;
};

} // namespace Orbel
