// What all controls have in common: their base, facets over one table, and the example that holds every class once.

#include "delegatefactory.h"
#include "liveform.h"
#include "registry.h"

namespace
{

const QStringList Furnished{"enumName=String:e", "itemCount=Int:2", "rowCount=Int:2", "columnCount=Int:2",
    "spacingsCount=Int:2", "text=String:t", "parameterListItemTag=String:i", "unit=String:u"};

/// One control named "a" with parameters, and an enumeration for those that want one.
QString One(const QString &className, const QStringList &properties)
{
    return Definition(
        Widget("a", className, QStringList{"generateParameterXml=Bool:true"} + properties), Enum("e", "One=1 Two=2"));
}

/// Lets a script note the name of each own signal of control "a", in the order of emission.
void WatchSignals(const Form &form)
{
    form->EvaluateScript("var log = [];");
    const QMetaObject *meta = Delegate(form, "a")->metaObject();
    for (int i = OrbelDelegate::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal)
            form->EvaluateScript(QString("a['%1'].connect(function () { log.push('%2'); });")
                                     .arg(QString(method.methodSignature()), QString(method.name())));
    }
}

QString TakeLog(const Form &form)
{
    const QString log = EngineOf(form)->evaluate("log.join(' ')").toString();
    form->EvaluateScript("log = [];");
    return log;
}

/// A value of a declared type, for a script and for a signal.
QVariant Sample(int type)
{
    return type == QMetaType::QVariant ? QVariant(1)
        : type == QMetaType::QString   ? QVariant("1")
                                       : QVariant(type, nullptr);
}

/// Calls a method of a script's global with an argument for each parameter; gives the exception's text, or nothing.
QString CallFromScript(QScriptEngine *engine, const QString &global, const QMetaMethod &method)
{
    QScriptValueList arguments;
    for (int i = 0; i < method.parameterCount(); ++i)
        arguments << engine->toScriptValue(Sample(method.parameterType(i)));
    QScriptValue object = engine->globalObject().property(global);
    QScriptValue function = object.property(QString(method.methodSignature()));
    if (!function.isFunction())
        return "no function";
    function.call(object, arguments);
    const QString failure = engine->hasUncaughtException() ? engine->uncaughtException().toString() : QString();
    engine->clearExceptions();
    return failure;
}

/// "text" for setText(QString); empty for what is no setter.
QByteArray PropertySetBy(const QMetaMethod &method)
{
    const QByteArray name = method.name();
    return name.startsWith("set") && method.parameterCount() == 1 ? name.mid(3, 1).toLower() + name.mid(4)
                                                                  : QByteArray();
}

/// Connects a script's function, emits the signal, and gives how many arguments arrived; -1 for none of it.
int ArgumentsThatArrive(QScriptEngine *engine, const QString &global, QObject *sender, const QMetaMethod &signal)
{
    engine->evaluate(
        QString("var arrived = -1; function handler() { arrived = arguments.length; } %1['%2'].connect(handler);")
            .arg(global, QString(signal.methodSignature())));
    QVector<QVariant> values;
    QGenericArgument arguments[6];
    for (int i = 0; i < signal.parameterCount(); ++i)
        values << Sample(signal.parameterType(i));
    for (int i = 0; i < signal.parameterCount(); ++i) {
        const bool isVariant = signal.parameterType(i) == QMetaType::QVariant;
        arguments[i] = QGenericArgument(
            QMetaType::typeName(signal.parameterType(i)), isVariant ? &values[i] : values[i].constData());
    }
    signal.invoke(sender, Qt::DirectConnection, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4]);
    const int arrived = engine->evaluate("arrived").toInt32();
    engine->evaluate(QString("%1['%2'].disconnect(handler);").arg(global, QString(signal.methodSignature())));
    return arrived;
}

/// The properties that the library has asked each object for.
QHash<const QObject *, QSet<QString>> Asked;

/// What the rows of a class tell otherwise than its delegate that was asked. Classes that share a delegate tell a part
/// each.
QStringList Untold(const Orbel::ClassInfo &row, const QSet<QString> &asked)
{
    QSet<QString> told{"unit"}; // The base keeps it for all, and some write it.
    for (const Orbel::ClassInfo &info : Orbel::Registry::Classes()) {
        const QStringList names = Orbel::Registry::PropertyNames(info);
        if (qstrcmp(info.delegate->delegate, row.delegate->delegate) == 0)
            told += QSet<QString>(names.begin(), names.end());
    }
    QStringList untold;
    for (const QString &name : asked - told)
        untold << QString("%1 reads %2").arg(row.name, name);
    for (const Orbel::PropertyInfo &property : row.delegate->properties) {
        if (!asked.contains(property.name))
            untold << QString("%1 leaves %2").arg(row.name, property.name);
    }
    // The limits of a range replace those that the factor had a part in; only the large field has a lock.
    untold.removeOne("FrequencyRangeEdit reads displayScalingFactor");
    untold.removeOne("FrequencyEdit leaves FrequencyLock");
    return untold;
}

/// A delegate that shows what the base keeps to itself.
class Probe : public OrbelDelegate
{
public:
    explicit Probe(QObject *target = nullptr) : OrbelDelegate(nullptr), Target(target) { }

    using OrbelDelegate::formatString;
    using OrbelDelegate::PropagateProperties;

    void PropertyChanged(const QString &name, const QVariant &value) override
    {
        Log << name + "=" + (value.isValid() ? value.toString() : QString("invalid"));
        OrbelDelegate::PropertyChanged(name, value);
        PropagateProperty(name, Target);
    }

    QObject *Target;
    QStringList Log;
};

} // namespace

// The linker puts the first before QObject::property() in all of the library, and calls that the second.
QVariant Ask(const QObject *object, const char *name) __asm__("__wrap__ZNK7QObject8propertyEPKc");
QVariant PropertyOf(const QObject *object, const char *name) __asm__("__real__ZNK7QObject8propertyEPKc");

QVariant Ask(const QObject *object, const char *name)
{
    Asked[object].insert(name);
    return PropertyOf(object, name);
}

class TestAllControls : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theExampleHoldsEveryClassOnce()
    {
        const Form form = Example("all_controls.orbel");
        form->CreateValueTree("/All");
        QHash<QString, int> seen;
        for (int i = 0; i < form->GetSheet().GetWidgetCount(); ++i)
            ++seen[form->GetSheet().GetWidgetAt(i)->GetClass()];
        QStringList wrong;
        for (const QString &name : DelegateClassNames()) {
            if (seen.take(name) < 1)
                wrong << name;
        }
        QCOMPARE(wrong, QStringList());
        // Headlines set the groups of the example apart; all else stands there once.
        seen.remove("Headline");
        QVERIFY2(seen.isEmpty(), qPrintable(QStringList(seen.keys()).join(' ')));

        const auto window = Build(form);
        window->resize(900, 760);
        const QImage table = window->findChild<QWidget *>("spacings")->grab().toImage();
        QVERIFY2(table.width() > 100 && table.height() > 50, "the controls have room");

        // A list of fewer than two hidden items, a table with strings: what is read is what was written.
        const QString written = form->GetXmlString(false);
        form->SetXmlString(written);
        QVERIFY(!form->GetSheet().isModified());
    }

    void scriptsReachEveryMethod_data()
    {
        const auto row = Columns<QString>({"className"});
        for (const QString &name : DelegateClassNames())
            row(qPrintable(name), name);
        row("the sheet", QString());
    }

    void scriptsReachEveryMethod()
    {
        QFETCH(QString, className);
        Asked.clear();
        const Form form = Bind(One(className, Furnished));
        const auto window = Build(form);
        form->SetXmlString(form->GetXmlString(false));
        const QString global = className.isEmpty() ? "sheet" : "a";
        OrbelDelegate *delegate = className.isEmpty() ? form->GetSheet().GetDelegate() : Delegate(form, "a");
        QScriptEngine *engine = EngineOf(form);
        const QMetaObject *meta = delegate->metaObject();
        const Orbel::ClassInfo *row = Orbel::Registry::FindClass(className);
        const QStringList names = row ? Orbel::Registry::PropertyNames(*row) : Orbel::Registry::SheetPropertyNames();
        // These set what is no property, or another one.
        const QRegularExpression others("applyMode|PushButton.icon|Range.*Frequency|HiddenTable.*Count"
                                        "|ScriptControl.(enabled|visible)[CEL]|^SpinBoxList.prefix");
        const ModalVisitor closer;
        QStringList wrong;
        int reached = 0;
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            if (method.access() == QMetaMethod::Private)
                continue;
            ++reached;
            if (method.methodType() == QMetaMethod::Signal) {
                if (ArgumentsThatArrive(engine, global, delegate, method) != method.parameterCount())
                    wrong << method.methodSignature();
            } else {
                const QString failure = CallFromScript(engine, global, method);
                if (!failure.isEmpty())
                    wrong << method.methodSignature() + ": " + failure.toUtf8();
                const QByteArray set = PropertySetBy(method);
                const bool isSet = PropertyOf(delegate, set) == Sample(method.parameterType(0));
                if (names.contains(set) && !isSet && !others.match(className + '.' + set).hasMatch())
                    wrong << method.methodSignature() + ": sets no property";
            }
        }
        QCOMPARE(wrong.join('\n'), QString());
        QVERIFY(reached >= 14);
        if (row) {
            QCOMPARE(QString(meta->className()), QString("KV218::") + row->delegate->delegate);
            QCOMPARE(Untold(*row, Asked[delegate]).join('\n'), QString());
        }
    }

    /// What raises: signals in order, then * if the control became modified.
    void valuesTravel_data()
    {
        const auto row = Columns<QStringList, QString, QString, QString, QString, QString, QString>(
            {"properties", "script", "scriptRaises", "nodeText", "nodeRaises", "readText", "readRaises"});
        // clang-format off
        row("CheckBox", {}, "a.setChecked(true)", "", "false", "toggled*", "false", "toggled");
        row("LineEdit", {}, "a.setText('x')", "", "y", "textChanged*", "y", "textChanged");
        row("SpinBox", {}, "a.setValue(5)", "", "7", "valueChanged editingFinished*", "7", "valueChanged");
        row("DoubleSpinBox", {}, "a.setValue(5)", "", "7.5", "valueChanged editingFinished*", "7.5", "valueChanged");
        row("BandwidthEdit", {}, "a.setValue(5)", "", "7", "valueChanged editingFinished*", "7", "valueChanged");
        row("ComboBox", {"enumName=String:e"}, "a.setCurrentValue('2')", "", "One", "currentValueChanged*", "1", "currentValueChanged");
        row("HiddenParameter", {}, "a.setValue('x')", "valueChanged*", "y", "valueChanged", "y", "valueChanged valueChanged");
        // clang-format on
    }

    void valuesTravel()
    {
        const auto [properties, script, nodeText, readText]
            = Fetch<QStringList, QString, QString, QString>({"properties", "script", "nodeText", "readText"});
        const Form form = Bind(One(QTest::currentDataTag(), properties));
        WatchSignals(form);
        OrbelDelegate *a = Delegate(form, "a");
        ValueBase *node = form->GetVTValue("a");
        QVERIFY(node);
        const auto raised = [&] {
            const QString raised = TakeLog(form) + (a->isModified() ? "*" : "");
            a->resetModified();
            return raised;
        };

        form->EvaluateScript(script);
        QTEST(raised(), "scriptRaises");
        const QString scripted = node->GetStringValue();
        node->SetStringValue(nodeText, nullptr);
        QVERIFY(node->GetStringValue() != scripted);
        QTEST(raised(), "nodeRaises");
        node->SetStringValue(nodeText, nullptr);
        node->HasChanged(ekChangeValue, nullptr);
        QCOMPARE(raised(), QString());

        form->EvaluateScript(script);
        raised();
        form->SetXmlString("<Parameters><a>" + readText + "</a></Parameters>");
        QTEST(raised(), "readRaises");
        QCOMPARE(node->GetStringValue(), nodeText);
    }

    void everyControlEndsItsRow_data()
    {
        scriptsReachEveryMethod_data();
        AddRow("MainFreqEdit", QString("FrequencyEdit"));
    }

    /// What comes next starts a row, and all but a few share the width of the control column.
    void everyControlEndsItsRow()
    {
        QFETCH(QString, className);
        const QString row = QTest::currentDataTag();
        const QStringList gaps{"Headline", "Separator", "FixedSpacer"}, special{"PushButton", "ScriptControl"};
        const QStringList shown = Furnished + QStringList{"visible=Bool:true", "labelText=String:l"};
        LiveForm live(Widget("wide", "FrequencyEdit", shown)
            + Widget("a", className, shown + QStringList{row + "=Bool:true"}) + Widget("next", "PushButton"));
        const QWidget *control = nullptr;
        for (const char *name : {"a", "a_StopFrequency", "FrequencyWidget"})
            control = live.Find(name) ? live.Find(name) : control;
        const bool isGap = gaps.contains(className);
        QCOMPARE(live.Find("next")->x() > 0, isGap || (live.Find("labela") && !control));
        if (control && !isGap)
            QCOMPARE(control->width() != live.Find("wide")->width(), special.contains(className) || row != className);
    }

    void aScriptGivesTheFocus_data()
    {
        const auto row = Columns<QString>({"className"});
        for (const QString &name : DelegateClassNames())
            row(qPrintable(name), name);
    }
    void aScriptGivesTheFocus()
    {
        QFETCH(QString, className);
        LiveForm live(Widget("first", "CheckBox", Usable) + Widget("a", className, Furnished + Usable));
        live.Find("first")->setFocus();
        live.form->EvaluateScript("a.setFocus()");
        const QWidget *focus = live.window->focusWidget();
        bool isTaken = false, isTaker = false;
        for (const auto &face : live.Get("a")->GetFaces()) {
            isTaken |= face.Widget && (face.Widget == focus || face.Widget->isAncestorOf(focus));
            isTaker |= face.Widget && (face.Widget->focusPolicy() & Qt::TabFocus);
        }
        // To these nobody can give it.
        isTaker &= !QStringList({"Headline", "ScriptControl", "SpinBoxList"}).contains(className);
        QCOMPARE(isTaken, isTaker);
    }

    void everySetIsAnnounced()
    {
        Probe probe;
        probe.setEnabled(true);
        probe.setEnabled(true);
        QVERIFY(!probe.ChangeProperty("enabled", true));
        QVERIFY(probe.ChangeProperty("x", 1));
        probe.setProperty("_q_hidden", 1);
        probe.setLabelText("l");
        probe.setLabelText("l");
        QCOMPARE(probe.Log, QStringList({"enabled=true", "enabled=true", "x=1", "labelText=l"}));
    }

    void propertiesReachTheControlWhileDefined()
    {
        QLineEdit edit;
        Probe probe(&edit);
        const QVariant disabled(false);
        probe.setEnabled(true);
        probe.PropagateProperties(&edit);
        QVERIFY2(!edit.isReadOnly() && edit.isEnabled(), "what is absent keeps the control's own state");

        probe.EnableProperty("enabled", false, &disabled);
        QVERIFY(!edit.isEnabled() && probe.isEnabled());
        probe.setEnabled(false);
        probe.setEnabled(true);
        QVERIFY2(!edit.isEnabled(), "kept back while not defined");
        probe.EnableProperty("enabled", false, &disabled);
        probe.EnableProperty("enabled", true, nullptr);
        QVERIFY2(edit.isEnabled(), "the stored value arrives though it did not change");

        probe.EnableProperty("toolTip", false, nullptr);
        probe.setProperty("toolTip", "later");
        QCOMPARE(edit.toolTip(), QString());
        probe.EnableProperty("toolTip", true, nullptr);
        QCOMPARE(edit.toolTip(), QString("later"));

        probe.Log.clear();
        probe.EnableProperty("unknown", false, &disabled);
        QCOMPARE(probe.Log, QStringList());
    }

    void tagsAndPaths()
    {
        Probe probe;
        probe.setObjectName("name");
        probe.SetXmlPath(QString());
        QCOMPARE(probe.GetXmlPath() + probe.GetXmlTagName(), QString("namename"));
        QVERIFY(probe.GetAllTags().isEmpty());
        for (int parse = 0; parse < 2; ++parse) {
            QVERIFY(!probe.HasSeveralXmlTags());
            probe.SetXmlPath("a/b/Freq");
        }
        QVERIFY2(probe.HasSeveralXmlTags(), "a second parse adds the name again");
        QCOMPARE(probe.GetXmlTagName(), QString("Freq"));
        QVERIFY(probe.ContainsXmlTag("FREQ"));
        const QList<QStringList> paths{{"/Form", "b", "/Form/b", "/Form", "b"},
            {"/Form/", "x/y", "/Form/x/y", "/Form/x", "y"}, {"", "b", "b", "", ""}, {"/", "b", "/b", "", ""}};
        for (const QStringList &path : paths) {
            probe.SetXmlPath(path[1]);
            probe.SetVTPath(path[0]);
            QCOMPARE(QStringList({probe.GetVTPath(), probe.GetVTNodePath(), probe.GetVTName()}), path.mid(2));
        }
        QCOMPARE(Probe::formatString(1.5, 3, "Hz") + Probe::formatString(2, 3, "") + Probe::formatString(100, 0, "s"),
            QString("1.5Hz2100s"));
    }
};

ORBEL_TEST_MAIN(TestAllControls)
#include "tst_allcontrols.moc"
