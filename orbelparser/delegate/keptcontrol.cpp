#include "keptcontrol.h"

#include "devicenote.h"
#include "formdoor.h"
#include "orbeldelegate.h"
#include "propertynames.h"

#include <algorithm>

namespace KV218
{

static bool IsSame(const QVariantList &one, const QVariantList &other)
{
    return one.size() == other.size() && std::equal(one.begin(), one.end(), other.begin(), &OrbelDelegate::IsSameEdit);
}

KeptControl::KeptControl(const Widget &former, const Widget &heir)
    : FormerWidget(former), HeirWidget(heir), Edits(GetFormer()->GetEdits()), Shape(GetFormer()->GetEditShape()),
      IsTouched(GetFormer()->Touched), IsModified(GetFormer()->Modified), Shows(GetFormer()->ChangeShows)
{
    const OrbelDelegate *const control = GetFormer();
    if (control->Applied)
        Applied = control->Applied->Values;
    for (const QString &name : control->SetSince)
        States.insert(name, control->property(PropertyKey(name).data()));
    for (const QString &name : control->CustomSetSince)
        Customs.insert(name, control->CustomProperties.value(name));
    heir->SetSelected(former->IsSelected());
}

void KeptControl::PutValues()
{
    OrbelDelegate *const heir = HeirWidget->GetDelegate();
    const OrbelDelegate::Call call(heir);
    for (auto custom = Customs.cbegin(); custom != Customs.cend() && !heir->IsClosed(); ++custom)
        heir->setCustomProperty(custom.key(), custom.value());
    PutStates();
    heir->SetSince = GetFormer()->SetSince;
    heir->CustomSetSince = GetFormer()->CustomSetSince;
    heir->Touched = IsTouched;
    if (!heir->Touched || heir->IsClosed())
        return;
    Wanted = heir->TranslateEdits(*GetFormer(), Edits);
    heir->TakeValues(*GetFormer(), Edits);
    // A count comes before the cells that it makes, a text after the node that would bring another one.
    PutStates();
    Taken = heir->GetEdits();
}

void KeptControl::PutStates() const
{
    OrbelDelegate *const heir = HeirWidget->GetDelegate();
    for (auto state = States.cbegin(); state != States.cend() && !heir->IsClosed(); ++state) {
        const PropertyKey name(state.key());
        // Where a node holds it, it is one of the values.
        if (!heir->HeldNumber(name.toString()).isValid())
            heir->ChangeProperty(name, state.value());
    }
}

void KeptControl::PutValuesAgain()
{
    OrbelDelegate *const heir = HeirWidget->GetDelegate();
    if (heir->IsClosed() || !IsTouched || IsSame(heir->GetEdits(), Taken))
        return;
    const OrbelDelegate::Call call(heir);
    heir->TakeValues(*GetFormer(), Edits);
}

void KeptControl::PutMark() const
{
    const OrbelDelegate *const former = GetFormer();
    OrbelDelegate *const heir = HeirWidget->GetDelegate();
    const bool isMarked = IsModified && heir->GenerateXml;
    if (!isMarked && !heir->Modified)
        return;
    heir->Modified = isMarked;
    heir->ChangeShows = isMarked && Shows;
    heir->Applied.reset();
    if (isMarked && Applied)
        heir->SetApplied(heir->TranslateEdits(*former, *Applied));
    heir->Form().Note();
}

void KeptControl::PutDevice() const
{
    const OrbelDelegate *const former = GetFormer();
    OrbelDelegate *const heir = HeirWidget->GetDelegate();
    if (!former->Device || heir->IsClosed())
        return;
    DeviceNote *const device = heir->NeedDevice();
    if (former->Device->Reported)
        device->Reported = heir->TranslateEdits(*former, *former->Device->Reported);
    heir->SetAnswer(former->Device->Answer, former->Device->Reason);
}

QString KeptControl::TellOther() const
{
    const OrbelDelegate *const heir = HeirWidget->GetDelegate();
    return heir->IsClosed() || IsSame(Wanted, Taken) ? QString() : heir->SpellChange(Wanted, Taken);
}

} // namespace KV218
