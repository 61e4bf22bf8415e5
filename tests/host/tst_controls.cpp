// The value-bound controls, operated with key, mouse and wheel events on shown windows.

#include "testcase.h"
#include "tree.h"
#include "valuenumeric.h"
#include "vccheckbox.h"
#include "vccomboboxclassic.h"
#include "vclineedit.h"
#include "vcnumericfloatspin.h"

/// Counts the new values of a node, and can do something when one comes.
struct Watcher : IObserver {
    explicit Watcher(ValueBase *node, const std::function<void()> &action = {}) : Act(action) { Link.Bind(node); }
    void Update(Observable *subject, TChangeCode code) override
    {
        const bool news = Link.TakeNotification(subject, code) && code == ekChangeValue;
        Count += news;
        if (news && Act)
            Act();
    }
    Orbel::NodeBinding<ValueBase> Link{this};
    std::function<void()> Act;
    int Count = 0;
};

/// A shown window with a control that has the focus, in a scroll area, and a field that can take the focus away.
struct Window : QScrollArea {
    explicit Window(QWidget *control)
    {
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        layout->addWidget(control);
        layout->addWidget(Elsewhere = new QLineEdit);
        layout->addSpacing(2000);
        setWidget(content);
        show();
        activateWindow();
        control->setFocus();
    }
    bool IsReady() { return QTest::qWaitForWindowActive(this); }
    QLineEdit *Elsewhere;
};

/// Writes down each signal that an object emits.
struct Signals : QObject {
    explicit Signals(const QObject *sender)
    {
        for (int i = QWidget::staticMetaObject.methodCount(); i < sender->metaObject()->methodCount(); ++i) {
            if (sender->metaObject()->method(i).methodType() == QMetaMethod::Signal)
                QMetaObject::connect(sender, i, this, QObject::staticMetaObject.methodCount() + i);
        }
    }
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override
    {
        const int method = QObject::qt_metacall(call, id, arguments);
        if (method >= 0) {
            const auto *control = qobject_cast<const QWidget *>(sender());
            Told << QString::fromLatin1(control->metaObject()->method(method).methodSignature())
                    + (control->updatesEnabled() ? "" : " without updates");
        }
        return -1;
    }
    QStringList Told;
};

static void Turn(QWidget *widget, int notches)
{
    const QPoint place = widget->mapTo(widget->window(), widget->rect().center());
    QWheelEvent event(place, widget->window()->mapToGlobal(place), {}, {0, 120 * notches}, {}, {}, {}, false);
    // Only an event from outside goes on to the parents when a widget ignores it.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget->window()->windowHandle(), &event);
}

/// Takes the focus away as the context menu of a field does.
static void OpenMenu(QWidget *field)
{
    QFocusEvent event(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(field, &event);
}

/// Clicks where an operator clicks to change the control. What the press deletes gets no release.
static void Click(QWidget *control)
{
    QPointer<QWidget> target(control);
    QPoint place(8, control->height() / 2);
    if (auto *combo = qobject_cast<QComboBox *>(control)) {
        combo->showPopup();
        target = combo->view()->viewport();
        place = combo->view()->visualRect(combo->model()->index(2, 0)).center();
    } else if (qobject_cast<QAbstractSpinBox *>(control)) {
        QStyleOptionSpinBox option;
        option.initFrom(control);
        const QStyle *style = control->style();
        place = style->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, control).center();
    }
    QTest::mousePress(target, Qt::LeftButton, {}, place);
    if (target)
        QTest::mouseRelease(target, Qt::LeftButton, {}, place);
}

/// Operates a control: types in place of what a field holds, with some characters for keys, > and < for turns of the
/// wheel, ! for a click, and Ctrl with A, X, V and Z.
static void Operate(QWidget *control, const QString &acts)
{
    const QHash<QChar, Qt::Key> keys{{'\r', Qt::Key_Return}, {'\t', Qt::Key_Tab}, {'\x1b', Qt::Key_Escape},
        {'^', Qt::Key_Up}, {'_', Qt::Key_Down}, {'|', Qt::Key_PageUp}, {'$', Qt::Key_End}, {' ', Qt::Key_Space}};
    if (control->inherits("QLineEdit") || control->inherits("QAbstractSpinBox"))
        QMetaObject::invokeMethod(control, "selectAll");
    const QPointer<QWidget> alive(control);
    for (const QChar c : acts) {
        if (c == '!')
            Click(control);
        else if (c == '>' || c == '<')
            Turn(control, c == '>' ? 1 : -1);
        else if (alive && QString("AXVZ").contains(c))
            QTest::keyClick(control, Qt::Key(c.unicode()), Qt::ControlModifier);
        else if (alive)
            QTest::sendKeyEvent(QTest::Click, control, keys.value(c, Qt::Key_unknown), QString(c), Qt::NoModifier);
    }
}

static std::pair<QWidget *, ValueBase *> Make(const QString &kind)
{
    if (kind == "line edit")
        return {new VCLineEdit(nullptr, nullptr, VCLineEdit::ekText), new ValueString("n")};
    if (kind == "short line edit") {
        auto *field = new VCLineEdit(nullptr, nullptr, VCLineEdit::ekText);
        field->setMaxLength(2);
        return {field, new ValueString("n")};
    }
    if (kind == "check box")
        return {new VCCheckBox, new ValueBoolean("n")};
    if (kind == "spin")
        return {new VCNumericFloatSpin, new ValueDouble("n")};
    auto *node = new ValueSelection("n");
    node->AddItems({"a", "b", "c"}, nullptr);
    return {new VCComboBoxClassic, node};
}

static bool Bind(QWidget *control, ValueBase *node)
{
    if (auto *field = qobject_cast<VCLineEdit *>(control))
        return field->SetValueBase(node);
    if (auto *box = qobject_cast<VCCheckBox *>(control))
        return box->SetBoolean(dynamic_cast<ValueBoolean *>(node));
    if (auto *spin = qobject_cast<VCNumericFloatSpin *>(control))
        return spin->SetNumericValue(dynamic_cast<IValueNumeric *>(node));
    return qobject_cast<VCComboBoxClassic *>(control)->SetValueSelection(dynamic_cast<ValueSelection *>(node));
}

class TestControls : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void outOfView_data()
    {
        const auto row = Columns<QString, QString, QString>({"kind", "first", "second"});
        row("line edit", "line edit", "7", "145");
        row("line edit that stays as it is", "short line edit", "145", "146");
        row("check box", "check box", "true", "false");
        row("spin", "spin", "7", "145");
        row("combo box", "combo box", "b", "c");
    }
    /// A value that comes to a control out of view has nothing painted; it tells the same signals, and stands on the
    /// screen as soon as it is scrolled there.
    void outOfView()
    {
        const auto [kind, first, second] = Fetch<QString, QString, QString>({"kind", "first", "second"});
        const auto [seen, seenNode] = Make(kind);
        const auto [unseen, unseenNode] = Make(kind);
        const std::unique_ptr<ValueBase> nodes[]
            = {std::unique_ptr<ValueBase>(seenNode), std::unique_ptr<ValueBase>(unseenNode)};
        Window window(seen);
        window.widget()->layout()->addWidget(unseen);
        window.widget()->adjustSize();
        QVERIFY(window.IsReady() && Bind(seen, seenNode) && Bind(unseen, unseenNode));
        window.Elsewhere->setFocus();
        QStringList told[2];
        int repaints[2];
        for (const int which : {0, 1}) {
            QCoreApplication::processEvents();
            struct Counter : QObject {
                bool eventFilter(QObject *, QEvent *event) override
                {
                    Count += event->type() == QEvent::UpdateRequest;
                    return false;
                }
                int Count = 0;
            } counter;
            window.installEventFilter(&counter);
            const Signals heard(which ? unseen : seen);
            for (const QString &value : {first, second, second}) {
                nodes[which]->SetStringValue(value, nullptr);
                QCoreApplication::processEvents();
            }
            told[which] = heard.Told;
            repaints[which] = counter.Count;
        }
        QCOMPARE(told[1], told[0]);
        QVERIFY(!told[0].isEmpty() && repaints[0] > 0);
        QCOMPARE(repaints[1], 0);
        window.ensureWidgetVisible(unseen);
        QCoreApplication::processEvents();
        const QRect place(unseen->mapTo(&window, QPoint()), unseen->size());
        const QImage onScreen = window.screen()->grabWindow(window.winId()).toImage().copy(place);
        QVERIFY(onScreen.convertToFormat(QImage::Format_RGB32)
            == unseen->grab().toImage().convertToFormat(QImage::Format_RGB32));
    }

    void life_data()
    {
        const auto row = Columns<QString, QString>({"kind", "act"});
        row("check box by mouse", "check box", "!");
        row("combo box by key", "combo box", "$");
        row("combo box in the open list", "combo box", "!");
        row("line edit by Return", "line edit", "typed\r");
        row("line edit by leaving", "line edit", "typed\t");
        row("spin by leaving", "spin", "7\t");
        row("spin by key", "spin", "^");
        row("spin by wheel", "spin", ">");
        row("spin by button", "spin", "!");
    }
    /// An operator's change reaches the bound node alone, and once. A node may go first, a control that has none stays
    /// as it is, and an observer may delete the node, or the window, in the middle of the write.
    void life()
    {
        const auto [kind, act] = Fetch<QString, QString>({"kind", "act"});
        const auto [made, first] = Make(kind);
        const auto [spare, second] = Make(kind);
        const QPointer<QWidget> control(made);
        const QPointer<Window> window(new Window(control));
        QVERIFY(window->IsReady() && Bind(control, first));
        const auto operate = [&, act = act] {
            control->setFocus();
            Operate(control, act);
            if (control)
                window->Elsewhere->setFocus();
        };
        const QString start = first->GetStringValue();
        auto watcher = std::make_unique<Watcher>(first);
        operate();
        QVERIFY(first->GetStringValue() != start);
        QCOMPARE(watcher->Count, 1);
        first->SetStringValue(start, nullptr);
        QVERIFY(Bind(control, second));
        operate();
        QVERIFY(first->GetStringValue() == start && second->GetStringValue() != start);
        delete second;
        const QImage last = control->grab().toImage();
        operate();
        QVERIFY(control->grab().toImage() == last);
        QVERIFY(!Bind(control, nullptr) && Bind(control, first));
        watcher = std::make_unique<Watcher>(first, [node = first] { delete node; });
        operate();
        const auto [another, third] = Make(kind);
        QVERIFY(Bind(control, third));
        third->SetStringValue(start, nullptr);
        watcher = std::make_unique<Watcher>(third, [&] { delete window; });
        operate();
        QVERIFY(!window);
        qDeleteAll(QWidgetList{spare, another});
        delete third;
    }

    /// Each change by the operator is told when the field is done with it, so that the window may go; nothing else is.
    void typing()
    {
        for (const QString kind : {"line edit", "spin"}) {
            const auto [control, made] = Make(kind);
            const std::unique_ptr<ValueBase> node(made);
            const QPointer<Window> window(new Window(control));
            QVERIFY(window->IsReady() && Bind(control, node.get()));
            QStringList told;
            const auto typed = [&, window = window](const QString &text) {
                told << text;
                if (text.contains('9'))
                    delete window;
            };
            if (auto *field = qobject_cast<VCLineEdit *>(control))
                connect(field, &VCLineEdit::signalTextEdited, typed);
            else
                connect(qobject_cast<VCNumericFloatSpin *>(control), &VCNumericFloatSpin::signalTextEdited, typed);
            Operate(control, "12\r");
            node->SetStringValue("3", nullptr);
            Operate(control, "45");
            QMetaObject::invokeMethod(control, "endEdit");
            QCOMPARE(node->GetStringValue(), QString("45"));
            QCOMPARE(told, QStringList({"1", "12", "4", "45"}));

            QInputMethodEvent input;
            input.setCommitString("6");
            QCoreApplication::sendEvent(control, &input);
            QCOMPARE(told.size(), 5);
            window->Elsewhere->setFocus();
            QVERIFY(node->GetStringValue().contains('6'));
            QMimeData text;
            text.setText("78");
            QDropEvent drop({2, 2}, Qt::CopyAction, &text, {}, {});
            QObject *inner = control->findChild<QLineEdit *>();
            (inner ? inner : control)->event(&drop);
            QTRY_COMPARE(told.size(), 6);
            QVERIFY(control->hasFocus());
            window->Elsewhere->setFocus();
            QVERIFY(node->GetStringValue().contains("78"));
            Operate(control, "9");
            QVERIFY(!window);
        }
    }

    void lineEdit_data()
    {
        const auto row
            = Columns<QString, QString, QByteArray, QString, QString>({"mask", "keys", "meddle", "shown", "commits"});
        row("Escape takes back", "", "new\x1b", "", "1234", "");
        row("the text that stood there is no edit", "", "1234\r", "", "1234", "");
        row("taken back with Ctrl+Z", "", "newZ\t", "", "1234", "");
        row("taken back after a commit, then typed", "", "abc\rZAxyz\t", "", "xyz", "abc xyz");
        row("mask not filled, Return", "99.99", "5\r", "", "5.", "");
        row("mask not filled, leaving", "99.99", "5\t", "", "12.34", "");
        row("read-only in mid-edit", "", "new", "readOnly", "1234", "");
        row("disabled in mid-edit", "", "new", "enabled", "new", "new");
        row("a context menu in mid-edit", "", "new", "menu", "new", "");
        row("the node changes in mid-edit", "", "new", "node", "other", "");
    }
    void lineEdit()
    {
        const auto [mask, keys, meddle, shown, commits]
            = Fetch<QString, QString, QByteArray, QString, QString>({"mask", "keys", "meddle", "shown", "commits"});
        ValueString node("n");
        node.SetValue("1234", nullptr);
        auto *field = new VCLineEdit(nullptr, "name", VCLineEdit::ekText);
        Window window(field);
        QVERIFY(window.IsReady() && field->SetValueBase(&node));
        if (!mask.isEmpty())
            field->setProperty("inputMask", mask);
        QStringList seen;
        connect(field, &VCLineEdit::signalTextFinallyChanged, [&](const QString &text) { seen << text; });
        Operate(field, keys);
        if (meddle == "node") {
            node.SetValue("other", nullptr);
            QCOMPARE(field->text(), QString("new"));
            QTest::keyClick(field, Qt::Key_Escape);
        } else if (meddle == "menu") {
            OpenMenu(field);
        } else if (!meddle.isEmpty()) {
            field->setProperty(meddle, meddle == "readOnly" ? QVariant(true) : QVariant());
            window.Elsewhere->setFocus();
        }
        QCOMPARE(field->text(), shown);
        QCOMPARE(seen.join(' '), commits);
        QCOMPARE(node.GetValue(), seen.isEmpty() ? QString(meddle == "node" ? "other" : "1234") : seen.last());
        // However the edit ended, the field follows its node again.
        window.Elsewhere->setFocus();
        node.SetValue("5678", nullptr);
        QCOMPARE(field->text().remove('.'), QString("5678"));
    }

    void whatIsNotForTheControlGoesOn()
    {
        for (const QString kind : {"line edit", "combo box", "spin"}) {
            const auto [control, made] = Make(kind);
            const std::unique_ptr<ValueBase> node(made);
            Window window(control);
            QVERIFY(window.IsReady() && Bind(control, node.get()));
            const QString before = node->GetStringValue();
            const QShortcut cancel(Qt::Key_Escape, &window);
            const QSignalSpy cancelled(&cancel, &QShortcut::activated);
            Operate(control, kind == "combo box" ? "" : "1\x1b");
            QCOMPARE(cancelled.size(), 0);
            QTest::keyClick(control, Qt::Key_Escape);
            QCOMPARE(cancelled.size(), 1);
            window.Elsewhere->setFocus();
            Turn(control, -1);
            QVERIFY(window.verticalScrollBar()->value() > 0);
            QCOMPARE(node->GetStringValue(), before);
        }
    }

    void spinShows_data()
    {
        const auto row = Columns<double, double, double, int, QString>({"value", "step", "factor", "extra", "text"});
        row("step from a division", 26499999999, 1 / 1e-9, 1e-9, 9, "26.499999999");
        row("every Hz without extra places", 145500001, 1000, 0.001, 0, "145500.001");
        row("negative factor", 12, 1, -0.1, 0, "-1.2");
        row("factor 0 counts as 1", 12, 1, 0, 0, "12");
        row("negative extra places", 12.4, 1, 1, -5, "12");
        row("too many places", 0, 1, 1, INT_MAX, "0." + QString(323, '0'));
        row("no group separators", -1234567.5, 0.5, 1, 0, "-1234567.5");
    }
    void spinShows()
    {
        const auto [value, step, factor, extra, text]
            = Fetch<double, double, double, int, QString>({"value", "step", "factor", "extra", "text"});
        ValueDouble node("n");
        node.SetValue(value, nullptr);
        const Watcher watcher(&node);
        VCNumericFloatSpin spin;
        QVERIFY(spin.SetNumericValue(&node));
        spin.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        spin.SetFactor(factor);
        spin.setAdditionalPrecision(extra);
        node.SetStep(step, nullptr);
        QCOMPARE(spin.cleanText(), text);
        QCOMPARE(watcher.Count, 0);
        QVERIFY(spin.minimumSizeHint().width() > spin.fontMetrics().horizontalAdvance("-999999999"));
        QVERIFY(spin.sizeHint().width() < 300);
    }

    void spinSteps_data()
    {
        const auto row = Columns<double, double, double, QString, QString, double>(
            {"start", "step", "factor", "mode", "acts", "end"});
        row("a thousand tenths up", 0, 0.1, 1, "", QString(1000, '^'), 100);
        row("digits that are not shown stay", 0.123456, 0.1, 1, "", "^^^", 0.423456);
        row("a scaled step without an exact quotient", 0, 0.7 / 0.3, 0.3, "", "|^^", 28);
        row("wraps past the maximum", 99.5, 1, 1, "wrap", ">", 0);
        row("nothing to wrap to above whole numbers", 1, 1, 1, "wrap open whole", "__>_", 0);
        row("up raises what is shown", 5, 1, -1, "", "^^", 3);
        row("from a typed number", 5, 1, 1, "", "40^", 41);
        row("read-only", 5, 1, 1, "read-only", ">^", 5);
        row("half of 1e-12 up", 1e6, 5e-7, 1, "open", "^", 1000000.0000005);
        row("half of 1e-12 typed", 2e12, 1, 0.001, "open", "2000000000.001\r", 2000000000001);
        row("left, taken back, then typed", 3, 1, 1, "", "7\tZA8\t", 8);
    }
    void spinSteps()
    {
        const auto [start, step, factor, mode, acts, end] = Fetch<double, double, double, QString, QString, double>(
            {"start", "step", "factor", "mode", "acts", "end"});
        ValueDouble doubles("d");
        ValueInt integers("i");
        IValueNumeric *node = mode.contains("whole") ? static_cast<IValueNumeric *>(&integers) : &doubles;
        node->SetMin(0, nullptr);
        if (!mode.contains("open"))
            node->SetMax(100, nullptr);
        node->SetStep(step, nullptr);
        node->SetValue(start, nullptr);
        auto *spin = new VCNumericFloatSpin;
        spin->SetFactor(factor);
        spin->EnableWrapAround(mode.contains("wrap"));
        spin->setReadOnly(mode == "read-only");
        Window window(spin);
        QVERIFY(window.IsReady() && spin->SetNumericValue(node));
        Operate(spin, acts);
        // Not QCOMPARE, which takes neighbouring numbers for equal.
        QVERIFY2(node->GetValue() == end, qPrintable(QString::number(node->GetValue(), 'g', 17)));
    }

    void spinTakesWhatIsANumber()
    {
        auto *const held = new ValueDouble("n"); // the tree's
        ValueDouble &node = *held;
        node.SetMinMax(0, 100, 1, nullptr);
        Tree::Instance()->AddNode("/Spin", held);
        auto *spin = new VCNumericFloatSpin;
        Window window(spin);
        QVERIFY(window.IsReady() && !spin->SetNumeric_ValuePath("/Spin/none") && spin->SetNumeric_ValuePath("/Spin/n"));
        spin->setValue(7);
        spin->setMinimum(5);
        spin->setMaximum(50);
        for (const double none : {qQNaN(), qInf()})
            spin->setValue(none);
        spin->setMinimum(qInf());
        spin->setMinimum(qQNaN());
        spin->setMaximum(-qInf());
        spin->setMaximum(qQNaN());
        QCOMPARE((QList<double>{spin->minimum(), spin->maximum(), node.GetValue()}), (QList<double>{5, 50, 7}));
        spin->disableStep(true);
        Operate(spin, "^");
        QCOMPARE(node.GetValue(), 7.0);
        spin->disableStep(false);
        Operate(spin, "^");
        QCOMPARE(node.GetValue(), 8.0);
        Tree::Instance()->RemoveNode("/Spin/n");
    }

    /// A limit that comes to where the number stands greys an arrow, also while somebody types.
    void aLimitIsSeenAtTheArrows()
    {
        for (const QString typed : {"", "7"}) {
            auto *spin = new VCNumericFloatSpin;
            Window window(spin);
            ValueDouble node("n");
            QVERIFY(window.IsReady() && spin->SetNumericValue(&node));
            Operate(spin, typed);
            const auto seen = [&] {
                QCoreApplication::processEvents();
                return window.screen()->grabWindow(window.winId()).toImage();
            };
            const QImage free = seen();
            spin->setMaximum(typed.toInt());
            const QImage above = seen();
            spin->setMinimum(typed.toInt());
            const QImage both = seen();
            QVERIFY2(above != free && both != above && both != free, qPrintable(typed));
        }
    }

    void aFieldShowsAndReadsByItsHostsConversion()
    {
        ValueString node("n");
        node.SetValue("abc", nullptr);
        auto *field = new VCLineEdit(nullptr, "name", VCLineEdit::ekText);
        Window window(field);
        QVERIFY(window.IsReady() && field->SetValueBase(&node));
        field->SetConversion(
            [](const QString &text) { return text.toUpper(); }, [](const QString &text) { return text.toLower(); });
        QCOMPARE(field->text(), QString("ABC"));
        Operate(field, "DE\r");
        QCOMPARE(node.GetValue() + field->text(), QString("deDE"));
    }

    /// What a box remembers of its size must never be seen.
    void hintsAreThoseOfAPlainBox()
    {
        const std::unique_ptr<QStyle> other(QStyleFactory::create("windows"));
        const std::vector<std::function<void(QComboBox &)>> steps{
            [](QComboBox &box) { box.show(); },
            [](QComboBox &box) { box.addItem("a much longer item than all the others"); },
            [](QComboBox &box) { box.setItemText(0, "changed to something longer"); },
            [](QComboBox &box) { box.removeItem(1); },
            [](QComboBox &box) { box.setFont(QFont(box.font().family(), 30)); },
            [](QComboBox &box) {
                box.setItemText(0, "changed with its letters");
                box.setFont(QFont(box.font().family(), 12));
            },
            [](QComboBox &box) { box.setStyle(QApplication::style()); },
            [&](QComboBox &box) { box.setStyle(other.get()); },
            [](QComboBox &box) { box.setStyleSheet("font-size: 30pt;"); },
            [](QComboBox &box) { box.setItemIcon(box.count() - 1, QPixmap(9, 9)); },
            [](QComboBox &box) {
                (box.setIconSize({50, 50}));
            },
            [](QComboBox &box) { box.setFrame(false); },
            [](QComboBox &box) { box.setMinimumContentsLength(60); },
            [](QComboBox &box) { box.setSizeAdjustPolicy(QComboBox::AdjustToContents); },
            [](QComboBox &box) { box.setModel(new QStringListModel({"an item of another model"}, &box)); },
        };
        QComboBox plain;
        VCComboBoxClassic ours;
        const auto hints = [](const QComboBox &box) { return qMakePair(box.sizeHint(), box.minimumSizeHint()); };
        for (QComboBox *box : {&plain, static_cast<QComboBox *>(&ours)})
            box->addItems({"one", "another one"});
        for (size_t i = 0; i < steps.size(); ++i) {
            for (QComboBox *box : {&plain, static_cast<QComboBox *>(&ours)})
                steps[i](*box);
            QVERIFY2(hints(ours) == hints(plain), qPrintable(QString("step %1").arg(i)));
        }
    }

    /// A box that is not quite of the class is measured by itself.
    void hintsOfSpinBoxesAreThoseOfOneAlone()
    {
        struct Alone : VCNumericFloatSpin {
        };
        using Box = VCNumericFloatSpin &;
        const std::unique_ptr<QStyle> windows(QStyleFactory::create("windows"));
        const std::vector<std::function<void(Box)>> steps{
            // Qt does not measure both hints anew for these.
            [](Box box) { box.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt)); },
            [](Box box) { box.findChild<QLineEdit *>()->setTextMargins(0, 5, 0, 5); },
            [](Box box) { box.findChild<QLineEdit *>()->setFont(QFont(box.font().family(), 40)); },
            [](Box box) { box.setButtonSymbols(QAbstractSpinBox::NoButtons); },
            [](Box box) { box.setFrame(false); },
            [](Box box) { box.setLayoutDirection(Qt::RightToLeft); },
            [](Box box) { box.setSuffix(" Hz"); },
            [](Box box) { box.setSpecialValueText("as the receiver wishes"); },
            [](Box box) { box.setSuffix("/s"); },
            // It does for these.
            [](Box box) { box.setMaximum(99); },
            [](Box box) { box.setMaximum(12345678); },
            [](Box box) { box.setMinimum(-7654321); },
            [](Box box) { box.setMinimum(0); },
            [](Box box) { box.setAdditionalPrecision(4); },
            [](Box box) { box.SetFactor(0.001); },
            [](Box box) { box.setPrefix("about "); },
            [](Box box) { box.setFont(QFont(box.font().family(), 24)); },
            [](Box box) { box.setFont(QFont()); },
            [](Box box) { box.setPalette(QPalette(Qt::red)); },
            [&](Box box) { box.setStyle(windows.get()); },
            [](Box box) { box.setStyle(nullptr); },
            [](Box box) { box.setStyleSheet("QAbstractSpinBox { padding: 9px; font-size: 30pt }"); },
            [](Box box) { box.setStyleSheet(QString()); },
        };
        constexpr size_t unheard = 9;
        ValueDouble node("n");
        struct Pair {
            VCNumericFloatSpin Ours;
            Alone Other;
            void Take(const std::function<void(Box)> &step)
            {
                step(Ours);
                step(Other);
            }
            bool AreAlike() const
            {
                const bool alike = Ours.sizeHint() == Other.sizeHint();
                return Ours.minimumSizeHint() == Other.minimumSizeHint() && alike;
            }
        };
        for (size_t first = 0; first < steps.size(); ++first) {
            for (size_t second = 0; second < steps.size(); ++second) {
                Pair asked;
                Pair fresh;
                for (Pair *pair : {&asked, &fresh}) {
                    pair->Take([&](Box box) { box.SetNumericValue(&node); });
                    pair->Take(steps[first]);
                }
                const QByteArray taken = QString("%1, %2").arg(first).arg(second).toLatin1();
                QVERIFY2(asked.AreAlike(), taken);
                asked.Take(steps[second]);
                QVERIFY2(asked.AreAlike() || second < unheard, taken);
                fresh.Take(steps[second]);
                QVERIFY2(fresh.AreAlike(), taken);
            }
        }
    }

    void hintsAreNotSharedWhereTheStyleKnowsTheBox()
    {
        struct ByName : QProxyStyle {
            QSize sizeFromContents(
                ContentsType type, const QStyleOption *option, const QSize &size, const QWidget *box) const override
            {
                const int more = box->objectName() == "wide" ? 50 : 0;
                return QProxyStyle::sizeFromContents(type, option, size, box) + QSize(more, 0);
            }
        };
        const auto compare = [] {
            for (const char *name : {"narrow", "wide", "narrow"}) {
                QComboBox plain;
                VCComboBoxClassic ours(nullptr, name);
                plain.setObjectName(name);
                for (QComboBox *box : {&plain, static_cast<QComboBox *>(&ours)})
                    box->addItem("one");
                QCOMPARE(ours.sizeHint(), plain.sizeHint());
            }
        };
        const QString standard = QApplication::style()->objectName();
        QApplication::setStyle(new ByName);
        compare();
        QApplication::setStyle(standard);
        qApp->setStyleSheet("QComboBox#wide { min-width: 300px }");
        compare();
        qApp->setStyleSheet(QString());
    }

    void numbersAreSpelledAsByQt()
    {
        QDoubleSpinBox plain;
        VCNumericFloatSpin ours;
        using Locale = QLocale;
        for (const Locale &locale : {Locale::c(), Locale(Locale::German), Locale(Locale::Swedish),
                 Locale(Locale::Arabic, Locale::Egypt), Locale(Locale::Persian), Locale(Locale::Hindi)}) {
            for (const int places : {0, 1, 2, 3, 5}) {
                for (QDoubleSpinBox *box : {&plain, static_cast<QDoubleSpinBox *>(&ours)}) {
                    box->setLocale(locale);
                    box->setDecimals(places);
                }
                for (const double number : {0.0, -0.0, 0.5, -0.004, 999.0, 1000.0, -1234.25, 2.0 / 3, 1e6, 1e15, -7e22})
                    QCOMPARE(ours.textFromValue(number), plain.textFromValue(number));
            }
        }
    }

    /// What a spin box remembers of its text must never be seen.
    void aNumberThatWasTakenAwayIsShownAgain()
    {
        using Spin = VCNumericFloatSpin;
        const std::pair<const char *, std::function<void(Spin &)>> steps[]{
            {"another text", [](Spin &spin) { spin.findChild<QLineEdit *>()->setText("9.00"); }},
            {"cleared", [](Spin &spin) { spin.clear(); }},
            {"another number of the base class", [](Spin &spin) { spin.QDoubleSpinBox::setValue(9); }},
        };
        for (const auto &[name, step] : steps) {
            ValueDouble node("n");
            Spin spin;
            spin.setAdditionalPrecision(2);
            spin.SetNumericValue(&node);
            node.SetValue(2, nullptr);
            step(spin);
            node.HasChanged(ekChangeValue, nullptr);
            QVERIFY2(spin.text() == "2.00" && spin.value() == 2.0, name);
            node.SetStep(0.001, nullptr);
            QVERIFY2(spin.text() == "2.00000", name);
        }
    }
};

ORBEL_TEST_MAIN(TestControls)
#include "tst_controls.moc"
