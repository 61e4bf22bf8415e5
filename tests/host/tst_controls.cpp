// The value-bound controls, operated with key, mouse and wheel events on shown windows.

#include "testmain.h"
#include "tree.h"
#include "valuenumeric.h"
#include "vccheckbox.h"
#include "vccomboboxclassic.h"
#include "vclineedit.h"
#include "vcnumericfloatspin.h"

#include <QAccessible>
#include <QStyleOptionSpinBox>
#include <QtTest>

#include <functional>

/// Counts the new values of a node, and can do something when one comes.
class Watcher : public IObserver
{
public:
    explicit Watcher(
        ValueBase *node, const std::function<void()> &action = [] {})
        : Node(node), Act(action)
    {
        node->AddObserver(this);
    }
    ~Watcher() override
    {
        if (Node)
            Node->DeleteObserver(this);
    }
    void Update(Observable *, TChangeCode code) override
    {
        if (code == ekChangeState)
            Node = nullptr;
        if (code != ekChangeValue)
            return;
        ++Count;
        Act();
    }
    int Count = 0;

private:
    ValueBase *Node;
    std::function<void()> Act;
};

/// A shown window with a control that has the focus, in a scroll area, and a field that can take the focus away.
class Window : public QScrollArea
{
public:
    explicit Window(QWidget *control)
    {
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        layout->addWidget(control);
        layout->addWidget(&Elsewhere);
        layout->addSpacing(2000);
        setWidget(content);
        show();
        activateWindow();
        control->setFocus();
    }
    ~Window() override { Elsewhere.setParent(nullptr); }
    bool IsReady() { return QTest::qWaitForWindowActive(this); }
    void keyPressEvent(QKeyEvent *event) override { Escapes += event->key() == Qt::Key_Escape; }
    QLineEdit Elsewhere;
    int Escapes = 0;
};

static void Turn(QWidget *widget, int notches)
{
    const QPoint place = widget->mapTo(widget->window(), widget->rect().center());
    QWheelEvent event(place, widget->window()->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
        Qt::NoScrollPhase, false);
    // Only an event from outside goes on to the parents when a widget ignores it.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget->window()->windowHandle(), &event);
}

/// Clicks as a mouse does: what the press deletes gets no release.
static void Click(QWidget *widget, QPoint place)
{
    const QPointer<QWidget> alive(widget);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, widget->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
        if (!alive)
            return;
    }
}

/// Types into the field in place of what it holds. The characters below are keys.
static const char Return = '\r', Leave = '\t', Escape = '\x1b', Up = '^';
static void Type(QWidget *field, const QString &keys)
{
    if (!keys.isEmpty())
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    const QPointer<QWidget> alive(field);
    for (const QChar c : keys) {
        const QHash<QChar, Qt::Key> named{
            {Return, Qt::Key_Return}, {Leave, Qt::Key_Tab}, {Escape, Qt::Key_Escape}, {Up, Qt::Key_Up}};
        if (alive && named.contains(c))
            QTest::keyClick(field, named[c]);
        else if (alive)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

/// One kind of control with a node of its own, and what an operator does to change it.
struct Kind {
    ValueBase *Node;
    QWidget *Control;
    std::function<bool(ValueBase *)> Bind;
    std::function<void()> Operate;
    const char *Shown;
};

static Kind MakeKind(const QString &kind, const QString &act)
{
    if (kind == "check box") {
        auto *box = new VCCheckBox;
        return {new ValueBoolean("n"), box,
            [=](ValueBase *n) { return box->SetBoolean(dynamic_cast<ValueBoolean *>(n)); },
            [=] {
                act == "key" ? QTest::keyClick(box, Qt::Key_Space) : Click(box, {8, box->height() / 2});
            },
            "checked"};
    }
    if (kind == "line edit") {
        auto *field = new VCLineEdit(nullptr, nullptr, VCLineEdit::ekText);
        return {new ValueString("n"), field, [=](ValueBase *n) { return field->SetValueBase(n); },
            [=] { Type(field, act == "leave" ? "typed\t" : "typed\r"); }, "text"};
    }
    if (kind == "combo box") {
        auto *node = new ValueSelection("n");
        node->AddItems({"a", "b", "c"}, nullptr);
        auto *box = new VCComboBoxClassic;
        const auto pickFromList = [=] {
            box->showPopup();
            Click(box->view()->viewport(), box->view()->visualRect(box->model()->index(2, 0)).center());
        };
        return {node, box, [=](ValueBase *n) { return box->SetValueSelection(dynamic_cast<ValueSelection *>(n)); },
            [=] {
                act == "list" ? pickFromList() : act == "wheel" ? Turn(box, -1) : QTest::keyClick(box, Qt::Key_End);
            },
            "currentText"};
    }
    auto *spin = new VCNumericFloatSpin;
    const auto clickUp = [=] {
        QStyleOptionSpinBox option;
        option.initFrom(spin);
        const QStyle *style = spin->style();
        Click(spin, style->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, spin).center());
    };
    return {new ValueDouble("n"), spin,
        [=](ValueBase *n) { return spin->SetNumericValue(dynamic_cast<IValueNumeric *>(n)); },
        [=] { act == "button"      ? clickUp()
                  : act == "wheel" ? Turn(spin, 1)
                                   : Type(spin, act == "key" ? "^" : "7\t"); },
        "text"};
}

class TestControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void life_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("act");
        const auto rows = [](const char *kind, std::initializer_list<const char *> acts) {
            for (const char *act : acts)
                QTest::addRow("%s by %s", kind, act) << kind << act;
        };
        rows("check box", {"key", "mouse"});
        rows("combo box", {"key", "wheel", "list"});
        rows("line edit", {"return", "leave"});
        rows("spin", {"key", "wheel", "button", "leave"});
    }
    void life()
    {
        QFETCH(QString, kind);
        QFETCH(QString, act);
        const Kind first = MakeKind(kind, act);
        Window window(first.Control);
        QVERIFY(window.IsReady() && first.Bind(first.Node));
        const auto operate = [&] {
            first.Control->setFocus();
            first.Operate();
        };
        const QString start = first.Node->GetStringValue();
        {
            const Watcher watcher(first.Node);
            operate();
            QVERIFY(first.Node->GetStringValue() != start);
            QCOMPARE(watcher.Count, 1);
            first.Node->SetStringValue(start, nullptr);
        }
        const Kind second = MakeKind(kind, act);
        delete second.Control;
        QVERIFY(first.Bind(second.Node));
        operate();
        QCOMPARE(first.Node->GetStringValue(), start);
        QVERIFY(second.Node->GetStringValue() != start);
        const QVariant last = first.Control->property(first.Shown);
        delete second.Node;
        operate();
        QCOMPARE(first.Control->property(first.Shown), last);
        QVERIFY(!first.Bind(nullptr));

        QVERIFY(first.Bind(first.Node));
        {
            const Watcher killer(first.Node, [&] { delete first.Node; });
            operate();
        }
        const Kind doomed = MakeKind(kind, act);
        auto *shortLived = new Window(doomed.Control);
        QVERIFY(shortLived->IsReady() && doomed.Bind(doomed.Node));
        const QPointer<QWidget> control = doomed.Control;
        {
            const Watcher killer(doomed.Node, [&] { delete shortLived; });
            doomed.Operate();
        }
        QVERIFY(!control);
        delete doomed.Node;
    }

    void lineEdit_data()
    {
        QTest::addColumn<QString>("mask");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QByteArray>("meddle");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("held");
        const auto row
            = [](const char *name, const char *mask, const char *keys, const char *meddle, const char *shown,
                  const char *held) { QTest::newRow(name) << mask << keys << QByteArray(meddle) << shown << held; };
        row("Return commits", "", "new\r", "", "new", "new");
        row("leaving commits", "", "new\t", "", "new", "new");
        row("endEdit commits", "", "new", "endEdit", "new", "new");
        row("Escape takes back", "", "new\x1b", "", "1234", "1234");
        row("the text that stood there is no edit", "", "1234\r", "", "1234", "1234");
        row("nothing typed", "", "\t", "", "1234", "1234");
        row("typed and not committed", "", "new", "", "new", "1234");
        row("mask not filled, Return", "99.99", "5\r", "", "5.", "1234");
        row("mask not filled, leaving", "99.99", "5\t", "", "12.34", "1234");
        row("mask filled", "99.99", "5678\t", "", "56.78", "56.78");
        row("a mask alone writes nothing", "99.99", "\t", "", "12.34", "1234");
        row("a mask taken away", "99.99", "", "inputMask", "1234", "1234");
        row("a length lifted again", "", "", "maxLength", "1234", "1234");
        row("read-only in mid-edit", "", "new", "readOnly", "1234", "1234");
        row("disabled in mid-edit", "", "new", "enabled", "1234", "1234");
        row("the node changes in mid-edit", "", "new", "node", "other", "other");
    }
    void lineEdit()
    {
        QFETCH(QString, mask);
        QFETCH(QString, keys);
        QFETCH(QByteArray, meddle);
        QFETCH(QString, held);
        ValueString node("n");
        node.SetValue("1234", nullptr);
        auto *field = new VCLineEdit(nullptr, "name", VCLineEdit::ekText);
        Window window(field);
        QVERIFY(window.IsReady() && field->SetValueBase(&node));
        if (!mask.isEmpty())
            field->setProperty("inputMask", mask);
        const QSignalSpy commits(field, &VCLineEdit::signalTextFinallyChanged);
        Type(field, keys);
        if (meddle == "endEdit") {
            field->endEdit();
        } else if (meddle == "node") {
            node.SetValue("other", nullptr);
            QCOMPARE(field->text(), QString("new"));
            QTest::keyClick(field, Qt::Key_Escape);
        } else if (meddle == "maxLength") {
            field->setProperty("maxLength", 2);
            QCOMPARE(field->text(), QString("12"));
            field->setProperty("maxLength", 20);
        } else if (!meddle.isEmpty()) {
            field->setProperty(meddle, meddle == "readOnly" ? QVariant(true) : QVariant());
            if (meddle != "inputMask")
                field->clearFocus();
        }
        QTEST(field->text(), "shown");
        QCOMPARE(node.GetValue(), held);
        QCOMPARE(commits.size(), meddle != "node" && held != "1234" ? 1 : 0);
    }

    void lineEditOrder_data()
    {
        QTest::addColumn<QStringList>("written");
        QTest::addColumn<QString>("log");
        QTest::newRow("only the field writes") << QStringList() << "final typed, node typed, return, finished";
        QTest::newRow("a receiver writes") << QStringList("typed") << "node typed, final typed, return, finished";
        QTest::newRow("a receiver writes another text")
            << QStringList{"typed", "better"} << "node typed, node better, final typed, return, finished";
        QTest::newRow("a receiver puts the old text back")
            << QStringList{"typed", "old"} << "node typed, node old, final typed, return, finished";
    }
    void lineEditOrder()
    {
        QFETCH(QStringList, written);
        ValueString node("n");
        node.SetValue("old", nullptr);
        QStringList log;
        auto *field = new VCLineEdit(nullptr, nullptr, VCLineEdit::ekText);
        Window window(field);
        QVERIFY(window.IsReady() && field->SetValueBase(&node));
        const Watcher watcher(&node, [&] { log << "node " + node.GetValue(); });
        connect(field, &VCLineEdit::signalTextFinallyChanged, field, [&](const QString &text) {
            for (const QString &other : written)
                node.SetValue(other, nullptr);
            log << "final " + text;
        });
        connect(field, &QLineEdit::returnPressed, field, [&] { log << "return"; });
        connect(field, &QLineEdit::editingFinished, field, [&] { log << "finished"; });
        Type(field, "typed\r");
        QTEST(log.join(", "), "log");
        QCOMPARE(field->text(), node.GetValue());
    }

    void lineEditOfNumber()
    {
        ValueInt node("n");
        node.SetMinMax(0, 100, 1, nullptr);
        auto *field = new VCLineEdit(nullptr, nullptr, VCLineEdit::ekFrequency);
        Window window(field);
        QVERIFY(window.IsReady() && field->SetValueBase(&node));
        const auto commit = [&](const QString &text) {
            Type(field, text + Return);
            return field->text();
        };
        QCOMPARE(commit("500"), QString("100"));
        QCOMPARE(commit("no number"), QString("100"));
        field->SetConversion([](const QString &text) { return text + " Hz"; },
            [](const QString &text) { return text.endsWith(" Hz") ? text.chopped(3) : QString(); });
        QCOMPARE(field->text(), QString("100 Hz"));
        QCOMPARE(commit("7 Hz"), QString("7 Hz"));
        QCOMPARE(commit("8 kg"), QString("7 Hz"));
        QCOMPARE(node.GetValue(), 7);
    }

    void whatIsNotForTheControlGoesOn_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char *kind : {"line edit", "combo box", "spin"})
            QTest::newRow(kind) << kind;
    }
    void whatIsNotForTheControlGoesOn()
    {
        QFETCH(QString, kind);
        const Kind made = MakeKind(kind, "");
        Window window(made.Control);
        QVERIFY(window.IsReady() && made.Bind(made.Node));
        const QString before = made.Node->GetStringValue();
        if (kind != "combo box")
            Type(made.Control, "1\x1b");
        QCOMPARE(window.Escapes, 0);
        QTest::keyClick(made.Control, Qt::Key_Escape);
        QCOMPARE(window.Escapes, 1);
        window.Elsewhere.setFocus();
        Turn(made.Control, -1);
        QVERIFY(window.verticalScrollBar()->value() > 0);
        QCOMPARE(made.Node->GetStringValue(), before);
        delete made.Node;
    }

    void checkBoxThatIsPutBack()
    {
        ValueBoolean node("n");
        auto *box = new VCCheckBox(nullptr, "name");
        QCOMPARE(box->objectName(), QString("name"));
        Window window(box);
        QVERIFY(window.IsReady() && box->SetBoolean(&node));
        const QSignalSpy states(box, &QCheckBox::stateChanged);
        {
            const Watcher guard(&node, [&] { node.SetValue(false, nullptr); });
            QTest::keyClick(box, Qt::Key_Space);
            QVERIFY(!box->isChecked());
        }
        QTest::keyClick(box, Qt::Key_Space);
        QVERIFY(box->isChecked() && node.GetValue());
        QCOMPARE(states.last().first().toInt(), int(Qt::Checked));
        auto *reader = QAccessible::queryAccessibleInterface(box)->actionInterface();
        reader->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(!node.GetValue());
    }

    void comboBoxItems()
    {
        struct Translator : QTranslator {
            QString translate(const char *context, const char *text, const char *, int) const override
            {
                return qstrcmp(context, "Modes") ? QString() : QString(text).toUpper();
            }
            bool isEmpty() const override { return false; }
        } translator;
        ValueSelection node("n");
        node.SetTranslationNamespace("Modes", nullptr);
        node.AddItems({"am", "fm", "am", "usb"}, nullptr);
        auto *box = new VCComboBoxClassic;
        Window window(box);
        QVERIFY(window.IsReady() && box->SetValueSelection(&node));
        const auto list = [box] {
            QStringList texts(QString::number(box->currentIndex()));
            for (int i = 0; i < box->count(); ++i)
                texts << box->itemText(i);
            return texts.join(' ');
        };
        QCOMPARE(list(), QString("0 am fm am usb"));
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(list(), QString("0 AM FM AM USB"));
        QTest::keyClick(box, Qt::Key_End);
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(node.GetCurrentItem(), node.GetItemIndex(2));
        QCOMPARE(list(), QString("2 AM FM AM USB"));
        node.DeleteItem(node.GetItemIndex(1), nullptr);
        QCOMPARE(list(), QString("1 AM AM USB"));
        node.AddItems({"lsb"}, nullptr);
        QCOMPARE(list(), QString("1 AM AM USB LSB"));
        node.SetTranslationNamespace("Other", nullptr);
        QCOMPARE(list(), QString("1 am am usb lsb"));
        node.DeleteItems(nullptr);
        QCOMPARE(list(), QString("-1"));
        QCoreApplication::removeTranslator(&translator);
    }

    void comboBoxSearch_data()
    {
        QTest::addColumn<bool>("open");
        QTest::newRow("closed") << false;
        QTest::newRow("open list") << true;
    }
    void comboBoxSearch()
    {
        QFETCH(bool, open);
        // However long the machine takes for the keys, they are one search.
        QApplication::setKeyboardInputInterval(INT_MAX);
        ValueSelection node("n");
        for (int i = 0; i < 300; ++i)
            node.AddItem(QString("Channel %1 of a rather long list of names").arg(i), i, 0, nullptr);
        auto *box = new VCComboBoxClassic;
        box->setFixedWidth(60);
        Window window(box);
        QVERIFY(window.IsReady() && box->SetValueSelection(&node));
        if (open) {
            box->showPopup();
            const int needed = box->fontMetrics().horizontalAdvance(box->itemText(217));
            QTRY_VERIFY(box->view()->viewport()->width() >= needed);
        }
        QTest::keyClicks(open ? box->view() : static_cast<QWidget *>(box), "channel 217");
        QCOMPARE(node.GetCurrentValue(), open ? 0.0 : 217.0);
        if (open)
            QTest::keyClick(box->view(), Qt::Key_Return);
        QCOMPARE(node.GetCurrentValue(), 217.0);
    }

    void spinShows_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("factor");
        QTest::addColumn<int>("extra");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole step") << 12.0 << 1.0 << 1.0 << 0 << "12";
        QTest::newRow("places of the step") << 12.0 << 0.25 << 1.0 << 0 << "12.00";
        QTest::newRow("extra places come on top") << 12.0 << 0.5 << 1.0 << 2 << "12.000";
        QTest::newRow("Hz as kHz") << 145500001.0 << 1000.0 << 0.001 << 3 << "145500.001";
        QTest::newRow("step from a division") << 26499999999.0 << 1 / 1e-9 << 1e-9 << 9 << "26.499999999";
        QTest::newRow("every Hz without extra places") << 145500001.0 << 1000.0 << 0.001 << 0 << "145500.001";
        QTest::newRow("factor above 1") << 0.5 << 0.01 << 100.0 << 1 << "50.0";
        QTest::newRow("negative factor") << 12.0 << 1.0 << -0.1 << 0 << "-1.2";
        QTest::newRow("factor 0 counts as 1") << 12.0 << 1.0 << 0.0 << 0 << "12";
        QTest::newRow("factor NaN counts as 1") << 12.0 << 1.0 << qQNaN() << 0 << "12";
        QTest::newRow("negative extra places") << 12.4 << 1.0 << 1.0 << -5 << "12";
        QTest::newRow("infinite step") << 12.0 << qInf() << 1.0 << 1 << "12.0";
        QTest::newRow("too many places") << 0.0 << 1.0 << 1.0 << INT_MAX << "0." + QString(323, '0');
        QTest::newRow("no sign on zero") << -0.001 << 1.0 << 1.0 << 0 << "0";
        QTest::newRow("no group separators") << -1234567.5 << 0.5 << 1.0 << 0 << "-1234567.5";
    }
    void spinShows()
    {
        QFETCH(double, value);
        QFETCH(double, step);
        QFETCH(double, factor);
        QFETCH(int, extra);
        ValueDouble node("n");
        node.SetValue(value, nullptr);
        const Watcher watcher(&node);
        VCNumericFloatSpin spin;
        QVERIFY(spin.SetNumericValue(&node));
        spin.setGroupSeparatorShown(true);
        spin.SetFactor(factor);
        spin.setAdditionalPrecision(extra);
        node.SetStep(step, nullptr);
        QTEST(spin.cleanText(), "text");
        QCOMPARE(watcher.Count, 0);
        QVERIFY(spin.sizeHint().width() < 300 && spin.minimumSizeHint().width() < 300);
    }

    void spinTyping_data()
    {
        QTest::addColumn<double>("factor");
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        const QLocale c = QLocale::c();
        const QLocale german(QLocale::German, QLocale::Germany);
        QTest::newRow("number") << 1.0 << c << "7.25" << 7.25 << "7.25dB";
        QTest::newRow("beyond the maximum") << 1.0 << c << "500" << 100.0 << "100.00dB";
        QTest::newRow("below the minimum") << 1.0 << c << "-3" << 0.0 << "0.00dB";
        QTest::newRow("point of the locale") << 1.0 << german << "7,25" << 7.25 << "7,25dB";
        QTest::newRow("point of C in another locale") << 1.0 << german << "7.25" << 7.25 << "7,25dB";
        QTest::newRow("digits of another script") << 1.0 << c << QString(QChar(0x667)) << 7.0 << "7.00dB";
        QTest::newRow("too many places are refused") << 1.0 << c << "1.239" << 1.23 << "1.23dB";
        QTest::newRow("letters are refused") << 1.0 << c << "1x2" << 12.0 << "12.00dB";
        QTest::newRow("no number") << 1.0 << c << "-" << 50.125678 << "50.13dB";
        QTest::newRow("the number that stood there") << 1.0 << c << "50.13" << 50.125678 << "50.13dB";
        QTest::newRow("scaled exactly") << 0.001 << c << "0.012" << 12.0 << "0.01200dB";
        QTest::newRow("limits of a negative factor") << -1.0 << c << "-200" << 100.0 << "-100.00dB";
    }
    void spinTyping()
    {
        QFETCH(double, factor);
        QFETCH(QLocale, locale);
        QFETCH(QString, typed);
        for (const char end : {Return, Leave}) {
            ValueDouble node("n");
            node.SetMinMax(0, 100, 1, nullptr);
            node.SetValue(50.125678, nullptr);
            auto *spin = new VCNumericFloatSpin(nullptr, nullptr, end == Return);
            spin->setLocale(locale);
            spin->setSuffix("dB");
            spin->SetFactor(factor);
            spin->setAdditionalPrecision(2);
            Window window(spin);
            QVERIFY(window.IsReady() && spin->SetNumericValue(&node));
            const QString shown = spin->text();
            Type(spin, typed);
            QCOMPARE(node.GetValue(), 50.125678);
            QTest::keyClick(spin, Qt::Key_Escape);
            QCOMPARE(spin->text(), shown);
            Type(spin, typed + end);
            QTEST(node.GetValue(), "value");
            QTEST(spin->text(), "text");
        }
    }

    void spinSteps_data()
    {
        QTest::addColumn<double>("start");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("factor");
        QTest::addColumn<bool>("wrap");
        QTest::addColumn<QString>("act");
        QTest::addColumn<int>("times");
        QTest::addColumn<double>("end");
        const auto row
            = [](const char *name, double start, double step, double factor, bool wrap, const char *act, int times,
                  double end) { QTest::newRow(name) << start << step << factor << wrap << act << times << end; };
        row("a thousand tenths up", 0, 0.1, 1, false, "Up", 1000, 100);
        row("seven hundred hundredths down", 9, 0.01, 1, false, "Down", 707, 1.93);
        row("digits that are not shown stay", 0.123456, 0.1, 1, false, "Up", 3, 0.423456);
        row("a scaled step", 0, 0.1 / 0.001, 0.001, false, "wheel up", 1, 100);
        row("a scaled step that no division gives exactly", 0, 1 / 0.7, 0.7, false, "PgUp", 7, 100);
        row("stops at the maximum", 99.5, 1, 1, false, "Up", 2, 100);
        row("stops at the minimum", 3, 1, 1, false, "wheel down", 5, 0);
        row("wraps past the maximum", 99.5, 1, 1, true, "wheel up", 1, 0);
        row("wraps past the minimum", 0.5, 1, 1, true, "Down", 2, 99);
        row("up raises what is shown", 5, 1, -1, false, "Up", 2, 3);
        row("no step", 5, 0, 1, true, "wheel up", 1, 5);
        row("switched off", 5, 1, 1, true, "off", 1, 5);
        row("read-only", 5, 1, 1, true, "readOnly", 1, 5);
        row("from a typed number", 5, 1, 1, false, "40", 1, 41);
    }
    void spinSteps()
    {
        QFETCH(double, start);
        QFETCH(double, step);
        QFETCH(double, factor);
        QFETCH(bool, wrap);
        QFETCH(QString, act);
        QFETCH(int, times);
        QFETCH(double, end);
        ValueDouble node("n");
        node.SetMinMax(0, 100, step, nullptr);
        node.SetValue(start, nullptr);
        auto *spin = new VCNumericFloatSpin;
        spin->SetFactor(factor);
        spin->EnableWrapAround(wrap);
        Window window(spin);
        QVERIFY(window.IsReady() && spin->SetNumericValue(&node));
        spin->disableStep(act == "off");
        spin->setReadOnly(act == "readOnly");
        if (act == "40")
            Type(spin, act);
        const QKeySequence key(act == "Down" || act == "PgUp" ? act : QString("Up"));
        for (int i = 0; i < times; ++i)
            act.startsWith("wheel") ? Turn(spin, act.endsWith("up") ? 1 : -1) : QTest::keySequence(spin, key);
        // Not QCOMPARE, which takes neighbouring numbers for equal.
        QVERIFY2(node.GetValue() == end, qPrintable(QString::number(node.GetValue(), 'g', 17)));
    }

    void spinOfWholeNumbers()
    {
        ValueInt node("n");
        auto *spin = new VCNumericFloatSpin;
        spin->setAdditionalPrecision(1);
        Window window(spin);
        QVERIFY(window.IsReady() && spin->SetNumericValue(&node));
        Type(spin, "7.6\r");
        QCOMPARE(node.GetValue(), 8);
        QCOMPARE(spin->text(), QString("8.0"));
        Type(spin, "9999999999\r");
        QCOMPARE(node.GetValue(), INT_MAX);
        QCOMPARE(spin->text(), QString("2147483647.0"));
    }

    void spinProperties()
    {
        auto *node = new ValueDouble("n");
        node->SetMinMax(-5000.5, 7000.125, 1000, nullptr);
        node->SetValue(-5000.5, nullptr);
        QVERIFY(Tree::Instance()->AddNode("Form", node));
        VCNumericFloatSpin spin;
        spin.SetFactor(0.001);
        QVERIFY(!spin.SetNumeric_ValuePath("Form"));
        QVERIFY(spin.SetNumeric_ValuePath("Form/n"));
        const Watcher watcher(node);
        QCOMPARE(spin.property("minimum").toDouble(), -5.0005);
        QCOMPARE(spin.property("maximum").toDouble(), 7.000125);
        QVERIFY(spin.setProperty("specialValueText", "lowest") && spin.setProperty("prefix", "= "));
        QCOMPARE(spin.text(), QString("lowest"));
        // A tighter limit binds what comes in, and leaves what is there.
        QVERIFY(spin.setProperty("minimum", "-2.5") && spin.setProperty("maximum", "3"));
        QCOMPARE(spin.text(), QString("= -5.000"));
        QCOMPARE(watcher.Count, 0);
        QVERIFY(spin.setProperty("value", 12));
        QCOMPARE(node->GetValue(), 3000.0);
        node->SetMax(8000, nullptr);
        QCOMPARE(spin.property("maximum").toDouble(), 8.0);
        QCOMPARE(spin.property("minimum").toDouble(), -2.5);
        spin.setValue(qQNaN());
        QCOMPARE(node->GetValue(), 3000.0);
        Tree::Instance()->RemoveNode("Form/n");
        QCOMPARE(spin.value(), 3.0);
    }
};

ORBEL_TEST_MAIN(TestControls)
#include "tst_controls.moc"
