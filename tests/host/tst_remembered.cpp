// What controls remember so that they need not work it out again: it must never be seen that they do.

#include "testmain.h"
#include "valuenumeric.h"
#include "vccomboboxclassic.h"
#include "vcnumericfloatspin.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>

class TestRemembered : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void hintsAreThoseOfAPlainBox()
    {
        const std::vector<std::function<void(QComboBox &)>> steps{
            [](QComboBox &box) { box.show(); },
            [](QComboBox &box) { box.addItem("a much longer item than all the others"); },
            [](QComboBox &box) { box.setItemText(0, "changed to something longer"); },
            [](QComboBox &box) { box.removeItem(1); },
            [](QComboBox &box) { box.setFont(QFont(box.font().family(), 30)); },
            [](QComboBox &box) { box.setStyle(QApplication::style()); },
            [](QComboBox &box) { box.setStyleSheet("font-size: 30pt;"); },
            [](QComboBox &box) { box.setItemIcon(0, QPixmap(9, 9)); },
            [](QComboBox &box) {
                box.setIconSize({50, 50});
            },
            [](QComboBox &box) { box.setFrame(false); },
            [](QComboBox &box) { box.setMinimumContentsLength(60); },
            [](QComboBox &box) { box.setSizeAdjustPolicy(QComboBox::AdjustToContents); },
            [](QComboBox &box) { box.setModel(new QStringListModel({"an item of another model"}, &box)); },
        };
        const auto hints = [](const QComboBox &box) { return qMakePair(box.sizeHint(), box.minimumSizeHint()); };
        for (size_t i = 0; i < steps.size() * steps.size(); ++i) {
            QComboBox plain;
            VCComboBoxClassic ours;
            plain.addItems({"one", "another one"});
            ours.addItems({"one", "another one"});
            QCOMPARE(hints(ours), hints(plain));
            for (const size_t step : {i / steps.size(), i % steps.size()}) {
                steps[step](plain);
                steps[step](ours);
                QVERIFY2(hints(ours) == hints(plain), qPrintable(QString("step %1 of pair %2").arg(step).arg(i)));
            }
        }
    }

    void aNumberThatWasTakenAwayIsShownAgain()
    {
        using Spin = VCNumericFloatSpin;
        const std::pair<const char *, std::function<void(Spin &)>> steps[]{
            {"another text", [](Spin &spin) { spin.findChild<QLineEdit *>()->setText("9.00"); }},
            {"cleared", [](Spin &spin) { spin.clear(); }},
            {"another number of the base class", [](Spin &spin) { spin.QDoubleSpinBox::setValue(9); }},
            {"another number from who heard of this one",
                [](Spin &spin) {
                    const auto changed = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
                    QObject once;
                    connect(&spin, changed, &once, [&] {
                        spin.disconnect(&once);
                        spin.QDoubleSpinBox::setValue(9);
                    });
                    spin.setValue(3);
                    spin.setValue(2);
                }},
        };
        for (const auto &[name, step] : steps) {
            ValueDouble node("n");
            Spin spin;
            spin.setAdditionalPrecision(2);
            spin.SetNumericValue(&node);
            node.SetValue(2, nullptr);
            QCOMPARE(spin.text(), QString("2.00"));
            step(spin);
            node.HasChanged(ekChangeValue, nullptr);
            QVERIFY2(spin.text() == "2.00" && spin.value() == 2.0, name);
            node.SetStep(0.001, nullptr);
            QVERIFY2(spin.text() == "2.00000", name);
        }
    }
};

ORBEL_TEST_MAIN(TestRemembered)
#include "tst_remembered.moc"
