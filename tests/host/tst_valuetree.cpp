// The value tree: who is told what and when, what nodes keep and refuse, and who outlives whom.

#include "rows.h"
#include "testmain.h"
#include "tree.h"
#include "valuecommentedrangemap.h"
#include "valuenumeric.h"
#include "valueobservingptr.h"
#include "valueselection.h"

#include <QtTest>
#include <array>

#include <functional>
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
        row("takes a later one off",        "a3 b3",          "a3 b3",       [](Stage &s) { s.Node->DeleteObserver(&s.C); });
        row("takes all off",                "a3 b3",          "",            [](Stage &s) { s.Node->DeleteObservers(); });
        row("adds one",                     "a3 b3 c3",       "a3 b3 c3 d3", [](Stage &s) { s.Node->AddObserver(&s.D); });
        row("moves the last to the front",  "a3 b3 c3",       "c3 a3 b3",    [](Stage &s) { s.Node->MakeFirstObserver(&s.C); });
        row("sets the value again",         "a3 b3 b3 c3 c3", "a3 b3 c3",    [](Stage &s) { s.Node->SetValue(7, &s.A); });
        row("deletes the node",             "a3 b3 a2 b2 c2", nullptr,       [](Stage &s) { delete s.Node; });
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

    void manyObserversKeepTheirOrder()
    {
        struct Numbered : IObserver {
            void Update(Observable *, TChangeCode) override { Told->append(Number); }
            QVector<int> *Told;
            int Number;
        };
        QVector<int> told;
        std::array<Numbered, 40> observers;
        ValueInt node("n");
        for (int i = 0; i < 40; ++i) {
            observers[i].Told = &told;
            observers[i].Number = i;
            QVERIFY(node.AddObserver(&observers[i]) && !node.AddObserver(&observers[i]));
        }
        // Down to a short list, with blanks in it, and up to a long one again.
        for (int i = 0; i < 40; ++i) {
            if (i != 7 && i != 30)
                node.DeleteObserver(&observers[i]);
        }
        for (int i = 9; i >= 0; --i)
            node.AddObserver(&observers[i]);
        node.DeleteObserver(&observers[4]);
        node.SetValue(1, nullptr);
        QCOMPARE(told, QVector<int>({7, 30, 9, 8, 6, 5, 3, 2, 1, 0}));
    }

    void pathsAndRefusals_data()
    {
        Columns<QString, QString>({"nodePath", "name"});
        QTest::addColumn<QString>("path"); // null: refused

        // clang-format off
        QTest::newRow("below a branch") << "/A/b" << "n" << "/A/b/n";
        QTest::newRow("without a leading slash") << "A" << "n" << "A/n";
        QTest::newRow("no parent path") << "" << "n" << "n";
        QTest::newRow("taken") << "" << "other" << QString();
        QTest::newRow("the same place without the slash is another") << "" << "taken" << "taken";
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
        row("bool", "yes", QString());
        row("int", "1e3", "1000");
        row("int", "12.5", QString());
        row("int", "99999999999", "2147483647");
        row("int64", "9007199254740993", "9007199254740993");
        row("int64", "-9223372036854775809", "-9223372036854775808");
        row("double", "100000000000000000000", "100000000000000000000");
        row("double", "1,5", QString());
        row("double", "inf", QString());
        row("double", "1e999", QString());
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
        row("no number",                  "0 5 10 1",        "",    [](auto &n) { n.SetValue(qQNaN(), nullptr); });
        row("minimum above the value",    "6 6 10 1",        "4 3", [](auto &n) { n.SetMin(6, nullptr); });
        row("minimum above the maximum",  "20 20 20 1",      "4 3", [](auto &n) { n.SetMin(20, nullptr); });
        row("maximum below the minimum",  "-2 -2 -2 1",      "4 3", [](auto &n) { n.SetMax(-2, nullptr); });
        row("infinite, the value is not", "inf 1.7976931348623157e+308 inf 1", "4 3", [](auto &n) { n.SetMin(qInf(), nullptr); });
        row("all at once",                "6 6 8 2",         "4 3", [](auto &n) { n.SetMinMax(6, 8, 2, nullptr); });
        row("all, in the wrong order",    "6 6 6 1",         "4 3", [](auto &n) { n.SetMinMax(8, 6, 1, nullptr); });
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

    void selectionItems()
    {
        Witness witness;
        ValueSelection node("n"), copy("copy");
        node.AddObserver(&witness);
        node.AddItems({"a", "b"}, nullptr);
        node.AddItem("b", 7.5, 9, nullptr);
        node.AddItem(nullptr, nullptr);
        QCOMPARE(witness.Told(), QString("6 3 6"));
        QCOMPARE(node.GetKeyForItemName("unknown"), -1L);
        QVERIFY(!node.GetItemIndex(3) && !node.GetItemIndex(-1) && !node.GetItem(9.0));
        QVERIFY(node.Select(9L, nullptr) && node.Select(L"b", &witness) && !node.Select(99L, nullptr));
        QCOMPARE(witness.Told(), QString("3"));
        QCOMPARE(node.GetCurrentIndex(), 1L);

        copy.Assign(node);
        QVERIFY(copy.Compare(&node) && *copy.GetItemIndex(1) != *copy.GetItemIndex(2));
        node.DeleteItem(copy.GetItemIndex(0), nullptr);
        QCOMPARE(node.GetItemCount(), 3L);
        node.DeleteItem(node.GetItemIndex(1), nullptr); // the name then stands for the other item that has it
        QCOMPARE(node.GetStringValue(), QString("a"));
        QCOMPARE(node.GetKeyForItemName("b"), 9L);
        QCOMPARE(witness.Told(), QString("6 3"));
        QVERIFY(!copy.Compare(&node));
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
        copy.Assign(node);
        QVERIFY(copy.Compare(&node));
        node.Set(list, true, true, nullptr);
        QCOMPARE(InOrder(node), QString("2:5 4:1"));
        QVERIFY(!copy.Compare(&node));
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
    }
};

ORBEL_TEST_MAIN(TestValueTree)
#include "tst_valuetree.moc"
