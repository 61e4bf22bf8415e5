#pragma once

#include <QPoint>
#include <QString>

class QLineEdit;
class QWidget;

namespace KV218
{

class OrbelSheet;

/// Which widget of a form has the focus, and what the operator is typing there: the text that he has not finished, the
/// caret, the selection. Found again in another form by the names of its widgets.
class KeptFocus
{
public:
    /// Without a focus in the form there is none of it.
    explicit KeptFocus(const OrbelSheet &sheet);

    void GiveTo(const OrbelSheet &sheet) const;

private:
    void KeepField(QLineEdit *field);
    void KeepCell(const QWidget *face);
    QWidget *FindIn(const OrbelSheet &sheet) const;
    void Type(QLineEdit *field) const;

    /// Empty for a widget that is no control's.
    QString Name;
    int Face = -1;
    QString ObjectName;
    /// The cell in which the operator types; -1 for none. x counts columns.
    QPoint Cell{-1, -1};
    bool HasField = false;
    bool IsTyped = false;
    QString Typed;
    int Caret = 0;
    int Start = -1;
    int Length = 0;
};

} // namespace KV218
