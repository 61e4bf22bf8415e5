#include "session.h"

#include "orbelformular.h"
#include "sessionbody.h"

#include <QWidget>

namespace Orbel
{

static Opening Open(const Definition &definition, const SessionOptions &options)
{
    Opening opening;
    opening.Told = definition.GetFindings();
    const auto body = std::make_shared<SessionBody>(definition, options);
    if (body->Build())
        opening.Opened = body->MakeOwner();
    return opening;
}

Opening Session::OpenFile(const QString &path, const SessionOptions &options)
{
    return Open(Definition::OfFile(path), options);
}

Opening Session::OpenText(const QByteArray &document, const SessionOptions &options)
{
    return Open(Definition::OfText(document), options);
}

Opening Session::OpenComponent(const QByteArray &list, const QString &name, const SessionOptions &options)
{
    return Open(Definition::OfComponent(list, name), options);
}

Session::Session(const std::shared_ptr<SessionBody> &body) : Body(body)
{
    Body->SetOwner(this);
}

Session::~Session()
{
    Body->Close();
}

QWidget *Session::GetWidget() const
{
    return Body->GetWidget();
}

KV218::OrbelFormular *Session::GetForm() const
{
    return Body->GetForm().data();
}

QString Session::GetNodePath() const
{
    return GetForm()->GetVTPath();
}

} // namespace Orbel
