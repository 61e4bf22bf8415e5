#include "rendercommand.h"

#include "commandoptions.h"
#include "formfile.h"
#include "formpicture.h"
#include "palettes.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QImageWriter>
#include <QRegularExpression>
#include <QStyleFactory>
#include <QWidget>

#include <memory>

namespace Orbel
{

namespace
{

constexpr int GreatestSide = FormPicture::GreatestSide;
constexpr int OrdinaryWidth = FormPicture::OrdinaryWidth;

const QLatin1String Size("size");
const QLatin1String FontSize("font-size");
const QLatin1String Style("style");
const QLatin1String Palette("palette");
const QLatin1String Scale("scale");

QString PicturePath(const QCommandLineParser &parser)
{
    QString path = parser.value(Option::Output);
    if (path.isEmpty())
        throw UsageFailure(QStringLiteral("a picture is wanted: -o OUT.png"));
    const QByteArray format = QFileInfo(path).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(format))
        throw UsageFailure(QStringLiteral("%1: there is no picture format of that name; \".png\" always is").arg(path));
    return path;
}

/// In pixels; not valid without the option.
QSize PictureSize(const QCommandLineParser &parser)
{
    if (!parser.isSet(Size))
        return QSize();
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,5})x([0-9]{1,5})$"));
    const QRegularExpressionMatch match = form.match(parser.value(Size));
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.isEmpty() || size.width() > GreatestSide || size.height() > GreatestSide)
        throw UsageFailure(QStringLiteral("--size wants WxH, as 500x800, each from 1 to %1 pixels, not \"%2\"")
                               .arg(GreatestSide)
                               .arg(parser.value(Size)));
    return size;
}

/// In points; 0 without the option.
int TextSize(const QCommandLineParser &parser)
{
    if (!parser.isSet(FontSize))
        return 0;
    bool isNumber = false;
    const int points = parser.value(FontSize).toInt(&isNumber);
    if (!isNumber || points < 1 || points > 200)
        throw UsageFailure(
            QStringLiteral("--font-size wants whole points from 1 to 200, not \"%1\"").arg(parser.value(FontSize)));
    return points;
}

/// Pixels of the picture for each pixel of the form.
double ScaleFactor(const QCommandLineParser &parser)
{
    if (!parser.isSet(Scale))
        return 1;
    bool isNumber = false;
    const double scale = parser.value(Scale).toDouble(&isNumber);
    if (!isNumber || !(scale >= 1 && scale <= 4))
        throw UsageFailure(
            QStringLiteral("--scale wants a number from 1 to 4, as 1.5, not \"%1\"").arg(parser.value(Scale)));
    return scale;
}

void ChoosePalette(const QCommandLineParser &parser)
{
    if (!parser.isSet(Palette))
        return;
    const std::optional<QPalette> palette = NamedPalette(parser.value(Palette));
    if (!palette)
        throw UsageFailure(QStringLiteral("there is no palette \"%1\", only %2")
                               .arg(parser.value(Palette), PaletteNames().join(QLatin1String(", "))));
    QApplication::setPalette(*palette);
}

void ChooseStyle(const QCommandLineParser &parser)
{
    const QString name = parser.value(Style);
    if (parser.isSet(Style) && !QApplication::setStyle(name))
        throw UsageFailure(QStringLiteral("there is no style \"%1\", only %2")
                               .arg(name, QStyleFactory::keys().join(QLatin1String(", "))));
}

void Save(const QImage &picture, const QString &path)
{
    QImageWriter writer(path);
    if (!writer.write(picture))
        throw InputFailure(path, writer.errorString());
}

} // namespace

void RenderCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral("Draws a form into a picture file, without a display."));
    DefineFile(parser);
    DefineLanguage(parser);
    parser.addOptions({
        {{QStringLiteral("o"), Option::Output}, QStringLiteral("The picture to write; its name tells the format."),
            QStringLiteral("OUT.png")},
        {Size, QStringLiteral("Pixels; without it %1 wide, and as high as the form needs.").arg(OrdinaryWidth),
            QStringLiteral("WxH")},
        {FontSize, QStringLiteral("Text size of the form in points."), QStringLiteral("PT")},
        {Style, QStringLiteral("One of Qt's widget styles, as fusion."), QStringLiteral("NAME")},
        {Palette, QStringLiteral("Its colours: %1.").arg(PaletteNames().join(QLatin1String(", "))),
            QStringLiteral("NAME")},
        {Scale, QStringLiteral("Pixels of the picture for each of the form, from 1 to 4, as on a fine screen."),
            QStringLiteral("N")},
    });
    DefineComponent(parser);
}

/// Qt reads the factor when the application is made.
void RenderCommand::Prepare(const QCommandLineParser &parser)
{
    const double scale = ScaleFactor(parser);
    const QSize size = PictureSize(parser) * scale;
    if (qMax(size.width(), size.height()) > GreatestSide)
        throw UsageFailure(QStringLiteral("--size times --scale is at most %1 pixels").arg(GreatestSide));
    if (scale > 1)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
}

int RenderCommand::Run(const QCommandLineParser &parser)
{
    const QString path = Arguments(parser, 1).constFirst();
    const QString output = PicturePath(parser);
    const QSize size = PictureSize(parser);
    const int points = TextSize(parser);
    ChooseStyle(parser);
    ChoosePalette(parser);
    const FormFile file(path);
    SpeakLanguage(parser, path);
    const FormFile::Form form = file.Parse(ComponentName(parser));
    form->CreateValueTree(QStringLiteral("/Form"));
    // As in the viewer, where only a single form has an apply row.
    form->CreateGUI(!file.IsList());
    form->GetSheet().SetFontSize(points);
    const std::unique_ptr<QWidget> gui(form->GetGUI());
    Save(FormPicture::Draw(*gui, size.isValid() ? size : QSize(OrdinaryWidth, 0)), output);
    return file.GetStatus();
}

} // namespace Orbel
