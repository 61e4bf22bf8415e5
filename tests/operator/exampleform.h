#pragma once

#include "forms.h"
#include "tree.h"
#include "valuebase.h"
#include "xoperator.h"

#include <QScriptValue>
#include <QtTest>

/// A form of the examples in a window under the operator's hands.
struct ExampleForm {
    ExampleForm(const QString &file, const QString &nodes, const QSize &size) : path(nodes)
    {
        form = forms::Form(KV218::OrbelParser().ParseORBELFile(ORBEL_EXAMPLES_DIR "/forms/" + file));
        form->CreateValueTree(path);
        form->CreateGUI(true);
        window.reset(form->GetGUI());
        window->resize(size);
    }

    template <class Control> Control *Find(const QString &name) const { return window->findChild<Control *>(name); }
    QString Node(const QString &name) const { return Tree::Instance()->GetNode(path + '/' + name)->GetStringValue(); }
    QString Property(const QString &widget, const char *name) const
    {
        return forms::Delegate(form, widget)->property(name).toString();
    }
    /// What the form's script prints.
    QString Log() const { return form->GetScriptValues().value("log").toString(); }

    QString path;
    forms::Form form;
    std::unique_ptr<QWidget> window;
};
