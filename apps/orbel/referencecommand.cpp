#include "referencecommand.h"

#include "failure.h"
#include "referenceexample.h"
#include "referencepage.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QFont>
#include <QImage>
#include <QStyleFactory>

namespace Orbel
{

/// Of the pictures, in points.
constexpr int PointSize = 10;

void ReferenceCommand::Define(QCommandLineParser &parser) const
{
    parser.setApplicationDescription(QStringLiteral(
        "Writes the reference of the control classes, a page and a picture each, into a folder, which is made."));
    parser.addPositionalArgument(QStringLiteral("OUTDIR"), QStringLiteral("The folder."));
}

int ReferenceCommand::Run(const QCommandLineParser &parser)
{
    if (parser.positionalArguments().size() != 1)
        throw UsageFailure(QStringLiteral("one OUTDIR is wanted"));
    Folder = QDir(parser.positionalArguments().constFirst());
    if (!Folder.mkpath(QStringLiteral("images")))
        throw InputFailure(Folder.path(), QStringLiteral("the folder cannot be made"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QFont font = QApplication::font();
    font.setPointSize(PointSize);
    QApplication::setFont(font);
    Write(QStringLiteral("README.md"), IndexPage());
    Write(QStringLiteral("Sheet.md"), SheetPage());
    const QString sheet = QStringLiteral("Sheet");
    Keep(sheet, PictureOf(ExampleOf(sheet), true));
    for (const ClassInfo &info : Registry::Classes()) {
        const QString name = QLatin1String(info.name);
        Write(name + QLatin1String(".md"), ClassPage(info));
        if (info.delegate->traits & ekShown)
            Keep(name, PictureOf(ExampleOf(name), false));
        else if (info.delegate->traits & ekAlwaysWrites)
            Keep(name, PictureOfDialog(name));
    }
    return ekFine;
}

void ReferenceCommand::Write(const QString &name, const QString &page) const
{
    QFile file(Folder.filePath(name));
    const QByteArray text = page.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw InputFailure(file.fileName(), file.errorString());
}

void ReferenceCommand::Keep(const QString &name, const QImage &picture) const
{
    const QString path = Folder.filePath(QStringLiteral("images/%1.png").arg(name));
    if (!picture.save(path))
        throw InputFailure(path, QStringLiteral("the picture cannot be written"));
}

} // namespace Orbel
