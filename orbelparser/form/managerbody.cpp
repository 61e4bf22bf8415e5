#include "managerbody.h"

#include "formfactory.h"
#include "formlife.h"
#include "orbelformularmanager.h"

#include <QWidget>
#include <QXmlStreamReader>

namespace KV218
{

namespace
{

/// A form's name as a part of a node path.
QString PathPart(const QString &name)
{
    QString part;
    for (const QChar letter : name) {
        if (letter.isLetterOrNumber())
            part += letter;
    }
    return part;
}

} // namespace

ManagerBody::ManagerBody(OrbelFormularManager *manager) : Life(std::make_shared<FormLife>()), Manager(manager) { }

void ManagerBody::Close()
{
    Manager = nullptr;
    Reset();
}

void ManagerBody::SetVTPath(const QString &path)
{
    VTPath = path.endsWith(QLatin1Char('/')) ? path.left(path.size() - 1) : path;
}

void ManagerBody::DefineFormular(const QString &name, const QString &definition)
{
    if (!Formulars.contains(name))
        Definitions.insert(name, definition);
}

void ManagerBody::AddFormular(OrbelFormular *formular)
{
    if (formular)
        Formulars.insert(formular->GetName(), Formular(formular));
}

ManagerBody::Formular ManagerBody::GetFormular(const QString &name)
{
    const Formular known = Formulars.value(name);
    return known ? known : BuildFormular(name);
}

ManagerBody::Formular ManagerBody::BuildFormular(const QString &name)
{
    const auto definition = Definitions.constFind(name);
    if (definition == Definitions.constEnd())
        return Formular();
    QXmlStreamReader reader(*definition);
    const Formular formular(NewFormular(reader));
    if (!formular)
        return Formular();
    formular->SetName(name);
    Formulars.insert(name, formular);
    formular->CreateValueTree(VTPath + QLatin1Char('/') + PathPart(name));
    // A handler may have dropped the form: its window would be nobody's.
    const auto isDropped = [&] { return Formulars.value(name).data() != formular.data(); };
    if (isDropped())
        return formular;
    formular->CreateGUI(ApplyUiEnabled);
    if (QWidget *top = isDropped() ? formular->GetGUI() : nullptr)
        formular->GetSheet().GetLife()->EndControl(top);
    return formular;
}

bool ManagerBody::ShowFormular(const QString &name)
{
    // A handler of the form that goes may show another one meanwhile.
    while (Current)
        HideCurrent();
    Current = Formulars.value(name);
    // Not held: whoever drops the form in a handler ends it then and there.
    const QPointer<OrbelFormular> shown(Current.data());
    if (!shown || !Manager)
        return false;
    if (AutoApplyMemory != 0)
        shown->GetSheet().setAutoApplyEnabled(AutoApplyMemory > 0);
    if (shown && Manager)
        QObject::connect(shown.data(), &OrbelFormular::si_parametersModified, Manager.data(),
            &OrbelFormularManager::si_parametersModified, Qt::UniqueConnection);
    if (shown)
        HandOverConfiguration(shown.data());
    if (shown)
        shown->Show();
    return true;
}

void ManagerBody::HideCurrent()
{
    const QPointer<OrbelFormular> leaving(Current.data());
    leaving->GetSheet().killAutoApplyTimer();
    leaving->Hide();
    if (!leaving)
        return;
    if (Manager)
        QObject::disconnect(leaving.data(), nullptr, Manager.data(), nullptr);
    AutoApplyMemory = leaving->GetSheet().isAutoApplyEnabled() ? 1 : -1;
    if (Current.data() == leaving.data())
        Current.reset();
}

void ManagerBody::Reset()
{
    Definitions.clear();
    // What goes may call handlers, which may come back here.
    const auto formulars = std::exchange(Formulars, {});
    const Formular current = std::exchange(Current, {});
    for (const Formular &formular : formulars) {
        if (QWidget *top = formular->GetGUI())
            formular->GetSheet().GetLife()->EndControl(top);
    }
    if (current && Manager)
        QObject::disconnect(current.data(), nullptr, Manager.data(), nullptr);
}

void ManagerBody::SetConfigObject(QObject *object, const QString &name)
{
    ConfigObject = object;
    ConfigName = name;
    // By name: a list of the forms would keep those that end in here.
    const QStringList builtNames = Formulars.keys();
    for (const QString &builtName : builtNames) {
        if (OrbelFormular *const formular = Formulars.value(builtName).data())
            HandOverConfiguration(formular);
    }
}

/// The form restores itself when this is another object or name than it has.
void ManagerBody::HandOverConfiguration(OrbelFormular *formular) const
{
    formular->SetConfigObject(ConfigObject, ConfigName);
}

bool ManagerBody::isWidgetModified()
{
    OrbelFormular *const current = Current.data();
    if (!current)
        return false;
    OrbelSheet &sheet = current->GetSheet();
    if (sheet.isWidgetModified())
        return true;
    // The sheet was touched, but no control has anything new.
    if (sheet.isModified())
        sheet.resetModified();
    return false;
}

} // namespace KV218
