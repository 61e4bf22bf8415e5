#include "sessionbody.h"

#include "orbelformular.h"
#include "tree.h"

#include <QThread>
#include <QVBoxLayout>
#include <QWidget>

namespace Orbel
{

/// A path of the value tree that is free, and that no session has had before.
static QString NewNodePath()
{
    static int last = 0;
    QString path;
    do
        path = QStringLiteral("/Session%1").arg(++last);
    while (Tree::Instance()->GetNode(path) || !Tree::Instance()->GetChildNames(path).isEmpty());
    return path;
}

SessionBody::SessionBody(const Definition &definition, const SessionOptions &options)
    : Source(definition), Options(options)
{
    if (Options.NodePath.isEmpty())
        Options.NodePath = NewNodePath();
}

SessionBody::~SessionBody() = default;

bool SessionBody::Build()
{
    const Form form = Source.Parse();
    if (!form)
        return false;
    Holder = new QWidget;
    auto *layout = new QVBoxLayout(Holder);
    layout->setContentsMargins(0, 0, 0, 0);
    form->CreateValueTree(Options.NodePath);
    form->CreateGUI(Options.ApplyRow);
    Bind(form);
    return true;
}

std::unique_ptr<Session> SessionBody::MakeOwner()
{
    return std::unique_ptr<Session>(new Session(shared_from_this()));
}

void SessionBody::Bind(const Form &form)
{
    if (Bound)
        Bound->disconnect(this);
    Bound = form;
    if (Holder && form->GetGUI() && form->GetGUI()->parentWidget() != Holder)
        Holder->layout()->addWidget(form->GetGUI());
}

void SessionBody::Close()
{
    const auto self = shared_from_this();
    Owner = nullptr;
    if (Bound)
        Bound->disconnect(this);
    Bound = nullptr;
    QWidget *const window = Holder && !Holder->parent() ? Holder.data() : nullptr;
    if (!window)
        return;
    // One of its events may be what ends the session.
    if (QThread::currentThread()->loopLevel() == 0) {
        delete window;
        return;
    }
    window->hide();
    window->deleteLater();
}

} // namespace Orbel
