// The property mechanism of a control, its node paths and limits, and the cells of lists.

#include "forms.h"
#include "floatgrouplayout.h"
#include "propertynames.h"
#include "testmain.h"
#include "tree.h"
#include "valueselection.h"

#include <QSignalSpy>
#include <QtTest>
#include <limits>

using namespace KV218;
using namespace forms;

namespace
{

/// A delegate that shows what the base keeps to itself.
class Probe : public OrbelDelegate
{
public:
    explicit Probe(QObject *target = nullptr) : OrbelDelegate(nullptr), Target(target) {}

    using OrbelDelegate::AddXmlTag;
    using OrbelDelegate::ConfigureValueNumeric;
    using OrbelDelegate::CreateValueNumericFloat;
    using OrbelDelegate::CreateValueNumericInt;
    using OrbelDelegate::CreateValueSelection;
    using OrbelDelegate::CreateValueString;
    using OrbelDelegate::CreateValueBoolean;
    using OrbelDelegate::formatString;
    using OrbelDelegate::GetListValue;
    using OrbelDelegate::PropagateProperties;
    using OrbelDelegate::ResizeList;
    using OrbelDelegate::SetDoubleTooltip;
    using OrbelDelegate::SetInt64Tooltip;
    using OrbelDelegate::SetIntTooltip;
    using OrbelDelegate::SetListValue;

    void PropertyChanged(const QString &name, const QVariant &value) override
    {
        Log << name + "=" + (value.isValid() ? value.toString() : QString("invalid"));
        OrbelDelegate::PropertyChanged(name, value);
        PropagateProperty(name, Target);
    }

    QObject *Target;
    QStringList Log;
};

QList<QVariant> Cells(const QString &letters)
{
    QList<QVariant> cells;
    for (QChar letter : letters)
        cells << (letter == '-' ? QVariant() : QVariant(QString(letter)));
    return cells;
}

QString Letters(const QList<QVariant> &cells)
{
    QString letters;
    for (const QVariant &cell : cells)
        letters += cell.isValid() ? cell.toString() : QString("-");
    return letters;
}

} // namespace

class TestDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

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

    void gettersFallBack()
    {
        Probe probe;
        probe.setProperty("empty", QString(""));
        probe.setProperty("number", QString("12"));
        probe.setProperty("word", QString("abc"));
        QCOMPARE(probe.GetInt("number", 5), 12);
        QCOMPARE(probe.GetInt("word", 5), 5);
        QCOMPARE(probe.GetInt64("number", 5), qint64(12));
        QCOMPARE(probe.GetUInt64("empty", 5), quint64(5));
        QCOMPARE(probe.GetDouble("absent", 1.5), 1.5);
        QCOMPARE(probe.GetString("empty", "d"), QString("d"));
        QCOMPARE(probe.GetBool("absent", true), true);
        QCOMPARE(probe.GetBool("empty", true), false);
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

    void anInputLockNeedsAStatedEnabled()
    {
        QLineEdit edit;
        Probe probe(&edit);
        probe.EnableInput(false, false);
        QVERIFY(!edit.isEnabled());
        probe.EnableInput(true, false);
        QVERIFY2(!edit.isEnabled(), "nothing is stored that could be given back");
        probe.setEnabled(true);
        probe.EnableInput(false, false);
        probe.EnableInput(true, false);
        QVERIFY(edit.isEnabled());
    }

    void collapsingKeepsVisible()
    {
        QWidget window;
        auto *layout = new FloatGroupLayout(&window);
        auto *edit = new QLineEdit(&window);
        Probe probe(edit);
        probe.setVisible(true);
        probe.setLabelText("label");
        probe.CreateGUI(layout);
        probe.PropagateProperties(edit);
        auto *label = window.findChild<QLabel *>();
        QCOMPARE(label->objectName(), QString("label"));

        probe.setGroupVisible(false);
        probe.setGroupVisible(false);
        QVERIFY(edit->isHidden() && label->isHidden() && !probe.isGroupVisible());
        probe.setVisible(false);
        probe.setVisible(true);
        QVERIFY(edit->isHidden() && label->isHidden());
        probe.setGroupVisible(true);
        QVERIFY(!edit->isHidden() && !label->isHidden());
    }

    void aLabelNeedsAStatedVisible()
    {
        QWidget window;
        auto *layout = new FloatGroupLayout(&window);
        Probe probe;
        probe.setLabelText("label");
        probe.CreateGUI(layout);
        QVERIFY(window.findChild<QLabel *>()->isHidden());
        probe.setLabelText("other");
        QCOMPARE(window.findChild<QLabel *>()->text(), QString("other"));
        Probe unlabelled;
        unlabelled.CreateGUI(layout);
        unlabelled.setLabelText("late");
        QCOMPARE(window.findChildren<QLabel *>().size(), 1);
    }

    void customPropertiesAreAStoreOfTheirOwn()
    {
        Probe probe;
        QSignalSpy changed(&probe, &OrbelDelegate::customPropertyChanged);
        probe.setCustomProperty("toolTip", 1);
        probe.setCustomProperty("toolTip", 1);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first(), QList<QVariant>({"toolTip", QVariant::fromValue(QVariant(1))}));
        QVERIFY(probe.Log.isEmpty() && !probe.property("toolTip").isValid());
        QVERIFY(!probe.customProperty("absent").isValid());
    }

    void scriptsCannotDeleteAControl()
    {
        const Form form = Bind(Definition(Widget("a", "Label"), "<Script>a.deleteLater();</Script>"));
        const QPointer<OrbelDelegate> a(Delegate(form, "a"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(a);
    }

    void nodePaths_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("nodePath");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << "/Form" << "b" << "/Form/b" << "/Form" << "b";
        QTest::newRow("closed form path") << "/Form/" << "x/y" << "/Form/x/y" << "/Form/x" << "y";
        QTest::newRow("empty form path") << "" << "b" << "b" << "" << "";
        QTest::newRow("only a leading slash") << "/" << "b" << "/b" << "" << "";
    }

    void nodePaths()
    {
        QFETCH(QString, form);
        QFETCH(QString, tag);
        Probe probe;
        probe.SetXmlPath(tag);
        probe.SetVTPath(form);
        QTEST(probe.GetVTPath(), "path");
        QTEST(probe.GetVTNodePath(), "nodePath");
        QTEST(probe.GetVTName(), "name");
    }

    void makersGiveNodesWithScaledLimits()
    {
        Probe probe;
        probe.SetXmlPath("n");
        probe.SetVTPath("/Form");
        probe.setProperty("minimum", "10");
        probe.setProperty("displayScalingFactor", "1000");
        probe.setProperty("value", "0.5");
        const std::unique_ptr<ValueDouble> number(probe.CreateValueNumericFloat("value"));
        QCOMPARE(number->GetMin(), 0.01);
        QCOMPARE(number->GetMax(), 1e308);
        QCOMPARE(number->GetStep(), 0.001);
        QCOMPARE(number->GetValue(), 0.5);
        QCOMPARE(number->GetPathName(), QString("/Form/n"));
        QVERIFY2(!probe.CreateValueNumericFloat("value"), "the path is taken");
        const std::unique_ptr<ValueInt> indexed(probe.CreateValueNumericInt("value", 2));
        QCOMPARE(indexed->GetName(), QString("n_2"));

        probe.SetVTPath(QString());
        QVERIFY(!probe.CreateValueBoolean("checked"));
        const std::unique_ptr<ValueString> text(probe.CreateValueString("value"));
        QVERIFY2(text && Tree::Instance()->GetPaths().size() == 2, "a text keeps a node that the tree refused");
    }

    void selectionsTakeTheirItemsFromRows()
    {
        Probe probe;
        probe.SetXmlPath("s");
        probe.SetVTPath("/Form");
        QVERIFY(!probe.CreateValueSelection("current", QExplicitlySharedDataPointer<OrbelEnum>()));
        const QExplicitlySharedDataPointer<OrbelEnum> values(new OrbelEnum("e"));
        values->AppendEnumValue("Five", "i", "5");
        values->AppendEnumValue("Text", "j", "x");
        probe.setProperty("current", "unknown");
        std::unique_ptr<ValueSelection> node(probe.CreateValueSelection("current", values));
        QCOMPARE(node->GetStringValue(), QString("Five"));
        QCOMPARE(probe.property("current").toString(), QString("5"));
        QCOMPARE(node->GetItemIndex(0)->GetValue(), 5.0);
        QCOMPARE(node->GetItemIndex(1)->GetValue(), 1.0);
        QCOMPARE(node->GetItemNameForKey(2), QString("Text"));
        node.reset();
        probe.setProperty("current", "x");
        node.reset(probe.CreateValueSelection("current", values));
        QCOMPARE(node->GetStringValue(), QString("Text"));
    }

    void tooltips_data()
    {
        QTest::addColumn<QString>("minimum"); // null: absent
        QTest::addColumn<QString>("maximum");
        QTest::addColumn<QString>("intTip");
        QTest::addColumn<QString>("int64Tip");
        QTest::addColumn<QString>("doubleTip");
        const QString none;
        QTest::newRow("no bounds") << none << none << "<html>Gain" << "<html>Gain" << "<html>Gain";
        QTest::newRow("lower") << "0" << none << "<html>Gain<br>0..." << "<html>Gain<br>0..." << "<html>Gain<br>0.0...";
        QTest::newRow("upper") << none << "10" << "<html>Gain<br>...10" << "<html>Gain<br>...10" << "<html>Gain<br>...10.0";
        QTest::newRow("beyond 32 bits") << "-3000000000" << "3000000000" << "<html>Gain"
                                        << "<html>Gain<br>-3000000000...3000000000"
                                        << "<html>Gain<br>-3000000000.0...3000000000.0";
        QTest::newRow("the type's own bound is none")
            << "-2147483648" << "9223372036854775807" << "<html>Gain" << "<html>Gain<br>-2147483648..."
            << "<html>Gain<br>-2147483648.0...9223372036854775808.0";
        QTest::newRow("no number") << "x" << "1.5" << "<html>Gain" << "<html>Gain" << "<html>Gain<br>...1.5";
    }

    void tooltips()
    {
        QFETCH(QString, minimum);
        QFETCH(QString, maximum);
        QWidget control;
        Probe probe;
        probe.setProperty("labelText", "Gain");
        probe.setProperty("decimals", "1");
        if (!minimum.isNull())
            probe.setProperty("minimum", minimum);
        if (!maximum.isNull())
            probe.setProperty("maximum", maximum);
        probe.SetIntTooltip(nullptr);
        probe.SetIntTooltip(&control);
        QTEST(control.toolTip(), "intTip");
        probe.SetInt64Tooltip(&control);
        QTEST(control.toolTip(), "int64Tip");
        probe.SetDoubleTooltip(&control);
        QTEST(control.toolTip(), "doubleTip");
    }

    void decimalsBeyondAllReasonAreHarmless()
    {
        QWidget control;
        Probe probe;
        probe.setProperty("maximum", "10");
        probe.setProperty("decimals", std::numeric_limits<int>::max());
        probe.SetDoubleTooltip(&control);
        QVERIFY(control.toolTip().size() < 1000);
        QCOMPARE(Probe::formatString(1.5, std::numeric_limits<int>::max(), "Hz"), QString("1.5Hz"));
    }

    void numbersAsText_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::newRow("trimmed") << 1.5 << 3 << "1.5Hz";
        QTest::newRow("point goes too") << 2.0 << 3 << "2Hz";
        QTest::newRow("zeros before the point stay") << 100.0 << 2 << "100Hz";
        QTest::newRow("no decimals, nothing trimmed") << 100.0 << 0 << "100Hz";
        QTest::newRow("negative") << -0.25 << 4 << "-0.25Hz";
    }

    void numbersAsText()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QTEST(Probe::formatString(value, decimals, "Hz"), "text");
    }

    void cells_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("oldColumns");
        QTest::addColumn<bool>("resized");
        QTest::addColumn<QString>("after");
        QTest::newRow("wider takes the next row's first") << "abcd" << 2 << 3 << 2 << true << "abccd-";
        QTest::newRow("same size changes nothing") << "abcdef" << 3 << 2 << 3 << false << "abcdef";
        QTest::newRow("shorter") << "abcd" << 1 << 2 << 2 << true << "ab";
        QTest::newRow("negative") << "ab" << -1 << 2 << 2 << false << "ab";
        QTest::newRow("rows without columns") << "ab" << std::numeric_limits<int>::max() << 0 << 2 << true << "";
        QTest::newRow("more cells than any form needs")
            << "ab" << std::numeric_limits<int>::max() << std::numeric_limits<int>::max() << 2 << false << "ab";
    }

    void cells()
    {
        QFETCH(QString, before);
        QFETCH(int, rows);
        QFETCH(int, columns);
        QFETCH(int, oldColumns);
        QList<QVariant> list = Cells(before);
        QTEST(Probe::ResizeList(list, rows, columns, oldColumns), "resized");
        QTEST(Letters(list), "after");
    }

    void cellAccess()
    {
        QList<QVariant> list = Cells("abcd");
        QCOMPARE(Probe::GetListValue(list, 0, 2, 2).toString(), QString("c"));
        const int huge = std::numeric_limits<int>::max();
        for (const QPoint &place : {QPoint(-1, 0), QPoint(0, -1), QPoint(2, 0), QPoint(huge, huge)})
            QVERIFY(!Probe::GetListValue(list, place.x(), place.y(), huge).isValid());
        QVERIFY(!Probe::SetListValue(list, "d", 1, 1, 2));
        QVERIFY(!Probe::SetListValue(list, "x", 2, 0, 2));
        QVERIFY(Probe::SetListValue(list, "x", 1, 1, 2));
        QCOMPARE(Letters(list), QString("abcx"));
    }

    void tags()
    {
        Probe probe;
        probe.setObjectName("name");
        probe.SetXmlPath(QString());
        QCOMPARE(probe.GetXmlPath() + probe.GetXmlTagName(), QString("namename"));
        QVERIFY(probe.GetAllTags().isEmpty());
        probe.SetXmlPath("a/b/Freq");
        QCOMPARE(probe.GetXmlTagName(), QString("Freq"));
        QVERIFY(probe.ContainsXmlTag("FREQ"));
        probe.AddXmlTag("FREQ");
        QVERIFY(!probe.HasSeveralXmlTags());
        probe.SetXmlPath("a/b/Freq");
        QVERIFY2(probe.HasSeveralXmlTags(), "a second parse adds the name again");
    }

    void applyModeIsOnlyStored()
    {
        const Form form = Bind(Definition(Widget("a", "Label"), "<Script>a.setApplyMode(2); var done = true;</Script>"));
        QVERIFY2(form->GetScriptValues().value("done").toBool(), "a script can pass the mode");
    }
};

ORBEL_TEST_MAIN(TestDelegate)
#include "tst_delegate.moc"
