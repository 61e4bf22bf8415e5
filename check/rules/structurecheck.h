#pragma once

#include "findingsink.h"
#include "tagcursor.h"

#include <QSet>

namespace Orbel
{

/// Repeats the library's reading of a definition and tells where it stops short: what is skipped or entered by mistake,
/// and which widgets, enumerations and scripts are lost by that.
class StructureCheck
{
public:
    StructureCheck(const Document &document, FindingSink &sink);

    /// A changed definition has other rules: it patches the widgets of these names.
    void SetChanged(const QSet<QString> &widgets);

    void Run();
    /// The element of the form that counts; -1 without one.
    int Form() const { return LastForm; }
    /// Whether anything of the form was not read.
    bool IsCut() const { return Cut; }

private:
    /// Something that keeps elements from being read: those inside `element`, or with `toTheEnd` all behind its start.
    struct Obstacle {
        Code what;
        int element;
        bool toTheEnd;
        QString text;
        QVector<int> lost;
    };

    void ReadForm(int form);
    void ReadEnums(int enums);
    void ReadEnum(int element);
    void ReadEnumValue(int row);
    void ReadSheet(int sheet);
    void ReadWidget(int widget);
    void ReadList(int list, int depth);
    bool ReadProperty(int property);
    void ReadText(int element);
    void Skip(int element, int parent, const QString &text);
    void Enter(int element, int list);
    void AssignLost();
    bool IsLost(int element) const;
    QString LostText(const Obstacle &obstacle) const;
    void Report();

    QString NameOf(int element) const;

    const Document &Doc;
    FindingSink &Sink;
    TagCursor Cursor;
    QVector<bool> WasRead;
    QVector<Obstacle> Obstacles;
    QSet<QString> KnownWidgets;
    bool IsChange = false;
    bool Cut = false;
    int LastForm = -1;
};

} // namespace Orbel
