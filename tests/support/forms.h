#pragma once

#include "delegatefactory.h"
#include "orbelformular.h"
#include "orbelparser.h"
#include "orbelsheetui.h"
#include "testcase.h"
#include "tree.h"

#include <QtScript>

/// Small helpers that tests use to get at a form and its controls.
namespace forms
{

using Form = QExplicitlySharedDataPointer<KV218::OrbelFormular>;

/// A definition of one sheet named "sheet"; `body` holds its children, `rest` stands behind it.
inline QString Definition(const QString &body, const QString &rest = QString())
{
    return "<ZkParamGui version=\"1\"><Sheet name=\"sheet\">" + body + "</Sheet>" + rest + "</ZkParamGui>";
}

/// A widget element. `properties` is a list of "name=Type:text".
inline QString Widget(const QString &name, const QString &className, const QStringList &properties = {})
{
    QString text = QString("<Widget name=\"%1\" class=\"%2\">").arg(name, className);
    for (const QString &property : properties) {
        const int equals = property.indexOf('=');
        const int colon = property.indexOf(':', equals);
        text += QString("<Property name=\"%1\"><%2>%3</%2></Property>")
                    .arg(property.left(equals), property.mid(equals + 1, colon - equals - 1),
                        property.mid(colon + 1).toHtmlEscaped());
    }
    return text + "</Widget>";
}

/// That a control is shown, takes input and has a parameter.
inline const QStringList Usable{"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"};

/// A usable control with its name as label.
inline QString Labelled(const QString &name, const QString &className, const QStringList &properties = {})
{
    return Widget(name, className, Usable + QStringList{"labelText=String:" + name} + properties);
}

/// An enumeration. `rows` has its rows as "display=value", parted by blanks.
inline QString Enum(const QString &name, const QString &rows)
{
    QString text;
    for (const QString &row : rows.split(' ', Qt::SkipEmptyParts))
        text += QString("<EnumValue><DisplayName>%1</DisplayName><Value>%2</Value></EnumValue>")
                    .arg(row.section('=', 0, 0), row.section('=', 1));
    return "<Enums><Enum name='" + name + "'>" + text + "</Enum></Enums>";
}

inline Form Parse(const QString &definition)
{
    return Form(KV218::OrbelParser().ParseORBEL(definition));
}

/// Parses, makes the nodes under "/Form" and runs the script.
inline Form Bind(const QString &definition)
{
    Form form = Parse(definition);
    form->CreateValueTree("/Form");
    return form;
}

/// Makes the controls of a form; gives its window, which is not shown yet.
inline std::unique_ptr<QWidget> Build(const Form &form, bool applyUi = true)
{
    form->CreateGUI(applyUi);
    return std::unique_ptr<QWidget>(form->GetGUI());
}

/// The delegate of the first widget of that name; null without one.
inline KV218::OrbelDelegate *Delegate(const Form &form, const QString &name)
{
    const KV218::OrbelSheet &sheet = form->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (sheet.GetWidgetAt(i)->GetName() == name)
            return sheet.GetWidgetAt(i)->GetDelegate();
    }
    return nullptr;
}

/// Names of all widgets, joined with a blank.
inline QString Names(const Form &form)
{
    QStringList names;
    for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i)
        names << form->GetSheet().GetWidgetAt(i)->GetName();
    return names.join(' ');
}

inline QScriptEngine *EngineOf(const Form &form)
{
    return form->GetScriptValues().value("sheet").engine();
}

/// A form of the examples, by the name of its file.
inline Form Example(const QString &file)
{
    return Form(KV218::OrbelParser().ParseORBELFile(ORBEL_EXAMPLES_DIR "/forms/" + file));
}

} // namespace forms

// Whoever tests forms speaks of them without their namespaces.
using namespace KV218;
using namespace forms;
