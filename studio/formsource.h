#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>
#include <QVector>

class QXmlStreamReader;

namespace Orbel
{

/// What a definition states, with its lines: widgets with their properties, and which of their signals the script
/// connects. Lines count from 1.
class FormSource
{
public:
    struct Property {
        /// The name of the value element, and its text.
        QString Type;
        QString Text;
        int Line = 0;
    };
    struct Widget {
        QString Name; ///< Of one without a name what it is called after its place.
        QString Class;
        bool IsNamed = true;
        /// Where the start tag ends, and where the end tag does.
        int FirstLine = 0;
        int LastLine = 0;
        QMap<QString, Property> Properties;
        QMap<QString, Property> CustomProperties;
    };
    /// A place of the script that connects something to a signal.
    struct Handler {
        int Line;
        /// As it stands there.
        QString Text;
    };

    FormSource() = default;
    /// As far as the document is well-formed.
    explicit FormSource(const QByteArray &document);
    /// Of a component list, the first one for an empty name. Nothing has a line then, and the script is unknown.
    static FormSource OfComponent(const QByteArray &list, const QString &component);

    /// In the order of the definition.
    const QVector<Widget> &GetWidgets() const { return Widgets; }
    /// The first one of that name; null for none. Valid until this changes.
    const Widget *Find(const QString &name) const;
    /// The name of the widget that stands on a line; empty for none.
    QString WidgetAt(int line) const;
    /// What the text of the script connects to a signal of a widget by `widget.signal.connect(`; with an empty widget
    /// by any other name than those of widgets, as of the variable of a loop.
    QVector<Handler> HandlersOf(const QString &widget, const QString &signal) const;

private:
    void Read(QXmlStreamReader &reader);
    void ForgetLines();
    void ReadWidget(QXmlStreamReader &reader);
    static void ReadProperties(QXmlStreamReader &reader, QMap<QString, Property> &properties, Widget &widget);

    QVector<Widget> Widgets;
    QHash<QString, int> Indices;
    /// The lines of the script, by their number.
    QMap<int, QString> Script;
};

} // namespace Orbel
