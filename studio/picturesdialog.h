#pragma once

#include "workbench.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QSettings;

namespace Orbel
{

/// Draws the form, with the values of now, at several widths, in several colours and languages, into PNG files of one
/// folder: FORM-WIDTH-COLOURS-LANGUAGE.png. What was chosen is kept under "pictures/widths", "pictures/palettes" and
/// "pictures/folder" of the settings.
class PicturesDialog : public QDialog
{
    Q_OBJECT

public:
    PicturesDialog(Workbench &bench, QSettings &settings, QWidget *parent);

    /// What to draw.
    struct Choice {
        QVector<int> Widths;
        QStringList Palettes;
        QStringList Languages;
        QString Folder;
    };
    /// Gives the files that were written; in `error` what went wrong with the first that was not.
    static QStringList Write(const Workbench &bench, const Choice &choice, QString *error);

private:
    Choice GetChoice() const;
    void Start();

    Workbench &Bench;
    QSettings &Settings;
    QLineEdit *const Widths;
    QVector<QCheckBox *> Palettes;
    QLineEdit *const Languages;
    QLineEdit *const Folder;
    QLabel *const Outcome;
};

} // namespace Orbel
