// Where each reader of a form definition stops, and what it keeps of what it met.

#include "forms.h"

class TestDefinition : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rootIsFoundAlongTheFirstElements_data()
    {
        const auto row = Columns<QString, QString>({"document", "version"}); // null: no form
        row("plain", "<ZkParamGui version='7'/>", "7");
        row("no version", "<ZkParamGui/>", "");
        row("below another root", "<x><ZkParamGui version='7'/></x>", "7");
        row("behind a first child that is closed", "<x><y/><ZkParamGui version='7'/></x>", QString());
        row("the last of two counts", "<x><ZkParamGui version='1'/><ZkParamGui version='2'/></x>", "2");
        row("namespace is not looked at", "<a:ZkParamGui xmlns:a='u' version='7'/>", "7");
        row("case counts", "<zkparamgui version='7'/>", QString());
        row("empty text", "", QString());
        row("malformed behind the root's start", "<ZkParamGui version='7'><", "7");
    }

    void rootIsFoundAlongTheFirstElements()
    {
        const auto [document, version] = Fetch<QString, QString>({"document", "version"});
        for (const Form &form :
            {Form(OrbelParser().ParseORBEL(document)), Form(OrbelParser().ParseORBEL(document.toUtf8()))}) {
            QCOMPARE(!form, version.isNull());
            if (form)
                QCOMPARE(form->GetVersion(), version);
        }
    }

    void filesAreDecodedAsTheyDeclare()
    {
        QTemporaryDir directory;
        const auto parsed = [&](const QByteArray &content) {
            return Form(OrbelParser().ParseORBELFile(WriteFile(directory, "form.orbel", content)));
        };
        QVERIFY(!OrbelParser().ParseORBELFile(directory.filePath("missing.orbel")) && !parsed(""));
        const Form form = parsed("<?xml version='1.0' encoding='ISO-8859-1'?><ZkParamGui version='\xe4'/>");
        QVERIFY(form && form->GetName().isEmpty());
        QCOMPARE(form->GetVersion(), QString(QChar(0xe4)));
    }

    void sheetEndsWhereItsListsEnd_data()
    {
        Columns<QString, QString, bool>({"sheet", "names", "scriptIsRead"});

        const QString x = "<Property name='x'><Int>1</Int></Property>", empty = "<Property name='c'/>";
        const QString custom = "<CustomProperties><Property name='c'><Int>2</Int></Property></CustomProperties>";
        const QString b = Widget("b", "Label");
        const auto row = [&](const char *name, const QString &inside, bool goesOn) {
            AddRow(name, "<Widget name='a' class='Label'>" + QString(inside + "</Widget>").remove("%</Widget>") + b,
                (goesOn ? "a b" : "a"), goesOn);
        };
        // clang-format off
        row("an unknown child of the sheet is skipped", x + "</Widget><Other><Widget name='no'/></Other>%", true);
        row("a wrapper ends the sheet behind its widget", "<Properties>" + x + "</Properties>", false);
        row("an empty property ends the sheet behind its widget", x + empty, false);
        row("an unknown element ends the sheet behind its widget", x + "<Other/>", false);
        row("custom properties end nothing", x + custom, true);
        row("an empty custom property ends that list and then the widget's", x + "<CustomProperties>" + empty + "</CustomProperties>", false);
        row("what stands behind the value is skipped", "<Property name='x'><Int>1</Int><Int>2</Int><More><x/></More></Property>", true);
        row("an element inside a value stops everything", "<Property name='x'><Int>1<i/></Int></Property>", false);
        // clang-format on
    }

    void sheetEndsWhereItsListsEnd()
    {
        const auto [sheet, names, scriptIsRead] = Fetch<QString, QString, bool>({"sheet", "names", "scriptIsRead"});
        const Form form = Parse(Definition(sheet, "<Script>1</Script>"));
        QCOMPARE(Names(form), names);
        QCOMPARE(Delegate(form, "a")->property("x"), QVariant(QString("1")));
        QCOMPARE(!form->GetScript().GetCode().isEmpty(), scriptIsRead);
    }

    void aBrokenListOfTheSheetEndsTheSheet_data()
    {
        const auto row = Columns<QString, bool>({"list", "isBroken"});
        row("sound", "<Properties><Property name='x'><Int>1</Int></Property></Properties>", false);
        row("unknown element", "<Properties><Property name='x'><Int>1</Int></Property><Other/></Properties>", true);
        row("empty property", "<Properties><Property name='x'><Int>1</Int></Property><Property/></Properties>", true);
        row("unknown element among custom ones", "<CustomProperties><Other/></CustomProperties>", true);
    }

    void aBrokenListOfTheSheetEndsTheSheet()
    {
        const auto [list, isBroken] = Fetch<QString, bool>({"list", "isBroken"});
        const Form form = Parse(Definition(list + Widget("a", "Label"), "<Script>1</Script>"));
        QCOMPARE(Names(form), isBroken ? QString() : QString("a"));
        QCOMPARE(form->GetScript().GetCode().isEmpty(), isBroken);
    }

    void everyReaderSkipsWhatItDoesNotKnow()
    {
        const Form form = Parse("<ZkParamGui><Other><Sheet name='no'/></Other>"
                                "<Enums><Other/><Enum name='e'><Other/>"
                                "<EnumValue><Other/><DisplayName> A </DisplayName><EnumIdentifier>I</EnumIdentifier>"
                                "<Value>5</Value><Value>6</Value></EnumValue></Enum></Enums>"
                                "<Sheet name='sheet'/><Script language='x'>a{{CR}}{{LF}}b</Script></ZkParamGui>");
        const auto values = form->GetEnum("e");
        const OrbelEnumValue &value = values->GetValueAt(0);
        QVERIFY(values->GetValueCount() == 1 && form->GetSheet().GetName() == "sheet");
        QCOMPARE(value.GetDisplayName() + value.GetEnumIdentifier() + value.GetValue(), QString(" A I6"));
        QCOMPARE(form->GetScript().GetLanguage() + form->GetScript().GetCode(), QString("xa\r\nb"));
    }

    void repeatedElementsAddOrOverwrite()
    {
        const Form form
            = Parse("<ZkParamGui><Enums><Enum name='e'><EnumValue><Value>{{LF}}</Value></EnumValue></Enum></Enums>"
                    "<Sheet name='s1'><Widget class='Label'/></Sheet><Script>1</Script>"
                    "<Enums><Enum name='e'/><Enum name='f'/></Enums>"
                    "<Sheet name='s2'><Widget/><Widget class='Label'/></Sheet><Script>2</Script></ZkParamGui>");
        QCOMPARE(form->GetSheet().GetName(), QString("s2"));
        QCOMPARE(Names(form), QString("Label_0 _1 Label_2"));
        QCOMPARE(form->GetEnum("e")->GetValueCount(), 0);
        QVERIFY(form->HasEnum("f"));
        QCOMPARE(form->GetScript().GetCode(), QString("2"));
    }

    void valuesAreTypedAsBoolOrText_data()
    {
        const auto row = Columns<QString, QVariant>({"element", "value"});
        row("true", "<Bool>true</Bool>", QVariant(true));
        row("capital True is false", "<Bool>True</Bool>", QVariant(false));
        row("empty bool", "<Bool/>", QVariant(false));
        row("numbers stay texts", "<Int>12.5</Int>", QVariant(QString("12.5")));
        row("empty text", "<String/>", QVariant(QString("")));
    }

    void valuesAreTypedAsBoolOrText()
    {
        const auto [element, value] = Fetch<QString, QVariant>({"element", "value"});
        const Form form = Parse(Definition("<Widget name='a'><Property name='p'>" + element
            + "</Property><CustomProperties><Property name='c'>" + element + "</Property><Property name='toolTip'>"
            + element + "</Property></CustomProperties></Widget>"));
        OrbelDelegate *a = Delegate(form, "a");
        QCOMPARE(a->property("p"), value);
        QCOMPARE(a->customProperty("c"), value);
        QVERIFY(!a->property("c").isValid());
        QCOMPARE(a->customProperty("toolTip"), value);
        QCOMPARE(a->property("toolTip"), value);
        QVERIFY(!a->customProperty("p").isValid());
    }

    void changedDefinitionStopsAtTheFirstUnknownWidget()
    {
        const Form form = Parse(Definition(Widget("a", "Label") + Widget("b", "Label") + Widget("a", "Label"),
            "<Script language='l'>old</Script><Enums><Enum name='e'><EnumValue><EnumIdentifier>I</EnumIdentifier>"
            "<Value>1</Value></EnumValue></Enum></Enums>"));
        const QString change = "<Property name='x'><Int>%1</Int></Property>";
        form->SetChangedORBEL("<ZkParamGui version='9'><Other/><Enums><Enum name='e'><EnumValue><EnumIdentifier>I"
                              "</EnumIdentifier><Value>2</Value></EnumValue></Enum><Enum name='new'><EnumValue>"
                              "<EnumIdentifier>J</EnumIdentifier><Value>3</Value></EnumValue></Enum></Enums>"
                              "<Sheet name='other'><Other/><Widget name='a' class='CheckBox'>"
            + change.arg(1) + "<Property name='parameterXmlTag'><String>p/q</String></Property></Widget>"
            + "<Widget name='none'>" + change.arg(2) + "</Widget><Widget name='b'>" + change.arg(3)
            + "</Widget></Sheet><Script>lost</Script></ZkParamGui>");

        QCOMPARE(form->GetVersion(), QString("1"));
        QCOMPARE(form->GetSheet().GetName(), QString("sheet"));
        QCOMPARE(Delegate(form, "a")->property("x").toString(), QString("1"));
        QCOMPARE(Delegate(form, "a")->GetXmlTagName(), QString("q"));
        QVERIFY(!form->GetSheet().GetWidgetAt(2)->GetDelegate()->property("x").isValid());
        QVERIFY(!Delegate(form, "b")->property("x").isValid());
        QCOMPARE(form->GetScript().GetCode(), QString("old"));
        // The script goes on seeing the old value of an enumeration it knew.
        QCOMPARE(form->GetEnum("e")->GetValueAt(0).GetValue(), QString("2"));
        QCOMPARE(form->GetScriptValues().value("e").property("I").toString(), QString("1"));
        QCOMPARE(form->GetScriptValues().value("new").property("J").toString(), QString("3"));

        form->SetChangedORBEL("<ZkParamGui><Sheet><Widget name='b'>" + change.arg(4)
            + "</Widget></Sheet><Script>new</Script></ZkParamGui>");
        QCOMPARE(Delegate(form, "b")->property("x").toString(), QString("4"));
        QCOMPARE(form->GetScript().GetCode(), QString("new"));
    }

    void enumerationLookUps()
    {
        OrbelEnum values("e");
        QCOMPARE(values.FindName("x").GetValue(), QString());
        values.AppendEnumValue("A", "a", "2.5");
        values.AppendEnumValue("B", "b", "x");
        values.AppendEnumValue("B", "c", "2.5");
        QCOMPARE(values.firstIndexOfName("B"), 1);
        QVERIFY(values.firstIndexOfValue("2.5") == 0 && values.firstIndexOfValue("X") == -1);
        bool known = false, unknown = true;
        QCOMPARE(values.FindValue("x", &known).GetDisplayName() + values.FindValue("absent", &unknown).GetDisplayName(),
            QString("BA"));
        QVERIFY(known && !unknown);
        QCOMPARE(values.FindName("absent").GetEnumIdentifier(), QString("a"));
        QVERIFY(values.GetValueAt(-1).GetDisplayName().isEmpty() && values.GetValueAt(3).GetDisplayName().isEmpty());
    }

    void scriptSeesControlsAndEnumerationsButNotDisplayNames()
    {
        const Form form = Bind(
            "<ZkParamGui><Enums><Enum name='Mode'>"
            "<EnumValue><DisplayName>Auto</DisplayName><EnumIdentifier>AUTO</EnumIdentifier><Value>1</Value></"
            "EnumValue>"
            "<EnumValue><EnumIdentifier>AUTO</EnumIdentifier><Value>2</Value></EnumValue></Enum></Enums>"
            "<Sheet name='sheet'><Widget class='Label'><Property name='text'><String>t</String></Property></Widget>"
            + Widget("twin", "Label", {"text=String:first"}) + Widget("twin", "Label", {"text=String:second"})
            + "</Sheet><Script>var seen = Label_0.text + typeof Mode.AUTO + Mode.AUTO + Mode.Auto + twin.text;"
              "sheet.setQMBaseName('x'); throw 'oops'; seen = '';</Script></ZkParamGui>");
        const auto globals = form->GetScriptValues();
        QCOMPARE(globals.value("seen").toString(), QString("tstring2undefinedsecond"));
        QCOMPARE(form->GetSheet().GetDelegate()->property("qmBaseName").toString(), QString("x"));
        QVERIFY(globals.contains("sheet") && globals.contains("Math"));
        QCOMPARE(form->GetEnum("none").data(), form->GetEnum("other").data());

        form->SetScriptValue("twin", 2.5);
        form->SetScriptValue("nothing", static_cast<QObject *>(nullptr));
        form->EvaluateScript("var after = twin + 1; var isNull = nothing === null; not.there;");
        QCOMPARE(form->GetScriptValues().value("after").toNumber(), 3.5);
        QVERIFY(form->GetScriptValues().value("isNull").toBool());
        QCOMPARE(Delegate(form, "twin")->property("text").toString(), QString("first"));
    }
};

ORBEL_TEST_MAIN(TestDefinition)
#include "tst_definition.moc"
