#include "referenceexample.h"

#include "elementnames.h"
#include "failure.h"
#include "orbeldelegate.h"
#include "orbelformular.h"
#include "orbelparser.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include <memory>

namespace Orbel
{

namespace
{

constexpr int WideWidth = 600;
constexpr int NarrowWidth = 280;
constexpr int LeastHeight = 24;
constexpr int Frame = 6;

using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

QString Resource(const QString &name)
{
    QFile file(QStringLiteral(":/orbel/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw InputFailure(file.fileName(), file.errorString());
    return QString::fromUtf8(file.readAll());
}

Form Build(const QString &definition, std::unique_ptr<QWidget> &gui, bool applyUi = false)
{
    Form form(KV218::OrbelParser().ParseORBEL(definition));
    form->CreateValueTree(QStringLiteral("/Reference"));
    form->CreateGUI(applyUi);
    gui.reset(form->GetGUI());
    return form;
}

/// Without the empty space on the right, and with a margin all around.
QImage Framed(const QImage &picture)
{
    const QRgb background = picture.pixel(picture.width() - 1, 0);
    const auto isEmpty = [&](int x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixel(x, y) != background)
                return false;
        }
        return true;
    };
    int width = picture.width();
    while (width > 1 && isEmpty(width - 1))
        --width;
    QImage framed(width + 2 * Frame, picture.height() + 2 * Frame, QImage::Format_RGB32);
    framed.fill(background);
    QPainter(&framed).drawImage(Frame, Frame, picture, 0, 0, width);
    return framed;
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

const QString &AllControls()
{
    static const QString all = Resource(QStringLiteral("all_controls.orbel"));
    return all;
}

QString WidgetsFrom(int start, int count)
{
    static const QString widgetEnd = QStringLiteral("</Widget>");
    QString widgets;
    for (int i = 0; i < count; ++i) {
        widgets += Lines(AllControls(), start, widgetEnd);
        start = AllControls().indexOf(QLatin1String("<Widget"), start + 1);
    }
    return widgets;
}

int PlaceOf(const QString &className)
{
    const int place = AllControls().indexOf(QStringLiteral(" class=\"%1\"").arg(className));
    if (place < 0)
        throw Failure{ekInputAtFault, QStringLiteral("the class %1 stands in no example").arg(className)};
    return place;
}

/// The widget, and what makes it show what it is.
QString WidgetsOf(const QString &className)
{
    const auto one = [](const QString &name) { return WidgetsFrom(PlaceOf(name), 1); };
    if (className == QLatin1String("Sheet"))
        return one(QStringLiteral("CheckBox"));
    if (className == QLatin1String("Separator") || className == QLatin1String("FixedSpacer"))
        return one(QStringLiteral("CheckBox")) + one(className) + one(QStringLiteral("PushButton"));
    if (className == QLatin1String("SpecialObject_DSC")) {
        QString labels;
        for (const char *name : {"lbScanHF", "lbScanVUHF", "lbScanSHF"})
            labels += QStringLiteral("    <Widget name=\"%1\" class=\"Label\"/>\n").arg(QLatin1String(name));
        return one(className) + labels;
    }
    return WidgetsFrom(PlaceOf(className), className == KV218::widgetclass::Headline ? 2 : 1);
}

} // namespace

QString ExampleOf(const QString &className)
{
    const QString widgets = WidgetsOf(className);
    QString enums;
    static const QRegularExpression enumName(QStringLiteral("\"enumName\"><String>(\\w+)<"));
    const QRegularExpressionMatch match = enumName.match(widgets);
    if (match.hasMatch()) {
        const int place = AllControls().indexOf(QStringLiteral("<Enum name=\"%1\"").arg(match.captured(1)));
        enums = QStringLiteral("  <Enums>\n%1  </Enums>\n").arg(Lines(AllControls(), place, QStringLiteral("</Enum>")));
    }
    return QStringLiteral("<ZkParamGui version=\"1.0\">\n%1  <Sheet name=\"sheet\">\n%2  </Sheet>\n</ZkParamGui>\n")
        .arg(enums, widgets);
}

QString ScriptOf(const QString &className)
{
    return Resource(QStringLiteral("%1.js").arg(className));
}

QImage PictureOf(const QString &definition, bool applyUi)
{
    std::unique_ptr<QWidget> gui;
    const Form form = Build(definition, gui, applyUi);
    // One row in all its width, several in one column.
    gui->resize(form->GetSheet().GetWidgetCount() == 1 ? WideWidth : NarrowWidth, LeastHeight);
    gui->show();
    QApplication::processEvents();
    const auto *const root = qobject_cast<QScrollArea *>(gui.get());
    const auto *const area = root ? root : gui->findChild<QScrollArea *>();
    gui->resize(gui->width(), gui->height() + area->verticalScrollBar()->maximum());
    QApplication::processEvents();
    if (QWidget *focused = QApplication::focusWidget())
        focused->clearFocus();
    return Framed(gui->grab().toImage());
}

QImage PictureOfDialog(const QString &className)
{
    std::unique_ptr<QWidget> gui;
    const Form form = Build(ExampleOf(className), gui);
    // Each class reads the one, and skips the other.
    form->SetXmlString(QStringLiteral(
        "<Parameters><All><ExclusionRanges><ExclusionRange><StartFreq>87500000</StartFreq><StopFreq>108000000</"
        "StopFreq>"
        "</ExclusionRange></ExclusionRanges><ExclusionFrequencyList><ExclusionFrequency><Start>87500000</Start>"
        "<Stop>108000000</Stop></ExclusionFrequency></ExclusionFrequencyList></All></Parameters>"));
    QImage image;
    QTimer::singleShot(0, form.data(), [&image] {
        QWidget *const dialog = QApplication::activeModalWidget();
        image = dialog->grab().toImage();
        dialog->close();
    });
    QMetaObject::invokeMethod(form->GetSheet().GetWidgetAt(0)->GetDelegate(), "sl_editExclusionRanges");
    return image;
}

QString DocumentOf(const QString &definition)
{
    std::unique_ptr<QWidget> gui;
    return Build(definition, gui)->GetXmlString(false).trimmed();
}

} // namespace Orbel
