#pragma once

#include "formconfiguration.h"
#include "iobserver.h"
#include "orbelenum.h"
#include "orbelscript.h"
#include "orbelsheet.h"
#include "scripttypes.h"

#include <memory>
#include <QMap>
#include <QScriptValue>

class QScriptEngine;
class QScriptEngineDebugger;
class QXmlStreamReader;
class ValueBase;
class ValueSelection;

namespace KV218
{

class ScriptGuard;

/// The inside of a form: all that its calls work on. The form is deleted by whoever holds it last, at any moment; its
/// body lives on as FormLife tells, so that what runs in here may call anybody. See OrbelFormular for the operations.
class FormBody
{
public:
    /// `form` owns the body and closes it before it goes.
    explicit FormBody(OrbelFormular *form);
    FormBody(const FormBody &) = delete;
    FormBody &operator=(const FormBody &) = delete;
    ~FormBody();

    /// The form ends: removes nodes and name, and blocks the signals of the delegates.
    void Close();
    bool IsOpen() const { return Form; }

    void SetName(const QString &name);
    const QString &GetName() const { return Name; }
    const QString &GetVersion() const { return Version; }
    const QString &GetVTPath() const { return VTPath; }
    OrbelSheet &GetSheet() { return Sheet; }
    OrbelScript &GetScript() { return Script; }
    QWidget *GetGUI() const { return Sheet.GetGUI(); }

    void ParseORBEL(QXmlStreamReader &reader);
    void SetChangedORBEL(const QString &text);
    void ProcessChangedORBEL(QXmlStreamReader &reader);
    QExplicitlySharedDataPointer<OrbelEnum> GetEnum(const QString &name) const;
    bool HasEnum(const QString &name) const { return Enums.contains(name); }
    void InitEnumeration(const QString &name, ValueSelection *selection, const QStringList *identifiers);

    void CreateValueTree(const QString &path);
    void CreateGUI(bool applyUi, const QStringList &names, bool exclude);
    void ChooseFontSize(int size);

    QString GetXmlString(bool onlyModified);
    QString GetXmlSnapshot(bool onlyModified) const;
    QString GetEmptyXmlElement() const;
    void SetXmlString(const QString &xml);
    void EnterXmlString(const QString &xml);

    OrbelDelegate *FindControl(const QString &path) const;
    bool Report(const QString &path, const QVariant &value, QString *error);
    bool Enter(const QString &path, const QVariant &value, QString *error);
    bool TakeReported(const QString &path);
    bool Revert(const QString &path);
    void RevertAll();
    QStringList GetChanged() const;
    void DropUnchanged();

    ValueBase *GetVTValue(const QString &name) const;
    ValueBase *GetVTValue(ValueBase *local, IObserver *observer, bool init, ValueBase *source);
    void GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init);
    bool SetVTValue(ValueBase *local, IObserver *observer, bool apply);
    bool SetVTValue(const QString &name, const QString &value, IObserver *observer, bool apply);
    void InitVTValue(const QString &name, ValueBase *value);
    static void InitVTValue(ValueBase *destination, ValueBase *source, IObserver *observer);

    const FormConfiguration &GetConfiguration() const { return Configuration; }
    void SetConfigObject(QObject *object, const QString &name);
    void ApplyConfiguration();
    void RestoreConfiguration();

    void EvaluateScript(const QString &text);
    void SetScriptValue(const QString &name, QObject *object);
    /// A value of the host's own, as another form that takes this one's place gets it, too.
    void SetHostValue(const QString &name, const QScriptValue &value);
    QMap<QString, QScriptValue> GetScriptValues() const;
    void SetScriptFile(const QString &name) { ScriptFile = name; }
    void DebugScript();
    const ScriptGuard &GetGuard() const { return *Guard; }
    void SetScriptLimit(int milliseconds);

    bool TakeOver(OrbelFormular *former, QStringList *told);
    bool IsAtRest() const { return IsAtRest(*this); }

private:
    friend class FormTakeover;

    static bool IsAtRest(const FormBody &form);
    void TakeHostValues(const FormBody &former);
    void SetScriptValue(const QString &name, const QScriptValue &value);
    void ParseEnums(QXmlStreamReader &reader);
    void ParseChangedEnums(QXmlStreamReader &reader);
    void PublishEnum(const QExplicitlySharedDataPointer<OrbelEnum> &values);
    void RunScript();
    void ApplyTyped();

    /// Null once the form has ended.
    OrbelFormular *Form;
    QString Name;
    QString Version;
    QString VTPath;
    QMap<QString, QExplicitlySharedDataPointer<OrbelEnum>> Enums;
    QExplicitlySharedDataPointer<OrbelEnum> EmptyEnum;
    OrbelSheet Sheet;
    OrbelScript Script;
    /// Empty where the script counts its own lines.
    QString ScriptFile;
    std::unique_ptr<QScriptEngine> Engine;
    ScriptPrototypes Prototypes;
    std::unique_ptr<QScriptEngineDebugger> Debugger;
    std::unique_ptr<ScriptGuard> Guard;
    FormConfiguration Configuration;
    /// What CreateGUI() was given.
    struct Choice {
        bool ApplyUi = true;
        QStringList Names;
        bool Exclude = true;
    };
    Choice Shown;
    QMap<QString, QVariant> HostValues;
    QMap<QString, QPointer<QObject>> HostObjects;
};

} // namespace KV218
