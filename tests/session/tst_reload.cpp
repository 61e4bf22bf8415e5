// A new definition under a running form: what stays, what goes, and that nothing is announced by it.

#include "definitiondiff.h"
#include "frequencyfield.h"
#include "liveform.h"
#include "orbelspinbox.h"
#include "registry.h"
#include "session.h"

#include <random>

using namespace Orbel;

namespace
{

QString Gain(const QStringList &properties = {"value=Int:5", "maximum=Int:60"})
{
    return Labelled("gain", "SpinBox", properties);
}

QString Line(const QString &text = "one")
{
    return Labelled("text", "LineEdit", {"text=String:" + text});
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
        rows += Labelled("row" + QString::number(i), "SpinBox", {"maximum=Int:9"});
    return rows;
}

const QString Mode = Labelled("mode", "ComboBox", {"enumName=String:Modes"});
const QString Table = Labelled("table", "TableWidget", {"rowCount=Int:4", "columnCount=Int:2"});
const QString Sheet = "<Properties><Property name='autoApplyTimeout'><Int>100</Int></Property></Properties>";

/// `body` may begin with enumerations.
QString Document(const QString &body, const QString &script = {})
{
    const int enums = body.lastIndexOf("</Enums>") < 0 ? 0 : body.lastIndexOf("</Enums>") + 8;
    return Definition(Sheet + body.mid(enums), body.left(enums) + script);
}

/// A form in the window of a host, in front of another control.
struct Live : Orbel::FormOperator {
    explicit Live(const QString &body, const QString &path = "/Form")
        : FormOperator(nullptr), form(Parse(Document(body)))
    {
        form->CreateValueTree(path);
        form->CreateGUI(true);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(form->GetGUI());
        layout->addWidget(new QLineEdit);
        window.resize(400, 400);
        window.show();
        QApplication::setActiveWindow(&window);
        PassTime(0);
    }
    bool Reload(const QString &body)
    {
        const Form next = Parse(Document(body));
        const QSignalSpy applied(next.data(), &OrbelFormular::si_parametersModified);
        told.clear();
        if (!next->TakeOver(form.data(), &told))
            return false;
        form = next;
        announced += applied.size();
        PassTime(0);
        return true;
    }
    QWidget *Find(const QString &name) const { return window.findChild<QWidget *>(name); }
    OrbelDelegate *Get(const QString &name) const { return Delegate(form, name); }
    QString Value(const QString &name) const { return form->GetVTValue(name)->GetStringValue(); }
    QUndoStack *Stack() const { return form->GetUndoStack(); }
    OrbelFormular *GetForm() const override { return form.data(); }
    /// Name, text, caret and selection of the field with the focus.
    QString Focus() const
    {
        QWidget *focus = window.focusWidget();
        auto *box = qobject_cast<QAbstractSpinBox *>(focus);
        auto *field = box ? box->findChild<QLineEdit *>() : qobject_cast<QLineEdit *>(focus);
        const QString name = focus ? focus->objectName() : QString();
        return field
            ? QString("%1 %2 %3 %4").arg(name, field->text()).arg(field->cursorPosition()).arg(field->selectedText())
            : name;
    }
    int Top(const QString &name) const { return Find(name)->mapTo(&window, QPoint()).y(); }

    Form form;
    QStringList told;
    int announced = 0;
    QWidget window;
};

/// All that the controls of a form hold and show.
QStringList LookOf(const OrbelFormular &form)
{
    QStringList look;
    for (const QWidget *widget : form.GetGUI()->findChildren<QWidget *>()) {
        look << widget->objectName() + ' ' + widget->toolTip();
        for (const char *name : {"text", "value", "pos", "size"})
            QDebug(&look.last()) << widget->property(name);
    }
    for (int i = 0; i < form.GetSheet().GetWidgetCount(); ++i) {
        const OrbelDelegate *control = form.GetSheet().GetWidgetAt(i)->GetDelegate();
        const auto *node = dynamic_cast<const IValueNumeric *>(control->GetVTValue());
        look << control->objectName();
        for (const char *name : {"minimum", "maximum", "singleStep", "value", "text", "currentValue"})
            look.last() += ' ' + control->property(name).toString();
        if (node)
            QDebug(&look.last()) << node->GetValue() << node->GetMin() << node->GetMax() << node->GetStep();
    }
    return look;
}

/// A definition as a file has it.
QByteArray Text(const QString &version, const QString &script = {})
{
    const QString body = Enum("Modes", "AM=1 FM=2") + Gain() + Mode;
    return Document(body, script).replace("version=\"1\"", "version=\"" + version + "\"").toUtf8();
}

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

const QStringList Classes{"SpinBox", "DoubleSpinBox", "LineEdit", "CheckBox", "ComboBox", "FrequencyEdit", "Unknown",
    "FrequencyRangeEdit", "SpinBoxList", "TableWidget", "ChannelSpacingTable", "Headline", "Label"};

/// A form of widgets at random, and another one that is made of it: widgets come, go, move, and get other names,
/// classes and values.
struct RandomForm {
    using Row = QPair<QString, QString>; // name and class

    explicit RandomForm(int seed) : Random(seed)
    {
        for (int i = Below(12); i >= 0; --i)
            Insert();
    }
    int Below(int bound) { return int(Random() % uint(bound)); }
    void Insert() { Rows.insert(Below(Rows.size() + 1), {NewName(), Classes.at(Below(Classes.size()))}); }
    Row &Any() { return Rows[Below(Rows.size())]; }
    QString NewName()
    {
        QString name;
        const auto isIt = [&name](const Row &row) { return row.first == name; };
        do
            name = "w" + QString::number(Below(40));
        while (std::any_of(Rows.begin(), Rows.end(), isIt));
        return name;
    }
    void Change()
    {
        const std::function<void()> ways[]{[this] { Rows.removeAt(Below(Rows.size())); },
            [this] { Any().first = NewName(); }, [this] { Any().second = Classes.at(Below(Classes.size())); },
            [this] { Rows.move(Below(Rows.size()), Below(Rows.size())); }, [this] { Version = Below(100); }};
        for (int i = Below(6); i >= 0; --i) {
            Insert();
            ways[Below(5)]();
        }
    }
    QString Text() const
    {
        QString body = Enum("Modes", "AM=1 FM=2 CW=3");
        for (const Row &row : Rows)
            body += Labelled(row.first, row.second,
                {"value=String:" + QString::number(Version % 7), "text=String:" + QString::number(Version),
                    "maximum=String:1e9", "decimals=Int:2", "enumName=String:Modes", "itemCount=Int:2",
                    "spacingsCount=Int:2", "rowCount=Int:2", "columnCount=Int:2", "parameterListItemTag=String:i"});
        return body;
    }
    /// As many values as a control has, none of which stands there.
    QVariantList Other(const OrbelDelegate &control, const QString &type)
    {
        QVariantList values = control.GetEdits();
        const int number = 10 + Below(90);
        for (int i = 0; i < values.size(); ++i) {
            const QString text = QString::number(number * 1000 + i / (type == "TableWidget" ? 2 : 1));
            const QString one = type == "ComboBox" ? "FM" : "true", two = type == "ComboBox" ? "CW" : "false";
            const bool isChoice = type == "ComboBox" || type == "CheckBox";
            values[i] = isChoice ? QVariant(values.at(i) == one ? two : one) : QVariant(text);
            values[i] = type == "ChannelSpacingTable" ? QVariant(number + i + 0.5) : values.at(i);
        }
        return values;
    }

    QList<Row> Rows;
    std::mt19937 Random;
    int Version = 1;
};

/// What a control holds and how it is marked.
QString StateOf(const OrbelDelegate &control)
{
    QStringList state;
    for (const QVariant &value : control.GetEdits())
        state << value.toString();
    state << (control.IsChanged() ? "changed" : "");
    for (const QVariant &value : control.GetApplied() ? *control.GetApplied() : QVariantList())
        state << value.toString();
    return state.join('|');
}

/// A file that a session watches.
struct Watched {
    Watched() : Path(WriteFile(Folder, "a.orbel", Text("1"))), Opened(Session::OpenFile(Path).Opened)
    {
        Opened->GetWidget()->show();
        QObject::connect(Opened.get(), &Session::reloaded, Opened.get(), [this](const QVector<Finding> &findings) {
            const bool isRefused = std::any_of(findings.begin(), findings.end(),
                [](const Finding &finding) { return finding.Level == Severity::Error; });
            Told << Opened->GetForm()->GetVersion() + (isRefused ? "!" : "");
        });
        Opened->Watch(Path);
        QTest::qWait(150);
    }
    void Put(const QByteArray &text) const { WriteFile(Folder, "a.orbel", text); }
    /// What is done with the file, parted by "; ". "= 2 3!" awaits what was told so far: versions, with ! for errors.
    void Do(const QString &steps) const
    {
        for (const QString &step : steps.split("; ")) {
            const QString act = step.section(' ', 0, 0), what = step.section(' ', 1);
            if (act == "=")
                QTRY_COMPARE(Told.join(' '), what);
            else if (act == "write")
                Put(Text(what));
            else if (act == "beside")
                WriteFile(Folder, "other", Text("2"));
            else if (act == "begin")
                Put(Text(what).left(100));
            else if (act == "put")
                Put(what.toUtf8());
            else if (act == "replace")
                QVERIFY(QFile::remove(Path) && QFile::rename(WriteFile(Folder, "other", Text(what)), Path));
            else if (act == "remove")
                QVERIFY(QFile::remove(Path) || QDir().rmdir(Path));
            else if (act == "folder")
                QDir().mkpath(what.isEmpty() ? Path : Folder.path());
            else if (act == "clear")
                QDir(Folder.path()).removeRecursively();
            else if (act == "link")
                QFile::link(Target.filePath("target"), Path);
            else if (act == "cut")
                QVERIFY(QFile::remove(Target.filePath("target")));
            else if (act == "target")
                WriteFile(Target, "target", Text(what));
            else if (act == "list")
                what == "open" ? List()->showPopup() : List()->hidePopup();
            else
                QTest::qWait(300);
        }
    }
    QComboBox *List() const { return Opened->GetWidget()->findChild<QComboBox *>(); }

    QTemporaryDir Folder;
    QTemporaryDir Target;
    const QString Path;
    const std::unique_ptr<Session> Opened;
    QStringList Told;
};

} // namespace

class Ender : public QObject
{
    Q_OBJECT

public:
    std::function<void()> Act;
    Q_INVOKABLE void end() const { Act(); }
};

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
        const QString before = test.State(live);
        QVERIFY(live.Reload(test.After));
        QCOMPARE(test.State(live), test.Expected == "the same" ? before : test.Expected);
        QCOMPARE(live.announced, 0);
        QCOMPARE(live.form->GetGUI(), gui);
    }

    /// What is done in place leaves everything as a form has it that is made anew.
    void inPlaceIsAsAnew_data()
    {
        const auto row = Columns<QString, QString>({"one", "other"});
        row("labelText", "labelText=String:one", "labelText=String:other\nline");
        for (const char *name : {"prefix", "suffix", "specialValueText", "unit"})
            row(name, QString("%1=String:one").arg(name), QString("%1=String:other kHz").arg(name));
        row("minimum", "minimum=Double:1", "minimum=Double:4");
        row("maximum", "maximum=Double:9", "maximum=Double:6");
        row("singleStep", "singleStep=Double:1", "singleStep=Double:2");
    }
    void inPlaceIsAsAnew()
    {
        QFETCH(QString, one);
        QFETCH(QString, other);
        const auto text = [](const QStringList &classes, const QString &property) {
            QString body = Enum("Modes", "AM=1 FM=2");
            const QStringList all{"labelText=String:row", "minimum=Double:1", "value=Int:5", "enumName=String:Modes",
                "itemCount=Int:2", "rowCount=Int:2", "columnCount=Int:1", "parameterListItemTag=String:i",
                "startFrequencyParameterXmlTag=String:a", "stopFrequencyParameterXmlTag=String:b"};
            const QRegularExpression others("^(?!" + property.section('=', 0, 0) + "=)");
            for (const QString &name : classes)
                body += Widget("w" + name, name, Usable + all.filter(others) + QStringList(property));
            return Document(body).toUtf8();
        };
        QStringList classes = Registry::ClassNames();
        const auto isAnew
            = [&](const QString &name) { return !DefinitionDiff::Between(text({name}, one), text({name}, other)); };
        classes.erase(std::remove_if(classes.begin(), classes.end(), isAnew), classes.end());
        QVERIFY(classes.contains("SpinBox")
            && classes.contains("FrequencyEdit") == (one.section('=', 0, 0) != "singleStep"));
        const auto patched = Session::OpenText(text(classes, one)), anew = Session::OpenText(text(classes, one));
        for (Session *session : {patched.Opened.get(), anew.Opened.get()}) {
            session->GetWidget()->resize(400, 400);
            session->GetWidget()->show();
            PassTime(0);
        }
        const OrbelFormular *const former = patched.Opened->GetForm();
        const auto linesOf = [](const QVector<Finding> &findings) {
            QStringList lines;
            for (const Finding &finding : findings)
                lines << QString("%1 %2").arg(finding.Line).arg(finding.Text);
            return lines;
        };
        const auto told = linesOf(patched.Opened->Reload(text(classes, other)));
        QCOMPARE(told, linesOf(Session::OpenText(text(classes, other)).Told));
        QCOMPARE(patched.Opened->GetForm(), former);
        anew.Opened->Reload(text(classes, other).replace("version=\"1\"", "version=\"2\""));
        QCOMPARE(anew.Opened->GetForm()->GetVersion(), QString("2"));
        PassTime(0);
        QCOMPARE(LookOf(*patched.Opened->GetForm()), LookOf(*anew.Opened->GetForm()));
    }

    void waitsUntilTheFormIsAtRest()
    {
        const auto opened = Session::OpenText(Text("1"));
        Session &session = *opened.Opened;
        session.GetWidget()->show();
        const OrbelFormular *former = session.GetForm();
        const auto *gain = qobject_cast<OrbelSpinBox *>(Delegate(Form(session.GetForm()), "gain"));
        bool stayed = false;
        connect(gain, &OrbelSpinBox::valueChanged, &session, [&] {
            session.Reload(Text("2"));
            stayed = session.GetForm() == former;
        });
        session.GetForm()->SetVTValue("gain", "7", nullptr, false);
        QVERIFY(stayed);
        QTRY_COMPARE(session.GetForm()->GetVersion(), QString("2"));
        QCOMPARE(session.Value("gain").toInt(), 7);

        auto *list = session.GetWidget()->findChild<QComboBox *>();
        list->showPopup();
        session.Reload(Text("3"));
        QCOMPARE(session.GetForm()->GetVersion(), QString("2"));
        list->hidePopup();
        QTRY_COMPARE(session.GetForm()->GetVersion(), QString("3"));
    }
    void endsInTheMiddle_data()
    {
        const auto row = Columns<bool, QString>({"window", "script"});
        for (bool window : {false, true}) {
            row(window ? "window, at the start" : "session, at the start", window, "host.end()");
            row(window ? "window, by a value" : "session, by a value", window,
                "gain.valueChanged.connect(function() { host.end() })");
        }
    }
    void endsInTheMiddle()
    {
        QFETCH(bool, window);
        QFETCH(QString, script);
        auto opened = Session::OpenText(Text("1"));
        Ender host;
        host.Act = [&] { window ? delete opened.Opened->GetWidget() : opened.Opened.reset(); };
        opened.Opened->GetForm()->SetScriptValue("host", &host);
        opened.Opened->GetForm()->SetVTValue("gain", "7", nullptr, false);
        opened.Opened->Reload(Text("2", "<Script>" + script + "</Script>"));
        QCOMPARE(bool(opened.Opened), window);
        QVERIFY(!window || (!opened.Opened->GetWidget() && opened.Opened->Value("gain") == 7));
    }
    void manyReloadsLeaveNothing()
    {
        const auto opened = Session::OpenText(Text("1"));
        opened.Opened->GetWidget()->show();
        const auto count = [] {
            PassTime(0);
            return QPair<int, int>(QApplication::allWidgets().size(), Tree::Instance()->GetPaths().size());
        };
        opened.Opened->Reload(Text("0"));
        const auto before = count();
        for (int i = 0; i < 100; ++i)
            opened.Opened->Reload(Text(QString::number(i)));
        QCOMPARE(count(), before);
    }
    /// What is done with the file after version 1 was opened.
    void aFileIsWatched_data()
    {
        QTest::addColumn<QString>("steps");
        const auto row = AddRow<QString>;
        row("written", "write 2; = 2; write 3; = 2 3");
        row("replaced, as by an editor", "replace 2; = 2; replace 3; = 2 3");
        row("written in pieces", "begin 2; wait; write 2; = 2");
        row("emptied", "put; wait; write 2; = 2");
        row("deleted", "remove; wait; write 2; = 2");
        row("made a folder", "remove; folder; wait; remove; write 2; = 2");
        row("deleted with its folder", "clear; wait; folder again; write 2; = 2; write 3; = 2 3");
        row("a link that leads elsewhere", "remove; target 2; link; = 2; target 3; = 2 3");
        row("beside another file, with errors", "put <Other/>; = 1!; beside; wait; beside; wait; = 1!");
        row("a link whose target was gone", "remove; target 2; link; = 2; cut; wait; target 3; = 2 3");
        row("broken and put back", "put <broken; = 1!; write 1; = 1! 1");
        row("put back while the form is busy", "list open; write 2; wait; write 1; = 1; list shut; wait; = 1");
    }
    void aFileIsWatched()
    {
        QFETCH(QString, steps);
        Watched().Do(steps);
    }

    /// ORBEL_RELOADS tells how many pairs, ORBEL_RELOAD_SEED which is the first.
    void randomPairs()
    {
        const int first = FromEnvironment("ORBEL_RELOAD_SEED", 1);
        for (int seed = first; seed < first + FromEnvironment("ORBEL_RELOADS", 200); ++seed) {
            ReloadAtRandom(seed);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("seed %1").arg(seed)));
        }
    }

private:
    static void ReloadAtRandom(int seed)
    {
        RandomForm random(seed);
        Live live(random.Text());
        QHash<RandomForm::Row, QString> kept;
        QHash<RandomForm::Row, QVariantList> atStart, entered;
        for (const RandomForm::Row &row : qAsConst(random.Rows)) {
            OrbelDelegate *control = live.Get(row.first);
            const QVariantList stands = control->GetEdits();
            const int who = stands.isEmpty() ? 0 : random.Below(3);
            if (who == 1) {
                const OrbelDelegate::OperatorChange change(control);
                control->PutEdits(random.Other(*control, row.second));
                atStart.insert(row, stands);
            } else if (const ValueBase *node = who == 2 ? control->GetVTValue() : nullptr) {
                const QString text = random.Other(*control, row.second).first().toString();
                live.form->SetVTValue(node->GetName(), text, nullptr, false);
            }
            entered.insert(row, control->GetEdits());
            if (control->IsTouched())
                kept.insert(row, StateOf(*control));
        }
        random.Change();
        QVERIFY(live.Reload(random.Text()) && live.announced == 0 && live.told.isEmpty());
        QHash<QString, QString> states;
        for (const RandomForm::Row &row : qAsConst(random.Rows))
            states.insert(row.first, StateOf(*live.Get(row.first)));
        const Live fresh(random.Text(), "/Fresh");
        int entries = 0;
        for (const RandomForm::Row &row : qAsConst(random.Rows)) {
            const QString wanted = kept.value(row, StateOf(*fresh.Get(row.first)));
            const QString state = states.value(row.first);
            QVERIFY2(state == wanted, qPrintable(row.first + ' ' + state + " is not " + wanted));
            entries += atStart.contains(row);
        }
        QCOMPARE(live.Stack()->count(), entries);
        for (const auto &values : {atStart, entered}) {
            live.Stack()->setIndex(live.Stack()->index() == 0 ? entries : 0);
            for (const RandomForm::Row &row : qAsConst(random.Rows))
                QVERIFY2(!atStart.contains(row) || live.Get(row.first)->GetEdits() == values.value(row),
                    qPrintable(row.first));
        }
    }

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
        const auto run = [](const QString &script) { return [=](Live &live) { live.form->EvaluateScript(script); }; };
        const auto answer = [](const QString &expression) {
            return [=](Live &live) {
                live.form->EvaluateScript("answer = " + expression);
                return live.form->GetScriptValues().value("answer").toString();
            };
        };
        const auto device = [](Live &live) {
            const QVariantList *reported = live.Get("gain")->GetReported();
            return live.Value("gain") + (reported ? " device " + reported->value(0).toString() : QString());
        };
        // clang-format off
        static const std::vector<Case> cases{
            {"a value that was set", Gain() + Line(), enter("gain", "7"), Line() + Gain({"value=Int:9"}), gain, "the same"},
            {"a value that the host set", Gain(), [](Live &live) { live.form->SetVTValue("gain", "8", nullptr, false); }, Gain({"value=Int:9"}), gain, "the same"},
            {"a value that a document set, be it the same", Gain(), [](Live &live) { live.form->SetXmlString("<Parameters><gain>5</gain></Parameters>"); }, Gain({"value=Int:9"}), gain, "5"},
            {"a value that nobody set", Gain(), nothing, Gain({"value=Int:9"}), gain, "9"},
            {"a value beyond the new limits", Gain(), enter("gain", "50"), Gain({"maximum=Int:40"}), [](Live &live) { return live.Value("gain") + live.told.join("|"); }, "40gain: 50 \u2192 40"},
            {"another class", Gain(), enter("gain", "7"), Labelled("gain", "DoubleSpinBox", {"value=Double:1.5"}), gain, "1.5"},
            {"a mark with what was applied", Gain(), enter("gain", "7"), Gain({"maximum=Int:9"}), mark, "the same"},
            {"no mark where there was none", Gain(), [](Live &live) { live.form->SetVTValue("gain", "8", nullptr, false); live.form->GetXmlString(false); }, Gain(), mark, "0 0 "},
            {"no mark on what is written no more", Gain(), enter("gain", "7"), Widget("gain", "SpinBox"), mark, "0 0 "},
            {"a choice by its value", Enum("Modes", "AM=1 FM=2") + Mode, [](Live &live) { live.form->SetVTValue("mode", "FM", nullptr, false); }, Enum("Modes", "CW=0 Frequency=2") + Mode, [](Live &live) { return live.Value("mode"); }, "Frequency"},
            {"a text half typed", Line() + Gain(), [](Live &live) { TypeOver(live.Find("text"), "half"); QTest::keyClick(live.Find("text"), Qt::Key_Left, Qt::ShiftModifier); }, Gain() + Line("two"), focus, "the same"},
            {"a number half typed, with another suffix", Gain({"suffix=String: dB"}), type("gain", "1x"), Gain({"suffix=String: dBm"}), focus, "gain 1x dBm 2 "},
            {"a frequency half typed", Labelled("f", "FrequencyEdit", {"MainFreqEdit=Bool:true", "maximum=String:1e9"}), [](Live &live) { TypeOver(live.window.findChild<Orbel::FrequencyField *>(), "14"); }, Gain() + Labelled("f", "FrequencyEdit", {"MainFreqEdit=Bool:true"}), focus, "the same"},
            {"the focus of a button", Gain(), [](Live &live) { live.Find("autoApply")->setFocus(); }, Line(), focus, "the same"},
            {"the focus of the host's", Gain(), [](Live &live) { live.window.findChildren<QLineEdit *>().last()->setFocus(); }, Line(), focus, "the same"},
            {"the focus where the control goes", Gain() + Line(), type("gain", "7"), Line(), focus, "sheet"},
            {"the order of Tab", Gain() + Line(), nothing, Line() + Gain(), [](Live &live) { QStringList names; for (QWidget *next = live.window.nextInFocusChain(); next != &live.window; next = next->nextInFocusChain()) if (next->focusPolicy() & Qt::TabFocus && !next->focusProxy() && next->isVisible()) names << next->objectName(); return names.join(' '); }, "text gain applyButton autoApply "},
            {"a cell that is being typed", Table, [](Live &live) { QTest::keyClicks(OpenCell(live.window.findChild<QTableWidget *>(), 2, 1), "abc"); }, Gain() + Table, [](Live &live) { const auto *table = live.window.findChild<QTableWidget *>(); return QString("%1/%2 ").arg(table->currentRow()).arg(table->currentColumn()) + live.Focus(); }, "the same"},
            {"selected cells", Table, [](Live &live) { live.window.findChild<QTableWidget *>()->setRangeSelected({1, 0, 2, 1}, true); }, Table + Gain(), [](Live &live) { return QString::number(live.window.findChild<QTableWidget *>()->selectedItems().size() + live.window.findChild<QTableWidget *>()->selectionModel()->selectedIndexes().size()); }, "the same"},
            {"cells by row and column", Table, [](Live &live) { live.Enter("table[1,1]", "abc"); }, Labelled("table", "TableWidget", {"rowCount=Int:3", "columnCount=Int:3"}), [](Live &live) { const auto *item = live.window.findChild<QTableWidget *>()->item(1, 1); return item ? item->text() : ""; }, "the same"},
            {"the place to which it was scrolled", Rows(), [](Live &live) { live.window.findChild<QScrollArea *>()->verticalScrollBar()->setValue(300); }, Line() + Rows(3), [](Live &live) { return QString::number(live.Top("row20")); }, "the same"},
            {"collapsed groups", Group("a") + Gain() + Group("b") + Line(), [](Live &live) { live.form->GetSheet().SetCollapsed({"b"}); }, Group("c") + Gain() + Group("b") + Line(), [](Live &live) { return live.form->GetSheet().GetCollapsed().join(' '); }, "b"},
            {"the undo stack", Gain() + Line(), [](Live &live) { live.Enter("gain", "7"); live.Enter("text", "two"); live.Stack()->undo(); }, Line() + Gain(), undo, "the same"},
            {"entries of a control that goes", Gain() + Line(), [](Live &live) { live.Enter("gain", "7"); live.Enter("text", "two"); live.Enter("gain", "8"); live.Stack()->undo(); }, Line(), undo, "1|text: one \u2192 two"},
            {"entries of a control that goes, all undone", Gain() + Line(), [](Live &live) { live.Enter("text", "two"); live.Enter("gain", "7"); live.Stack()->setIndex(0); }, Line(), undo, "0|text: one \u2192 two"},
            {"an entry is undone", Gain(), [](Live &live) { live.Enter("gain", "7"); live.Reload(Gain({"maximum=Int:9"})); live.Stack()->undo(); }, Gain(), gain, "5"},
            {"a lock", Gain(), [](Live &live) { live.form->EnableInput(false); }, Gain() + Line(), [](Live &live) { return QString::number(live.Find("gain")->isEnabled()); }, "0"},
            {"a hidden table that was resized", Widget("t", "HiddenTable", {"rowCount=Int:1", "columnCount=Int:1"}), run("t.setRowCount(2); t.setColumnCount(2); t.setItemValue(1, 1, 'x')"), Gain() + Widget("t", "HiddenTable"), answer("t.itemValue(1, 1)"), "x"},
            {"a hidden map", Widget("m", "HiddenMap"), run("m.setValue('a', '1'); m.setValue('b', '2'); m.remove('a')"), Gain() + Widget("m", "HiddenMap"), answer("m.keys() + m.value('b')"), "b2"},
            {"what a spectrum counts with", Widget("s", "SpecialObject_FFT"), run("s.setFFTLength(1000); s.setSignalSampleRate(5000)"), Gain() + Widget("s", "SpecialObject_FFT"), answer("s.frequencyResolution()"), "5"},
            {"what the device has instead", Gain(), [](Live &live) { live.Enter("gain", "7"); live.form->Report("gain", 9); }, Line() + Gain({"maximum=Int:90"}), device, "7 device 9"},
            {"what the device has instead of what is being typed", Gain(), [](Live &live) { TypeOver(live.Find("gain"), "1"); live.form->Report("gain", 9); }, Line() + Gain({"maximum=Int:90"}), device, "the same"},
            {"a control of the host's, first not shown", Gain() + Line(), [](Live &live) { auto *dial = new QDial; live.form->GetSheet().InsertWidget("dial", "Dial", dial, 1); live.Reload(Gain()); dial->setFocus(); }, Line() + Gain(), [](Live &live) { const auto *dial = live.window.findChild<QDial *>(); return Names(live.form) + QString(" %1 %2").arg(dial->hasFocus()).arg(dial->y() > live.Find("gain")->y()); }, "text gain dial 1 1"},
            {"what a script set: a text, a hidden item", Labelled("state", "Label", {"text=String:-"}) + Widget("list", "HiddenList"), [](Live &live) { live.form->EvaluateScript("state.setText('on'); list.setItemCount(2); list.setItemValue(1, 'x')"); }, Gain() + Labelled("state", "Label", {"text=String:off"}) + Widget("list", "HiddenList"), [](Live &live) { live.form->EvaluateScript("state.setLabelText(list.itemValue(1))"); return live.Get("state")->property("text").toString() + live.Get("state")->property("labelText").toString(); }, "onx"},
        };
        // clang-format on
        return cases;
    }
};

ORBEL_TEST_MAIN(TestReload)
#include "tst_reload.moc"
