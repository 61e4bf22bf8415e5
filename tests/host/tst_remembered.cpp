// What controls remember so that they need not work it out again: it must never be seen that they do.

#include "testmain.h"
#include "valuenumeric.h"
#include "vccomboboxclassic.h"
#include "vcnumericfloatspin.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>

Q_DECLARE_METATYPE(std::function<void(QComboBox &)>)
Q_DECLARE_METATYPE(std::function<void(VCNumericFloatSpin &)>)

class TestRemembered : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void hintsAreThoseOfAPlainBox_data()
    {
        using Step = std::function<void(QComboBox &)>;
        const auto row
            = [](const char *name, const Step &first, const Step &second) { QTest::newRow(name) << first << second; };
        QTest::addColumn<Step>("first");
        QTest::addColumn<Step>("second");
        const Step show = [](QComboBox &box) { box.show(); };
        const Step longer = [](QComboBox &box) { box.addItem("a much longer item than all the others"); };
        const Step icon = [](QComboBox &box) { box.setItemIcon(0, QPixmap(9, 9)); };
        row("shown at once", show, show);
        row("a longer item, then shown", longer, show);
        row("shown, then a longer item", show, longer);
        row(
            "a changed item, then shown", [](QComboBox &box) { box.setItemText(0, "changed to something longer"); },
            show);
        row(
            "fewer items, then shown", [](QComboBox &box) { box.removeItem(1); }, show);
        row("another font", show, [](QComboBox &box) { box.setFont(QFont(box.font().family(), 30)); });
        row("another style", show, [](QComboBox &box) { box.setStyle(QApplication::style()); });
        row("a style sheet", show, [](QComboBox &box) { box.setStyleSheet("font-size: 30pt;"); });
        row("an icon, then shown", icon, show);
        row("icons of another size", icon, [](QComboBox &box) { box.setIconSize({50, 50}); });
        row(
            "no frame, then shown", [](QComboBox &box) { box.setFrame(false); }, show);
        row("a least length", show, [](QComboBox &box) { box.setMinimumContentsLength(60); });
        row(
            "adjusting to its contents", [](QComboBox &box) { box.setSizeAdjustPolicy(QComboBox::AdjustToContents); },
            longer);
        row("another model", show,
            [](QComboBox &box) { box.setModel(new QStringListModel({"an item of another model"}, &box)); });
    }

    void hintsAreThoseOfAPlainBox()
    {
        QFETCH(std::function<void(QComboBox &)>, first);
        QFETCH(std::function<void(QComboBox &)>, second);
        QComboBox plain;
        VCComboBoxClassic ours;
        const auto hints = [](const QComboBox &box) { return qMakePair(box.sizeHint(), box.minimumSizeHint()); };
        plain.addItems({"one", "another one"});
        ours.addItems({"one", "another one"});
        QCOMPARE(hints(ours), hints(plain));
        for (const auto &step : {first, second}) {
            step(plain);
            step(ours);
            QCOMPARE(hints(ours), hints(plain));
        }
    }

    void aNumberThatWasTakenAwayIsShownAgain_data()
    {
        using Step = std::function<void(VCNumericFloatSpin &)>;
        QTest::addColumn<Step>("step");
        QTest::newRow("another text") << Step(
            [](VCNumericFloatSpin &spin) { spin.findChild<QLineEdit *>()->setText("9.00"); });
        QTest::newRow("cleared") << Step([](VCNumericFloatSpin &spin) { spin.clear(); });
        QTest::newRow("another number of the base class")
            << Step([](VCNumericFloatSpin &spin) { spin.QDoubleSpinBox::setValue(9); });
        QTest::newRow("another number from who heard of this one") << Step([](VCNumericFloatSpin &spin) {
            const auto changed = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
            const auto link = std::make_shared<QMetaObject::Connection>();
            *link = connect(&spin, changed, &spin, [&spin, link] {
                disconnect(*link);
                spin.QDoubleSpinBox::setValue(9);
            });
            spin.setValue(3);
            spin.setValue(2);
        });
    }

    void aNumberThatWasTakenAwayIsShownAgain()
    {
        QFETCH(std::function<void(VCNumericFloatSpin &)>, step);
        ValueDouble node("n");
        VCNumericFloatSpin spin;
        spin.setAdditionalPrecision(2);
        spin.SetNumericValue(&node);
        node.SetValue(2, nullptr);
        QCOMPARE(spin.text(), QString("2.00"));
        step(spin);
        node.HasChanged(ekChangeValue, nullptr);
        QCOMPARE(spin.text(), QString("2.00"));
        QCOMPARE(spin.value(), 2.0);
        node.SetStep(0.001, nullptr);
        QCOMPARE(spin.text(), QString("2.00000"));
    }
};

ORBEL_TEST_MAIN(TestRemembered)
#include "tst_remembered.moc"
