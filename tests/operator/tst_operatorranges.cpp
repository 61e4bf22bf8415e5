// An operator edits the list of excluded ranges of an example and finds the ranges in the parameter document.

#include "exampleform.h"
#include "testmain.h"
#include "valuecommentedrangemap.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTableWidget>

class TestOperatorRanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void theListIsEdited()
    {
        const ExampleForm detection("detection.orbel", "/Form", {600, 900});
        const auto &form = detection.form;
        const auto &window = detection.window;
        QVERIFY(XOperator::Show(window.get()));
        // Opens the list, edits it, ends with a button of the dialog, and gives the numbers that are to be applied.
        const auto edit = [&](QDialogButtonBox::StandardButton end, const std::function<void(QTableWidget *)> &act) {
            QTimer poll;
            connect(&poll, &QTimer::timeout, [&] {
                auto *dialog = window->findChild<QDialog *>();
                if (!dialog)
                    return;
                poll.stop();
                QVERIFY(XOperator::Show(dialog));
                act(dialog->findChild<QTableWidget *>());
                XOperator::Click(dialog->findChild<QDialogButtonBox *>()->button(end));
            });
            poll.start(20);
            XOperator::Click(window->findChild<QPushButton *>("hoppingExclusionButton"));
            [&] { QTRY_VERIFY(!poll.isActive() && !window->findChild<QDialog *>()); }();
            QString list = form->GetXmlString(true).section("ExclusionRanges>", 1, 1);
            return list.replace(QRegularExpression("\\s*<[^>]*>?\\s*"), " ").remove(".00").simplified();
        };
        const auto deleteFirst = [](QTableWidget *table) {
            XOperator::ClickAt(table->viewport(), table->visualItemRect(table->item(0, 0)).center());
            XOperator::Press("shift+Right");
            XOperator::Press("Delete");
            QTRY_COMPARE(table->rowCount(), 1);
        };
        const QString added = edit(QDialogButtonBox::Ok, [](QTableWidget *table) {
            for (const char *keys : {"ctrl+w", "Delete"})
                XOperator::Press(keys);
            for (const char *row : {"2 GHz\t2100M\n", "145500\t146000\n"}) {
                XOperator::Press("ctrl+w");
                XOperator::Type(row);
            }
            XOperator::Press("alt+s");
            QTRY_COMPARE(table->item(1, 0)->text(), QString("145500 kHz"));
        });
        QCOMPARE(added, QString("0 0 145500000 146000000 2000000000 2100000000"));
        auto *node = dynamic_cast<ValueCommentedRangeMap *>(Tree::Instance()->GetNode("/Form/Hopping/ExclusionRanges"));
        QCOMPARE(node->data().at(2).GetRangeStop(), 2100e6);
        QCOMPARE(detection.Property("lastAction", "text"), QString("excluded ranges"));
        QVERIFY2(edit(QDialogButtonBox::Cancel, deleteFirst).isEmpty(), "there is nothing to apply");
        QVERIFY2(edit(QDialogButtonBox::Ok, deleteFirst) == "2000000000 2100000000", "the next row goes along");
    }
};

ORBEL_TEST_MAIN(TestOperatorRanges)
#include "tst_operatorranges.moc"
