// What a user of the installed package writes: a form, a node of the host's own value tree, a parameter document.

#include <orbelformular.h>
#include <orbelparser.h>
#include <value.h>

#include <QApplication>
#include <QWidget>

#include <cstdio>
#include <memory>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QExplicitlySharedDataPointer<KV218::OrbelFormular> form(KV218::OrbelParser().ParseORBEL(
        "<ZkParamGui><Sheet name='sheet'><Widget name='Mode' class='LineEdit'>"
        "<Property name='generateParameterXml'><Bool>true</Bool></Property></Widget></Sheet></ZkParamGui>"));
    form->SetScriptValue("name", "text");
    form->SetScriptValue("n", 5);
    form->SetScriptValue("none", nullptr);
    const QMap<QString, QScriptValue> values = form->GetScriptValues();
    if (!values["name"].isString() || !values["n"].isNumber() || !values["none"].isNull())
        return 2;
    form->CreateValueTree("/Consumer");
    form->CreateGUI(true);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    ValueString mode("Mode");
    mode.SetStringValue("text", nullptr);
    if (!form->SetVTValue(&mode, nullptr, false))
        return 1;
    std::puts(qPrintable(form->GetXmlString(true)));
    return 0;
}
