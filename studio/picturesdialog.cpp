#include "picturesdialog.h"

#include "formpicture.h"
#include "languages.h"
#include "palettes.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QImageWriter>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScopeGuard>
#include <QSettings>

namespace Orbel
{

namespace
{

const QLatin1String WidthsKey("pictures/widths");
const QLatin1String PalettesKey("pictures/palettes");
const QLatin1String FolderKey("pictures/folder");

QStringList Words(const QString &text)
{
    QStringList words;
    for (const QString &word : text.split(QLatin1Char(','), Qt::SkipEmptyParts))
        words.append(word.trimmed());
    return words;
}

} // namespace

PicturesDialog::PicturesDialog(Workbench &bench, QSettings &settings, QWidget *parent)
    : QDialog(parent), Bench(bench), Settings(settings),
      Widths(new QLineEdit(settings.value(WidthsKey, QStringLiteral("360, 500, 900")).toString())),
      Languages(new QLineEdit(LanguagesOf(bench.GetFile()).join(QLatin1String(", ")))),
      Folder(new QLineEdit(settings.value(FolderKey, QDir::currentPath()).toString())), Outcome(new QLabel)
{
    setWindowTitle(tr("Pictures of the form"));
    auto *lines = new QFormLayout(this);
    lines->addRow(tr("&Widths in pixels:"), Widths);
    const QStringList chosen = settings.value(PalettesKey, PaletteNames()).toStringList();
    for (const QString &name : PaletteNames()) {
        Palettes.append(new QCheckBox(name));
        Palettes.last()->setChecked(chosen.contains(name));
        lines->addRow(Palettes.size() == 1 ? tr("Colours:") : QString(), Palettes.last());
    }
    lines->addRow(tr("&Languages:"), Languages);
    auto *browse = new QPushButton(tr("&Browse…"));
    auto *line = new QHBoxLayout;
    line->addWidget(Folder);
    line->addWidget(browse);
    lines->addRow(tr("&Folder:"), line);
    lines->addRow(Outcome);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    lines->addRow(buttons);
    Outcome->setWordWrap(true);
    connect(browse, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, QString(), Folder->text());
        if (!folder.isEmpty())
            Folder->setText(folder);
    });
    connect(buttons->addButton(tr("&Draw"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
        &PicturesDialog::Start);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

PicturesDialog::Choice PicturesDialog::GetChoice() const
{
    Choice choice;
    for (const QString &width : Words(Widths->text())) {
        if (width.toInt() > 0)
            choice.Widths.append(qMin(width.toInt(), FormPicture::GreatestSide));
    }
    for (const QCheckBox *palette : Palettes) {
        if (palette->isChecked())
            choice.Palettes.append(palette->text());
    }
    choice.Languages = Words(Languages->text());
    choice.Folder = Folder->text();
    return choice;
}

void PicturesDialog::Start()
{
    const Choice choice = GetChoice();
    Settings.setValue(WidthsKey, Widths->text());
    Settings.setValue(PalettesKey, choice.Palettes);
    Settings.setValue(FolderKey, choice.Folder);
    QString error;
    const QStringList files = Write(Bench, choice, &error);
    if (error.isEmpty() && files.isEmpty())
        error = tr("There is nothing to draw: a form, a width, a set of colours and a language are wanted.");
    Outcome->setText(error.isEmpty() ? tr("%1 pictures are in %2.").arg(files.size()).arg(choice.Folder) : error);
}

QStringList PicturesDialog::Write(const Workbench &bench, const Choice &choice, QString *error)
{
    const QPalette palette = QApplication::palette();
    const QLocale locale;
    const auto restore = qScopeGuard([&] {
        QApplication::setPalette(palette);
        SwitchLanguage(locale.name());
    });
    QDir().mkpath(choice.Folder);
    const QString base = QDir(choice.Folder).filePath(QFileInfo(bench.GetFile()).completeBaseName());
    QStringList files;
    for (const QString &language : choice.Languages) {
        SwitchLanguage(language);
        for (const QString &colours : choice.Palettes) {
            QApplication::setPalette(NamedPalette(colours).value_or(palette));
            const Opening copy = bench.OpenCopy();
            for (int i = 0; copy && i < choice.Widths.size(); ++i) {
                const int width = choice.Widths.at(i);
                copy.Opened->GetWidget()->setAttribute(Qt::WA_DontShowOnScreen);
                QImageWriter writer(QStringLiteral("%1-%2-%3-%4.png").arg(base).arg(width).arg(colours, language));
                if (writer.write(FormPicture::Draw(*copy.Opened->GetWidget(), {width, 0})))
                    files.append(writer.fileName());
                else if (error->isEmpty())
                    *error = writer.fileName() + QLatin1String(": ") + writer.errorString();
            }
        }
    }
    return files;
}

} // namespace Orbel
