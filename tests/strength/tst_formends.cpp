// Who ends a form, and from where. Whoever hears of something while a form is at work may drop it, replace it, take its
// window away or throw: nodes and name are free at once, nothing more is told, and what still runs comes to its end.

#include "delegatefactory.h"
#include "errorhandler.h"
#include "formchanges.h"
#include "formendscase.h"

namespace
{

using Step = void (*)(Scene &);

void ChangeNodes(Scene &s)
{
    for (const QString &path : Tree::Instance()->GetPaths()) {
        for (int change = 0; change < 8 && !s.ears.IsOver(); ++change) {
            ValueBase *node = Tree::Instance()->GetNode(path);
            auto *number = dynamic_cast<IValueNumeric *>(node);
            auto *selection = dynamic_cast<ValueSelection *>(node);
            if (change < 5)
                node->SetStringValue(QStringList{"2", "true", "Two", "5", "6..7"}.at(change), nullptr);
            else if (change == 5)
                node->SetState(ekStateDisabled, nullptr);
            else if (number)
                change == 6 ? number->SetMin(20., nullptr) : number->SetMax(15., nullptr);
            else if (selection)
                change == 6 ? selection->DeleteItems(nullptr) : selection->AddItem("new", 1, 1, nullptr);
        }
    }
}

void ExchangeValues(Scene &s)
{
    ValueString text("subject");
    ValueInt number("subject");
    ValueDouble real("subject");
    ValueSelection choice("subject");
    choice.AddItems({"Three", "Four"}, nullptr);
    const QList<ValueBase *> locals{&text, &number, &real, &choice};
    for (ValueBase *local : locals) {
        local->AddObserver(&s.ears);
        for (const bool init : {false, true}) {
            s->GetVTValue(local, nullptr, init);
            s->GetVTValues(locals, nullptr, init);
            s->InitVTValue("subject", local);
            s->SetVTValue("subject", init ? "8" : "9", nullptr, true);
            local->SetStringValue(init ? "3" : "Four", nullptr);
            s->SetVTValue(local, nullptr, true);
        }
    }
    for (ValueBase *local : locals)
        local->DeleteObserver(&s.ears);
}

void CallSlots(Scene &s)
{
    const QMetaObject *meta = Delegate(s.form, "subject")->metaObject();
    QString script = "subject.setVisible(true); subject.setEnabled(true); z.setText('set');";
    for (int i = OrbelDelegate::staticMetaObject.methodOffset(); i < meta->methodCount(); ++i) {
        if (meta->method(i).methodType() != QMetaMethod::Signal)
            script += QString("for (var n = 0; n < 4; ++n) try { subject.%1(n, n - 1, 9); } catch (e) {}")
                          .arg(QString(meta->method(i).name()));
    }
    s->EvaluateScript(script);
}

void BeginEdit(Scene &s)
{
    QPointer<QLineEdit> edit = s.ears.IsOver() ? nullptr : s.window->findChild<QLineEdit *>();
    if (edit)
        edit->setFocus();
    if (edit && !s.ears.IsOver())
        QTest::keyClick(s.window->focusWidget() ? s.window->focusWidget() : edit, Qt::Key_5);
}

void Type(Scene &s)
{
    const QList<QWidget *> children = s.window->findChildren<QWidget *>();
    for (const QPointer<QWidget> &field : QVector<QPointer<QWidget>>(children.begin(), children.end())) {
        if (s.ears.IsOver() || !field || field->focusPolicy() == Qt::NoFocus)
            continue;
        field->setFocus();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_5, Qt::Key_Space, Qt::Key_Return, Qt::Key_5}) {
            if (QWidget *target = s.ears.IsOver() ? nullptr : s.window->focusWidget())
                QTest::keyClick(target, key);
        }
    }
}

void Click(Scene &s, const char *name)
{
    if (!s.ears.IsOver())
        QTest::mouseClick(s.window->findChild<QWidget *>(name), Qt::LeftButton);
}

struct Road {
    const char *Name;
    Stage From;
    /// An exception may pass, and nothing is missing when it has.
    bool Throws;
    Step Go;
};

// clang-format off
const Road Roads[] = {
    {"nodes are made", Stage::Parsed, false, [](Scene &s) { s->CreateValueTree("/Form"); }},
    {"nodes are moved", Stage::Built, false, [](Scene &s) { s->CreateValueTree("/Other"); }},
    {"nodes change", Stage::Built, true, ChangeNodes},
    {"a node is withdrawn", Stage::Built, true, [](Scene &) { Tree::Instance()->RemoveNode("/Form/subject"); }},
    {"values are exchanged", Stage::Built, true, ExchangeValues},
    {"a document is read", Stage::Built, true, [](Scene &s) {
        s->SetXmlString("<Parameters><subject>2</subject><z>3</z></Parameters>");
        s->SetXmlString("<Parameters><subject><i>3</i><i index='1' row='1' column='1' key='k'>4</i></subject></Parameters>");
    }},
    {"the definition changes", Stage::Built, true, [](Scene &s) {
        s->SetChangedORBEL(Definition(Widget("subject", "", {"value=Int:9", "checked=Bool:true", "text=String:n",
            "itemCount=Int:1", "minimum=Int:5", "maximum=Int:6", "enabled=Bool:false", "visible=Bool:false"})));
    }},
    {"a script calls", Stage::Built, true, CallSlots},
    {"a script hears the host", Stage::Built, true, [](Scene &s) { Q_EMIT s.ears.told(); }},
    {"controls are made", Stage::Bound, false, [](Scene &s) {
        s->CreateGUI(true);
        s.TakeWindow();
        s->Show();
        s->Hide();
    }},
    {"the operator types", Stage::Built, false, Type},
    {"edits are undone", Stage::Built, false, [](Scene &s) {
        Type(s);
        for (int i = 0; i < 3 && !s.ears.IsOver(); ++i)
            i == 1 ? s->GetUndoStack()->redo() : s->GetUndoStack()->undo();
        s->GetUndoStack()->setIndex(s->GetUndoStack()->count());
        if (!s.ears.IsOver())
            s->GetSheet().GetChanges()->RevertAll();
    }},
    {"the language changes", Stage::Built, false, [](Scene &) {
        const ContextTranslator language("subject");
        QCoreApplication::processEvents();
    }},
    {"input is locked", Stage::Built, false, [](Scene &s) {
        BeginEdit(s);
        s->EnableInput(false);
        s->EnableInput(true);
    }},
    {"a group is hidden", Stage::Built, false, [](Scene &s) {
        BeginEdit(s);
        s->ShowGroup("h", false);
        s->ShowGroup("h", true);
    }},
    {"a group is collapsed", Stage::Built, false, [](Scene &s) {
        BeginEdit(s);
        s->GetSheet().SetCollapsed({"h"});
        s->GetSheet().SetCollapsed({});
        BeginEdit(s);
        Click(s, "h");
    }},
    {"the window goes", Stage::Built, false, [](Scene &s) {
        BeginEdit(s);
        if (!s.ears.IsOver())
            delete s.window;
    }},
    {"a document is written", Stage::BuiltWithApplyRow, false, [](Scene &s) {
        Delegate(s.form, "subject")->setModified(false);
        if (!s.ears.IsOver())
            s.window->findChild<QWidget *>("applyButton")->setFocus();
        s->GetXmlString(true);
        s->GetXmlString(false);
    }},
    {"parameters are announced", Stage::BuiltWithApplyRow, false, [](Scene &s) {
        Delegate(s.form, "z")->setModified(true);
        s->applyNow();
        Click(s, "applyButton");
    }},
    {"the configuration is kept", Stage::BuiltWithApplyRow, false, [](Scene &s) {
        BeginEdit(s);
        s->ApplyConfiguration();
        QMetaObject::invokeMethod(s.operator->(), "sl_fontSize", Q_ARG(int, 14));
        s.config.setProperty("k-collapsed", "h");
        s.config.setProperty("input-disabled", true);
        s->RestoreConfiguration();
    }},
    {"a manager works", Stage::Managed, false, [](Scene &s) {
        ValueString local("z");
        local.SetStringValue("exchanged", nullptr);
        s.Manager()->SetVTValue(&local, nullptr);
        s.Manager()->SetXmlString("<Parameters><z>read</z></Parameters>");
        s.Manager()->SetCurrentModified(true);
        s.Manager()->GetXmlString(true);
        s.config.setProperty("k-collapsed", "h");
        s.Manager()->RestoreConfiguration();
        s.Manager()->SetConfigObject(qApp, "k");
        s.Manager()->SetConfigObject(&s.config, "k");
        s.Manager()->ShowFormular("");
        s.Manager()->ShowFormular("Ends");
        s.Manager()->Reset();
    }},
    {"the debugger holds a script", Stage::Built, false, [](Scene &s) {
        s->DebugScript();
        QTimer::singleShot(0, &s.ears, [&s] {
            s.ears.hear("the debugger stops");
            s.ears.Act = nullptr;
            if (!s.HasEnded())
                s.Drop();
        });
        s->EvaluateScript("z.setText('1'); hear('goes on'); z.setText('2');");
    }},
};
// clang-format on

void Replace(Scene &s)
{
    s.Drop();
    s.CloseWindow();
    // A node that goes keeps its place for now.
    if (!s.ears.ActedOn.endsWith(" its end"))
        s.Make(Stage::Built);
}

/// As a dialog does that a handler opens. The outer loop stands for the
/// application's own, which a test does not have.
void DropInALoop(Scene &s)
{
    QEventLoop application, dialog;
    QTimer::singleShot(0, &application, [&] {
        QTimer::singleShot(0, &dialog, [&] {
            s.Drop();
            QTimer::singleShot(0, &dialog, &QEventLoop::quit);
        });
        dialog.exec();
        application.quit();
    });
    application.exec();
}

struct End {
    const char *Name;
    Step Act;
    bool (*Fits)(const Road &road, const QString &heard) = [](const Road &, const QString &) { return true; };
};
const End Ends[] = {
    {"dropped", [](Scene &s) { s.Drop(); }},
    {"replaced", Replace},
    {"dropped in an event loop", DropInALoop},
    {"dropped with its window",
        [](Scene &s) {
            delete s.window;
            s.Drop();
        },
        [](const Road &road, const QString &heard) { return road.Throws && heard.contains(" tells the first"); }},
    {"left alone by its window", [](Scene &s) { s.CloseWindow(); }},
    {"thrown at", [](Scene &) { throw std::runtime_error("thrown by an observer"); },
        [](const Road &road, const QString &heard) {
            return heard.contains(" is entered") || (road.Throws && heard.contains(" tells the "));
        }},
    {"robbed of its nodes",
        [](Scene &) {
            for (const QString &path : Tree::Instance()->GetPaths())
                Tree::Instance()->RemoveNode(path);
        },
        [](const Road &, const QString &heard) { return heard.contains(" is entered"); }},
    {"robbed of a control", [](Scene &s) { delete s.window->findChild<QWidget *>("subject"); },
        [](const Road &road, const QString &heard) {
            return QString(road.Name).startsWith("a group") && heard == "guest is hidden";
        }},
};

/// Goes along a road; at what is wanted to be heard the form ends.
void Play(Scene &scene, const Road &road, Step end)
{
    const ModalVisitor closer([&scene](QWidget *) { scene.ears.hear("a dialog of the subject opens"); });
    scene.ears.Act = [&] {
        scene.TakeWindow();
        end(scene);
    };
    try {
        road.Go(scene);
    } catch (const std::runtime_error &) {
    }
    scene.ears.Act = nullptr;
}

/// What is heard on a road that nobody ends.
QStringList WhatIsHeard(const QString &className, const Road &road)
{
    Scene scene(className, road.From);
    Play(scene, road, nullptr);
    return scene.ears.Heard;
}

/// An application that ends before its form does, or before the parts of one have gone that ended in a handler. Gives
/// the exit status.
int Outlive(const QByteArray &what, int argc, char **argv)
{
    Form form;
    QPointer<QObject> z;
    {
        QApplication application(argc, argv);
        form = Bind(Definition(Widget("z", "LineEdit") + Widget("l", "SpinBoxList", {"itemCount=Int:2"})));
        form->SetName("Ends");
        form->CreateGUI(true);
        QWidget *window = form->GetGUI();
        window->show();
        z = Delegate(form, "z");
        Ears ears;
        ears.Listen(z);
        ears.Wanted = "z textChanged";
        ears.Act = [&] { form.reset(); };
        if (what == "in a handler")
            form->SetXmlString("<Parameters><z>1</z></Parameters>");
        if (what != "with its window")
            delete window;
    }
    form.reset();
    return z ? 1 : 0;
}

} // namespace

Q_DECLARE_METATYPE(const Road *)

class TestFormEnds : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QTRY_COMPARE(LeftOver(), QString());
        QVERIFY(!TranslationCenter::Instance().GetRegistered().contains("Ends"));
    }

    void whoeverHearsMayEndTheForm_data()
    {
        const auto row = Columns<QString, const Road *>({"className", "road"});
        for (const QString &className : DelegateClassNames()) {
            for (const Road &road : Roads)
                row(qPrintable(className + ": " + road.Name), className, &road);
        }
    }

    void whoeverHearsMayEndTheForm()
    {
        const auto [className, road] = Fetch<QString, const Road *>({"className", "road"});
        const QStringList all = WhatIsHeard(className, *road);
        QVERIFY(className != "LineEdit" || !all.isEmpty());
        for (const QString &heard : all) {
            // What has to do with no class is the same for all.
            if (className != "LineEdit" && !heard.contains("subject") && !heard.contains("guest"))
                continue;
            for (const End &end : Ends) {
                if (!end.Fits(*road, heard))
                    continue;
                Scene scene(className, road->From);
                scene.ears.Wanted = heard;
                Play(scene, *road, end.Act);
                const QByteArray what = end.Name + (" when " + heard.toUtf8()) + ": ";
                QVERIFY2(scene.Wrong().isEmpty(), what + scene.Wrong().toUtf8());
                if (scene.HasEnded())
                    QTRY_VERIFY2(scene.IsGone(), what + "something is left");
                if (scene.form && scene.form->GetVTValue("z"))
                    QCOMPARE(what + scene.Idle(), QString(what));
            }
        }
    }

    void anExceptionDoesNotReachTheScript()
    {
        const char *calls[] = {"z.setText('x')", "z.text = 'x'",
            "z.customPropertyChanged.connect(function () { z.setText('x'); }); z.setCustomProperty('c', 1)",
            "host.told.connect(function () { z.setText('x'); }); host.told()"};
        for (const QString call : calls) {
            QStringList traces;
            ErrorHandler::Instance().SetTraceMask(ekTraceFailure);
            const auto sink = ErrorHandler::Instance().SetSink([&](const QString &line) { traces << line; });
            Ears host;
            host.Await({"/Form/z"});
            host.Wanted = "/Form/z tells the first code 3";
            host.Act = [] { throw std::runtime_error("thrown by an observer"); };
            const Form form = Parse(Definition(
                Widget("z", "LineEdit", {"text=String:t"}), "<Script>" + call + "; var after = true;</Script>"));
            form->SetScriptValue("host", &host);
            form->CreateValueTree("/Form");
            ErrorHandler::Instance().SetSink(sink);
            ErrorHandler::Instance().SetTraceMask(0);
            QVERIFY2(traces.join(' ').contains("thrown by an observer"), qPrintable(call));
            QVERIFY(form->GetScriptValues().contains("after") && form->GetSheet().isActive());
        }
    }

    void theApplicationEndsFirst_data()
    {
        Columns<QString>({"what"});
        for (const char *what : {"after the application", "with its window", "in a handler"})
            AddRow(what, QString(what));
    }

    void theApplicationEndsFirst()
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {"outlive", QTest::currentDataTag()});
        QVERIFY(child.waitForFinished());
        QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0, child.readAllStandardError());
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && argv[1] == QByteArray("outlive"))
        return Outlive(argv[2], argc, argv);
    TestFormEnds test;
    return Orbel::RunTest(&test, argc, argv);
}
#include "tst_formends.moc"
