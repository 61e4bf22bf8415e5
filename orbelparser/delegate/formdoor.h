#pragma once

#include <QExplicitlySharedDataPointer>
#include <QPointer>
#include <QString>
#include <QVariant>

class QWidget;

namespace KV218
{

class FormChanges;
class OrbelDelegate;
class OrbelEnum;
class OrbelSheet;
class OrbelWidget;

/// All that a control may ask of the form it stands in. Made on the spot, for one call; every call is harmless for a
/// control that stands in no form.
class FormDoor
{
public:
    explicit FormDoor(OrbelWidget *widget) : Widget(widget) { }

    /// The enumeration of that name; null when the form knows none.
    QExplicitlySharedDataPointer<OrbelEnum> FindEnum(const QString &name) const;

    /// The control that the sheet finds under a name; null when there is none.
    OrbelDelegate *FindControl(const QString &name) const;

    /// Marks the sheet as modified, unless it is inactive; true lets automatic apply run.
    void setModified(bool autoApply) const;

    /// The operator has changed this control, from the ones to the other values; see FormChanges.
    void Record(const QVariantList &before, const QVariantList &after, int session) const;
    /// The operator begins to change this control, and has done so: handlers run between.
    void Began() const;
    void Ended() const;
    /// Whether changes count as the operator's.
    bool isActive() const;
    /// Must be called when the control becomes modified or no longer is, and when a modified one has new values.
    void Note() const;
    /// While a value of the device's is being shown, what changes is not the operator's.
    bool IsReporting() const;
    /// Stands while a control shows a value of the device's.
    class Reporting
    {
    public:
        explicit Reporting(const FormDoor &door);
        ~Reporting();
        Reporting(const Reporting &) = delete;
        Reporting &operator=(const Reporting &) = delete;

    private:
        const QPointer<FormChanges> Changes;
    };
    /// The operator has changed this control.
    void TellEdited() const;
    /// Puts back what was applied; see FormChanges.
    bool Revert() const;
    /// Forgets that there is something to apply where no control has anything any more.
    void SettleModified() const;
    /// Brings this control before the operator's eyes: expands its group, scrolls to it, and gives it the focus.
    void Show() const;

    /// Emits the sheet's si_parametersModified(), if the form is modified.
    void applyNow() const;

    /// Shows or collapses the group that begins at this widget.
    void setGroupVisible(bool visible) const;

    /// Saves font size and collapsed groups on the host's configuration object.
    void ApplyConfiguration() const;

    /// Whether the wheel tunes the digit under the mouse without the focus.
    bool IsHoverTuning() const;

    /// The widget in which the form stands; null before CreateGUI() and once it was destroyed.
    QWidget *GetSheetWidget() const;

    /// Must be called when the element name of this widget changed.
    void TagChanged() const;
    /// Must be called when this widget answers to a further element name.
    void TagAdded(const QString &tag) const;

private:
    OrbelSheet *Sheet() const;

    OrbelWidget *Widget;
};

} // namespace KV218
