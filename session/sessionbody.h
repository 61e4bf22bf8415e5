#pragma once

#include "definition.h"
#include "session.h"

#include <QExplicitlySharedDataPointer>
#include <QObject>
#include <QPointer>
#include <QVariant>

#include <memory>

namespace Orbel
{

/// The inside of a session. The session may be deleted in any slot; its body lives on until what runs in here has
/// returned, with no form and nobody to tell. All that it keeps of controls is kept by parameter path, so that another
/// form can take the place of this one.
class SessionBody : public QObject, public std::enable_shared_from_this<SessionBody>
{
    Q_OBJECT

public:
    using Form = Definition::Form;

    SessionBody(const Definition &definition, const SessionOptions &options);
    ~SessionBody() override;

    /// Makes the form and its window; false when the definition has none.
    bool Build();
    std::unique_ptr<Session> MakeOwner();
    /// The session that this is the inside of; null when it has ended.
    void SetOwner(Session *owner) { Owner = owner; }
    Session *GetOwner() const { return Owner; }
    /// The session ends.
    void Close();

    /// Makes `form` the form of the session: from here on it is heard, stands in the window, and has the session's lock
    /// and script limit. The form must have its nodes and its controls. The former one is let go.
    void Bind(const Form &form);

    const Definition &GetDefinition() const { return Source; }
    void SetDefinition(const Definition &definition) { Source = definition; }
    const SessionOptions &GetOptions() const { return Options; }
    const Form &GetForm() const { return Bound; }
    QWidget *GetWidget() const { return Holder; }

private:
    Definition Source;
    SessionOptions Options;
    QPointer<Session> Owner;
    Form Bound;
    /// Belongs to the session until it has a parent.
    QPointer<QWidget> Holder;
};

} // namespace Orbel
