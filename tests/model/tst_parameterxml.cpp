// The way of values into a parameter document and back, and the modified state along it.

#include "forms.h"
#include "orbelsheetui.h"

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

} // namespace

class TestParameterXml : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        Window.reset();
        QCOMPARE(LeftOver(), QString());
    }

    void documentMirrorsTheTags()
    {
        const Form form
            = Build(Definition(Check("a", "g/x") + Widget("silent", "CheckBox", {"parameterXmlTag=String:g/s"})
                + Check("b", "/h//x") + Check("c", "g/y") + Check("d", "g/x") + Check("e", "only/inner")));
        form->GetSheet().SelectWidgets({"only/inner"}, false);
        QCOMPARE(Compact(form->GetXmlString(false)),
            QString("<Parameters><g><x>false</x><y>false</y><x>false</x></g><h><x>false</x></h><only/></Parameters>"));
        QVERIFY2(form->GetXmlString(false).startsWith('\n'), "no document start is written");
    }

    void rootCarriesTypeAndAttributes()
    {
        const Form form
            = Build(Definition("<Properties><Property name='parametersXmlRootTag'><String>Rx</String></Property>"
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

    void onlyWhatChangedIsWritten()
    {
        const Form form = Build(Definition(Check("a", "g/a") + Check("b", "h/b") + Check("c", "g/c")));
        auto *apply = Window->findChild<QPushButton *>("applyButton");
        QCOMPARE(form->GetXmlString(true), QString());

        Window->findChild<QCheckBox *>("a")->click();
        QVERIFY(apply->isEnabled() && form->GetSheet().isWidgetModified());
        QCOMPARE(Compact(form->GetXmlString(true)), QString("<Parameters><g><a>true</a></g></Parameters>"));
        QVERIFY(!apply->isEnabled() && !Delegate(form, "a")->isModified());
        QCOMPARE(form->GetXmlString(true), QString());

        Window->findChild<QCheckBox *>("a")->click();
        form->GetXmlString(false);
        QCOMPARE(form->GetXmlString(true), QString());
    }

    void unselectedWidgetsStayOutThoughModified()
    {
        const Form form = Build(Definition(Check("a", "g/a") + Check("b", "h/b")));
        form->GetSheet().SelectWidgets({"g/a"}, false);
        Window->findChild<QCheckBox *>("a")->click();
        QVERIFY2(!form->GetSheet().isWidgetModified(), "an unselected widget does not count");
        Window->findChild<QCheckBox *>("b")->click();
        QCOMPARE(Compact(form->GetXmlString(true)), QString("<Parameters><g/><h><b>true</b></h></Parameters>"));
        QVERIFY(Delegate(form, "a")->isModified());
        form->SelectWidgets(QStringList(), true);
        QVERIFY(form->GetXmlString(false).contains("<a>true</a>"));
    }

    void aSheetMayAskForAllParameters()
    {
        const QString all = "<Property name='emitOnlyModifiedParameters'><Bool>false</Bool></Property>";
        const Form form = Build(Definition("<Properties>" + all + "</Properties>" + Check("a", "a") + Check("b", "b")));
        Window->findChild<QCheckBox *>("a")->click();
        QCOMPARE(Compact(form->GetXmlString(true)), QString("<Parameters><a>true</a><b>false</b></Parameters>"));
    }

    void readingTakesElementsInAnyOrder()
    {
        const Form form
            = Build(Definition(Check("a", "g/x") + Check("b", "h/x") + Check("c", "g/x") + Check("d", "y")));
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

    void aControlWithoutParameterXmlNeverBecomesModified()
    {
        const Form form = Build(Definition(Widget("a", "CheckBox") + Check("b", "b")));
        Window->findChild<QCheckBox *>("a")->click();
        QVERIFY(!Delegate(form, "a")->isModified() && !form->GetSheet().isModified());
        Window->findChild<QCheckBox *>("b")->click();
        Delegate(form, "b")->setGenerateParameterXml(false);
        QVERIFY(Delegate(form, "b")->isModified());
        QCOMPARE(Compact(form->GetXmlString(true)), QString("<Parameters/>"));
    }

private:
    Form Build(const QString &definition)
    {
        Form form = Bind(definition);
        form->CreateGUI(true);
        Window.reset(form->GetGUI());
        return form;
    }

    std::unique_ptr<QWidget> Window;
};

ORBEL_TEST_MAIN(TestParameterXml)
#include "tst_parameterxml.moc"
