// A whole form: its way through parse, nodes, script and controls; values exchanged with the application; groups, input
// switches and configuration.

#include "forms.h"
#include "orbelsheetui.h"
#include "selectionitem.h"
#include "tree.h"
#include "valueselection.h"

namespace
{

/// Notes each notification as the node's name and the change code.
class Watcher : public IObserver
{
public:
    void Update(Observable *subject, TChangeCode code) override
    {
        Log << dynamic_cast<ValueBase *>(subject)->GetName() + QString::number(code);
    }
    QStringList Log;
};

/// Sets the node again at each of its first values.
struct Echo : IObserver {
    void Update(Observable *subject, TChangeCode code) override
    {
        if (code == ekChangeValue && ++Told < 5)
            dynamic_cast<ValueBase *>(subject)->SetStringValue(QString::number(Told), nullptr);
    }
    int Told = 0;
};

const char *const Groups
    = "<Widget name='free' class='CheckBox'/>"
      "<Widget name='h1' class='Headline'><Property name='text'><String>One</String></Property></Widget>"
      "%1<Widget name='gap' class='Separator'/>%2"
      "<Widget name='h2' class='Headline'><Property name='text'><String>Two</String></Property></Widget>%3";

Form GroupForm()
{
    const QStringList shown{"labelText=String:l", "visible=Bool:true", "enabled=Bool:true"};
    return Bind(Definition(QString(Groups).arg(
        Widget("a", "CheckBox", shown), Widget("b", "LineEdit", shown), Widget("c", "CheckBox", shown))));
}

/// Names of the shown children of the form's content, labels included.
QString Shown(const Form &form, const QStringList &names)
{
    QStringList shown;
    for (const QString &name : names) {
        const QWidget *child = form->GetGUI()->findChild<QWidget *>(name);
        if (child && !child->isHidden())
            shown << name;
    }
    return shown.join(' ');
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
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        QCOMPARE(window->findChild<QLabel *>("labela")->text(), QString("late"));
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
        form->CreateGUI(false);
        const std::unique_ptr<QWidget> window(form->GetGUI());
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
        QStringList selected;
        for (int i = 0; i < 3; ++i) {
            if (form->GetSheet().GetWidgetAt(i)->IsSelected())
                selected << form->GetSheet().GetWidgetAt(i)->GetName();
        }
        QTEST(Shown(form, {"a", "b", "c"}), "built");
        QTEST(selected.join(' '), "built");
        QVERIFY(form->GetVTValue("c"));
    }

    void groupsCollapseAndShow()
    {
        const Form form = GroupForm();
        form->CreateGUI(false);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        const QStringList all{"free", "h1", "a", "labela", "gap", "b", "labelb", "h2", "c", "labelc"};
        OrbelSheet &sheet = form->GetSheet();
        QCOMPARE(sheet.GetCollapsed(), QStringList());

        sheet.setGroupVisible(sheet.GetWidgetAt(1).data(), false);
        QCOMPARE(Shown(form, all), QString("free h1 h2 c labelc"));
        QCOMPARE(sheet.GetCollapsed(), QStringList("h1"));
        sheet.SetCollapsed(QStringList());

        form->ShowGroup("h1", false);
        QCOMPARE(Shown(form, all), QString("free h2 c labelc"));
        QVERIFY2(Delegate(form, "a")->isGroupVisible(), "showing is not collapsing");
        form->ShowGroup("h1", true);
        QCOMPARE(Shown(form, all), QString("free h1 a labela gap b labelb h2 c labelc"));
    }

    void configurationIsThereOnFirstShow()
    {
        QObject configuration;
        configuration.setProperty("rx-fontsize", 17);
        configuration.setProperty("rx-collapsed", "h1");
        configuration.setProperty("input-disabled", true);
        for (bool objectFirst : {true, false}) {
            const Form form = GroupForm();
            if (objectFirst)
                form->SetConfigObject(&configuration, "rx");
            form->CreateGUI(true);
            const std::unique_ptr<QWidget> window(form->GetGUI());
            if (!objectFirst)
                form->SetConfigObject(&configuration, "rx");
            QCOMPARE(window->font().pointSize(), 17);
            QCOMPARE(Shown(form, {"free", "h1", "a", "labela", "b", "labelb", "h2", "c", "labelc"}),
                QString("free h1 h2 c labelc"));
            QVERIFY(!form->IsInputEnabled() && !window->findChild<QWidget *>("c")->isEnabled());
        }
    }

    void configurationFollowsTheForm()
    {
        QObject configuration;
        const Form form = GroupForm();
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        const int applicationSize = QApplication::font().pointSize();
        form->SetConfigObject(&configuration, "rx");
        form->ApplyConfiguration();
        QCOMPARE(configuration.dynamicPropertyNames(), QList<QByteArray>());

        Q_EMIT form->GetSheet().GetUi()->si_chooseFontSize(applicationSize + 4);
        QCOMPARE(configuration.property("rx-fontsize"), QVariant(applicationSize + 4));
        form->GetSheet().SetCollapsed({"h1", "h2"});
        form->ApplyConfiguration();
        QCOMPARE(configuration.property("rx-collapsed"), QVariant("h1,h2"));

        configuration.setProperty("rx-fontsize", QVariant());
        configuration.setProperty("rx-collapsed", QVariant());
        form->SetConfigObject(&configuration, "rx");
        QVERIFY2(window->font().pointSize() != applicationSize, "the same pair is not restored again");
        form->RestoreConfiguration();
        QCOMPARE(window->font().pointSize(), applicationSize);
        QCOMPARE(form->GetSheet().GetCollapsed(), QStringList());

        window->setStyleSheet("color: red;");
        form->GetSheet().SetFontSize(0);
        QCOMPARE(window->styleSheet(), QString("color: red;"));
        form->GetSheet().SetFontSize(20);
        QCOMPARE(window->styleSheet(), QString("font-size: 20pt;"));
        form->SetConfigObject(nullptr, QString());
        form->ApplyConfiguration();
    }

    /// Before the controls are there and afterwards, each switch adds to the others.
    void inputSwitches()
    {
        using Sheet = OrbelSheet;
        for (const auto scope : {Sheet::EnableScopeInput, Sheet::EnableScopeSheet, Sheet::EnableScopePartial}) {
            const Form form = Bind(Definition(Widget("h", "Headline", {"text=String:h"})
                + Widget("a", "CheckBox", {"enabled=Bool:true"}) + Widget("Frequency", "FrequencyEdit", {"enabled=Bool:true"})));
            Sheet &sheet = form->GetSheet();
            sheet.EnableInput(false, scope);
            form->CreateGUI(true);
            const std::unique_ptr<QWidget> window(form->GetGUI());
            const auto enabled = [&] {
                QString names;
                for (const char *name : {"a", "applyButtonBox", "h", "LockFrequency"})
                    names += window->findChild<QWidget *>(name)->isEnabled() ? *name : '-';
                return names;
            };
            const bool isPartial = scope == Sheet::EnableScopePartial;
            // The lock is left alone by the partial switch, and a headline by all.
            const QString off = isPartial ? "--hL" : "--h-";
            QCOMPARE(enabled(), off);
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
                QCOMPARE(enabled(), off);
            }
            QVERIFY(!sheet.IsInputEnabled(Sheet::eEnableScope(7)));
            sheet.EnableInput(false, Sheet::eEnableScope(7));
        }
    }

    void valuesGoToTheApplication()
    {
        const Form form = Bind(
            Definition(Widget("s", "LineEdit", {"text=String:1"}) + Widget("t", "LineEdit", {"text=String:12"})));
        Watcher watcher;
        ValueString first("s"), text("t"), stray("none");
        text.AddObserver(&watcher);
        QCOMPARE(form->GetVTValue(&text, nullptr, false), form->GetVTValue("t"));
        form->GetVTValue(&text, nullptr, true);
        form->GetVTValue(&text, &watcher, true);
        QCOMPARE(watcher.Log.join(' ') + ' ' + text.GetValue(), QString("t3 t3 12"));
        first.AddObserver(&watcher);
        text.SetValue("old", &watcher);
        form->GetVTValues({&first, &text}, nullptr, false);
        QVERIFY2(watcher.Log.join(' ') == "t3 t3 t3 s3", "from the last to the first");

        stray.SetValue("x", nullptr);
        QVERIFY(!form->GetVTValue(&stray, nullptr, false) && stray.GetValue() == "x");
        QVERIFY(!form->GetVTValue(&stray, nullptr, true) && stray.GetValue().isEmpty());

        ValueSelection choice("t");
        choice.AddItems({"a", "b"}, nullptr);
        form->GetVTValue(&choice, nullptr, false);
        QVERIFY(choice.GetItemCount() == 1 && choice.GetStringValue() == "12" && choice.GetCurrentValue() == 12);
    }

    void valuesComeFromTheApplication()
    {
        const Form form
            = Bind(Definition(Widget("t", "LineEdit", {"text=String:12", "generateParameterXml=Bool:true"})));
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
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
            form->CreateGUI(false);
            const std::unique_ptr<QWidget> window(form->GetGUI());
            ValueBase *node = form->GetVTValue("a");
            Echo echo;
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
        Watcher watcher;
        ValueSelection copy("s");
        OrbelFormular::InitVTValue(&copy, &items, nullptr);
        copy.AddObserver(&watcher);
        QCOMPARE(copy.GetItemIndex(1)->GetValue(), 6.25);
        OrbelFormular::InitVTValue(&copy, &items, nullptr);
        QVERIFY2(watcher.Log.isEmpty(), "equal items are left alone");

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
        QString seen;
        const auto look = [&] {
            seen += QString("%1 %2 %3, ")
                        .arg(gui->font().pointSize())
                        .arg(gui->findChild<QLabel *>()->font().pointSize())
                        .arg(configuration.property("f-fontsize").toInt());
        };
        window.show();
        look();
        Q_EMIT form->GetSheet().GetUi()->si_chooseFontSize(13);
        look();
        for (const QVariant &kept : {QVariant(), QVariant(16)}) {
            configuration.setProperty("f-fontsize", kept);
            form->RestoreConfiguration();
            look();
        }
        QCOMPARE(seen, QString("20 20 20, 13 13 13, 9 9 0, 16 16 16, "));
    }
};

ORBEL_TEST_MAIN(TestFormular)
#include "tst_formular.moc"
