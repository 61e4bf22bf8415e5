#include "formbody.h"

#include "errorhandler.h"
#include "formchanges.h"
#include "formlife.h"
#include "formtakeover.h"
#include "loadhooks.h"
#include "operatoract.h"
#include "orbelformular.h"
#include "orbelsheetui.h"
#include "propertynames.h"
#include "scriptguard.h"
#include "trace.h"
#include "translationcenter.h"
#include "xmlwalk.h"

#include <QAction>
#include <QApplication>
#include <QScopeGuard>
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

FormBody::FormBody(OrbelFormular *form)
    : Form(form), EmptyEnum(new OrbelEnum), Sheet(form), Engine(std::make_unique<QScriptEngine>())
{
    KeepLoadHooks();
    RegisterScriptTypes(Engine.get());
    Sheet.GetLife()->Watch(Engine.get());
    Guard = std::make_unique<ScriptGuard>(Engine.get());
    QObject::connect(Sheet.GetChanges(), &FormChanges::applyWanted, Sheet.GetUi(), [this] { ApplyTyped(); });
}

FormBody::~FormBody()
{
    Sheet.GetLife()->Watch(nullptr);
}

void FormBody::Close()
{
    if (!std::exchange(Form, nullptr))
        return;
    if (!Name.isEmpty())
        TranslationCenter::Instance().Unregister(Name);
    Sheet.Close();
    // A script that runs ends at its next statement; the debugger lets it go on.
    Engine->abortEvaluation();
    if (Debugger)
        Debugger->action(QScriptEngineDebugger::ContinueAction)->trigger();
}

void FormBody::SetName(const QString &name)
{
    // Meant: an earlier name is not withdrawn, so a script that uses it still finds the form.
    Name = name;
    if (!Name.isEmpty())
        TranslationCenter::Instance().Register(Name);
}

void FormBody::ParseORBEL(QXmlStreamReader &reader)
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

void FormBody::SetChangedORBEL(const QString &text)
{
    QXmlStreamReader reader(text);
    ForEachForm(reader, [&] { ProcessChangedORBEL(reader); });
    Sheet.ResyncValueTree();
}

void FormBody::ProcessChangedORBEL(QXmlStreamReader &reader)
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

QExplicitlySharedDataPointer<OrbelEnum> FormBody::GetEnum(const QString &name) const
{
    return Enums.value(name, EmptyEnum);
}

void FormBody::ParseEnums(QXmlStreamReader &reader)
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

void FormBody::ParseChangedEnums(QXmlStreamReader &reader)
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
void FormBody::PublishEnum(const QExplicitlySharedDataPointer<OrbelEnum> &values)
{
    Enums.insert(values->GetName(), values);
    QScriptValue object = Engine->newObject();
    for (int i = 0; i < values->GetValueCount(); ++i) {
        const OrbelEnumValue &value = values->GetValueAt(i);
        object.setProperty(value.GetEnumIdentifier(), QScriptValue(value.GetValue()));
    }
    SetScriptValue(values->GetName(), object);
}

void FormBody::CreateValueTree(const QString &path)
{
    VTPath = path.isNull() ? QLatin1String("") : path;
    Sheet.setActive(false);
    const auto active = qScopeGuard([this] { Sheet.setActive(true); });
    Sheet.CreateValueTree(path);
    if (IsOpen())
        RunScript();
}

void FormBody::CreateGUI(bool applyUi, const QStringList &names, bool exclude)
{
    if (GetGUI())
        return;
    Shown = {applyUi, names, exclude};
    Sheet.CreateGUI(applyUi, names, exclude);
    if (IsOpen())
        RestoreConfiguration();
}

void FormBody::ChooseFontSize(int size)
{
    Sheet.SetFontSize(size);
    ApplyConfiguration();
}

QString FormBody::GetXmlString(bool onlyModified)
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

QString FormBody::GetXmlSnapshot(bool onlyModified) const
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    SetUp(writer);
    Sheet.GetXml(writer, true, onlyModified, true);
    return xml;
}

QString FormBody::GetEmptyXmlElement() const
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    SetUp(writer);
    Sheet.GetXml(writer, false, false);
    return xml;
}

void FormBody::SetXmlString(const QString &xml)
{
    const QString root = Sheet.GetUi()->GetString(prop::ParametersXmlRootTag, QStringLiteral("Parameters"));
    QXmlStreamReader reader(xml);
    while (IsOpen() && !reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == root)
            Sheet.ReadXml(reader);
    }
    // A document read over an edit that was not applied leaves nothing to apply.
    if (Sheet.isModified() && !Sheet.isWidgetModified())
        Sheet.resetModified();
}

/// A text that its field refuses stays there; the rest is applied.
void FormBody::ApplyTyped()
{
    const bool free
        = Sheet.IsInputEnabled(OrbelSheet::EnableScopeInput) && Sheet.IsInputEnabled(OrbelSheet::EnableScopeSheet);
    if (!free)
        return;
    const CallScope call(Sheet.GetLife());
    Sheet.FinishEditing();
    if (IsOpen())
        Sheet.applyNow();
}

void FormBody::SetConfigObject(QObject *object, const QString &name)
{
    if (Configuration.SetObject(object, name))
        RestoreConfiguration();
}

void FormBody::ApplyConfiguration()
{
    if (!Configuration.Exists())
        return;
    const QWidget *top = GetGUI();
    const int size = top ? top->font().pointSize() : 0;
    Configuration.SetFontSize(top && size != QApplication::font().pointSize() ? size : 0);
    Configuration.SetCollapsed(Sheet.GetCollapsed());
}

void FormBody::RestoreConfiguration()
{
    if (!Configuration.Exists())
        return;
    const int ownSize = Configuration.GetFontSize();
    const int applicationSize = QApplication::font().pointSize();
    if (ownSize > 0)
        Sheet.SetFontSize(ownSize);
    else if (GetGUI() && GetGUI()->font().pointSize() != applicationSize)
        Sheet.SetFontSize(applicationSize);
    Sheet.SetCollapsed(Configuration.GetCollapsed());
    const QVariant inputDisabled = Configuration.GetInputDisabled();
    if (inputDisabled.isValid())
        Sheet.EnableInput(!inputDisabled.toBool(), OrbelSheet::EnableScopeInput);
}

void FormBody::RunScript()
{
    const int line = ScriptFile.isEmpty() ? 1 : Script.GetLine();
    Guard->SetPlace(ScriptFile, line);
    Engine->evaluate(Script.GetCode(), ScriptFile, line);
    if (Engine->hasUncaughtException())
        Guard->TellException(Engine->uncaughtException(), Engine->uncaughtExceptionLineNumber());
    // An exception tells its text by a function of the script, which runs for nothing when nobody reads it.
    if (!Engine->hasUncaughtException() || !(ErrorHandler::Instance().GetTraceMask() & ekTraceFailure))
        return;
    const QString text = Engine->uncaughtException().toString();
    TraceFailure(QStringLiteral("** OrbelFormular Script Exception %1\n").arg(text), "orbelformular", __LINE__);
}

void FormBody::EvaluateScript(const QString &text)
{
    Engine->evaluate(text, QString(), 1);
}

void FormBody::SetScriptValue(const QString &name, QObject *object)
{
    // Delegates are the form's own.
    if (!qobject_cast<OrbelDelegate *>(object)) {
        HostValues.remove(name);
        HostObjects.insert(name, object);
    }
    const QScriptValue made = Engine->newQObject(object);
    if (object)
        Prototypes.Keep(*Engine, object->metaObject(), made);
    SetScriptValue(name, made);
}

void FormBody::SetHostValue(const QString &name, const QScriptValue &value)
{
    HostObjects.remove(name);
    HostValues.insert(name, value.toVariant());
    SetScriptValue(name, value);
}

void FormBody::TakeHostValues(const FormBody &former)
{
    for (auto value = former.HostValues.cbegin(); value != former.HostValues.cend(); ++value)
        SetHostValue(value.key(), Engine->toScriptValue(value.value()));
    for (auto object = former.HostObjects.cbegin(); object != former.HostObjects.cend(); ++object)
        SetScriptValue(object.key(), object.value().data());
}

bool FormBody::TakeOver(OrbelFormular *former, QStringList *told)
{
    FormBody *const body = former ? former->Body : nullptr;
    const bool isFresh = IsOpen() && !GetGUI() && VTPath.isNull();
    if (!isFresh || !body || body == this || !body->IsOpen() || body->VTPath.isNull() || !IsAtRest(*body))
        return false;
    FormTakeover(*this, *body).Run(told);
    return true;
}

/// Nothing that is under way in a form may find another one in its place.
bool FormBody::IsAtRest(const FormBody &form)
{
    const QWidget *const window = form.GetGUI();
    const auto isInside = [window](const QWidget *widget) {
        while (widget && widget != window)
            widget = widget->parentWidget();
        return widget;
    };
    const bool isHeld = QGuiApplication::mouseButtons() && isInside(QApplication::widgetAt(QCursor::pos()));
    return form.Sheet.GetLife()->IsAtRest() && !Orbel::OperatorAct::IsAnyRunning()
        && !form.Sheet.GetChanges()->IsMoving() && !isHeld
        && !(window && (isInside(QApplication::activePopupWidget()) || isInside(QWidget::mouseGrabber())));
}

void FormBody::SetScriptValue(const QString &name, const QScriptValue &value)
{
    Engine->globalObject().setProperty(name, value);
}

QMap<QString, QScriptValue> FormBody::GetScriptValues() const
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

void FormBody::SetScriptLimit(int milliseconds)
{
    Guard->SetLimit(milliseconds);
}

void FormBody::DebugScript()
{
    if (Debugger)
        return;
    Debugger = std::make_unique<QScriptEngineDebugger>();
    Debugger->attachTo(Engine.get());
    Debugger->action(QScriptEngineDebugger::InterruptAction)->trigger();
}

} // namespace KV218
