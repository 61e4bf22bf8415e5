#pragma once

#include "inputswitches.h"
#include "orbelwidget.h"
#include "sheetplace.h"
#include "widgetindex.h"

#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QPointer>
#include <QSharedPointer>
#include <QStringList>

namespace KV218
{

class FormChanges;
class FormLife;
class OrbelElement;
class OrbelSheetUi;

/// The `Sheet` element of a form: its widgets, in definition order for everything that shows, and in a tree of
/// parameter paths for parameter documents. Indices count from 0. A copy shares the element tree and the frame with its
/// source.
class ORBEL_EXPORT OrbelSheet
{
public:
    /// What input depends on: the host's lock, the sheet's own switch, and a switch that takes away a secondary part.
    /// Another number stands for no switch: it is off, and cannot be set.
    enum eEnableScope : int {
        EnableScopeInput = InputSwitches::Host,
        EnableScopeSheet = InputSwitches::Sheet,
        EnableScopePartial = InputSwitches::Part
    };
    /// A widget of the sheet, shared with whoever holds it.
    using Widget = QExplicitlySharedDataPointer<OrbelWidget>;

    /// `formular` owns the sheet.
    explicit OrbelSheet(OrbelFormular *formular);
    OrbelSheet(const OrbelSheet &other);
    OrbelSheet &operator=(const OrbelSheet &other);
    virtual ~OrbelSheet();

    /// The `name` of the definition, and the path that CreateValueTree() was given.
    const QString &GetName() const { return Name; }
    const QString &GetVTPath() const { return VTPath; }
    /// Null once the form has ended.
    OrbelFormular *GetFormular() const;

    /// In definition order, among them headlines and hidden controls.
    int GetWidgetCount() const { return Widgets.size(); }
    /// `index` must be valid.
    Widget GetWidgetAt(int index) const { return Widgets.at(index); }
    /// The widget at a parameter path, or the first one with that element name; null without one. Widget names play no
    /// part.
    Widget GetWidget(const QString &name) const;
    /// All widgets of a class, in list order.
    QList<Widget> FindWidgetsOfClass(const QString &className) const;
    /// The first widget of a *class*, or null.
    OrbelWidget *FindWidget(const QString &className) const;
    /// The place of a widget, or of what GetWidget() finds; -1 without one.
    int IndexOfWidget(Widget widget) const;
    int IndexOfWidget(const QString &name) const;
    /// Adds a host's own control with a row label (none for an empty text) before `index`, or at the end for a negative
    /// one. The control, not null, stays the host's. It shows only when inserted before CreateGUI().
    Widget InsertWidget(QString name, QString labelText, QWidget *widget, int index);

    /// Reads the `Sheet` element on which `reader` stands; widgets are added to those that are there.
    void ParseORBEL(QXmlStreamReader &reader);
    /// Gives the properties of a changed definition to the widgets of the same names, up to the first name unknown.
    void ParseChangedORBEL(QXmlStreamReader &reader);

    /// Builds the frame, with an apply row or without, and the controls; nothing while there is a frame.
    void CreateGUI(bool applyUi);
    /// Builds the controls whose name or element name stands in `list`, or with `exclude` the others. The ones left out
    /// are no longer selected.
    void CreateGUI(bool applyUi, const QStringList &list, bool exclude);
    /// The widget that the host shows; null before CreateGUI().
    QWidget *GetGUI() const;
    /// The sheet's own delegate.
    OrbelDelegate *GetDelegate() const;
    /// The same by its class; never null.
    OrbelSheetUi *GetUi() const { return Ui.data(); }

    /// Have all delegates make their nodes under `path`, or bring them in line with their properties.
    void CreateValueTree(const QString &path);
    void ResyncValueTree();

    /// Selects the widgets whose parameter path stands in `list`, or all for an empty list; the others get the
    /// opposite.
    void SelectWidgets(const QStringList &list, bool select);
    /// Sets `visible` of the named headline and of the widgets behind it, up to the next headline.
    void ShowGroup(const QString &name, bool show);
    /// Collapses or expands the group that begins at `headline`, keeping the `visible` of its widgets.
    void setGroupVisible(OrbelWidget *headline, bool visible);
    /// Names of the headlines whose groups are collapsed, in list order.
    QStringList GetCollapsed() const;
    /// Collapses the groups of the named headlines and expands all others.
    void SetCollapsed(const QStringList &names);

    /// Writes the root element, with the parameters or empty. With `onlyModified`, unless the sheet's
    /// `emitOnlyModifiedParameters` says no, just the modified ones. What is written is modified no more, unless
    /// `keepsMarks`.
    void GetXml(QXmlStreamWriter &writer, bool withParameters, bool onlyModified, bool keepsMarks = false) const;
    /// Reads the content of the root element; nothing becomes modified by it.
    void ReadXml(QXmlStreamReader &reader);

    /// The mark of the form, apply button and timer with it; see OrbelDelegate::setModified(). Nothing while inactive.
    void setModified(bool autoApply);
    void resetModified();
    bool isModified() const;
    /// Whether the sheet and a selected widget are modified.
    bool isWidgetModified() const;
    /// While inactive, changes do not count as the operator's.
    bool isActive() const { return Active; }
    /// See isActive().
    void setActive(bool active) { Active = active; }

    /// Automatic apply, its timer, and what the apply button does.
    bool isAutoApplyEnabled() const;
    void setAutoApplyEnabled(bool enable);
    void killAutoApplyTimer();
    void applyNow();
    /// Commits whatever the operator is typing into a control.
    void FinishEditing();

    /// Sets the text size, in points, of the widget in which the form stands: its font's or, where it has a style
    /// sheet, in place of that whole style sheet. Without a parent the form's own. 0 or less is ignored.
    void SetFontSize(int size);

    /// Input is free when both EnableScopeInput and EnableScopeSheet are on; EnableScopePartial then takes a part away.
    void EnableInput(bool enable, eEnableScope scope);
    /// Whether that one switch is on.
    bool IsInputEnabled(eEnableScope scope) const { return Switches.IsOn(InputSwitches::Switch(scope)); }

    /// What keeps the parts of the form while calls run inside of them; never null.
    FormLife *GetLife() const { return Life.get(); }
    /// What the operator has changed; never null.
    FormChanges *GetChanges() const { return Changes.data(); }
    /// Expands the group of a widget, scrolls to it, and gives it the focus.
    void ShowWidget(OrbelWidget *widget);
    /// The form ends: all delegates are closed, and widgets that others hold stand in no form any more.
    void Close();

    /// Called by FormDoor when a widget answers to a further element name.
    void TagAdded(const OrbelWidget *widget, const QString &tag);
    /// Called by FormDoor when a widget's element name changed.
    void TagChanged() { Index.DropTags(); }

private:
    /// The list to walk while controls act: a handler may add to the real one.
    const QList<Widget> Snapshot() const { return Widgets; }
    void ParseWidget(QXmlStreamReader &reader);
    OrbelWidget *FindHeadline(const QString &name) const;
    template <class Begins, class Act> void ForGroups(Begins begins, Act act);
    InputSwitches::Tell TellControls();
    void SetEnableInput(bool enable, bool partial);
    void Retranslate();

    friend class OrbelWidget;

    std::shared_ptr<FormLife> Life;
    QSharedPointer<FormChanges> Changes;
    SheetPlace Place;
    QString Name;
    QString VTPath;
    QList<Widget> Widgets;
    QSharedPointer<OrbelElement> Root;
    QPointer<OrbelFormular> Formular;
    QSharedPointer<OrbelSheetUi> Ui;
    InputSwitches Switches;
    bool Active = true;
    bool Closed = false;
    WidgetIndex Index;
};

} // namespace KV218
