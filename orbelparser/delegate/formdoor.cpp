#include "formdoor.h"

#include "formchanges.h"
#include "orbeldelegate.h"
#include "orbelenum.h"
#include "orbelformular.h"
#include "orbelsheet.h"
#include "orbelwidget.h"
#include "propertynames.h"

namespace KV218
{

OrbelSheet *FormDoor::Sheet() const
{
    return Widget ? Widget->GetSheet() : nullptr;
}

QExplicitlySharedDataPointer<OrbelEnum> FormDoor::FindEnum(const QString &name) const
{
    const OrbelFormular *formular = Widget ? Widget->GetFormular() : nullptr;
    return formular && formular->HasEnum(name) ? formular->GetEnum(name) : QExplicitlySharedDataPointer<OrbelEnum>();
}

OrbelDelegate *FormDoor::FindControl(const QString &name) const
{
    const OrbelSheet *sheet = Sheet();
    const auto found = sheet ? sheet->GetWidget(name) : OrbelSheet::Widget();
    return found ? found->GetDelegate() : nullptr;
}

void FormDoor::setModified(bool autoApply) const
{
    if (OrbelSheet *sheet = Sheet())
        sheet->setModified(autoApply);
}

void FormDoor::Record(const QVariantList &before, const QVariantList &after, int session) const
{
    if (const OrbelSheet *sheet = Sheet())
        sheet->GetChanges()->Record(Widget->GetDelegate(), before, after, session);
}

void FormDoor::Began() const
{
    if (const OrbelSheet *sheet = Sheet())
        sheet->GetChanges()->Began(Widget->GetDelegate());
}

void FormDoor::Ended() const
{
    if (const OrbelSheet *sheet = Sheet())
        sheet->GetChanges()->Ended(Widget->GetDelegate());
}

bool FormDoor::isActive() const
{
    const OrbelSheet *sheet = Sheet();
    return sheet && sheet->isActive();
}

void FormDoor::Note() const
{
    if (const OrbelSheet *sheet = Sheet())
        sheet->GetChanges()->Note(Widget->GetDelegate());
}

bool FormDoor::IsReporting() const
{
    const OrbelSheet *sheet = Sheet();
    return sheet && sheet->GetChanges()->IsReporting();
}

FormDoor::Reporting::Reporting(const FormDoor &door) : Changes(door.Sheet() ? door.Sheet()->GetChanges() : nullptr)
{
    if (Changes)
        Changes->BeginReport();
}

FormDoor::Reporting::~Reporting()
{
    if (Changes)
        Changes->EndReport();
}

void FormDoor::TellEdited() const
{
    if (const OrbelSheet *sheet = Sheet())
        sheet->GetChanges()->TellEdited(Widget->GetDelegate());
}

bool FormDoor::Revert() const
{
    const OrbelSheet *sheet = Sheet();
    return sheet && sheet->GetChanges()->Revert(Widget->GetDelegate());
}

void FormDoor::SettleModified() const
{
    OrbelSheet *const sheet = Sheet();
    if (sheet && sheet->isModified() && !sheet->isWidgetModified())
        sheet->resetModified();
}

void FormDoor::Show() const
{
    if (OrbelSheet *sheet = Sheet())
        sheet->ShowWidget(Widget);
}

void FormDoor::applyNow() const
{
    if (OrbelSheet *sheet = Sheet())
        sheet->applyNow();
}

void FormDoor::setGroupVisible(bool visible) const
{
    if (OrbelSheet *sheet = Sheet())
        sheet->setGroupVisible(Widget, visible);
}

void FormDoor::ApplyConfiguration() const
{
    if (OrbelFormular *formular = Widget ? Widget->GetFormular() : nullptr)
        formular->ApplyConfiguration();
}

bool FormDoor::IsHoverTuning() const
{
    const OrbelSheet *sheet = Sheet();
    return sheet && sheet->GetDelegate()->GetBool(prop::HoverTuning, false);
}

QWidget *FormDoor::GetSheetWidget() const
{
    const OrbelSheet *sheet = Sheet();
    return sheet ? sheet->GetGUI() : nullptr;
}

void FormDoor::TagAdded(const QString &tag) const
{
    if (OrbelSheet *sheet = Sheet())
        sheet->TagAdded(Widget, tag);
}

void FormDoor::TagChanged() const
{
    if (OrbelSheet *sheet = Sheet())
        sheet->TagChanged();
}

} // namespace KV218
