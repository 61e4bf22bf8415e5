#pragma once

#include <QString>
#include <QVector>

/// A document with mistakes. In its text, each @ marks a place, and `codes` tells the findings there: those of one
/// place joined with +, places parted by blanks, in the order of the file.
struct BrokenForm {
    enum Kind { Definition, List, Change, Parameters, Run, Template };
    const char *name;
    Kind kind;
    QString text;
    const char *codes;
};

const QVector<BrokenForm> &BrokenForms();

/// The form against which changes and parameter documents are checked.
QString PlainForm();
