// Real keys, mouse and wheel on real windows: a whole form by the keyboard alone, and what only a window system shows.

#include "liveform.h"
#include "tree.h"
#include "valuecommentedrangemap.h"
#include "xoperator.h"

using Orbel::XOperator;

namespace
{

/// What the nodes and the cells hold.
QStringList Held(const AllControls &all)
{
    QStringList held;
    for (const QString &path : Tree::Instance()->GetPaths())
        held << path + '=' + Tree::Instance()->GetNode(path)->GetStringValue();
    for (const QTableWidget *table : all.window->findChildren<QTableWidget *>()) {
        for (int cell = 0; cell < table->rowCount() * table->columnCount(); ++cell) {
            const auto *item = table->item(cell / table->columnCount(), cell % table->columnCount());
            held << (item ? item->text() : QString());
        }
    }
    return held;
}

/// Presses the key of undo or redo until the stack has come to its end.
void GoThroughAll(const AllControls &all, const QString &key, const QStringList &held)
{
    const QUndoStack *stack = all.form->GetUndoStack();
    QVERIFY(stack->count() > 20);
    while (key == "ctrl+z" ? stack->canUndo() : stack->canRedo()) {
        const int index = stack->index();
        XOperator::Press(key);
        QTRY_VERIFY(stack->index() != index);
    }
    QCOMPARE(Held(all).join('\n'), held.join('\n'));
}

} // namespace

class TestOperator : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theWholeFormIsFilledUndoneAndAppliedWithoutAMouse()
    {
        AllControls all;
        all.window->resize(700, 1000);
        QStringList documents;
        connect(all.form.data(), &OrbelFormular::si_parametersModified,
            [&] { documents << all.form->GetXmlString(true).simplified(); });
        all.form->GetSheet().setAutoApplyEnabled(false);
        QVERIFY(XOperator::Show(all.window.get()));
        // What the button does is the script's, and not undone.
        all.form->EvaluateScript("spacings.setAllSpacingValues(12.5)");
        const QStringList empty = Held(all);
        QStringList filled;

        // What has the focus, and what is done there; Tab leads on. "=" types, all else are keys.
        const QVector<QPair<QString, QStringList>> way{
            {"lineEdit", {"F2", "=north"}},
            {"ipEdit", {"=10.0.0.7"}},
            {"checkBox", {"space"}},
            {"comboBox", {"Home"}},
            {"pushButton", {"space"}},
            {"numbers", {}},
            {"SpinBox", {"=20", "Up"}},
            {"doubleSpinBox", {"=2", "Down"}},
            {"baudRate", {"=4800"}},
            {"bandwidth", {"=8"}},
            {"frequency", {"Left", "Up", "Page_Up"}},
            {"entry", {}},
            {"history", {}},
            {"frequencyRangeEdit_StartFrequency", {"=100 MHz"}},
            {"frequencyRangeEdit_StopFrequency", {"=200 MHz", "Up"}},
            {"offset", {"=250"}},
            {"lists", {}},
            {"spinBoxList_0", {"=4"}},
            {"spinBoxList_1", {"=5"}},
            {"spinBoxList_2", {"=6"}},
            {"doubleSpinBoxList_0", {"=1.5"}},
            {"doubleSpinBoxList_1", {"Up"}},
            {"shiftList_0", {"=170"}},
            {"shiftList_1", {"=425"}},
            {"tableWidget", {"Right", "F2", "=cell", "Return"}},
            {"spacings", {"Down", "F2", "=25", "Tab", "=50", "Return"}},
            {"scriptControl_LoadButton", {}},
            {"scriptControl_EditButton", {}},
            {"scriptControlClearButton", {"undo", "redo"}},
            // Its press takes the document away, and with it the focus.
            {"applyButton", {"space"}},
        };
        for (const auto &[name, actions] : way) {
            const auto focus
                = [] { return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(); };
            QTRY_COMPARE(focus(), name);
            for (const QString &action : actions) {
                if (action == "undo")
                    filled = Held(all);
                if (action.endsWith("do"))
                    GoThroughAll(all, action == "undo" ? "ctrl+z" : "ctrl+shift+z", action == "undo" ? empty : filled);
                else
                    action.startsWith('=') ? XOperator::Type(action.mid(1)) : XOperator::Press(action);
            }
            XOperator::Press("Tab");
        }

        QTRY_COMPARE(documents.size(), 1);
        const QString document = documents.first();
        for (const char *part :
            {"<LineEdit>north<", "<IPEdit>10.0.0.7<", "<CheckBox>false<", "<SpinBox unit=\"dB\">21<",
                "<DoubleSpinBox>1.5<", "<BaudRateSpinBox>4800<", "<BandwidthEdit unit=\"kHz\">8000<",
                "<FrequencyEdit>145610000<", "<StartFrequency>100000000<", "<StopFrequency>200000001<",
                "<FrequencyOffsetEdit>250<", "index=\"0\">4<", "index=\"1\">5<", "index=\"2\">6<", "index=\"0\">1.5<",
                "index=\"0\">170<", "index=\"1\">425<", ">25.00<", ">50.00<", ">12.50<"})
            QVERIFY2(document.contains(part), qPrintable(part + QString(" in ") + document));
    }

    void wheelAndCell()
    {
        const QStringList usable{"visible=Bool:true", "enabled=Bool:true"};
        LiveForm live(Widget("a", "SpinBox",
                          usable + QStringList{"minimum=Int:0", "maximum=Int:10", "value=Int:9", "wrapping=Bool:true"})
            + Widget("t", "ChannelSpacingTable", usable + QStringList{"spacingsCount=Int:3", "decimals=Int:2"})
            + Widget("other", "LineEdit", usable));
        QVERIFY(XOperator::Show(live.window.get()));
        QWidget *spin = live.Find("a");
        XOperator::Click(live.Find("other"));
        XOperator::Click(spin, 4);
        XOperator::Click(spin);
        QTRY_VERIFY(spin->hasFocus());
        QVERIFY2(live.Node("a") == "9", "the wheel steps with the focus only");
        for (const char *after : {"10", "0"}) {
            XOperator::Click(spin, 4);
            QTRY_COMPARE(live.Node("a"), QString(after));
        }

        auto *table = live.Find<QTableWidget>("t");
        const QPoint cell = table->visualRect(table->model()->index(1, 0)).center();
        XOperator::ClickAt(table->viewport(), cell);
        QTRY_COMPARE(table->currentRow(), 1);
        XOperator::Press("F2");
        QTRY_VERIFY(table->findChild<QDoubleSpinBox *>());
        for (const char *keys : {"ctrl+a", "4", "Return"})
            XOperator::Press(keys);
        QTRY_COMPARE(live.Get("t")->GetEdits(), (QVariantList{0.0, 4.0, 0.0}));
        QString title;
        XOperator::PressInMenu({"Down", "Return"}, [&](QMenu *menu) { title = menu->actions().first()->text(); });
        XOperator::ClickAt(table->viewport(), cell, 3);
        QTRY_COMPARE(title, QString("Set to all"));
        QTRY_COMPARE(live.Get("t")->GetEdits(), (QVariantList{4.0, 4.0, 4.0}));
    }

    void theListIsEdited()
    {
        const Form form = Example("detection.orbel");
        form->CreateValueTree("/Form");
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        window->resize(600, 900);
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
        QCOMPARE(Delegate(form, "lastAction")->property("text").toString(), QString("excluded ranges"));
        QVERIFY2(edit(QDialogButtonBox::Cancel, deleteFirst).isEmpty(), "there is nothing to apply");
        QVERIFY2(edit(QDialogButtonBox::Ok, deleteFirst) == "2000000000 2100000000", "the next row goes along");
    }
};

ORBEL_TEST_MAIN(TestOperator)
#include "tst_operator.moc"
