#include "orbelformularmanager.h"

#include "formfactory.h"
#include "valuebase.h"

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

OrbelFormularManager::OrbelFormularManager() = default;

OrbelFormularManager::~OrbelFormularManager()
{
    Reset();
}

void OrbelFormularManager::SetVTPath(const QString &path)
{
    VTPath = path.endsWith(QLatin1Char('/')) ? path.left(path.size() - 1) : path;
}

void OrbelFormularManager::DefineFormular(const QString &name, const QString &definition)
{
    if (!Formulars.contains(name))
        Definitions.insert(name, definition);
}

void OrbelFormularManager::AddFormular(OrbelFormular *formular)
{
    if (formular)
        Formulars.insert(formular->GetName(), Formular(formular));
}

OrbelFormularManager::Formular OrbelFormularManager::GetFormular(const QString &name)
{
    const Formular known = Formulars.value(name);
    return known ? known : BuildFormular(name);
}

OrbelFormularManager::Formular OrbelFormularManager::BuildFormular(const QString &name)
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
    formular->CreateGUI(ApplyUiEnabled);
    return formular;
}

QString OrbelFormularManager::GetCurrentName() const
{
    return Current ? Current->GetName() : QString();
}

bool OrbelFormularManager::ShowFormular(const QString &name)
{
    // A handler of the form that goes may show another one meanwhile.
    while (Current)
        HideCurrent();
    const Formular shown = Formulars.value(name);
    Current = shown;
    if (!shown)
        return false;
    if (AutoApplyMemory != 0)
        shown->GetSheet().setAutoApplyEnabled(AutoApplyMemory > 0);
    connect(shown.data(), &OrbelFormular::si_parametersModified, this, &OrbelFormularManager::si_parametersModified,
        Qt::UniqueConnection);
    HandOverConfiguration(shown.data());
    if (shown->GetGUI())
        shown->Show();
    return true;
}

void OrbelFormularManager::HideCurrent()
{
    const Formular leaving = Current;
    OrbelSheet &sheet = leaving->GetSheet();
    sheet.killAutoApplyTimer();
    if (leaving->GetGUI())
        leaving->Hide();
    disconnect(leaving.data(), &OrbelFormular::si_parametersModified, this, &OrbelFormularManager::si_parametersModified);
    AutoApplyMemory = sheet.isAutoApplyEnabled() ? 1 : -1;
    if (Current == leaving)
        Current.reset();
}

void OrbelFormularManager::Reset()
{
    Definitions.clear();
    for (const Formular &formular : qAsConst(Formulars)) {
        if (QWidget *top = formular->GetGUI())
            top->deleteLater();
    }
    if (Current)
        disconnect(Current.data(), nullptr, this, nullptr);
    Formulars.clear();
    Current.reset();
}

void OrbelFormularManager::SetConfigObject(QObject *object, const QString &name)
{
    ConfigObject = object;
    ConfigName = name;
    const auto built = Formulars;
    for (const Formular &formular : built)
        HandOverConfiguration(formular.data());
}

/// The form restores itself when this is another object or name than it has.
void OrbelFormularManager::HandOverConfiguration(OrbelFormular *formular) const
{
    formular->SetConfigObject(ConfigObject, ConfigName);
}

void OrbelFormularManager::RestoreConfiguration()
{
    if (const Formular current = Current)
        current->RestoreConfiguration();
}

QString OrbelFormularManager::GetXmlString(bool onlyModified)
{
    return Current ? Current->GetXmlString(onlyModified) : QString();
}

QString OrbelFormularManager::GetEmptyXmlElement() const
{
    return Current ? Current->GetEmptyXmlElement() : QString();
}

void OrbelFormularManager::SetXmlString(const QString &xml)
{
    if (const Formular current = Current)
        current->SetXmlString(xml);
}

bool OrbelFormularManager::isWidgetModified()
{
    if (!Current)
        return false;
    OrbelSheet &sheet = Current->GetSheet();
    if (sheet.isWidgetModified())
        return true;
    // The sheet was touched, but no control has anything new.
    if (sheet.isModified())
        sheet.resetModified();
    return false;
}

void OrbelFormularManager::SetCurrentModified(bool autoApply)
{
    if (const Formular current = Current)
        current->GetSheet().setModified(autoApply);
}

void OrbelFormularManager::GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init)
{
    if (const Formular current = Current) {
        current->GetVTValues(locals, observer, init);
        return;
    }
    for (int i = locals.size() - 1; init && i >= 0; --i) {
        if (ValueBase *local = locals.at(i))
            local->SetStringValue(QStringLiteral(""), nullptr);
    }
}

bool OrbelFormularManager::SetVTValue(ValueBase *local, IObserver *observer)
{
    const Formular current = Current;
    return current && current->SetVTValue(local, observer, true);
}

} // namespace KV218
