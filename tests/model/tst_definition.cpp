// Where each reader of a form definition stops, and what it keeps of what it met.

#include "forms.h"
#include "formlimits.h"
#include "testmain.h"
#include "translationcenter.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace KV218;
using namespace forms;

class TestDefinition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void rootIsFoundAlongTheFirstElements_data()
    {
        QTest::addColumn<QString>("document");
        QTest::addColumn<QString>("version"); // null: no form

        QTest::newRow("plain") << "<ZkParamGui version='7'/>" << "7";
        QTest::newRow("no version") << "<ZkParamGui/>" << "";
        QTest::newRow("below another root") << "<x><ZkParamGui version='7'/></x>" << "7";
        QTest::newRow("three levels down") << "<x><y><z><ZkParamGui version='7'/></z></y></x>" << "7";
        QTest::newRow("behind a first child that is closed") << "<x><y/><ZkParamGui version='7'/></x>" << QString();
        QTest::newRow("the last of two counts") << "<x><ZkParamGui version='1'/><ZkParamGui version='2'/></x>" << "2";
        QTest::newRow("namespace is not looked at") << "<a:ZkParamGui xmlns:a='u' version='7'/>" << "7";
        QTest::newRow("case counts") << "<zkparamgui version='7'/>" << QString();
        QTest::newRow("empty text") << "" << QString();
        QTest::newRow("no XML") << "hello" << QString();
        QTest::newRow("malformed behind the root's start") << "<ZkParamGui version='7'><" << "7";
    }

    void rootIsFoundAlongTheFirstElements()
    {
        QFETCH(QString, document);
        QFETCH(QString, version);
        for (const Form &form : {Form(OrbelParser().ParseORBEL(document)), Form(OrbelParser().ParseORBEL(document.toUtf8()))}) {
            QCOMPARE(!form, version.isNull());
            if (form)
                QCOMPARE(form->GetVersion(), version);
        }
    }

    void filesAreDecodedAsTheyDeclare()
    {
        QTemporaryDir directory;
        QVERIFY(!OrbelParser().ParseORBELFile(directory.filePath("missing.orbel")));

        QFile empty(directory.filePath("empty.orbel"));
        QVERIFY(empty.open(QIODevice::WriteOnly));
        empty.close();
        QVERIFY(!OrbelParser().ParseORBELFile(empty.fileName()));

        QFile latin(directory.filePath("latin.orbel"));
        QVERIFY(latin.open(QIODevice::WriteOnly));
        latin.write("<?xml version='1.0' encoding='ISO-8859-1'?><ZkParamGui version='\xe4'/>");
        latin.close();
        const Form form(OrbelParser().ParseORBELFile(latin.fileName()));
        QVERIFY(form);
        QCOMPARE(form->GetVersion(), QString(QChar(0xe4)));
        QCOMPARE(form->GetName(), QString());
    }

    void sheetEndsWhereItsListsEnd_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<QString>("names");
        QTest::addColumn<bool>("scriptIsRead");

        const QString a = Widget("a", "Label", {"x=Int:1"});
        const QString b = Widget("b", "Label");
        QTest::newRow("two widgets") << a + b << "a b" << true;
        QTest::newRow("unknown child of the sheet is skipped") << a + "<Other><Widget name='no'/></Other>" + b << "a b" << true;
        QTest::newRow("a wrapper inside a widget ends the sheet behind it")
            << "<Widget name='a' class='Label'><Properties><Property name='x'><Int>1</Int></Property></Properties></Widget>" + b
            << "a" << false;
        QTest::newRow("an empty property ends the sheet behind its widget")
            << "<Widget name='a' class='Label'><Property name='x'><Int>1</Int></Property><Property name='y'/></Widget>" + b
            << "a" << false;
        QTest::newRow("an unknown element inside a widget ends the sheet behind it")
            << "<Widget name='a' class='Label'><Property name='x'><Int>1</Int></Property><Other/></Widget>" + b << "a" << false;
        QTest::newRow("custom properties inside a widget end nothing")
            << "<Widget name='a' class='Label'><Property name='x'><Int>1</Int></Property><CustomProperties><Property "
               "name='c'><Int>2</Int></Property></CustomProperties></Widget>"
                + b
            << "a b" << true;
        QTest::newRow("an empty property among custom ones ends that list and then the widget's")
            << "<Widget name='a' class='Label'><Property name='x'><Int>1</Int></Property><CustomProperties><Property "
               "name='c'/></CustomProperties></Widget>"
                + b
            << "a" << false;
        QTest::newRow("what stands behind the value is skipped")
            << "<Widget name='a' class='Label'><Property name='x'><Int>1</Int><Int>2</Int><More><x/></More></Property></Widget>" + b
            << "a b" << true;
        QTest::newRow("an element inside a value stops everything")
            << "<Widget name='a' class='Label'><Property name='x'><Int>1<i/></Int></Property></Widget>" + b << "a" << false;
    }

    void sheetEndsWhereItsListsEnd()
    {
        QFETCH(QString, sheet);
        QFETCH(QString, names);
        QFETCH(bool, scriptIsRead);
        const Form form = Parse(Definition(sheet, "<Script>1</Script>"));
        QCOMPARE(Names(form), names);
        QCOMPARE(Delegate(form, "a")->property("x"), QVariant(QString("1")));
        QCOMPARE(!form->GetScript().GetCode().isEmpty(), scriptIsRead);
    }

    void aBrokenListOfTheSheetEndsTheSheet_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<bool>("isBroken");
        QTest::newRow("sound") << "<Properties><Property name='x'><Int>1</Int></Property></Properties>" << false;
        QTest::newRow("unknown element") << "<Properties><Property name='x'><Int>1</Int></Property><Other/></Properties>" << true;
        QTest::newRow("empty property") << "<Properties><Property name='x'><Int>1</Int></Property><Property/></Properties>" << true;
        QTest::newRow("unknown element among custom ones") << "<CustomProperties><Other/></CustomProperties>" << true;
    }

    void aBrokenListOfTheSheetEndsTheSheet()
    {
        QFETCH(QString, list);
        QFETCH(bool, isBroken);
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
        QCOMPARE(values->GetValueCount(), 1);
        QCOMPARE(values->GetValueAt(0).GetDisplayName(), QString(" A "));
        QCOMPARE(values->GetValueAt(0).GetEnumIdentifier(), QString("I"));
        QCOMPARE(values->GetValueAt(0).GetValue(), QString("6"));
        QCOMPARE(form->GetSheet().GetName(), QString("sheet"));
        QCOMPARE(form->GetScript().GetLanguage(), QString("x"));
        QCOMPARE(form->GetScript().GetCode(), QString("a\r\nb"));
    }

    void repeatedElementsAddOrOverwrite()
    {
        const Form form = Parse("<ZkParamGui><Enums><Enum name='e'><EnumValue><Value>{{LF}}</Value></EnumValue></Enum></Enums>"
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
        QTest::addColumn<QString>("element");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("true") << "<Bool>true</Bool>" << QVariant(true);
        QTest::newRow("capital True is false") << "<Bool>True</Bool>" << QVariant(false);
        QTest::newRow("1 is false") << "<Bool>1</Bool>" << QVariant(false);
        QTest::newRow("empty bool") << "<Bool/>" << QVariant(false);
        QTest::newRow("numbers stay texts") << "<Int>12.5</Int>" << QVariant(QString("12.5"));
        QTest::newRow("any element name") << "<Whatever>x</Whatever>" << QVariant(QString("x"));
        QTest::newRow("empty text") << "<String/>" << QVariant(QString(""));
    }

    void valuesAreTypedAsBoolOrText()
    {
        QFETCH(QString, element);
        QFETCH(QVariant, value);
        const Form form = Parse(Definition(
            "<Widget name='a'><Property name='p'>" + element + "</Property><CustomProperties><Property name='c'>" + element
            + "</Property><Property name='toolTip'>" + element + "</Property></CustomProperties></Widget>"));
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
        QCOMPARE(values.firstIndexOfValue("2.5"), 0);
        QCOMPARE(values.firstIndexOfValue("X"), -1);
        bool found = true;
        QCOMPARE(values.FindValue("absent", &found).GetDisplayName(), QString("A"));
        QVERIFY(!found);
        QCOMPARE(values.FindValue("x", &found).GetDisplayName(), QString("B"));
        QVERIFY(found);
        QCOMPARE(values.FindName("absent").GetEnumIdentifier(), QString("a"));
        QCOMPARE(values.GetValueAt(-1).GetDisplayName(), QString());
        QCOMPARE(values.GetValueAt(3).GetDisplayName(), QString());
        QCOMPARE(values.GetValueAt(0).GetDoubleValue(7), 2.5);
        QCOMPARE(values.GetValueAt(1).GetDoubleValue(7), 7.0);
        OrbelEnum copy(values);
        values.ClearValues();
        QCOMPARE(values.GetName(), QString("e"));
        QCOMPARE(copy.GetValueCount(), 3);
    }

    void scriptSeesControlsAndEnumerationsButNotDisplayNames()
    {
        const Form form = Bind("<ZkParamGui><Enums><Enum name='Mode'>"
                               "<EnumValue><DisplayName>Auto</DisplayName><EnumIdentifier>AUTO</EnumIdentifier><Value>1</Value></EnumValue>"
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

    void depthIsBounded()
    {
        const int depth = 200000;
        const QString lists = QString("<CustomProperties>").repeated(depth);
        const Form nested = Parse("<ZkParamGui><Sheet><Widget name='a' class='Label'>" + lists);
        QCOMPARE(Names(nested), QString("a"));
        QVERIFY(!OrbelParser().ParseORBEL(QString("<x>").repeated(depth)));
        QCOMPARE(Names(Parse(Definition(QString("<x>").repeated(depth)))), QString());

        const Form path = Bind(Definition(Widget("deep", "CheckBox",
            {"generateParameterXml=Bool:true", "parameterXmlTag=String:" + QString("a/").repeated(100000) + "b"})
            + Widget("b", "CheckBox", {"generateParameterXml=Bool:true"})));
        QCOMPARE(path->GetXmlString(false).count("<b>"), 1);
        path->SetXmlString("<Parameters>" + QString("<a>").repeated(depth));
    }

    void namesRegisterTranslations()
    {
        const auto isRegistered = [](const QString &name) { return TranslationCenter::Instance().GetRegistered().contains(name); };
        Form form = Parse(Definition(QString()));
        form->SetName(QString());
        form->SetName("RxSettings");
        QVERIFY(isRegistered("RxSettings"));
        form.reset();
        QVERIFY(!isRegistered("RxSettings"));
    }
};

ORBEL_TEST_MAIN(TestDefinition)
#include "tst_definition.moc"
