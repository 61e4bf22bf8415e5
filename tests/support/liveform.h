#pragma once

#include "eventlog.h"
#include "formoperator.h"
#include "forms.h"
#include "modalvisitor.h"

using Orbel::EventLog;
using Orbel::ModalVisitor;
using Orbel::OpenCell;
using Orbel::PassTime;
using Orbel::TypeOver;

/// A form with its window on the screen, an operator at it, and a log that watches the sheet as "sheet". Automatic
/// apply waits 100 ms.
struct LiveForm : Orbel::FormOperator {
    explicit LiveForm(const QString &body, bool applyUi = true, const QString &path = "/Form")
        : LiveForm(Parse(Definition(
                       "<Properties><Property name='autoApplyTimeout'><Int>100</Int></Property></Properties>" + body)),
            path, {400, 400}, applyUi)
    {
        log.Watch("sheet", form->GetSheet().GetUi());
    }
    template <class Delegate = KV218::OrbelDelegate> Delegate *Get(const QString &name) const
    {
        return qobject_cast<Delegate *>(forms::Delegate(form, name));
    }
    /// The widget of that name; null without one.
    template <class Widget = QWidget> Widget *Find(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }

    /// The text of a node.
    QString Node(const QString &name) const { return form->GetVTValue(name)->GetStringValue(); }

    EventLog log;
    Form form;
    std::unique_ptr<QWidget> window;

protected:
    LiveForm(const Form &parsed, const QString &path, const QSize &size, bool applyUi = true)
        : FormOperator(nullptr), form(parsed)
    {
        form->CreateValueTree(path);
        window = Build(form, applyUi);
        window->resize(size);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    KV218::OrbelFormular *GetForm() const override { return form.data(); }
};

/// The example that holds every class once.
struct AllControls : LiveForm {
    AllControls() : LiveForm(Example("all_controls.orbel"), "/All", {900, 900}) { }
};

/// While it lives, every text of one context reads "context:text".
class ContextTranslator : public QTranslator
{
public:
    explicit ContextTranslator(const QString &context) : Context(context) { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return context == Context ? Context + ':' + text : QString();
    }

private:
    QString Context;
};
