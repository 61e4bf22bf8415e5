// The value tree: who is told what and when, what nodes keep and refuse, and who outlives whom.

#include "ownednode.h"
#include "rows.h"
#include "testmain.h"
#include "tree.h"
#include "valuecommentedrangemap.h"
#include "valuenumeric.h"
#include "valueobservingptr.h"
#include "valueselection.h"

#include <QtTest>

#include <functional>
#include <limits>
#include <random>

/// Writes down what it is told as its name and the code, then reacts.
class Witness : public IObserver
{
public:
    explicit Witness(QStringList *log = nullptr, const QString &name = QString())
        : Log(log ? log : &Own), Name(name) { }
    void Update(Observable *subject, TChangeCode code) override
    {
        *Log << Name + QString::number(code);
        if (const auto reaction = Reaction) // a copy: it may put another one in its place
            reaction(subject, code);
    }
    QString Told() { return std::exchange(*Log, {}).join(' '); }
    std::function<void(Observable *, TChangeCode)> Reaction;

private:
    QStringList Own, *Log;
    QString Name;
};

/// One node under "/T/n" and four observers, of which the first three watch it.
struct Stage {
    Stage()
    {
        Tree::Instance()->AddNode("/T", Node);
        for (Witness *witness : {&A, &B, &C})
            Node->AddObserver(witness);
    }
    bool IsNodeThere() const { return Tree::Instance()->GetNode("/T/n"); }

    QStringList Log;
    Witness A{&Log, "a"}, B{&Log, "b"}, C{&Log, "c"}, D{&Log, "d"};
    ValueInt *Node = new ValueInt("n");
};

using Act = std::function<void(Stage &)>;
Q_DECLARE_METATYPE(Act)

/// Does something to a numeric node that lies between 0 and 10 and holds 5.
using Change = std::function<void(ValueDouble &)>;
Q_DECLARE_METATYPE(Change)

template <class Node> static ValueBase *New(const QString &name)
{
    return new Node(name);
}

static ValueBase *NewSelection(const QString &name)
{
    auto *selection = new ValueSelection(name);
    selection->AddItems({"one", "two"}, nullptr);
    return selection;
}

static const QMap<QString, ValueBase *(*)(const QString &)> Makers{{"bool", New<ValueBoolean>}, {"int", New<ValueInt>},
    {"int64", New<ValueInt64>}, {"double", New<ValueDouble>}, {"text", New<ValueString>}, {"selection", NewSelection},
    {"ranges", New<ValueCommentedRangeMap>}};

static CommentedRange Range(double start, double stop, unsigned int id = 0)
{
    CommentedRange range;
    range.SetRangeStart(start);
    range.SetRangeStop(stop);
    range.SetID(id);
    return range;
}

/// The ranges of a map in its order, as "key:start".
static QString InOrder(const ValueCommentedRangeMap &map)
{
    QStringList texts;
    for (const auto &[key, range] : map.data())
        texts << QString("%1:%2").arg(key).arg(range.GetRangeStart());
    return texts.join(' ');
}

class TestValueTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    /// `act` is done by the second of three observers, once. `second` is null where the node is gone by then.
    void observersActDuringANotification_data()
    {
        const auto row = Columns<QString, QString, Act>({"first", "second", "act"});
        // clang-format off
        row("takes itself off",             "a3 b3 c3",       "a3 c3",       [](Stage &s) { s.Node->DeleteObserver(&s.B); });
        row("takes an earlier one off",     "a3 b3 c3",       "b3 c3",       [](Stage &s) { s.Node->DeleteObserver(&s.A); });
        row("takes a later one off",        "a3 b3",          "a3 b3",       [](Stage &s) { s.Node->DeleteObserver(&s.C); });
        row("takes all off",                "a3 b3",          "",            [](Stage &s) { s.Node->DeleteObservers(); });
        row("adds one",                     "a3 b3 c3",       "a3 b3 c3 d3", [](Stage &s) { s.Node->AddObserver(&s.D); });
        row("goes and comes back",          "a3 b3 c3",       "a3 c3 b3",
            [](Stage &s) { s.Node->DeleteObserver(&s.B), s.Node->AddObserver(&s.B); });
        row("moves the last to the front",  "a3 b3 c3",       "c3 a3 b3",    [](Stage &s) { s.Node->MakeFirstObserver(&s.C); });
        row("moves a new one to the front", "a3 b3 c3",       "d3 a3 b3 c3", [](Stage &s) { s.Node->MakeFirstObserver(&s.D); });
        row("sets the value again",         "a3 b3 b3 c3 c3", "a3 b3 c3",    [](Stage &s) { s.Node->SetValue(7, &s.A); });
        row("deletes the node",             "a3 b3 a2 b2 c2", nullptr,       [](Stage &s) { delete s.Node; });
        row("removes the node",             "a3 b3 a2 b2 c2", nullptr,       [](Stage &) { Tree::Instance()->RemoveNode("/T/n"); });
        // clang-format on
    }

    void observersActDuringANotification()
    {
        QFETCH(Act, act);
        QFETCH(QString, first);
        QFETCH(QString, second);
        Stage stage;
        stage.B.Reaction = [&](Observable *, TChangeCode) {
            stage.B.Reaction = nullptr;
            act(stage);
        };
        stage.Node->SetValue(1, nullptr);
        QCOMPARE(stage.A.Told(), first);
        QCOMPARE(stage.IsNodeThere(), !second.isNull());
        if (stage.IsNodeThere())
            stage.Node->SetValue(2, nullptr);
        QCOMPARE(stage.A.Told(), second);
        Tree::Instance()->RemoveNode("/T/n");
    }

    void observersKeepTheirOrderWhenMostOfThemGo()
    {
        QStringList log;
        std::vector<std::unique_ptr<Witness>> all;
        ValueInt node("n");
        for (int i = 0; i < 100; ++i) {
            all.push_back(std::make_unique<Witness>(&log, QString("%1/").arg(i)));
            QVERIFY(node.AddObserver(all.back().get()));
        }
        QVERIFY(!node.AddObserver(all.front().get()));
        QVERIFY(!node.AddObserver(nullptr));
        for (int i = 0; i < 100; ++i)
            if (i % 30)
                node.DeleteObserver(all[i].get());
        node.MakeFirstObserver(all[60].get());
        node.DeleteObserver(all[0].get());
        node.AddObserver(all[1].get());
        node.NotifyObservers(ekChangeValue, all[30].get());
        QCOMPARE(log.join(' '), QString("60/3 90/3 1/3"));
    }

    void pathsAndRefusals_data()
    {
        Columns<QString, QString>({"nodePath", "name"});
        QTest::addColumn<QString>("path"); // null: refused

        // clang-format off
        QTest::newRow("below a branch") << "/A/b" << "n" << "/A/b/n";
        QTest::newRow("without a leading slash") << "A" << "n" << "A/n";
        QTest::newRow("parent path with its slash") << "/A/" << "n" << "/A/n";
        QTest::newRow("slash alone") << "/" << "n" << "/n";
        QTest::newRow("no parent path") << "" << "n" << "n";
        QTest::newRow("below another node") << "/taken" << "n" << "/taken/n";
        QTest::newRow("taken") << "" << "other" << QString();
        QTest::newRow("the same place without the slash is another") << "" << "taken" << "taken";
        QTest::newRow("a hundred thousand parts") << QString("/x").repeated(100000) << "n" << QString("/x").repeated(100000) + "/n";
        QTest::newRow("empty name") << "/A" << "" << QString();
        QTest::newRow("slash in the name") << "/A" << "b/n" << QString();
        // clang-format on
    }

    void pathsAndRefusals()
    {
        const auto [nodePath, name, path] = Fetch<QString, QString, QString>({"nodePath", "name", "path"});
        Tree *tree = Tree::Instance();
        ValueInt taken("taken"), other("other"), node(name);
        QVERIFY(tree->AddNode("/", &taken) && tree->AddNode("", &other));
        QCOMPARE(tree->AddNode(nodePath, &node), !path.isNull());
        QCOMPARE(tree->GetNode("other"), &other);
        QCOMPARE(tree->GetNode(path), path.isNull() ? nullptr : &node);
        QCOMPARE(node.GetPathName(), path.isNull() ? name : path);
        node.SetName("renamed", nullptr);
        QCOMPARE(node.GetName(), path.isNull() ? "renamed" : name);
        QVERIFY(!path.isNull() == !tree->AddNode("/elsewhere", &node));
        QVERIFY(!tree->AddNode("/A", nullptr));
        tree->RemoveNode("/A/b"); // nothing there, or a branch
    }

    void branchesComeAndGoWithTheirNodes()
    {
        Tree *tree = Tree::Instance();
        auto *inner = new ValueInt("b");
        QVERIFY(tree->AddNode("/A/b/c", new ValueInt("d")));
        QVERIFY(tree->AddNode("/A", inner));
        QVERIFY(tree->AddNode("/A", new ValueInt("a")));
        QCOMPARE(tree->GetChildNames("/"), QStringList("A"));
        QCOMPARE(tree->GetChildNames("/A"), QStringList({"a", "b"}));
        delete inner;
        QCOMPARE(tree->GetChildNames("/A/b/"), QStringList("c"));
        tree->RemoveNode("/A/b/c/d");
        QCOMPARE(tree->GetChildNames("/A"), QStringList("a"));
        QCOMPARE(tree->GetPaths(), QStringList("/A/a"));
        tree->RemoveNode("/A/a");
        QCOMPARE(tree->GetChildNames(""), QStringList());
    }

    void endIsToldWhileTheNodeIsWhole_data()
    {
        QTest::addColumn<QString>("type");
        for (const QString &type : Makers.keys())
            AddRow(qPrintable(type), type);
    }

    void endIsToldWhileTheNodeIsWhole()
    {
        QFETCH(QString, type);
        for (const bool byItsMaker : {false, true}) {
            ValueBase *node = Makers[type]("n");
            const QString text = node->GetStringValue();
            QVERIFY(Tree::Instance()->AddNode("/T", node));
            QStringList log;
            Witness witness(&log);
            node->AddObserver(&witness);
            node->StartTransaction(nullptr); // does not hide the end
            witness.Reaction = [&](Observable *subject, TChangeCode) {
                auto *base = dynamic_cast<ValueBase *>(subject);
                log << base->GetPathName() << QString::number(base->GetState()) << base->GetStringValue();
                Tree::Instance()->RemoveNode("/T/n");
            };
            byItsMaker ? delete node : Tree::Instance()->RemoveNode("/T/n");
            QCOMPARE(log, QStringList({"2", "/T/n", "1", text}));
        }
    }

    void textsOfValues_data()
    {
        Columns<QString, QString>({"type", "text"});
        QTest::addColumn<QString>("value"); // null: refused

        const auto row = [](const char *type, const QString &text, const QString &value) {
            QTest::addRow("%s from '%s'", type, qPrintable(text)) << type << text << value;
        };
        row("bool", " TRUE ", "true");
        row("bool", "1", "true");
        row("bool", "yes", QString());
        row("int", "12.0", "12");
        row("int", "1e3", "1000");
        row("int", "12.5", QString());
        row("int", "", QString());
        row("int", "99999999999", "2147483647");
        row("int64", "9007199254740993", "9007199254740993");
        row("int64", "9007199254740993.00", "9007199254740993");
        row("int64", "-9223372036854775809", "-9223372036854775808");
        row("double", "100000000000000000000", "100000000000000000000");
        row("double", "0.000000001", "0.000000001");
        row("double", "1e300", "1e+300");
        row("double", "1,5", QString());
        row("double", "inf", QString());
        row("double", "1e999", QString());
        row("text", " as it stands ", " as it stands ");
        row("selection", "three", QString());
        row("ranges", "300..400; -1.5..2", "-1.5..2; 300..400");
        row("ranges", "1..2; 3", QString());
    }

    void textsOfValues()
    {
        const auto [type, text, value] = Fetch<QString, QString, QString>({"type", "text", "value"});
        QLocale::setDefault(QLocale(QLocale::German)); // none of it depends on the language
        QStringList log;
        Witness setter(&log, "setter"), other(&log, "other");
        const std::unique_ptr<ValueBase> node(Makers[type]("n"));
        const QString before = node->GetStringValue();
        node->AddObserver(&setter);
        node->AddObserver(&other);
        node->SetStringValue(text, &setter);
        QCOMPARE(node->GetStringValue(), value.isNull() ? before : value);
        QCOMPARE(log.contains("other3"), !value.isNull());
        QVERIFY(!log.contains("setter3"));
        log.clear();
        node->SetStringValue(node->GetStringValue(), nullptr);
        QCOMPARE(log, QStringList());
        QLocale::setDefault(QLocale::c());
    }

    void numbersReadBackTheSame()
    {
        std::mt19937_64 random(218);
        for (int i = 0; i < 20000; ++i) {
            double number = 0;
            const quint64 bits = random();
            memcpy(&number, &bits, sizeof number);
            if (i % 2) // of ordinary magnitude
                number = std::ldexp(double(bits >> 11), i % 90 - 75);
            double back = 0;
            const QString text = NumberToText(number);
            QCOMPARE(TextToNumber(text, back), bool(std::isfinite(number)));
            QVERIFY2(!std::isfinite(number) || back == number, qPrintable(text));
            QVERIFY2(i % 2 == 0 || !text.contains('e'), qPrintable(text));
        }
    }

    /// `result`: minimum, value, maximum, step.
    void limitsStayInOrderAndHoldTheValue_data()
    {
        const auto row = Columns<QString, QString, Change>({"result", "told", "change"});
        // clang-format off
        row("value above the maximum",    "0 10 10 1",       "3",   [](auto &n) { n.SetValue(11, nullptr); });
        row("infinite value",             "0 0 10 1",        "3",   [](auto &n) { n.SetValue(-qInf(), nullptr); });
        row("equal value",                "0 5 10 1",        "",    [](auto &n) { n.SetValue(5, nullptr); });
        row("no number",                  "0 5 10 1",        "",    [](auto &n) { n.SetValue(qQNaN(), nullptr); });
        row("minimum above the value",    "6 6 10 1",        "4 3", [](auto &n) { n.SetMin(6, nullptr); });
        row("minimum above the maximum",  "20 20 20 1",      "4 3", [](auto &n) { n.SetMin(20, nullptr); });
        row("maximum below the minimum",  "-2 -2 -2 1",      "4 3", [](auto &n) { n.SetMax(-2, nullptr); });
        row("equal limits",               "0 5 10 1",        "",    [](auto &n) { n.SetMinMax(0, 10, 1, nullptr); });
        row("minimum that is no number",  "0 5 10 1",        "",    [](auto &n) { n.SetMin(qQNaN(), nullptr); });
        row("step that is no number",     "0 5 10 1",        "",    [](auto &n) { n.SetMinMax(1, 2, qQNaN(), nullptr); });
        row("infinite, the value is not", "inf 1.7976931348623157e+308 inf 1", "4 3", [](auto &n) { n.SetMin(qInf(), nullptr); });
        row("step",                       "0 5 10 0.5",      "4",   [](auto &n) { n.SetStep(0.5, nullptr); });
        row("all at once",                "6 6 8 2",         "4 3", [](auto &n) { n.SetMinMax(6, 8, 2, nullptr); });
        row("all, in the wrong order",    "6 6 6 1",         "4 3", [](auto &n) { n.SetMinMax(8, 6, 1, nullptr); });
        row("those of a fresh node",      "-1e+308 0 1e+308 1", "4 3", [](auto &n) { n.Assign(ValueDouble("fresh")); });
        row("value of another type",      "0 1 10 1",        "3",
            [](auto &n) { ValueInt other("n"); other.SetValue(1, nullptr); n.Assign(other); });
        // clang-format on
    }

    void limitsStayInOrderAndHoldTheValue()
    {
        QFETCH(Change, change);
        Witness witness;
        ValueDouble node("n");
        node.SetMinMax(0, 10, 1, nullptr);
        node.SetValue(5, nullptr);
        node.AddObserver(&witness);
        change(node);
        const IValueNumeric &numeric = node;
        QStringList result;
        for (const double number : {numeric.GetMin(), numeric.GetValue(), numeric.GetMax(), numeric.GetStep()})
            result << NumberToText(number);
        QTEST(result.join(' '), "result");
        QTEST(witness.Told(), "told");
    }

    void limitsMaySinkTheNode()
    {
        Stage stage; // told of the limits, the first observer ends the node before the value is told
        for (int i = 0; i < 2; ++i)
            stage.Node->SetState(ekStateDisabled, &stage.A);
        stage.A.Reaction = [&](Observable *, TChangeCode code) {
            if (code == ekChangeLimits)
                delete stage.Node;
        };
        stage.Node->SetMin(6, nullptr);
        QCOMPARE(stage.A.Told(), QString("b2 c2 a4 a2 b2 c2"));
    }

    void integersBehindDoubles()
    {
        const auto texts = [](const QString &type) {
            QStringList texts;
            for (const double number : {-2.7, 3e9, std::ldexp(1, 63), -1e308, double(qInf()), double(qQNaN())}) {
                const std::unique_ptr<ValueBase> set(Makers[type]("n")), limited(Makers[type]("n"));
                auto *numeric = dynamic_cast<IValueNumeric *>(limited.get());
                dynamic_cast<IValueNumeric *>(set.get())->SetValue(number, nullptr);
                numeric->SetMin(number, nullptr);
                numeric->SetMax(number, nullptr);
                texts << set->GetStringValue();
                if (limited->GetStringValue() != texts.last())
                    texts << "but limited " + limited->GetStringValue();
            }
            return texts.join(' ');
        };
        QCOMPARE(texts("int"), QString("-3 2147483647 2147483647 -2147483648 2147483647 0"));
        QCOMPARE(
            texts("int64"), QString("-3 3000000000 9223372036854775807 -9223372036854775808 9223372036854775807 0"));
    }

    void selectingByValue()
    {
        ValueSelection node("n");
        for (const double number : {double(qQNaN()), 5.0, 20.0, 10.0, 10.0})
            node.AddItem("item", number, 0, nullptr);
        const auto select = [&node](bool exact, const QVector<double> &values) {
            QStringList positions;
            for (const double value : values) {
                node.SelectIndex(4, nullptr);
                const bool found = node.Select(value, nullptr, exact);
                positions << (found ? "" : "none, stays ") + QString::number(node.GetCurrentIndex());
            }
            return positions.join("; ");
        };
        QCOMPARE(select(false, {7.0, 20.0, -1e308}), QString("3; 2; 1")); // the least that is not below
        QCOMPARE(select(false, {20.5, qQNaN()}), QString("none, stays 4; none, stays 4"));
        QCOMPARE(select(true, {10.0, 7.0}), QString("3; none, stays 4"));
    }

    void selectionItems()
    {
        Witness witness;
        ValueSelection node("n"), copy("copy");
        node.AddObserver(&witness);
        node.AddItems({"a", "b"}, nullptr);
        node.AddItem("b", 7.5, 9, nullptr);
        node.AddItem(nullptr, nullptr);
        QCOMPARE(witness.Told(), QString("6 3 6"));
        QCOMPARE(node.GetItemNameForKey(2), QString("b"));
        QCOMPARE(node.GetKeyForItemName("b"), 2L);
        QCOMPARE(node.GetKeyForItemName("unknown"), -1L);
        QCOMPARE(node.GetItem(7.5), node.GetItemIndex(2));
        QVERIFY(!node.GetItemIndex(3) && !node.GetItemIndex(-1) && !node.GetItem(9.0));

        QVERIFY(node.Select(9L, nullptr) && node.Select(9L, nullptr));
        QVERIFY(!node.Select(QString("unknown"), nullptr) && !node.Select(99L, nullptr));
        QCOMPARE(node.GetCurrentValue(), 7.5);
        QVERIFY(node.Select(L"b", &witness));
        QCOMPARE(node.GetCurrentIndex(), 1L);
        QCOMPARE(witness.Told(), QString("3"));

        copy.Assign(node);
        QVERIFY(copy.Compare(&node) && *copy.GetItemIndex(1) != *copy.GetItemIndex(2));
        node.DeleteItem(copy.GetItemIndex(0), nullptr);
        QCOMPARE(node.GetItemCount(), 3L);
        node.DeleteItem(node.GetItemIndex(1), nullptr); // the name then stands for the other item that has it
        QCOMPARE(node.GetStringValue(), QString("a"));
        QCOMPARE(node.GetKeyForItemName("b"), 9L);
        QCOMPARE(witness.Told(), QString("6 3"));
        node.AddItemsFrom(node, nullptr);
        QCOMPARE(node.GetItemCount(), 4L);
        QVERIFY(!copy.Compare(&node));
        witness.Told();

        node.DeleteItems(nullptr);
        node.DeleteItems(nullptr);
        QVERIFY(!node.GetCurrentItem() && node.GetStringValue().isEmpty() && node.GetCurrentValue() == 0.0);
        node.SetTranslationNamespace("context", nullptr);
        QCOMPARE(witness.Told(), QString("6 3 6"));
    }

    void transactionsAreToldOnce()
    {
        Witness witness;
        ValueCommentedRangeMap node;
        node.AddObserver(&witness);
        node.EndTransaction(ekChangeContent, nullptr); // never started
        node.StartTransaction(nullptr);
        node.SetAt(0, Range(1, 2), nullptr);
        node.StartTransaction(nullptr);
        node.EndTransaction(ekChangeItemSet, nullptr);
        node.HasChanged(ekChangeValue, nullptr);
        QVERIFY(node.IsTransactionActive());
        QCOMPARE(witness.Told(), QString());
        node.EndTransaction(ekChangeContent, nullptr);
        node.HasChanged(ekChangeValue, nullptr);
        QCOMPARE(witness.Told(), QString("7 3"));
    }

    void rangesByKey()
    {
        Witness witness;
        ValueCommentedRangeMap node("n"), copy("copy");
        node.AddObserver(&witness);
        const std::list<CommentedRange> list{Range(1, 2, 4), Range(3, 4, 2), Range(5, 6, 2)};
        for (int i = 0; i < 2; ++i) // the second of each changes nothing
            QCOMPARE(node.SetAt(70, Range(7, 8), nullptr), 70u);
        for (int i = 0; i < 2; ++i)
            node.EraseAt(70, nullptr);
        for (int i = 0; i < 2; ++i)
            node.Set(list, true, false, nullptr);
        QCOMPARE(witness.Told(), QString("5 3 8 3 7 3"));
        QCOMPARE(InOrder(node), QString("0:1 1:3 2:5"));
        QCOMPARE(node.data().at(0).GetID(), 4u);
        QCOMPARE(node.CreateNewUniqueKey(), 3u);
        QCOMPARE(node.CreateNewUniqueKey(), 4u);
        node.Set({Range(9, 9)}, false, false, nullptr);
        QCOMPARE(InOrder(node), QString("0:1 1:3 2:5 5:9"));
        copy.Assign(node);
        QVERIFY(copy.Compare(&node));
        node.Set(list, true, true, nullptr);
        QCOMPARE(InOrder(node), QString("2:5 4:1"));
        QVERIFY(!copy.Compare(&node));
    }

    void rangesOfFrequencies()
    {
        CommentedRange range = Range(90, 110);
        range.SetFrequency(200);
        range.SetBandwidth(40);
        range.SetRangeStop(qQNaN());
        QVERIFY(range == Range(180, 220));
        const QVector<CommentedRange> ascending{Range(1, 5), Range(1, 6, 1), Range(1, 6, 2), Range(2, 0)};
        for (int i = 0; i < ascending.size(); ++i)
            for (int j = 0; j < ascending.size(); ++j)
                QCOMPARE(ascending[i] < ascending[j], i < j);
    }

    void pointersFollowTheirNode()
    {
        Witness second, third;
        Tree *tree = Tree::Instance();
        using Pointer = ValueObservingPtr<ValueCommentedRangeMap>;
        Pointer pointer(&second);
        ValuePtr<ValueCommentedRangeMap> other;
        QVERIFY(!pointer.BindNode("/T/map") && !pointer);
        QVERIFY(pointer.CreateNode("/T/map"));
        QVERIFY(!other.CreateNode("/T/map") && other.get() == pointer.get());
        { // one that ends first leaves the node
            Pointer passing(&third);
            QVERIFY(passing.BindNode("/T/map"));
        }
        pointer->SetAt(0, Range(1, 2), nullptr);
        pointer.AttachNode(nullptr);
        QVERIFY(pointer.BindNode("/T/map"));
        tree->RemoveNode("/T/map");
        QVERIFY(!pointer && !other);
        QCOMPARE(second.Told() + third.Told(), QString("5 3 2"));

        QVERIFY(pointer.CreateNode("/T/map") && other.BindNode("/T/map"));
        second.Told();
        pointer.ReleaseNode();
        pointer.ReleaseNode();
        QVERIFY(!pointer && !other && second.Told().isEmpty() && !tree->GetNode("/T/map"));

        ValueCommentedRangeMap announced("n"); // announced as going, but it stays
        pointer.AttachNode(&announced);
        announced.SetState(ekStateDeleted, nullptr);
        announced.SetAt(0, Range(1, 2), nullptr);
        QVERIFY(!pointer && second.Told() == "2");
        pointer.AttachNode(&announced); // as an observer may do who hears of the end
        other.AttachNode(&announced);
        QVERIFY(!pointer && !other && !announced.HasObservers());
    }

    void pointerKeepsANodeThatTheTreeRefuses()
    {
        ValueInt taken("map");
        QVERIFY(Tree::Instance()->AddNode("", &taken));
        Witness second;
        ValueObservingPtr<ValueCommentedRangeMap> pointer(&second);
        QVERIFY(pointer.CreateNode("map"));
        pointer->SetAt(0, Range(1, 2), nullptr);
        QVERIFY(second.Told().startsWith('5'));
        pointer.ReleaseNode();
        QVERIFY(!pointer && Tree::Instance()->GetNode("map") == &taken);
        QVERIFY(pointer.CreateNode("map"));
        delete pointer.get();
        QVERIFY(!pointer && pointer.CreateNode("map")); // and the last one ends with the pointer
    }

    void ownedNodes()
    {
        QStringList log;
        Witness owner(&log), watcher(&log, "watcher");
        std::vector<OwnedNode<ValueInt>> list;
        for (const char *name : {"a", "b", "c"}) {
            list.emplace_back(&owner);
            list.back().Adopt(new ValueInt(name));
            Tree::Instance()->AddNode("/T", list.back().get());
        }
        list.erase(list.begin());
        QCOMPARE(Tree::Instance()->GetPaths(), QStringList({"/T/b", "/T/c"}));
        OwnedNode<ValueInt> &first = list.front();
        first->AddObserver(&watcher);
        owner.Reaction = [&](Observable *subject, TChangeCode code) {
            for (OwnedNode<ValueInt> &node : list)
                log << QString("%1%2").arg(node.IsSubject(subject)).arg(node.HasNews(subject, code));
        };
        first->SetValue(1, &watcher);
        first->SetMax(9, &watcher);
        QCOMPARE(log.join(' '), QString("3 11 00 4 10 00"));
        log.clear();
        Tree::Instance()->RemoveNode("/T/b");
        QCOMPARE(log.join(' '), QString("2 10 00 watcher2"));
        QVERIFY(!first);
        log.clear();
        ValueInt *free = list.back().Detach();
        list.clear();
        delete free;
        QCOMPARE(log, QStringList());
    }
};

ORBEL_TEST_MAIN(TestValueTree)
#include "tst_valuetree.moc"
