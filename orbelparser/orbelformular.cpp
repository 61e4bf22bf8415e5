#include "orbelformular.h"

#include "errorhandler.h"
#include "orbelsheetui.h"
#include "propertynames.h"
#include "scripttypes.h"
#include "trace.h"
#include "translationcenter.h"
#include "xmlwalk.h"

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QScriptEngine>
#include <QScriptEngineDebugger>
#include <QScriptValueIterator>
#include <QWidget>
#include <QXmlStreamWriter>

namespace KV218
{

namespace
{

/// A writer for parameter documents, without a document start.
void SetUp(QXmlStreamWriter &writer)
{
    writer.setAutoFormatting(true);
    writer.setCodec("UTF-8");
}

} // namespace

OrbelFormular::OrbelFormular() : EmptyEnum(new OrbelEnum), Sheet(this), Engine(new QScriptEngine)
{
    RegisterScriptTypes(Engine.get());
    const OrbelSheetUi *ui = Sheet.GetUi();
    connect(ui, &OrbelSheetUi::si_parametersModified, this, &OrbelFormular::si_parametersModified);
    connect(ui, &OrbelSheetUi::si_chooseFontSize, this, &OrbelFormular::sl_fontSize);
}

// A form is never copied: what a copy gets is a new, empty one.
OrbelFormular::OrbelFormular(const OrbelFormular &) : OrbelFormular() {}

OrbelFormular::~OrbelFormular()
{
    Debugger.reset();
    if (!Name.isEmpty())
        TranslationCenter::Instance().Unregister(Name);
    if (Engine->isEvaluating()) {
        Engine->abortEvaluation();
        Engine.release()->deleteLater();
    }
}

void OrbelFormular::SetName(const QString &name)
{
    // Meant: an earlier name stays registered.
    Name = name;
    if (!Name.isEmpty())
        TranslationCenter::Instance().Register(Name);
}

QWidget *OrbelFormular::GetGUI() const
{
    return Sheet.GetGUI();
}

void OrbelFormular::ParseORBEL(QXmlStreamReader &reader)
{
    Version = reader.attributes().value(attribute::Version).toString();
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name == element::Enums)
            ParseEnums(reader);
        else if (name == element::Sheet)
            Sheet.ParseORBEL(reader);
        else if (name == element::Script)
            Script.ParseORBEL(reader);
        else
            reader.skipCurrentElement();
    });
}

void OrbelFormular::SetChangedORBEL(const QString &text)
{
    QXmlStreamReader reader(text);
    const QPointer<OrbelFormular> self(this);
    ForEachForm(reader, [&] { ProcessChangedORBEL(reader); });
    if (self)
        Sheet.ResyncValueTree();
}

void OrbelFormular::ProcessChangedORBEL(QXmlStreamReader &reader)
{
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name == element::Enums)
            ParseChangedEnums(reader);
        else if (name == element::Sheet)
            Sheet.ParseChangedORBEL(reader);
        else if (name == element::Script)
            Script.ParseORBEL(reader);
        else
            reader.skipCurrentElement();
    });
}

QExplicitlySharedDataPointer<OrbelEnum> OrbelFormular::GetEnum(const QString &name) const
{
    return Enums.value(name, EmptyEnum);
}

void OrbelFormular::ParseEnums(QXmlStreamReader &reader)
{
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name != element::Enum) {
            reader.skipCurrentElement();
            return;
        }
        const QExplicitlySharedDataPointer<OrbelEnum> values(new OrbelEnum);
        values->ParseORBEL(reader);
        PublishEnum(values);
    });
}

void OrbelFormular::ParseChangedEnums(QXmlStreamReader &reader)
{
    ForEachStart(reader, [&](const QStringRef &name) {
        if (name != element::Enum) {
            reader.skipCurrentElement();
            return;
        }
        const QString enumName = reader.attributes().value(attribute::Name).toString();
        if (const auto known = Enums.value(enumName)) {
            // Meant: the script goes on seeing the old identifiers and values.
            known->ClearValues();
            known->ParseORBEL(reader);
            return;
        }
        const QExplicitlySharedDataPointer<OrbelEnum> values(new OrbelEnum);
        values->ParseORBEL(reader);
        PublishEnum(values);
    });
}

/// Enters an enumeration into the map, and into the script as an object of its identifiers.
void OrbelFormular::PublishEnum(const QExplicitlySharedDataPointer<OrbelEnum> &values)
{
    Enums.insert(values->GetName(), values);
    QScriptValue object = Engine->newObject();
    for (int i = 0; i < values->GetValueCount(); ++i) {
        const OrbelEnumValue &value = values->GetValueAt(i);
        object.setProperty(value.GetEnumIdentifier(), QScriptValue(value.GetValue()));
    }
    SetGlobal(values->GetName(), object);
}

void OrbelFormular::CreateValueTree(const QString &path)
{
    VTPath = path;
    const QPointer<OrbelFormular> self(this);
    Sheet.setActive(false);
    Sheet.CreateValueTree(path);
    InitScript();
    if (self)
        Sheet.setActive(true);
}

void OrbelFormular::CreateGUI(bool applyUi)
{
    CreateGUI(applyUi, QStringList(), true);
}

void OrbelFormular::CreateGUI(bool applyUi, const QStringList &names, bool exclude)
{
    const QPointer<OrbelFormular> self(this);
    Sheet.CreateGUI(applyUi, names, exclude);
    if (self)
        RestoreConfiguration();
}

void OrbelFormular::Show()
{
    GetGUI()->show();
}

void OrbelFormular::Hide()
{
    GetGUI()->hide();
}

void OrbelFormular::applyNow()
{
    Sheet.applyNow();
}

void OrbelFormular::SelectWidgets(const QStringList &paths, bool select)
{
    Sheet.SelectWidgets(paths, select);
}

void OrbelFormular::ShowGroup(const QString &name, bool show)
{
    Sheet.ShowGroup(name, show);
}

void OrbelFormular::EnableInput(bool enable)
{
    Sheet.EnableInput(enable, OrbelSheet::EnableScopeInput);
}

bool OrbelFormular::IsInputEnabled() const
{
    return Sheet.IsInputEnabled(OrbelSheet::EnableScopeInput);
}

void OrbelFormular::sl_fontSize(int size)
{
    const QPointer<OrbelFormular> self(this);
    Sheet.SetFontSize(size);
    if (self)
        ApplyConfiguration();
}

QString OrbelFormular::GetXmlString(bool onlyModified)
{
    if (onlyModified && !Sheet.isWidgetModified()) {
        Sheet.resetModified();
        return QString();
    }
    QString xml;
    QXmlStreamWriter writer(&xml);
    SetUp(writer);
    Sheet.GetXml(writer, true, onlyModified);
    Sheet.resetModified();
    return xml;
}

QString OrbelFormular::GetEmptyXmlElement() const
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    SetUp(writer);
    Sheet.GetXml(writer, false, false);
    return xml;
}

void OrbelFormular::SetXmlString(const QString &xml)
{
    const QPointer<OrbelFormular> self(this);
    const QString root = Sheet.GetUi()->GetString(prop::ParametersXmlRootTag, QStringLiteral("Parameters"));
    QXmlStreamReader reader(xml);
    while (self && !reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == root)
            Sheet.ReadXml(reader);
    }
}

void OrbelFormular::SetConfigObject(QObject *object, const QString &name)
{
    if (Configuration.SetObject(object, name))
        RestoreConfiguration();
}

void OrbelFormular::ApplyConfiguration()
{
    if (!Configuration.Exists())
        return;
    const QWidget *top = GetGUI();
    const int size = top ? top->font().pointSize() : 0;
    Configuration.SetFontSize(top && size != QApplication::font().pointSize() ? size : 0);
    Configuration.SetCollapsed(Sheet.GetCollapsed());
}

void OrbelFormular::RestoreConfiguration()
{
    if (!Configuration.Exists())
        return;
    // Whatever is set here may make a control commit, and a handler end the form.
    const QPointer<OrbelFormular> self(this);
    const int ownSize = Configuration.GetFontSize();
    const int applicationSize = QApplication::font().pointSize();
    if (ownSize > 0)
        Sheet.SetFontSize(ownSize);
    else if (GetGUI() && GetGUI()->font().pointSize() != applicationSize)
        Sheet.SetFontSize(applicationSize);
    if (self)
        Sheet.SetCollapsed(Configuration.GetCollapsed());
    if (!self)
        return;
    const QVariant inputDisabled = Configuration.GetInputDisabled();
    if (inputDisabled.isValid())
        EnableInput(!inputDisabled.toBool());
}

void OrbelFormular::InitScript()
{
    const QPointer<OrbelFormular> self(this);
    Engine->evaluate(Script.GetCode(), QString(), 1);
    if (!self || !Engine->hasUncaughtException())
        return;
    const QScriptValue exception = Engine->uncaughtException();
    TraceFailure(QStringLiteral("** OrbelFormular Script Exception %1\n").arg(exception.toString()),
        "orbelformular", __LINE__);
}

void OrbelFormular::EvaluateScript(const QString &text)
{
    Engine->evaluate(text, QString(), 1);
}

void OrbelFormular::SetScriptValue(const QString &name, QObject *object)
{
    SetGlobal(name, Engine->newQObject(object));
}

void OrbelFormular::SetScriptValue(const QString &name, bool value)
{
    SetGlobal(name, QScriptValue(value));
}

void OrbelFormular::SetScriptValue(const QString &name, double value)
{
    SetGlobal(name, QScriptValue(value));
}

void OrbelFormular::SetScriptValue(const QString &name, const QString &value)
{
    SetGlobal(name, QScriptValue(value));
}

void OrbelFormular::SetGlobal(const QString &name, const QScriptValue &value)
{
    Engine->globalObject().setProperty(name, value);
}

QMap<QString, QScriptValue> OrbelFormular::GetScriptValues() const
{
    QMap<QString, QScriptValue> values;
    QScriptValueIterator global(Engine->globalObject());
    while (global.hasNext()) {
        global.next();
        const QScriptValue value = global.value();
        if (value.isValid())
            values.insert(global.name(), value);
    }
    return values;
}

void OrbelFormular::DebugScript()
{
    if (Debugger)
        return;
    Debugger = std::make_unique<QScriptEngineDebugger>();
    Debugger->attachTo(Engine.get());
    Debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
}

} // namespace KV218
