#include "orbelformularmanager.h"

#include "formlife.h"
#include "managerbody.h"
#include "valuebase.h"

namespace KV218
{

OrbelFormularManager::OrbelFormularManager() : Body(new ManagerBody(this)) { }

OrbelFormularManager::~OrbelFormularManager()
{
    FormLife *const life = Body->GetLife();
    Body->Close();
    life->End(Body);
}

Running<ManagerBody> OrbelFormularManager::Run() const
{
    return Running<ManagerBody>(Body->GetLife(), Body);
}

void OrbelFormularManager::SetVTPath(const QString &path)
{
    Body->SetVTPath(path);
}

void OrbelFormularManager::EnableApplyUi(bool enable)
{
    Body->EnableApplyUi(enable);
}

void OrbelFormularManager::DefineFormular(const QString &name, const QString &definition)
{
    Body->DefineFormular(name, definition);
}

void OrbelFormularManager::AddFormular(OrbelFormular *formular)
{
    Run()->AddFormular(formular);
}

QList<QString> OrbelFormularManager::GetNames() const
{
    return Body->GetNames();
}

QString OrbelFormularManager::GetOrbel(const QString &name) const
{
    return Body->GetOrbel(name);
}

OrbelFormularManager::Formular OrbelFormularManager::GetFormular(const QString &name)
{
    return Run()->GetFormular(name);
}

OrbelFormularManager::Formular OrbelFormularManager::GetCurrentFormular() const
{
    return Body->GetCurrent();
}

QString OrbelFormularManager::GetCurrentName() const
{
    OrbelFormular *const current = Body->GetCurrent().data();
    return current ? current->GetName() : QString();
}

bool OrbelFormularManager::ShowFormular(const QString &name)
{
    return Run()->ShowFormular(name);
}

void OrbelFormularManager::Reset()
{
    Run()->Reset();
}

void OrbelFormularManager::SetConfigObject(QObject *object, const QString &name)
{
    Run()->SetConfigObject(object, name);
}

void OrbelFormularManager::RestoreConfiguration()
{
    if (OrbelFormular *const current = Body->GetCurrent().data())
        current->RestoreConfiguration();
}

QString OrbelFormularManager::GetXmlString(bool onlyModified)
{
    OrbelFormular *const current = Body->GetCurrent().data();
    return current ? current->GetXmlString(onlyModified) : QString();
}

QString OrbelFormularManager::GetEmptyXmlElement() const
{
    OrbelFormular *const current = Body->GetCurrent().data();
    return current ? current->GetEmptyXmlElement() : QString();
}

void OrbelFormularManager::SetXmlString(const QString &xml)
{
    if (OrbelFormular *const current = Body->GetCurrent().data())
        current->SetXmlString(xml);
}

bool OrbelFormularManager::isWidgetModified()
{
    return Run()->isWidgetModified();
}

void OrbelFormularManager::SetCurrentModified(bool autoApply)
{
    if (OrbelFormular *const current = Body->GetCurrent().data())
        current->GetSheet().setModified(autoApply);
}

void OrbelFormularManager::GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init)
{
    if (OrbelFormular *const current = Body->GetCurrent().data()) {
        current->GetVTValues(locals, observer, init);
        return;
    }
    for (int i = locals.size() - 1; init && i >= 0; --i) {
        if (ValueBase *local = locals.at(i))
            local->SetStringValue(QLatin1String(""), nullptr);
    }
}

bool OrbelFormularManager::SetVTValue(ValueBase *local, IObserver *observer)
{
    OrbelFormular *const current = Body->GetCurrent().data();
    return current && current->SetVTValue(local, observer, true);
}

} // namespace KV218
