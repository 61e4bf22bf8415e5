// Check box and line edit: what operator, script, node and document each cause, and in which order.

#include "liveform.h"

namespace
{

const QString Written("generateParameterXml=Bool:true");

void Click(QWidget *box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

} // namespace

class TestCheckBoxLineEdit : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void boxTexts_data()
    {
        const auto row = Columns<QStringList, QString, bool, QString>({"properties", "text", "checked", "written"});
        const QStringList own{"checkedValue=String:on", "uncheckedValue=String:off"};
        const QStringList empty{"checkedValue=String:", "uncheckedValue=String:"};
        row("another case is unchecked", QStringList(), "TRUE", false, "<c>false</c>");
        row("own text for checked", own, "on", true, "<c>on</c>");
        row("neither of the own texts is unchecked", own, "1", false, "<c>off</c>");
        row("empty own texts count as absent", empty, "true", true, "<c>true</c>");
    }

    void boxTexts()
    {
        auto [properties, text, checked, written]
            = Fetch<QStringList, QString, bool, QString>({"properties", "text", "checked", "written"});
        LiveForm live(Widget("c", "CheckBox", properties << Written));
        live.log.Watch("c", live.Get("c"));
        for (int pass = 0; pass < 2; ++pass) {
            live.form->SetXmlString("<Parameters><c>" + text + "</c></Parameters>");
            QCOMPARE(live.log.Take(), QString("c.toggled(%1)").arg(QVariant(checked).toString()));
        }
        QVERIFY(!live.form->GetSheet().isModified());
        QCOMPARE(live.Find<QCheckBox>("c")->isChecked(), checked);
        const QString document = live.form->GetXmlString(false);
        QVERIFY2(document.contains(written), qPrintable(document));
    }

    void boxChanges()
    {
        LiveForm live(Widget("c", "CheckBox", {Written}), false);
        ValueBase *node = live.form->GetVTValue("c");
        live.log.Watch("c", live.Get("c"));
        live.log.Watch("node", node);
        live.form->EvaluateScript("c.setChecked(true)");
        QCOMPARE(live.log.Take(), QString("node=true"));
        node->SetStringValue("false", nullptr);
        node->SetStringValue("false", nullptr);
        QCOMPARE(live.log.Take(), QString("c.toggled(false) sheet.si_parametersModified() node=false"));
        QVERIFY(!live.Find<QCheckBox>("c")->isChecked() && live.Get("c")->isModified());

        Click(live.Find("c"));
        QCOMPARE(live.log.Take(), QString("c.toggled(true) node=true"));
        QCOMPARE(live.Get("c")->property("checked"), QVariant(true));
        QTRY_COMPARE(live.log.Seen(), QString("sheet.si_parametersModified()"));
    }

    void tooltips()
    {
        const ContextTranslator translator("w");
        const QStringList tip{"toolTip=String:tip"}, label{"labelText=String:label"}, tag{"parameterXmlTag=String:a/b"};
        const auto shown = [](const QString &className, const QStringList &properties) {
            return LiveForm(Widget("w", className, properties)).Find("w")->toolTip();
        };
        QCOMPARE(shown("CheckBox", tip + label), QString("tip"));
        QCOMPARE(shown("CheckBox", label + tag) + shown("CheckBox", tag), QString("w:labelb"));
        QCOMPARE(shown("LineEdit", tip + label) + shown("LineEdit", tip + tag), QString("w:label"));
    }

    void editing()
    {
        LiveForm live(Widget("e", "LineEdit", {Written, "text=String:x", "maxLength=Int:4", "inputMask=String:nnnn"}));
        auto *edit = live.Find<QLineEdit>("e");
        QVERIFY(QTest::qWaitForWindowActive(live.window.get()));
        QCOMPARE(edit->inputMask(), QString("nnnn"));
        live.form->EvaluateScript("e.setInputMask(''); e.setMaxLength(3); e.setFocus()");
        QVERIFY(edit->hasFocus());
        live.log.Watch("e", live.Get("e"));
        live.log.Watch("node", live.form->GetVTValue("e"));

        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClicks(edit, "yzz");
        QCOMPARE(live.log.Take(), QString("e.textEdited(xy) e.textChanged(xy) e.textEdited(xyz) e.textChanged(xyz)"));
        QVERIFY(live.form->GetSheet().isModified());
        PassTimersBelow(200);
        QVERIFY2(live.log.Take().isEmpty(), "a keystroke starts no automatic apply");
        QVERIFY2(live.form->GetXmlString(false).contains("<e>x</e>"), "the document has the old text meanwhile");

        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(live.log.Take(),
            QString("node=xyz e.textEdited(xyz) e.editingFinished() e.returnPressed() sheet.si_parametersModified()"));
        QVERIFY(live.form->GetXmlString(true).contains("<e>xyz</e>"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(live.log.Take(), QString("e.returnPressed()"));

        QTest::keyClick(edit, Qt::Key_Backspace);
        live.log.Take();
        live.form->EvaluateScript("e.forceFinishEditing()");
        QCOMPARE(live.log.Take(), QString("node=xy e.textEdited(xy) e.editingFinished()"));
        PassTimersBelow(200);
        QCOMPARE(live.log.Take(), QString("sheet.si_parametersModified()"));
    }

};

ORBEL_TEST_MAIN(TestCheckBoxLineEdit)
#include "tst_checkboxlineedit.moc"
