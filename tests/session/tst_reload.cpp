// A new definition under a running form: what stays, what goes, and that nothing is announced by it.

#include "frequencyfield.h"
#include "liveform.h"
#include "vcnumericfloatspin.h"

#include <random>

namespace
{

const QStringList Usable{"visible=Bool:true", "enabled=Bool:true", "generateParameterXml=Bool:true"};

QString Control(const QString &name, const QString &className, const QStringList &properties = {})
{
    return Widget(name, className, Usable + QStringList{"labelText=String:" + name.toUpper()} + properties);
}

QString Gain(const QStringList &properties = {"value=Int:5", "maximum=Int:60"})
{
    return Control("gain", "SpinBox", properties);
}

QString Text(const QString &text = "one")
{
    return Control("text", "LineEdit", {"text=String:" + text});
}

QString Group(const QString &name)
{
    return Widget(name, "Headline", {"text=String:" + name, "visible=Bool:true"});
}

/// As many rows as do not fit into the window.
QString Rows(int from = 0)
{
    QString rows;
    for (int i = from; i < 40; ++i)
        rows += Control("row" + QString::number(i), "SpinBox", {"maximum=Int:9"});
    return rows;
}

const QString Mode = Control("mode", "ComboBox", {"enumName=String:Modes"});
const QString Table = Control("table", "TableWidget", {"rowCount=Int:4", "columnCount=Int:2"});
const QString Sheet = "<Properties><Property name='autoApplyTimeout'><Int>100</Int></Property></Properties>";

/// `body` may begin with enumerations.
QString Document(const QString &body, const QString &script = {})
{
    const int enums = body.lastIndexOf("</Enums>") < 0 ? 0 : body.lastIndexOf("</Enums>") + 8;
    return Definition(Sheet + body.mid(enums), body.left(enums) + script);
}

/// A form in the window of a host, in front of another control.
struct Live {
    explicit Live(const QString &body, const QString &rest = {}, bool applyUi = true)
        : form(Parse(Document(body, rest)))
    {
        form->CreateValueTree("/Form");
        form->CreateGUI(applyUi);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(form->GetGUI());
        layout->addWidget(new QLineEdit);
        window.resize(400, 400);
        window.show();
        QApplication::setActiveWindow(&window);
        PassEvents();
    }
    bool Reload(const QString &body, const QString &rest = {})
    {
        const Form next = Parse(Document(body, rest));
        const QSignalSpy applied(next.data(), &OrbelFormular::si_parametersModified);
        told.clear();
        if (!next->TakeOver(form.data(), &told))
            return false;
        form = next;
        announced += applied.size();
        PassEvents();
        return true;
    }
    QWidget *Find(const QString &name) const { return window.findChild<QWidget *>(name); }
    OrbelDelegate *Get(const QString &name) const { return Delegate(form, name); }
    QString Value(const QString &name) const { return form->GetVTValue(name)->GetStringValue(); }
    QUndoStack *Stack() const { return form->GetUndoStack(); }
    void Enter(const QString &name, const QString &text) const
    {
        TypeOver(Find(name), text);
        QTest::keyClick(Find(name), Qt::Key_Return);
        PassEvents();
    }
    /// Name, text, caret and selection of the field with the focus.
    QString Focus() const
    {
        QWidget *focus = window.focusWidget();
        auto *field = qobject_cast<QLineEdit *>(focus);
        field = qobject_cast<QAbstractSpinBox *>(focus) ? focus->findChild<QLineEdit *>() : field;
        return !focus ? QString()
                      : focus->objectName()
                + (field ? QString(" %1 %2 %3")
                               .arg(field->text(), QString::number(field->cursorPosition()), field->selectedText())
                         : QString());
    }
    int Top(const QString &name) const { return Find(name)->mapTo(&window, QPoint()).y(); }

    Form form;
    QStringList told;
    int announced = 0;
    QWidget window;
};

/// What the operator or host does in one form, the definition that comes, and what must read the same or otherwise
/// then.
struct Case {
    const char *Name;
    QString Before;
    std::function<void(Live &)> Act;
    QString After;
    std::function<QString(Live &)> State;
    QString Expected;
};

QString BeforeAndAfter(const std::function<QString(Live &)> &state, Live &live, const QString &after)
{
    const QString before = state(live);
    live.Reload(after);
    return before == state(live) ? "the same" : before + " -> " + state(live);
}

} // namespace

class TestReload : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void kept_data()
    {
        QTest::addColumn<int>("row");
        for (size_t i = 0; i < Cases().size(); ++i)
            QTest::newRow(Cases()[i].Name) << int(i);
    }
    void kept()
    {
        QFETCH(int, row);
        const Case &test = Cases()[size_t(row)];
        Live live(test.Before);
        QWidget *const gui = live.form->GetGUI();
        test.Act(live);
        if (test.Expected == "the same")
            QCOMPARE(BeforeAndAfter(test.State, live, test.After), test.Expected);
        else
            QVERIFY(live.Reload(test.After));
        if (test.Expected != "the same")
            QCOMPARE(test.State(live), test.Expected);
        QCOMPARE(live.announced, 0);
        QCOMPARE(live.form->GetGUI(), gui);
    }

private:
    static const std::vector<Case> &Cases()
    {
        const auto nothing = [](Live &) {};
        const auto enter
            = [](const QString &name, const QString &text) { return [=](Live &live) { live.Enter(name, text); }; };
        const auto type = [](const QString &name, const QString &text) {
            return [=](Live &live) { TypeOver(live.Find(name), text); };
        };
        const auto gain = [](Live &live) { return live.Value("gain"); };
        const auto focus = [](Live &live) { return live.Focus(); };
        const auto mark = [](Live &live) {
            return QString("%1 %2 ").arg(live.Get("gain")->IsChanged()).arg(live.form->GetSheet().isModified())
                + (live.Get("gain")->GetApplied() ? live.Get("gain")->GetApplied()->value(0).toString() : "");
        };
        const auto undo = [](Live &live) {
            QStringList entries(QString::number(live.Stack()->index()));
            for (int i = 0; i < live.Stack()->count(); ++i)
                entries << live.Stack()->text(i);
            return entries.join('|');
        };
        // clang-format off
        static const std::vector<Case> cases{
            {"a value that was set", Gain() + Text(), enter("gain", "7"), Text() + Gain({"value=Int:9"}), gain, "the same"},
            {"a value that the host set", Gain(), [](Live &live) { live.form->SetVTValue("gain", "8", nullptr, false); }, Gain({"value=Int:9"}), gain, "the same"},
            {"a value that a document set, be it the same", Gain(), [](Live &live) { live.form->SetXmlString("<Parameters><gain>5</gain></Parameters>"); }, Gain({"value=Int:9"}), gain, "5"},
            {"a value that nobody set", Gain(), nothing, Gain({"value=Int:9"}), gain, "9"},
            {"a value beyond the new limits", Gain(), enter("gain", "50"), Gain({"maximum=Int:40"}), [](Live &live) { return live.Value("gain") + live.told.join("|"); }, "40GAIN: 50 \u2192 40"},
            {"another class", Gain(), enter("gain", "7"), Control("gain", "DoubleSpinBox", {"value=Double:1.5"}), gain, "1.5"},
            {"a mark with what was applied", Gain(), enter("gain", "7"), Gain({"maximum=Int:9"}), mark, "the same"},
            {"no mark where there was none", Gain(), [](Live &live) { live.form->SetVTValue("gain", "8", nullptr, false); live.form->GetXmlString(false); }, Gain(), mark, "0 0 "},
            {"no mark on what is written no more", Gain(), enter("gain", "7"), Widget("gain", "SpinBox"), mark, "0 0 "},
            {"a choice by its value", Enum("Modes", "AM=1 FM=2") + Mode, [](Live &live) { live.form->SetVTValue("mode", "FM", nullptr, false); }, Enum("Modes", "CW=0 Frequency=2") + Mode, [](Live &live) { return live.Value("mode"); }, "Frequency"},
            {"a text half typed", Text() + Gain(), [](Live &live) { TypeOver(live.Find("text"), "half"); QTest::keyClick(live.Find("text"), Qt::Key_Left, Qt::ShiftModifier); }, Gain() + Text("two"), focus, "the same"},
            {"a number half typed, with another suffix", Gain({"suffix=String: dB"}), type("gain", "1x"), Gain({"suffix=String: dBm"}), focus, "gain 1x dBm 2 "},
            {"a frequency half typed", Control("f", "FrequencyEdit", {"MainFreqEdit=Bool:true", "maximum=String:1e9"}), [](Live &live) { TypeOver(live.window.findChild<FrequencyField *>(), "14"); }, Gain() + Control("f", "FrequencyEdit", {"MainFreqEdit=Bool:true"}), focus, "the same"},
            {"the focus of a button", Gain(), [](Live &live) { live.Find("autoApply")->setFocus(); }, Text(), focus, "the same"},
            {"the focus of the host's", Gain(), [](Live &live) { live.window.findChildren<QLineEdit *>().last()->setFocus(); }, Text(), focus, "the same"},
            {"the focus where the control goes", Gain() + Text(), type("gain", "7"), Text(), focus, "sheet"},
            {"a cell that is being typed", Table, [](Live &live) { QTest::keyClicks(OpenCell(live.window.findChild<QTableWidget *>(), 2, 1), "abc"); }, Gain() + Table, [](Live &live) { const auto *table = live.window.findChild<QTableWidget *>(); return QString("%1/%2 ").arg(table->currentRow()).arg(table->currentColumn()) + live.Focus(); }, "the same"},
            {"selected cells", Table, [](Live &live) { live.window.findChild<QTableWidget *>()->setRangeSelected({1, 0, 2, 1}, true); }, Table + Gain(), [](Live &live) { return QString::number(live.window.findChild<QTableWidget *>()->selectedItems().size() + live.window.findChild<QTableWidget *>()->selectionModel()->selectedIndexes().size()); }, "the same"},
            {"cells by row and column", Table, [](Live &live) { EnterCell(live.window.findChild<QTableWidget *>(), 1, "abc", 1); }, Control("table", "TableWidget", {"rowCount=Int:3", "columnCount=Int:3"}), [](Live &live) { const auto *item = live.window.findChild<QTableWidget *>()->item(1, 1); return item ? item->text() : ""; }, "the same"},
            {"the place to which it was scrolled", Rows(), [](Live &live) { live.window.findChild<QScrollArea *>()->verticalScrollBar()->setValue(300); }, Text() + Rows(3), [](Live &live) { return QString::number(live.Top("row20")); }, "the same"},
            {"collapsed groups", Group("a") + Gain() + Group("b") + Text(), [](Live &live) { live.form->GetSheet().SetCollapsed({"b"}); }, Group("c") + Gain() + Group("b") + Text(), [](Live &live) { return live.form->GetSheet().GetCollapsed().join(' '); }, "b"},
            {"the undo stack", Gain() + Text(), [](Live &live) { live.Enter("gain", "7"); live.Enter("text", "two"); live.Stack()->undo(); }, Text() + Gain(), undo, "the same"},
            {"entries of a control that goes", Gain() + Text(), [](Live &live) { live.Enter("gain", "7"); live.Enter("text", "two"); live.Enter("gain", "8"); live.Stack()->undo(); }, Text(), undo, "1|TEXT: one \u2192 two"},
            {"an entry is undone", Gain(), [](Live &live) { live.Enter("gain", "7"); live.Reload(Gain({"maximum=Int:9"})); live.Stack()->undo(); }, Gain(), gain, "5"},
            {"a lock", Gain(), [](Live &live) { live.form->EnableInput(false); }, Gain() + Text(), [](Live &live) { return QString::number(live.Find("text")->isEnabled()); }, "0"},
            {"what a script set: a text, a hidden item", Control("state", "Label", {"text=String:-"}) + Widget("list", "HiddenList"), [](Live &live) { live.form->EvaluateScript("state.setText('on'); list.setItemCount(2); list.setItemValue(1, 'x')"); }, Gain() + Control("state", "Label", {"text=String:off"}) + Widget("list", "HiddenList"), [](Live &live) { live.form->EvaluateScript("state.setLabelText(list.itemValue(1))"); return live.Get("state")->property("text").toString() + live.Get("state")->property("labelText").toString(); }, "onx"},
        };
        // clang-format on
        return cases;
    }
};

ORBEL_TEST_MAIN(TestReload)
#include "tst_reload.moc"
