#pragma once

#include <memory>
#include <QHash>
#include <QScriptEngine>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;

/// What the library is measured against: other ways to the same form, and floors, which do only the part of the work
/// that nobody can leave out.
namespace peer
{

/// Handles all events until there are none.
void RunToIdle();
/// Shows a window in the size that all windows of the measures have, and runs to idle.
void Show(QWidget *window);

/// The window of a .ui text, not shown.
std::unique_ptr<QWidget> LoadUi(const QByteArray &uiText);

/// The form as one would write it by hand: a scroll area with a QFormLayout, not shown.
class HandForm
{
public:
    /// Without `withLayout` it has the widgets alone.
    explicit HandForm(int controls, bool withLayout = true);

    QWidget *Window() const { return window.get(); }
    /// Null for an unknown name, and for one of another class.
    QDoubleSpinBox *Spin(const QString &name) const;
    /// Reads a parameter document with the controls' own setters.
    void Read(const QString &document) const;

private:
    QWidget *NewControl(int control, QWidget *parent);

    std::unique_ptr<QWidget> window;
    QHash<QString, QWidget *> widgets;
};

/// Reads a text to its end.
void WalkXml(const QString &text);

/// The parameter document of the form with the values of `version`, written from texts that are ready.
class RawWriter
{
public:
    RawWriter(int controls, int version);
    QString Write() const;

private:
    QVector<QPair<QString, QString>> texts;
};

/// Runs the form's script over plain objects that have a signal and a property for it.
class RawScript
{
public:
    explicit RawScript(int controls);
    void Run();

private:
    QObject objects;
    QScriptEngine engine;
    QString script;
};

struct ItemSize {
    enum { Title, Label, Control } what;
    QSize size;
    int topMargin;
};
/// The arithmetic of the layout alone, for rows of a label and a control under titles: groups are measured, dealt out
/// to as many columns as fit, and placed. `rectangles` must have a place for each item. Gives the height.
int Arrange(const QVector<ItemSize> &items, int width, QVector<QRect> &rectangles);

} // namespace peer
