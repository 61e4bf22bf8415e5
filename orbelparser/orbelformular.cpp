#include "orbelformular.h"

#include "formbody.h"
#include "formchanges.h"
#include "formlife.h"
#include "orbelsheetui.h"
#include "scriptguard.h"

#include <QMetaMethod>
#include <QWidget>

namespace KV218
{

OrbelFormular::OrbelFormular() : Body(new FormBody(this))
{
    const OrbelSheetUi *ui = GetSheet().GetUi();
    connect(ui, &OrbelSheetUi::si_parametersModified, this, &OrbelFormular::si_parametersModified);
    connect(ui, &OrbelSheetUi::si_chooseFontSize, this, &OrbelFormular::sl_fontSize);
    const FormChanges *changes = GetSheet().GetChanges();
    connect(changes, &FormChanges::changed, this, &OrbelFormular::si_changesChanged);
    connect(changes, &FormChanges::edited, this,
        [this](const OrbelDelegate *control) { Q_EMIT si_edited(control->GetXmlPath()); });
}

void OrbelFormular::connectNotify(const QMetaMethod &signal)
{
    // The text of an exception is asked for where somebody reads it.
    if (signal == QMetaMethod::fromSignal(&OrbelFormular::si_scriptFailed))
        connect(&Body->GetGuard(), &ScriptGuard::failed, this, &OrbelFormular::si_scriptFailed, Qt::UniqueConnection);
}

// A form is never copied: what a copy gets is a new, empty one.
OrbelFormular::OrbelFormular(const OrbelFormular &) : OrbelFormular() { }

OrbelFormular::~OrbelFormular()
{
    FormLife *const life = GetSheet().GetLife();
    Body->Close();
    life->End(Body);
}

Running<FormBody> OrbelFormular::Run() const
{
    return Running<FormBody>(GetSheet().GetLife(), Body);
}

const QString &OrbelFormular::GetName() const
{
    return Body->GetName();
}

void OrbelFormular::SetName(const QString &name)
{
    Run()->SetName(name);
}

const QString &OrbelFormular::GetVersion() const
{
    return Body->GetVersion();
}

const QString &OrbelFormular::GetVTPath() const
{
    return Body->GetVTPath();
}

OrbelSheet &OrbelFormular::GetSheet()
{
    return Body->GetSheet();
}

const OrbelSheet &OrbelFormular::GetSheet() const
{
    return Body->GetSheet();
}

OrbelScript &OrbelFormular::GetScript()
{
    return Body->GetScript();
}

const OrbelScript &OrbelFormular::GetScript() const
{
    return Body->GetScript();
}

QWidget *OrbelFormular::GetGUI() const
{
    return GetSheet().GetGUI();
}

void OrbelFormular::ParseORBEL(QXmlStreamReader &reader)
{
    Run()->ParseORBEL(reader);
}

void OrbelFormular::SetChangedORBEL(const QString &text)
{
    Run()->SetChangedORBEL(text);
}

void OrbelFormular::ProcessChangedORBEL(QXmlStreamReader &reader)
{
    Run()->ProcessChangedORBEL(reader);
}

QExplicitlySharedDataPointer<OrbelEnum> OrbelFormular::GetEnum(const QString &name) const
{
    return Body->GetEnum(name);
}

bool OrbelFormular::HasEnum(const QString &name) const
{
    return Body->HasEnum(name);
}

void OrbelFormular::InitEnumeration(const QString &name, ValueSelection *selection, const QStringList *identifiers)
{
    Run()->InitEnumeration(name, selection, identifiers);
}

void OrbelFormular::CreateValueTree(const QString &path)
{
    Run()->CreateValueTree(path);
}

void OrbelFormular::CreateGUI(bool applyUi)
{
    Run()->CreateGUI(applyUi, QStringList(), true);
}

void OrbelFormular::CreateGUI(bool applyUi, const QStringList &names, bool exclude)
{
    Run()->CreateGUI(applyUi, names, exclude);
}

void OrbelFormular::Show()
{
    const CallScope call(GetSheet().GetLife());
    if (QWidget *top = GetGUI())
        top->show();
}

void OrbelFormular::Hide()
{
    const CallScope call(GetSheet().GetLife());
    if (QWidget *top = GetGUI())
        top->hide();
}

void OrbelFormular::applyNow()
{
    GetSheet().applyNow();
}

void OrbelFormular::FinishEditing()
{
    GetSheet().FinishEditing();
}

QUndoStack *OrbelFormular::GetUndoStack() const
{
    return GetSheet().GetChanges()->GetStack();
}

void OrbelFormular::SelectWidgets(const QStringList &paths, bool select)
{
    GetSheet().SelectWidgets(paths, select);
}

void OrbelFormular::ShowGroup(const QString &name, bool show)
{
    GetSheet().ShowGroup(name, show);
}

void OrbelFormular::EnableInput(bool enable)
{
    GetSheet().EnableInput(enable, OrbelSheet::EnableScopeInput);
}

bool OrbelFormular::IsInputEnabled() const
{
    return GetSheet().IsInputEnabled(OrbelSheet::EnableScopeInput);
}

QString OrbelFormular::GetXmlString(bool onlyModified)
{
    return Run()->GetXmlString(onlyModified);
}

QString OrbelFormular::GetEmptyXmlElement() const
{
    return Run()->GetEmptyXmlElement();
}

void OrbelFormular::SetXmlString(const QString &xml)
{
    Run()->SetXmlString(xml);
}

ValueBase *OrbelFormular::GetVTValue(const QString &name) const
{
    return Body->GetVTValue(name);
}

ValueBase *OrbelFormular::GetVTValue(ValueBase *local, IObserver *observer, bool init, ValueBase *source)
{
    return Run()->GetVTValue(local, observer, init, source);
}

void OrbelFormular::GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init)
{
    Run()->GetVTValues(locals, observer, init);
}

bool OrbelFormular::SetVTValue(ValueBase *local, IObserver *observer, bool apply)
{
    return Run()->SetVTValue(local, observer, apply);
}

bool OrbelFormular::SetVTValue(const QString &name, const QString &value, IObserver *observer, bool apply)
{
    return Run()->SetVTValue(name, value, observer, apply);
}

void OrbelFormular::InitVTValue(const QString &name, ValueBase *value)
{
    Run()->InitVTValue(name, value);
}

void OrbelFormular::InitVTValue(ValueBase *destination, ValueBase *source, IObserver *observer)
{
    FormBody::InitVTValue(destination, source, observer);
}

void OrbelFormular::SetConfigObject(QObject *object, const QString &name)
{
    Run()->SetConfigObject(object, name);
}

QObject *OrbelFormular::GetConfigObject() const
{
    return Body->GetConfiguration().GetObject();
}

const QString &OrbelFormular::GetConfigName() const
{
    return Body->GetConfiguration().GetName();
}

void OrbelFormular::ApplyConfiguration()
{
    Run()->ApplyConfiguration();
}

void OrbelFormular::RestoreConfiguration()
{
    Run()->RestoreConfiguration();
}

void OrbelFormular::sl_fontSize(int size)
{
    Run()->ChooseFontSize(size);
}

QString OrbelFormular::GetXmlSnapshot(bool onlyModified) const
{
    return Run()->GetXmlSnapshot(onlyModified);
}

void OrbelFormular::EnterXmlString(const QString &xml)
{
    Run()->EnterXmlString(xml);
}

bool OrbelFormular::Report(const QString &path, const QVariant &value, QString *error)
{
    return Run()->Report(path, value, error);
}

bool OrbelFormular::Enter(const QString &path, const QVariant &value, QString *error)
{
    return Run()->Enter(path, value, error);
}

bool OrbelFormular::TakeReported(const QString &path)
{
    return Run()->TakeReported(path);
}

bool OrbelFormular::Revert(const QString &path)
{
    return Run()->Revert(path);
}

void OrbelFormular::RevertAll()
{
    Run()->RevertAll();
}

QStringList OrbelFormular::GetChanged() const
{
    return Run()->GetChanged();
}

void OrbelFormular::DropUnchanged()
{
    Run()->DropUnchanged();
}

void OrbelFormular::SetLockReason(const QString &reason)
{
    GetSheet().GetUi()->SetLockReason(reason);
}

void OrbelFormular::SetScriptLimit(int milliseconds)
{
    Run()->SetScriptLimit(milliseconds);
}

void OrbelFormular::EvaluateScript(const QString &text)
{
    Run()->EvaluateScript(text);
}

void OrbelFormular::SetScriptValue(const QString &name, QObject *object)
{
    Run()->SetScriptValue(name, object);
}

void OrbelFormular::SetScriptValue(const QString &name, bool value)
{
    Run()->SetHostValue(name, QScriptValue(value));
}

void OrbelFormular::SetScriptValue(const QString &name, double value)
{
    Run()->SetHostValue(name, QScriptValue(value));
}

void OrbelFormular::SetScriptValue(const QString &name, const QString &value)
{
    Run()->SetHostValue(name, QScriptValue(value));
}

void OrbelFormular::SetScriptValue(const QString &name, const char *value)
{
    Run()->SetHostValue(name, QScriptValue(QString::fromUtf8(value)));
}

QMap<QString, QScriptValue> OrbelFormular::GetScriptValues() const
{
    return Run()->GetScriptValues();
}

bool OrbelFormular::TakeOver(OrbelFormular *former, QStringList *told)
{
    return Run()->TakeOver(former, told);
}

bool OrbelFormular::IsAtRest() const
{
    return Body->IsAtRest();
}

void OrbelFormular::SetScriptFile(const QString &name)
{
    Run()->SetScriptFile(name);
}

void OrbelFormular::DebugScript()
{
    Run()->DebugScript();
}

} // namespace KV218
