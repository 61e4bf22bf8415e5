#pragma once

#include "orbelformular.h"

#include <memory>
#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QPointer>

namespace KV218
{

class FormLife;
class OrbelFormularManager;

/// The inside of a manager of forms: lives on, as FormLife tells, when the manager is deleted by a handler of a form.
/// See OrbelFormularManager for the operations.
class ManagerBody
{
public:
    using Formular = QExplicitlySharedDataPointer<OrbelFormular>;

    /// `manager` owns the body and closes it before it goes.
    explicit ManagerBody(OrbelFormularManager *manager);
    ManagerBody(const ManagerBody &) = delete;
    ManagerBody &operator=(const ManagerBody &) = delete;

    FormLife *GetLife() const { return Life.get(); }
    void Close();

    void SetVTPath(const QString &path);
    void EnableApplyUi(bool enable) { ApplyUiEnabled = enable; }
    void DefineFormular(const QString &name, const QString &definition);
    void AddFormular(OrbelFormular *formular);
    QList<QString> GetNames() const { return Definitions.keys(); }
    QString GetOrbel(const QString &name) const { return Definitions.value(name); }
    Formular GetFormular(const QString &name);
    Formular GetCurrent() const { return Current; }
    bool ShowFormular(const QString &name);
    void Reset();
    void SetConfigObject(QObject *object, const QString &name);
    bool isWidgetModified();

private:
    Formular BuildFormular(const QString &name);
    /// There must be a current form.
    void HideCurrent();
    void HandOverConfiguration(OrbelFormular *formular) const;

    const std::shared_ptr<FormLife> Life;
    /// Null once the manager has ended.
    QPointer<OrbelFormularManager> Manager;
    QString VTPath;
    bool ApplyUiEnabled = true;
    /// The operator's choice of automatic apply: +1 on, -1 off, 0 not known yet.
    int AutoApplyMemory = 0;
    QMap<QString, QString> Definitions;
    QMap<QString, Formular> Formulars;
    Formular Current;
    QPointer<QObject> ConfigObject;
    QString ConfigName;
};

} // namespace KV218
