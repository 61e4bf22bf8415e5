// The property mechanism of a control, its node paths and limits, and the cells of lists.

#include "forms.h"

namespace
{

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

class TestDelegate : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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

    void aLockOrACollapseTakesNothingAway()
    {
        for (const bool state : {true, false}) {
            QLineEdit edit;
            edit.setEnabled(state);
            edit.setVisible(state);
            Probe probe(&edit); // states neither `enabled` nor `visible`
            for (int turn = 0; turn < 2; ++turn) {
                probe.EnableInput(false, false);
                probe.setGroupVisible(false);
                QVERIFY(!edit.isEnabled() && edit.isHidden());
                probe.EnableInput(true, false);
                probe.setGroupVisible(true);
                QVERIFY(edit.isEnabled() == state && edit.isHidden() != state);
            }
        }
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

ORBEL_TEST_MAIN(TestDelegate)
#include "tst_delegate.moc"
