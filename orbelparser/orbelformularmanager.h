#pragma once

#include "iobserver.h"
#include "orbelexport.h"
#include "orbelformular.h"

#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QObject>

class ValueBase;

namespace KV218
{

class ManagerBody;
template <class Body> class Running;

/// Keeps many forms, of which one at a time is shown: their definitions by name, each built when it is first asked for,
/// and what must be the same for all: the root of their node paths, whether they have an apply row, the configuration
/// object, and the operator's choice of automatic apply, which goes along from form to form.
///
/// Operations on the current form are harmless without one: they do nothing, or give an empty string, false or null.
/// All of it belongs to the GUI thread.
class ORBEL_EXPORT OrbelFormularManager : public QObject
{
    Q_OBJECT

public:
    /// A form of the manager, shared with whoever holds it.
    using Formular = QExplicitlySharedDataPointer<OrbelFormular>;

    OrbelFormularManager();
    ~OrbelFormularManager() override;

    /// The root of the forms' node paths, kept without one trailing "/". Counts for forms built later.
    void SetVTPath(const QString &path);
    /// Whether forms built later have an apply row.
    void EnableApplyUi(bool enable);

    /// Keeps a definition under a name; ignored when a form of that name is already built.
    void DefineFormular(const QString &name, const QString &definition);
    /// Takes a share of a form and keeps it under its own name. It is neither bound to nodes nor made current.
    void AddFormular(OrbelFormular *formular);
    /// The names of the definitions, sorted. Forms that were added are not among them.
    QList<QString> GetNames() const;
    /// The definition of that name; empty without one.
    QString GetOrbel(const QString &name) const;
    /// The form of that name, built on the first call: parsed, bound to nodes below the root at the letters and digits
    /// of its name, with its controls, hidden. Null when there is neither a form nor a definition that holds one.
    Formular GetFormular(const QString &name);
    Formular GetCurrentFormular() const;
    QString GetCurrentName() const;
    /// Hides the current form and shows the one of that name, which must have been built or added. False when there is
    /// none; then no form is current.
    bool ShowFormular(const QString &name);
    /// Forgets definitions and forms, and deletes the forms' widgets later.
    void Reset();

    /// The configuration object, which stays the host's, and the prefix of its keys, for all forms.
    void SetConfigObject(QObject *object, const QString &name);

    /// These act on the current form; see OrbelFormular.
    QString GetXmlString(bool onlyModified);
    QString GetEmptyXmlElement() const;
    void SetXmlString(const QString &xml);
    /// Whether a control of the current form is modified. When none is, the form's own mark is cleared too.
    bool isWidgetModified();
    /// Marks the current form as modified, if it is active; true lets automatic apply run.
    void SetCurrentModified(bool autoApply);
    /// Without a current form, `init` empties all the values, from the last to the first.
    void GetVTValues(const QList<ValueBase *> &locals, IObserver *observer, bool init);
    bool SetVTValue(ValueBase *local, IObserver *observer);

public Q_SLOTS:
    /// Has the current form load its configuration; see OrbelFormular.
    void RestoreConfiguration();

Q_SIGNALS:
    /// There are parameters of the current form to fetch.
    void si_parametersModified();

private:
    /// What may call handlers goes through this, since one of them may delete the manager.
    Running<ManagerBody> Run() const;

    /// Never null.
    ManagerBody *const Body;
};

} // namespace KV218
