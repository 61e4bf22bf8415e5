// A whole form: its way through parse, nodes, script and controls; values, documents and configuration; many forms.

#include "liveform.h"
#include "orbelformularmanager.h"
#include "selectionitem.h"
#include "translationcenter.h"
#include "valueselection.h"
#include "witness.h"

namespace
{

QString Check(const QString &name, const QString &tag)
{
    return Widget(name, "CheckBox", {"generateParameterXml=Bool:true", "parameterXmlTag=String:" + tag});
}

/// The document without the blanks of its formatting.
QString Compact(const QString &xml)
{
    QString text = xml.simplified();
    return text.replace("> <", "><");
}

QString OneCheck(const QString &properties = QString())
{
    return Definition("<Properties>" + properties + "</Properties>"
        + Widget("a", "CheckBox", {"generateParameterXml=Bool:true", "visible=Bool:true", "enabled=Bool:true"}));
}

} // namespace

class TestFormular : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void scriptRunsBetweenNodesAndControls()
    {
        const Form form = Parse(
            Definition(Widget("a", "CheckBox", {"generateParameterXml=Bool:true", "parameterXmlTag=String:g/a"}),
                "<Script>a.setChecked(true); a.setModified(true); a.setLabelText('late');</Script>"));
        form->CreateValueTree("/Form");
        form->Show();
        form->Hide();
        QCOMPARE(form->GetVTPath(), QString("/Form"));
        QCOMPARE(form->GetVTValue("g/a")->GetStringValue(), QString("true"));
        QVERIFY2(!form->GetSheet().isModified(), "the script's changes are not the operator's");
        QVERIFY(form->GetSheet().isActive() && !form->GetGUI());
        const auto window = Build(form);
        QCOMPARE(window->findChild<QLabel *>("labela")->text(), QString("late"));
    }

    void theDebuggerHoldsAScript()
    {
        Form form = Bind(Definition(Widget("a", "LineEdit")));
        form->DebugScript();
        bool isOver = false;
        QTimer::singleShot(0, form.data(), [&] {
            QVERIFY(!isOver);
            form.reset();
        });
        form->EvaluateScript("a.setText('1'); a.setText('2');");
        isOver = true;
        QTRY_VERIFY(!form);
    }

    void widgetsAreFoundByPathOrTag()
    {
        const Form form = Bind(Definition(Widget("first", "CheckBox", {"parameterXmlTag=String:g/x"})
            + Widget("second", "CheckBox", {"parameterXmlTag=String:h/x"}) + Widget("third", "CheckBox")));
        const OrbelSheet &sheet = form->GetSheet();
        const auto found = [&](const QStringList &paths) {
            QStringList names;
            for (const QString &path : paths)
                names << (sheet.GetWidget(path) ? sheet.GetWidget(path)->GetName() : QString("-"));
            return names.join(' ');
        };
        QCOMPARE(
            found({"g/x", "/h//x/", "x", "g", "n/x", "first", "third"}), QString("first second first - - - third"));
        QCOMPARE(sheet.IndexOfWidget("third") * 10 + sheet.IndexOfWidget("none"), 19);
        QVERIFY(!sheet.FindWidget("third") && sheet.FindWidgetsOfClass("CheckBox").size() == 3);
        QCOMPARE(sheet.FindWidget("CheckBox")->GetName(), QString("first"));
        form->SetChangedORBEL(Definition(Widget("third", "", {"parameterXmlTag=String:x"})));
        form->SetChangedORBEL(Definition(Widget("first", "", {"parameterXmlTag=String:moved"})));
        QCOMPARE(found({"x", "moved"}), QString("second first"));
    }

    void hostsInsertTheirOwnControls()
    {
        struct Dial : QDial {
            void showEvent(QShowEvent *) override { WasWindow |= isWindow(); }
            bool WasWindow = false;
        };
        const Form form = Bind(Definition(Widget("a", "CheckBox")));
        auto *dial = new Dial;
        const auto element = form->GetSheet().InsertWidget("dial", "Dial", dial, 0);
        form->GetSheet().InsertWidget("bare", QString(), new QDial, -1);
        QCOMPARE(Names(form) + element->GetClass(), QString("dial a bareQDial"));
        const auto window = Build(form, false);
        QCOMPARE(window->findChild<QLabel *>("labeldial")->text(), QString("Dial"));
        QVERIFY(!window->findChild<QLabel *>("labelbare"));
        window->show();
        QVERIFY2(dial->isVisible() && !dial->WasWindow, "no window on its way");
        QVERIFY2(window->findChild<QWidget *>("a")->x() == 0, "what comes next starts a row");
        for (const bool on : {false, true}) {
            form->EnableInput(on);
            QCOMPARE(dial->isEnabled(), on);
        }
        QVERIFY2(!form->GetScriptValues().contains("dial"), "a host's control is no script global");
        QCOMPARE(form->GetXmlString(false).simplified(), QString("<Parameters/>"));
    }

    void aSelectionOfControlsIsBuilt_data()
    {
        const auto row = Columns<QStringList, bool, QString>({"names", "exclude", "built"});
        row("listed by name and by tag", QStringList{"a", "tag"}, false, "a b");
        row("listed are left out", QStringList{"a", "tag"}, true, "c");
        row("none listed", QStringList(), false, "");
        row("none left out", QStringList(), true, "a b c");
    }

    void aSelectionOfControlsIsBuilt()
    {
        const auto [names, exclude] = Fetch<QStringList, bool>({"names", "exclude"});
        const Form form = Bind(Definition(Widget("a", "CheckBox")
            + Widget("b", "CheckBox", {"parameterXmlTag=String:x/tag"}) + Widget("c", "CheckBox")));
        form->CreateGUI(true, names, exclude);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        QStringList selected, shown;
        for (int i = 0; i < 3; ++i) {
            const auto control = form->GetSheet().GetWidgetAt(i);
            selected << (control->IsSelected() ? control->GetName() : QString());
            const QWidget *box = window->findChild<QWidget *>(control->GetName());
            shown << (box && !box->isHidden() ? control->GetName() : QString());
        }
        QTEST(selected.join(' ').simplified(), "built");
        QCOMPARE(shown, selected);
        QVERIFY(form->GetVTValue("c"));
    }

    void configurationFollowsTheForm()
    {
        QObject first;
        for (const auto &[name, value] :
            {std::pair("rx-fontsize", QVariant(17)), {"rx-collapsed", "h1"}, {"input-disabled", true}})
            first.setProperty(name, value);
        const Form form = Bind(Definition(Widget("h1", "Headline", {"text=String:One"})
            + Widget("a", "CheckBox", {"visible=Bool:true"}) + Widget("h2", "Headline", {"text=String:Two"})));
        form->SetConfigObject(&first, "rx");
        const auto window = Build(form);
        QVERIFY2(window->font().pointSize() == 17 && !form->IsInputEnabled(), "before the controls are there");
        QCOMPARE(form->GetSheet().GetCollapsed(), QStringList("h1"));
        form->GetSheet().SetCollapsed({});
        form->ShowGroup("h1", false);
        QVERIFY(window->findChild<QWidget *>("h1")->isHidden() && window->findChild<QWidget *>("a")->isHidden());
        QVERIFY2(Delegate(form, "a")->isGroupVisible(), "showing is not collapsing");
        first.setProperty("input-disabled", false);
        form->RestoreConfiguration();
        form->GetSheet().SetCollapsed({});
        form->GetSheet().SetFontSize(0);
        QObject configuration;
        const int applicationSize = QApplication::font().pointSize();
        form->SetConfigObject(&configuration, "rx");
        form->ApplyConfiguration();
        QCOMPARE(configuration.dynamicPropertyNames(), QList<QByteArray>());

        Q_EMIT form->GetSheet().GetUi()->si_chooseFontSize(applicationSize + 4);
        QCOMPARE(configuration.property("rx-fontsize"), QVariant(applicationSize + 4));
        form->GetSheet().SetCollapsed({"h1", "h2"});
        form->ApplyConfiguration();
        QCOMPARE(configuration.property("rx-collapsed"), QVariant("h1,h2"));

        for (const char *name : {"rx-fontsize", "rx-collapsed"})
            configuration.setProperty(name, QVariant());
        form->SetConfigObject(&configuration, "rx");
        QVERIFY2(window->font().pointSize() != applicationSize, "the same pair is not restored again");
        form->RestoreConfiguration();
        QCOMPARE(window->font().pointSize(), applicationSize);
        QCOMPARE(form->GetSheet().GetCollapsed(), QStringList());

        form->SetConfigObject(nullptr, QString());
        form->ApplyConfiguration();
    }

    /// Before the controls are there and afterwards, each switch adds to the others.
    void inputSwitches()
    {
        using Sheet = OrbelSheet;
        for (const auto scope : {Sheet::EnableScopeInput, Sheet::EnableScopeSheet, Sheet::EnableScopePartial}) {
            const Form form = Bind(
                Definition(Widget("h", "Headline", {"text=String:h"}) + Widget("a", "CheckBox", {"enabled=Bool:true"})
                    + Widget("Frequency", "FrequencyEdit", {"enabled=Bool:true"})));
            Sheet &sheet = form->GetSheet();
            sheet.EnableInput(false, scope);
            const auto window = Build(form);
            const auto enabled = [&] {
                QString names;
                for (const char *name : {"a", "applyButtonBox", "h", "LockFrequency"})
                    names += window->findChild<QWidget *>(name)->isEnabled() ? *name : '-';
                return names;
            };
            // The lock is left alone by the partial switch, and a headline by all.
            QCOMPARE(enabled(), QString(scope == Sheet::EnableScopePartial ? "--hL" : "--h-"));
            for (const auto other : {Sheet::EnableScopeInput, Sheet::EnableScopeSheet, Sheet::EnableScopePartial}) {
                if (other == scope)
                    continue;
                sheet.EnableInput(false, other);
                sheet.EnableInput(true, scope);
                QVERIFY2(enabled().startsWith("--h"), "the other switch is still off");
                QVERIFY(sheet.IsInputEnabled(scope) && !sheet.IsInputEnabled(other));
                sheet.EnableInput(true, other);
                QCOMPARE(enabled(), QString("aahL"));
                sheet.EnableInput(false, scope);
            }
            QVERIFY(!sheet.IsInputEnabled(Sheet::eEnableScope(7)));
            sheet.EnableInput(false, Sheet::eEnableScope(7));
        }
    }

    void valuesGoToTheApplication()
    {
        const Form form = Bind(
            Definition(Widget("s", "LineEdit", {"text=String:1"}) + Widget("t", "LineEdit", {"text=String:12"})));
        QStringList log;
        Witness s("s", &log), t("t", &log);
        ValueString first("s"), text("t"), stray("none");
        text.AddObserver(&t);
        QCOMPARE(form->GetVTValue(&text, nullptr, false), form->GetVTValue("t"));
        form->GetVTValue(&text, nullptr, true);
        form->GetVTValue(&text, &t, true);
        QCOMPARE(t.Told() + ' ' + text.GetValue(), QString("t3 t3 12"));
        first.AddObserver(&s);
        text.SetValue("old", &t);
        form->GetVTValues({&first, &text}, nullptr, false);
        QVERIFY2(t.Told() == "t3 s3", "from the last to the first");

        stray.SetValue("x", nullptr);
        QVERIFY(!form->GetVTValue(&stray, nullptr, false) && stray.GetValue() == "x");
        QVERIFY(!form->GetVTValue(&stray, nullptr, true) && stray.GetValue().isEmpty());

        ValueSelection choice("t");
        choice.AddItems({"a", "b"}, nullptr);
        form->GetVTValue(&choice, nullptr, false);
        QVERIFY(choice.GetItemCount() == 1 && choice.GetStringValue() == "12" && choice.GetCurrentValue() == 12);
    }

    void aHostActsForTheOperatorAndForTheDevice()
    {
        const Form form = Bind(Definition(Labelled("n", "SpinBox", {"value=Int:5", "maximum=Int:60"})));
        const auto window = Build(form);
        QString error;
        QVERIFY(form->Enter("n", 7, &error) && form->Enter("n", 8) && form->GetSheet().isModified());
        QCOMPARE(form->GetUndoStack()->count(), 2);
        QVERIFY(!form->Enter("n", "seven", &error) && !error.isEmpty());
        QVERIFY(!form->Enter("none", 7) && !form->Report("none", 7));
        form->RevertAll();
        QCOMPARE(form->GetVTValue("n")->GetStringValue(), QString("5"));
        QVERIFY(form->Report("n", 9));
        QCOMPARE(window->findChild<QWidget *>("n")->property("value").toInt(), 9);
        form->SetScriptValue("yes", true);
        form->SetScriptValue("text", QString("caf\u00e9"));
        form->SetScriptValue("plain", "caf\u00e9");
        form->EvaluateScript("answer = yes === true && text === plain && text.length");
        QCOMPARE(form->GetScriptValues().value("answer").toInt32(), 4);
    }

    void valuesComeFromTheApplication()
    {
        const Form form
            = Bind(Definition(Widget("t", "LineEdit", {"text=String:12", "generateParameterXml=Bool:true"})));
        const auto window = Build(form);
        const QSignalSpy parameters(form.data(), &OrbelFormular::si_parametersModified);
        QVERIFY(!form->SetVTValue("t", "12", nullptr, true) && !form->SetVTValue("none", "12", nullptr, true));
        QVERIFY(form->SetVTValue("t", "13", nullptr, false));
        QCOMPARE(window->findChild<QLineEdit *>("t")->text(), QString("13"));
        ValueString local("t");
        local.SetValue("14", nullptr);
        QCOMPARE(parameters.size(), 0);
        QVERIFY(form->SetVTValue(&local, nullptr, true));
        QCOMPARE(parameters.size(), 1);
        QVERIFY(form->GetXmlString(true).contains("<t>14</t>"));
    }

    /// Whether the one who sets it again is told before or after the control.
    void theLastValueCounts()
    {
        for (const bool first : {true, false}) {
            const Form form = Bind(Definition(Widget("a", "LineEdit", {"generateParameterXml=Bool:true"})));
            const auto window = Build(form, false);
            ValueBase *node = form->GetVTValue("a");
            Witness echo;
            int told = 0;
            echo.Reaction = [&](Observable *, TChangeCode) {
                if (++told < 5)
                    node->SetStringValue(QString::number(told), nullptr);
            };
            node->AddObserver(&echo);
            if (first)
                node->MakeFirstObserver(&echo);
            node->SetStringValue("start", nullptr);
            QCOMPARE(node->GetStringValue() + Delegate(form, "a")->property("text").toString()
                    + window->findChild<QLineEdit *>("a")->text(),
                QString("444"));
            QVERIFY(form->GetXmlString(false).contains("<a>4</a>"));
            node->DeleteObserver(&echo);
        }
    }

    void limitsAndItemsAreCopied()
    {
        ValueDouble from("n");
        from.SetMinMax(-5, 50, 2.5, nullptr);
        from.SetValue(20, nullptr);
        ValueInt other("n");
        OrbelFormular::InitVTValue(&other, &from, nullptr);
        OrbelFormular::InitVTValue(nullptr, &from, nullptr);
        OrbelFormular::InitVTValue(&other, nullptr, nullptr);
        QVERIFY2(other.GetMax() != 50, "nodes of different types have nothing to copy");

        ValueSelection items("s");
        items.AddItem("One", 5, 1, nullptr);
        items.AddItem("Two", 6.25, 2, nullptr);
        Witness watcher;
        ValueSelection copy("s");
        OrbelFormular::InitVTValue(&copy, &items, nullptr);
        copy.AddObserver(&watcher);
        QCOMPARE(copy.GetItemIndex(1)->GetValue(), 6.25);
        OrbelFormular::InitVTValue(&copy, &items, nullptr);
        QVERIFY2(watcher.Told().isEmpty(), "equal items are left alone");

        const Form form = Bind("<ZkParamGui><Enums><Enum name='mode'/></Enums><Sheet name='sheet'>"
            + Widget("n", "SpecialObject_Generic") + Widget("c", "ComboBox", {"enumName=String:mode"})
            + "</Sheet></ZkParamGui>");
        form->InitVTValue("n", &from);
        OrbelDelegate *n = Delegate(form, "n");
        QVERIFY(n->property("minimum") == -5 && n->property("maximum") == 50 && n->property("singleStep") == 2.5);
        form->InitVTValue("c", &items);
        ValueSelection none("c");
        form->InitVTValue("c", &none);
        QCOMPARE(dynamic_cast<ValueSelection *>(form->GetVTValue("c"))->GetItemCount(), 2L);

        const QStringList identifiers{"first"};
        form->InitEnumeration("mode", &items, &identifiers);
        const auto values = form->GetEnum("mode");
        const OrbelEnumValue &one = values->GetValueAt(0), &two = values->GetValueAt(1);
        QCOMPARE(one.GetValue() + one.GetEnumIdentifier(), QString("firstMODE_first"));
        QCOMPARE(two.GetDisplayName() + two.GetValue(), QString("Two6.25"));
    }

    /// However a host puts the form into its window.
    void textSizeFollows_data()
    {
        const auto row = Columns<bool, QString, QString>({"embeddedFirst", "ownSheet", "parentSheet"});
        row("restored, then embedded", false, "", "");
        row("restored with a style sheet of its own", false, "QWidget { color: red; }", "");
        row("embedded, then restored below a style sheet", true, "", "QWidget { color: red; }");
        row("embedded, then restored below a style sheet with a size", true, "", "QWidget { font-size: 15pt; }");
    }

    void textSizeFollows()
    {
        const auto [embeddedFirst, ownSheet, parentSheet]
            = Fetch<bool, QString, QString>({"embeddedFirst", "ownSheet", "parentSheet"});
        QObject configuration;
        configuration.setProperty("f-fontsize", 20);
        const Form form = Bind(Definition(Widget("b", "CheckBox", {"labelText=String:B", "visible=Bool:true"})));
        form->CreateGUI(true);
        QWidget *gui = form->GetGUI();
        gui->setStyleSheet(ownSheet);
        QWidget window;
        window.setStyleSheet(parentSheet);
        const auto embed = [&] { (new QVBoxLayout(&window))->addWidget(gui); };
        const auto restore = [&] { form->SetConfigObject(&configuration, "f"); };
        embeddedFirst ? (embed(), restore()) : (restore(), embed());
        form->ApplyConfiguration();
        window.show();
        const auto sizes = [&] {
            return QList<int>{gui->font().pointSize(), gui->findChild<QLabel *>()->font().pointSize(),
                configuration.property("f-fontsize").toInt()};
        };
        QCOMPARE(sizes(), (QList<int>{20, 20, 20}));
        Q_EMIT form->GetSheet().GetUi()->si_chooseFontSize(13);
        QCOMPARE(sizes(), (QList<int>{13, 13, 13}));
        for (const int kept : {0, 16}) {
            configuration.setProperty("f-fontsize", kept ? QVariant(kept) : QVariant());
            form->RestoreConfiguration();
            QCOMPARE(sizes(), (QList<int>{kept ? kept : 9, kept ? kept : 9, kept}));
        }
    }

    void documentMirrorsTheTags()
    {
        const Form form
            = Bind(Definition(Check("a", "g/x") + Widget("silent", "CheckBox", {"parameterXmlTag=String:g/s"})
                + Check("b", "/h//x") + Check("c", "g/y") + Check("d", "g/x") + Check("e", "only/inner")));
        form->GetSheet().SelectWidgets({"only/inner"}, false);
        QCOMPARE(Compact(form->GetXmlString(false)),
            QString("<Parameters><g><x>false</x><y>false</y><x>false</x></g><h><x>false</x></h><only/></Parameters>"));
        QVERIFY2(form->GetXmlString(false).startsWith('\n'), "no document start is written");
    }

    void rootCarriesTypeAndAttributes()
    {
        const Form form
            = Bind(Definition("<Properties><Property name='parametersXmlRootTag'><String>Rx</String></Property>"
                              "<Property name='parametersXmlTypeAttribute'><String>Foo</String></Property>"
                              "<Property name='Attribute_Site'><String>set</String></Property>"
                              "<Property name='Attribute_None'><String>not declared</String></Property></Properties>"
                              "<CustomProperties><Property name='Attribute_Zone'><String>unused</String></Property>"
                              "<Property name='Attribute_Site'><String>unused</String></Property></CustomProperties>"
                + Check("a", "a")));
        QCOMPARE(Compact(form->GetEmptyXmlElement()), QString("<Rx type=\"Foo\" Site=\"set\" Zone=\"\"/>"));
        form->SetXmlString("<Parameters><a>true</a></Parameters>");
        QVERIFY(!Delegate(form, "a")->property("checked").toBool());
        form->SetXmlString("<x><Rx><a>true</a></Rx></x>");
        QVERIFY(Delegate(form, "a")->property("checked").toBool());
    }

    /// Each box is clicked; "-a" is one that is not selected, "all" is a sheet that asks for all parameters.
    void onlyWhatChangedIsWritten_data()
    {
        const auto row = Columns<QString, QString, QString>({"select", "clicks", "document"});
        row("nothing", "", "", "");
        row("one of a branch", "", "a", "<Parameters><g><a>true</a></g></Parameters>");
        row("there and back", "", "a a", "<Parameters><g><a>false</a></g></Parameters>");
        row("one that is not selected stays modified", "-a", "a b", "<Parameters><g/><h><b>true</b></h></Parameters>");
        row("one without parameters never is", "", "s", "");
        row("all when the sheet says so", "all", "b",
            "<Parameters><g><a>false</a><c>false</c></g><h><b>true</b></h></Parameters>");
    }

    void onlyWhatChangedIsWritten()
    {
        const auto [select, clicks, document] = Fetch<QString, QString, QString>({"select", "clicks", "document"});
        LiveForm live(Check("a", "g/a") + Check("b", "h/b") + Check("c", "g/c") + Widget("s", "CheckBox"));
        live.form->EvaluateScript("sheet.setAutoApplyEnabled(false)");
        if (select == "-a")
            live.form->GetSheet().SelectWidgets({"g/a"}, false);
        live.form->GetSheet().GetDelegate()->setProperty("emitOnlyModifiedParameters", select != "all");
        for (const QString &name : clicks.split(' ', Qt::SkipEmptyParts))
            live.Find<QCheckBox>(name)->click();
        QCOMPARE(live.Find("applyButton")->isEnabled(), !document.isEmpty());
        QCOMPARE(Compact(live.form->GetXmlString(true)), document);
        QCOMPARE(live.Get("a")->isModified(), select == "-a");
        QVERIFY(!live.Find("applyButton")->isEnabled() || select == "-a");
        if (select.isEmpty())
            QCOMPARE(live.form->GetXmlString(true), QString());
    }

    void readingTakesElementsInAnyOrder()
    {
        const Form form = Bind(Definition(Check("a", "g/x") + Check("b", "h/x") + Check("c", "g/x") + Check("d", "y")));
        QSignalSpy parameters(form.data(), &OrbelFormular::si_parametersModified);
        form->SetXmlString("<Parameters><y>true</y><h><none><x/></none><x>true</x></h><g/><g><x>true</x><x>true</x></g>"
                           "</Parameters><Parameters>");
        QStringList checked;
        for (const char *name : {"a", "b", "c", "d"}) {
            if (Delegate(form, name)->property("checked").toBool())
                checked << name;
            QVERIFY(!Delegate(form, name)->isModified());
        }
        QCOMPARE(checked.join(' '), QString("a b d"));
        QVERIFY(parameters.isEmpty() && !form->GetSheet().isModified() && form->GetSheet().isActive());
    }

    void onlyWhatIsAskedForIsBuilt()
    {
        const QStringList registered = TranslationCenter::Instance().GetRegistered();
        OrbelFormularManager manager;
        manager.SetVTPath("/Rx//");
        for (const char *name : {"Form 06", "Form 07/x", "Form 08"})
            manager.DefineFormular(name, OneCheck());
        manager.DefineFormular("broken", "<none/>");
        QVERIFY(manager.GetNames().size() == 4 && Tree::Instance()->GetPaths().isEmpty());

        auto form = manager.GetFormular("Form 07/x");
        QCOMPARE(manager.GetFormular("Form 07/x").data(), form.data());
        QCOMPARE(form->GetName(), QString("Form 07/x"));
        QCOMPARE(Tree::Instance()->GetPaths(), QStringList("/Rx//Form07x/a"));
        QVERIFY(form->GetGUI()->isHidden());
        manager.DefineFormular("Form 07/x", "other");
        QCOMPARE(manager.GetOrbel("Form 07/x"), OneCheck());
        QVERIFY(!manager.GetFormular("broken") && !manager.GetFormular("unknown"));
        manager.DefineFormular("broken", OneCheck());
        QVERIFY(manager.GetFormular("broken"));
        QVERIFY(TranslationCenter::Instance().GetRegistered().contains("broken"));

        form.reset();
        manager.Reset();
        QCOMPARE(LeftOver(), QString());
        QCOMPARE(TranslationCenter::Instance().GetRegistered(), registered);
        QVERIFY(manager.GetNames().isEmpty() && !manager.GetFormular("Form 08") && !manager.GetCurrentFormular());
    }

    void oneFormIsCurrent()
    {
        QObject configuration;
        configuration.setProperty("c-fontsize", 19);
        OrbelFormularManager manager;
        const QSignalSpy parameters(&manager, &OrbelFormularManager::si_parametersModified);
        manager.DefineFormular("one", OneCheck());
        manager.DefineFormular("two", OneCheck("<Property name='autoApplyEnabled'><Bool>false</Bool></Property>"));
        ValueString stray("c");
        stray.SetValue("x", nullptr);
        manager.GetVTValues({nullptr, &stray}, nullptr, false);
        QVERIFY(stray.GetValue() == "x" && manager.GetEmptyXmlElement().isEmpty());
        manager.GetVTValues({nullptr, &stray}, nullptr, true);
        QVERIFY2(stray.GetValue().isEmpty() && !manager.ShowFormular("one"), "not built yet");
        const auto one = manager.GetFormular("one");
        manager.SetConfigObject(&configuration, "c");
        const auto two = manager.GetFormular("two");
        const auto sizes = [&] {
            return QList<int>{one->GetGUI()->font().pointSize(), two->GetGUI()->font().pointSize()};
        };
        QCOMPARE(sizes(), (QList<int>{19, 9}));
        QVERIFY(manager.ShowFormular("two") && manager.GetCurrentName() == "two");
        QVERIFY2(!two->GetSheet().isAutoApplyEnabled(), "the first form keeps its own setting");
        QVERIFY(manager.ShowFormular("one") && !one->GetSheet().isAutoApplyEnabled());
        one->GetGUI()->findChild<QCheckBox *>("autoApply")->click();
        QVERIFY(manager.ShowFormular("two") && two->GetSheet().isAutoApplyEnabled());
        configuration.setProperty("c-fontsize", 21);
        manager.RestoreConfiguration();
        QCOMPARE(sizes(), (QList<int>{19, 21}));
        QVERIFY(one->GetGUI()->isHidden() && two->GetGUI()->isVisible());
        for (const auto &form : {one, two}) {
            QCOMPARE(parameters.size(), 0);
            form->GetGUI()->findChild<QCheckBox *>("a")->click();
            form->applyNow();
        }
        QCOMPARE(parameters.size(), 1);
        QVERIFY(manager.isWidgetModified());
        QVERIFY(manager.GetXmlString(true).contains("<a>true</a>"));
        QVERIFY(!manager.isWidgetModified());
        manager.SetXmlString("<Parameters><a>false</a></Parameters>");
        QVERIFY(manager.GetXmlString(false).contains("<a>false</a>"));
        QVERIFY(!manager.ShowFormular("none"));
        QVERIFY(two->GetGUI()->isHidden() && manager.GetCurrentName().isEmpty());
    }
};

ORBEL_TEST_MAIN(TestFormular)
#include "tst_formular.moc"
