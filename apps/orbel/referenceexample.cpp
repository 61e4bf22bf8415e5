#include "referenceexample.h"

#include "elementnames.h"
#include "failure.h"
#include "orbelformular.h"
#include "orbelparser.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>

#include <memory>

namespace Orbel
{

namespace
{

constexpr int PictureWidth = 420;
constexpr int LeastHeight = 24;

using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

QString AllControls()
{
    QFile file(QStringLiteral(":/orbel/all_controls.orbel"));
    if (!file.open(QIODevice::ReadOnly))
        throw InputFailure(file.fileName(), file.errorString());
    return QString::fromUtf8(file.readAll());
}

Form Build(const QString &definition, std::unique_ptr<QWidget> &gui)
{
    Form form(KV218::OrbelParser().ParseORBEL(definition));
    form->CreateValueTree(QStringLiteral("/Reference"));
    form->CreateGUI(false);
    gui.reset(form->GetGUI());
    return form;
}

/// What stands on the lines from the one with `start` to the one with `end`, as it is indented there. An element
/// without content ends with its own tag.
QString Lines(const QString &text, int start, const QString &end)
{
    const int from = text.lastIndexOf(QLatin1Char('\n'), start) + 1;
    const int behindTag = text.indexOf(QLatin1Char('>'), start) + 1;
    const bool isEmpty = text.at(behindTag - 2) == QLatin1Char('/');
    const int closing = isEmpty ? behindTag : text.indexOf(end, start) + end.size();
    return text.mid(from, closing - from) + QLatin1Char('\n');
}

} // namespace

QString ExampleOf(const QString &className)
{
    static const QString all = AllControls();
    static const QString widgetEnd = QStringLiteral("</Widget>");
    const int start = all.indexOf(QStringLiteral(" class=\"%1\"").arg(className));
    if (start < 0)
        throw Failure{ekInputAtFault, QStringLiteral("the class %1 stands in no example").arg(className)};
    QString widgets = Lines(all, start, widgetEnd);
    // A group wants a member.
    if (className == KV218::widgetclass::Headline)
        widgets += Lines(all, all.indexOf(QLatin1String("<Widget"), start), widgetEnd);
    QString enums;
    static const QRegularExpression enumName(QStringLiteral("\"enumName\"><String>(\\w+)<"));
    const QRegularExpressionMatch match = enumName.match(widgets);
    if (match.hasMatch()) {
        const int place = all.indexOf(QStringLiteral("<Enum name=\"%1\"").arg(match.captured(1)));
        enums = QStringLiteral("  <Enums>\n%1  </Enums>\n").arg(Lines(all, place, QStringLiteral("</Enum>")));
    }
    return QStringLiteral("<ZkParamGui version=\"1.0\">\n%1  <Sheet name=\"sheet\">\n%2  </Sheet>\n</ZkParamGui>\n")
        .arg(enums, widgets);
}

QImage PictureOf(const QString &definition)
{
    std::unique_ptr<QWidget> gui;
    const Form form = Build(definition, gui);
    gui->resize(PictureWidth, LeastHeight);
    gui->show();
    QApplication::processEvents();
    if (const auto *area = qobject_cast<QScrollArea *>(gui.get()))
        gui->resize(PictureWidth, gui->height() + area->verticalScrollBar()->maximum());
    QApplication::processEvents();
    if (QWidget *focused = QApplication::focusWidget())
        focused->clearFocus();
    return gui->grab().toImage();
}

QString DocumentOf(const QString &definition)
{
    std::unique_ptr<QWidget> gui;
    return Build(definition, gui)->GetXmlString(false).trimmed();
}

} // namespace Orbel
