// The value tree: who is told what and when, what nodes keep and refuse, and who outlives whom.

#include "idllinstance.h"
#include "testcase.h"
#include "tree.h"
#include "valuecommentedrangemap.h"
#include "valuenumeric.h"
#include "valueobservingptr.h"
#include "valueselection.h"

#include <deque>
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

/// Whether an object has these bases, and they lie in it in this order; virtual ones lie behind all others.
template <class... Bases, class Class> static bool HasInOrder(const Class &object)
{
    const std::vector<const void *> places{static_cast<const Bases *>(&object)...};
    return std::is_sorted(places.begin(), places.end());
}

/// Whether these are neighbours among the virtual functions of their class, as GCC and Clang count them on this
/// processor, the first at that place: 2 behind a destructor, 0 for anywhere behind one.
template <class... Functions> static bool AreInOrder(quintptr first, Functions... functions)
{
    const auto placeOf = [](auto function) {
        quintptr word = 0;
        memcpy(&word, &function, sizeof word);
        return word % 2 ? word / sizeof word : 0;
    };
    const std::vector<quintptr> places{placeOf(functions)...};
    for (size_t i = 0; i < places.size(); ++i) {
        if (places[i] < 2 || places[i] != (first ? first : places[0]) + i)
            return false;
    }
    return true;
}

/// Minimum, value, maximum, step.
static QString Numbers(const IValueNumeric &node)
{
    QStringList texts;
    for (const double number : {node.GetMin(), node.GetValue(), node.GetMax(), node.GetStep()})
        texts << Orbel::NumberToText(number);
    return texts.join(' ');
}

class TestValueTree : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void basesStandInOrder()
    {
        using valueitemmap::IHasChangeLogValueTemplate, valueitemmap::IKeyItemTemplate;
        using ItemMap = ValueItemMapBase<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>;
        using IntValue = Value<int, FormatInt<int>, StreamFormat<int, FormatInt<int>>>;
        const ValueInt node("n");
        const ValueCommentedRangeMap map("m");
        QVERIFY((HasInOrder<IntValue, ValueBase, IValue, IDeleteSubject, Ember::IHasTimerCallback, IOptimizeTrigger,
            IValueNumeric, Observable, ISupportTransaction>(node)));
        QVERIFY((HasInOrder<ValueBase, IHasChangeLogValueTemplate<unsigned>, IValueFrequencyItemMap>(map)));
        QVERIFY((HasInOrder<ItemMap, IHasChangeLogValueTemplate<unsigned>>(map)));
        QVERIFY(
            (HasInOrder<IFrequencyMapReadOnlyItem, IFrequencyMapItem, IKeyItemTemplate<unsigned>>(CommentedRange())));
    }

    void slotsStandInOrder()
    {
        using Sel = ValueSelection;
        QVERIFY(AreInOrder(2, &Observable::AddObserver, &Observable::DeleteObserver, &Observable::DeleteObservers,
            &Observable::MakeFirstObserver, &Observable::NotifyObservers));
        QVERIFY(AreInOrder(2, &IObserver::Update));
        QVERIFY(AreInOrder(2, &IValue::SetStringValue, &IValue::GetStringValue, &IValue::GetState, &IValue::SetState,
            &IValue::HasChanged, &IValue::GetCommandStringForTransmission,
            qOverload<const QString &, IObserver *>(&IValue::SetCommandString),
            qOverload<const Command &, IObserver *>(&IValue::SetCommandString), &IValue::GetType, &IValue::GetTypeName,
            &IValue::Assign, &IValue::Compare, &IValue::GetCommandStringForRecording, &IValue::SetUpdateTimerTime,
            &IValue::OverrideTimer, &IValue::KillOverrideTimer, &IValue::CreateCommandListOptimizer));
        QVERIFY(AreInOrder(2, &IDeleteSubject::SetDeleteObserver, &IDeleteSubject::GetDeleteObserver));
        QVERIFY(AreInOrder(2, &ISupportTransaction::StartTransaction, &ISupportTransaction::EndTransaction,
            &ISupportTransaction::IsTransactionActive));
        QVERIFY(AreInOrder(2, &IValueNumeric::SetValue, &IValueNumeric::SetMin, &IValueNumeric::SetMax,
            &IValueNumeric::SetStep, &IValueNumeric::GetMin, &IValueNumeric::GetMax, &IValueNumeric::GetStep,
            &IValueNumeric::GetValue));
        QVERIFY(AreInOrder(2, &IDllInstance::Init, &IDllInstance::Start, &IDllInstance::Stop));
        using Pointer = ValuePtr<ValueCommentedRangeMap>;
        QVERIFY(AreInOrder(2, &Pointer::Update, &Pointer::ReleaseNode, &Pointer::AttachNode));
        QVERIFY(AreInOrder(0, &ValueInt::SetValue, &ValueInt::GetValue, &ValueInt::SetMinMax, &ValueInt::SetMin,
            &ValueInt::SetMax, &ValueInt::SetStep, &ValueInt::GetMin, &ValueInt::GetMax, &ValueInt::GetStep,
            &ValueInt::CreateTransaction));
        QVERIFY(AreInOrder(0, &Sel::GetCurrentItem, qOverload<long, IObserver *>(&Sel::Select),
            qOverload<double, IObserver *, bool>(&Sel::Select), qOverload<const wchar_t *, IObserver *>(&Sel::Select),
            qOverload<const QString &, IObserver *>(&Sel::Select), &Sel::AddItems,
            qOverload<const QString &, double, long, IObserver *>(&Sel::AddItem),
            qOverload<SelectionItem *, IObserver *>(&Sel::AddItem), &Sel::AddItemsFrom, &Sel::DeleteItem,
            &Sel::DeleteItems, &Sel::GetItemCount, &Sel::GetItemIndex, qOverload<const QString &>(&Sel::GetItem),
            qOverload<double>(&Sel::GetItem), qOverload<long>(&Sel::GetItem), &Sel::GetCurrentValue,
            &Sel::GetKeyForItemName, &Sel::GetItemNameForKey));
    }

    /// `act` is done by the second of three observers, once. `second` is null where the node is gone by then.
    void observersActDuringANotification_data()
    {
        const auto row = Columns<QString, QString, Act>({"first", "second", "act"});
        // clang-format off
        row("takes itself off",             "a3 b3 c3",       "a3 c3",       [](Stage &s) { s.Node->DeleteObserver(&s.B); });
        row("takes a later one off",        "a3 b3",          "a3 b3",       [](Stage &s) { s.Node->DeleteObserver(&s.C); });
        row("takes all off",                "a3 b3",          "",            [](Stage &s) { s.Node->DeleteObservers(); });
        row("moves the last to the front",  "a3 b3 c3",       "c3 a3 b3",    [](Stage &s) { s.Node->MakeFirstObserver(&s.C); });
        row("sets the value again",         "a3 b3 b3 c3 c3", "a3 b3 c3",    [](Stage &s) { s.Node->SetValue(7, &s.A); });
        row("deletes the node",             "a3 b3 a2 b2 c2", nullptr,       [](Stage &s) { delete s.Node; });
        // clang-format on
    }

    void observersActDuringANotification()
    {
        const auto [act, first, second] = Fetch<Act, QString, QString>({"act", "first", "second"});
        Stage stage;
        stage.B.Reaction = [&stage, act = act](Observable *, TChangeCode) {
            const Act now = act;
            stage.B.Reaction = nullptr;
            now(stage);
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
        QStringList log;
        std::deque<Witness> observers;
        ValueInt node("n");
        for (int i = 0; i < 40; ++i) {
            observers.emplace_back(&log, QString("%1.").arg(i));
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
        QCOMPARE(observers[0].Told(), QString("7.3 30.3 9.3 8.3 6.3 5.3 3.3 2.3 1.3 0.3"));
    }

    /// `path` is null where the tree refuses the node.
    void pathsAndRefusals_data()
    {
        const auto row = Columns<QString, QString, QString>({"nodePath", "name", "path"});
        row("below a branch", "/A/b", "n", "/A/b/n");
        row("without a leading slash", "A", "n", "A/n");
        row("no parent path", "", "n", "n");
        row("taken", "", "other", QString());
        row("the same place without the slash is another", "", "taken", "taken");
        row("empty name", "/A", "", QString());
        row("slash in the name", "/A", "b/n", QString());
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

    void endIsToldWhileTheNodeIsWhole()
    {
        const auto end = [](const QString &type, bool byItsMaker) {
            ValueBase *node = Makers[type]("n");
            const QString text = node->GetStringValue();
            QVERIFY(Tree::Instance()->AddNode("/T", node));
            QStringList log{type};
            Witness witness(&log);
            node->AddObserver(&witness);
            node->StartTransaction(nullptr); // does not hide the end
            witness.Reaction = [&](Observable *subject, TChangeCode) {
                auto *base = dynamic_cast<ValueBase *>(subject);
                log << base->GetPathName() << QString::number(base->GetState()) << base->GetStringValue();
                Tree::Instance()->RemoveNode("/T/n");
            };
            byItsMaker ? delete node : Tree::Instance()->RemoveNode("/T/n");
            QCOMPARE(log, QStringList({type, "2", "/T/n", "1", text}));
        };
        for (const QString &type : Makers.keys()) {
            end(type, true);
            end(type, false);
        }
    }

    /// `value` is null where the node refuses the text.
    void numbersAreSpelledShort()
    {
        QCOMPARE(Orbel::NumberToText(-0.0, 1), QString::number(-0.0, 'f', 1));
        QRandomGenerator random(11);
        for (int i = 0; i < 200000; ++i) {
            const qint64 thousandths = qint64(random.generate64()) >> random.bounded(64);
            const double number = double(thousandths) / std::pow(10, random.bounded(5));
            for (double near : {number, -number, std::nextafter(number, 0.0), number / 3}) {
                const bool ordinary = near == 0 || (std::fabs(near) >= 1e-15 && std::fabs(near) < 1e21);
                QCOMPARE(Orbel::NumberToText(near),
                    QString::number(near, ordinary ? 'f' : 'g', QLocale::FloatingPointShortest));
                const int places = int(i % 6) - 1;
                QCOMPARE(Orbel::NumberToText(near, places), QString::number(near, 'f', places));
            }
        }
    }

    void textsOfValues_data()
    {
        Columns<QString, QString, QString>({"type", "text", "value"});
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

    void limitsStayInOrderAndHoldTheValue_data()
    {
        const auto row = Columns<QString, QString, Change>({"result", "told", "change"});
        // clang-format off
        row("value above the maximum",    "0 10 10 1",       "3",   [](auto &n) { n.SetValue(11, nullptr); });
        row("no number",                  "0 5 10 1",        "",    [](auto &n) { n.SetValue(qQNaN(), nullptr); });
        row("minimum above the value",    "6 6 10 1",        "4 3", [](auto &n) { n.SetMin(6, nullptr); });
        row("minimum above the maximum",  "20 20 20 1",      "4 3", [](auto &n) { n.SetMin(20, nullptr); });
        row("maximum below the minimum",  "-2 -2 -2 1",      "4 3", [](auto &n) { n.SetMax(-2, nullptr); });
        row("infinite, the value is not", "inf 1.7976931348623157e+308 inf 1", "4 3", [](auto &n) { n.SetMin(qInf(), nullptr); });
        row("all at once",                "6 6 8 2",         "4 3", [](auto &n) { n.SetMinMax(6, 8, 2, nullptr); });
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
        QTEST(Numbers(node), "result");
        QTEST(witness.Told(), "told");
    }

    /// Those of a long list by an index.
    void itemsAreFoundInTheirOrder()
    {
        ValueSelection node("n");
        for (int i = 0; i < 40; ++i)
            node.AddItem(QString::number(i % 5), i % 7 ? i * 3 % 4 : qQNaN(), i % 3, nullptr);
        for (long left = node.GetItemCount(); left > 0; --left) {
            const auto first = [&](const auto &isIt) {
                SelectionItem *item = nullptr;
                for (long i = left - 1; i >= 0; --i)
                    item = isIt(*node.GetItemIndex(i)) ? node.GetItemIndex(i) : item;
                return item;
            };
            const auto withValue = [&](double value) {
                return first([value](const SelectionItem &item) { return item.GetValue() == value; });
            };
            QCOMPARE(node.GetItem("2"), first([](const SelectionItem &item) { return item.GetName() == "2"; }));
            QCOMPARE(node.GetItem(2L), first([](const SelectionItem &item) { return item.GetKey() == 2; }));
            QCOMPARE(node.GetItem(2.0), withValue(2));
            SelectionItem *const above = withValue(2) ? withValue(2) : withValue(3);
            QCOMPARE(node.Select(1.5, nullptr, false), above != nullptr);
            QVERIFY(!above || node.GetCurrentItem() == above);
            node.DeleteItem(node.GetItemIndex(left * 7 % 10 * left / 10), nullptr);
        }
        QCOMPARE(node.GetItemCount(), 0L);
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
        QVERIFY(node.GetKeyForItemName("unknown") == -1 && node.GetKeyForItemName("a") == 1);
        QVERIFY(!node.GetItemIndex(3) && !node.GetItemIndex(-1) && !node.GetItem(9.0));
        QVERIFY(node.Select(9L, nullptr) && node.Select(L"b", &witness) && !node.Select(99L, nullptr));
        QCOMPARE(witness.Told(), QString("3"));
        QCOMPARE(node.GetCurrentIndex(), 1L);

        copy.Assign(node);
        QVERIFY(copy.Compare(&node));
        const SelectionItem item("a", 1, 2);
        for (const SelectionItem &other :
            {SelectionItem("b", 1, 2), SelectionItem("a", 2, 2), SelectionItem("a", 1, 3)})
            QVERIFY(item != other && item == SelectionItem("a", 1, 2));
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

    void transactionsEndWithTheirScope()
    {
        Stage stage;
        {
            const auto outer = stage.Node->CreateTransaction({ekChangeLimits, ekChangeValue}, &stage.A);
            const auto inner = stage.Node->CreateTransaction({ekChangeItems}, nullptr);
            stage.Node->SetMin(5, nullptr);
        }
        QCOMPARE(stage.A.Told(), QString("b4 c4 b3 c3"));
        stage.B.Reaction = [](Observable *, TChangeCode) { throw 1; };
        (void)stage.Node->CreateTransaction({ekChangeLimits, ekChangeValue}, nullptr);
        QCOMPARE(stage.A.Told(), QString("a4 b4"));
        stage.B.Reaction = [&](Observable *, TChangeCode code) { code == ekChangeLimits ? delete stage.Node : void(); };
        const auto sunk = stage.Node->CreateTransaction({ekChangeValue}, nullptr);
        (void)stage.Node->CreateTransaction({}, nullptr);
        stage.Node->EndTransaction(ekChangeLimits, nullptr);
        QCOMPARE(stage.A.Told(), QString("a4 b4 a2 b2 c2"));
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
        CommentedRange range = node.data().at(0);
        QCOMPARE(range.GetFrequency(), 1.5);
        range.SetFrequency(10);
        QCOMPARE((QList<double>{range.GetRangeStart(), range.GetRangeStop()}), (QList<double>{9.5, 10.5}));
        range.SetBandwidth(4);
        QCOMPARE((QList<double>{range.GetRangeStart(), range.GetRangeStop()}), (QList<double>{8, 12}));
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
