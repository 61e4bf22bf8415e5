#pragma once

#include "orbelformular.h"
#include "orbelparser.h"

#include <memory>
#include <QWidget>

/// A form of the library, from its text on, stage by stage.
class OrbelForm
{
public:
    void Parse(const QString &definition) { form = KV218::OrbelParser().ParseORBEL(definition); }
    void MakeNodes()
    {
        // Two forms that exist at a time need paths of their own.
        static int count = 0;
        form->CreateValueTree(QStringLiteral("/Bench%1").arg(++count));
    }
    void MakeControls()
    {
        form->CreateGUI(true);
        window.reset(form->GetGUI());
    }
    void Build(const QString &definition)
    {
        Parse(definition);
        MakeNodes();
        MakeControls();
    }

    KV218::OrbelFormular *operator->() const { return form.data(); }
    QWidget *Window() const { return window.get(); }

private:
    QExplicitlySharedDataPointer<KV218::OrbelFormular> form;
    std::unique_ptr<QWidget> window;
};
