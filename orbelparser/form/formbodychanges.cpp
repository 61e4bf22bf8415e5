// What the operator and the device change by way of a host.

#include "formbody.h"

#include "formchanges.h"
#include "formlife.h"
#include "orbeldelegate.h"

#include <optional>

namespace KV218
{

OrbelDelegate *FormBody::FindControl(const QString &path) const
{
    const OrbelSheet::Widget widget = Sheet.GetWidget(path);
    return widget ? widget->GetDelegate() : nullptr;
}

bool FormBody::Report(const QString &path, const QVariant &value, QString *error)
{
    OrbelDelegate *const control = FindControl(path);
    return control && control->Report(value, error);
}

bool FormBody::Enter(const QString &path, const QVariant &value, QString *error)
{
    OrbelDelegate *const control = FindControl(path);
    return control && control->EnterValue(value, error);
}

bool FormBody::TakeReported(const QString &path)
{
    OrbelDelegate *const control = FindControl(path);
    return control && control->TakeReported();
}

bool FormBody::Revert(const QString &path)
{
    OrbelDelegate *const control = FindControl(path);
    return control && Sheet.GetChanges()->Revert(control);
}

void FormBody::RevertAll()
{
    Sheet.GetChanges()->RevertAll();
}

QStringList FormBody::GetChanged() const
{
    QStringList paths;
    for (const OrbelDelegate *control : Sheet.GetChanges()->GetChanged())
        paths.append(control->GetXmlPath());
    return paths;
}

void FormBody::DropUnchanged()
{
    for (int i = 0; i < Sheet.GetWidgetCount(); ++i) {
        OrbelDelegate *const control = Sheet.GetWidgetAt(i)->GetDelegate();
        if (control && control->IsAsApplied())
            control->resetModified();
    }
    if (Sheet.isModified() && !Sheet.isWidgetModified())
        Sheet.resetModified();
}

void FormBody::EnterXmlString(const QString &xml)
{
    struct Former {
        OrbelSheet::Widget Widget;
        QVariantList Edits;
        std::optional<QVariantList> Applied;
    };
    QVector<Former> all;
    for (int i = 0; i < Sheet.GetWidgetCount(); ++i) {
        const OrbelSheet::Widget widget = Sheet.GetWidgetAt(i);
        const OrbelDelegate *control = widget->GetDelegate();
        if (!control)
            continue;
        const QVariantList edits = control->GetEdits();
        all.append({widget, edits, control->isModified() ? control->GetApplied() : edits});
    }
    SetXmlString(xml);
    FormChanges::Former recorded;
    for (const Former &former : qAsConst(all)) {
        OrbelDelegate *const control = former.Widget->GetDelegate();
        control->BecomeChanged(former.Applied ? &*former.Applied : nullptr);
        recorded.append({control, former.Edits});
    }
    if (!IsOpen())
        return;
    Sheet.GetChanges()->RecordAll(recorded);
    if (IsOpen() && !Sheet.GetChanges()->GetChanged().isEmpty())
        Sheet.setModified(true);
}

} // namespace KV218
