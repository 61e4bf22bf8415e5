// Updates that arrive while a notification runs: from an observer of the same node, and from another thread by way of
// the event queue, while a handler waits.

#include "forms.h"
#include "testmain.h"
#include "valuebase.h"

#include <functional>
#include <QLineEdit>
#include <QtTest>
#include <thread>

using namespace KV218;
using namespace forms;

namespace
{

/// Does something at each new value.
class Reaction : public IObserver
{
public:
    explicit Reaction(const std::function<void()> &action) : Action(action) { }
    void Update(Observable *, TChangeCode code) override
    {
        if (code == ekChangeValue)
            Action();
    }

private:
    std::function<void()> Action;
};

/// What node, property, document and control hold for "a"; one text when they agree.
QString Held(const Form &form, const QWidget *window)
{
    QStringList held{form->GetVTValue("a")->GetStringValue(), Delegate(form, "a")->property("text").toString(),
        window->findChild<QLineEdit *>("a")->text()};
    const QString written = form->GetXmlString(false);
    held << written.section("<a>", 1).section("</a>", 0, 0);
    held.removeDuplicates();
    return held.join('|');
}

} // namespace

class TestUpdates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        form = Bind(Definition(Widget("a", "LineEdit", {"visible=Bool:true", "generateParameterXml=Bool:true"})));
        form->CreateGUI(false);
        window.reset(form->GetGUI());
        window->show();
        node = form->GetVTValue("a");
    }

    void cleanup()
    {
        window.reset();
        form.reset();
        QCOMPARE(LeftOver(), QString());
    }

    void theLastValueCounts_data()
    {
        QTest::addColumn<bool>("first");
        QTest::newRow("set by one who is told before the control") << true;
        QTest::newRow("set by one who is told after it") << false;
    }

    void theLastValueCounts()
    {
        QFETCH(bool, first);
        int told = 0;
        Reaction reaction([&] {
            if (++told < 5)
                node->SetStringValue(QString::number(told), nullptr);
        });
        node->AddObserver(&reaction);
        if (first)
            node->MakeFirstObserver(&reaction);
        node->SetStringValue("start", nullptr);
        node->DeleteObserver(&reaction);
        QCOMPARE(told, 5);
        QCOMPARE(Held(form, window.get()), QString("4"));
    }

    void observersComeAndGoMeanwhile()
    {
        int told = 0;
        Reaction late([&] { told += 100; });
        Reaction gone([&] { told += 10000; });
        Reaction reaction([&] {
            ++told;
            node->AddObserver(&late);
            node->DeleteObserver(&gone);
        });
        node->AddObserver(&reaction);
        node->AddObserver(&gone);
        node->SetStringValue("x", nullptr);
        QCOMPARE(told, 1);
        node->SetStringValue("y", nullptr);
        QCOMPARE(told, 102);
        QCOMPARE(Held(form, window.get()), QString("y"));
        node->DeleteObserver(&reaction);
        node->DeleteObserver(&late);
    }

    void anotherThreadSendsItsValuesThroughTheQueue()
    {
        constexpr int Values = 200;
        int arrived = 0;
        const auto set = [&](int i) {
            node->SetStringValue(QString::number(i), nullptr);
            ++arrived;
        };
        std::thread sender;
        // A handler that waits inside the notification of the first value: what the thread sends arrives there.
        Reaction waiting([&] {
            if (arrived > 0 || sender.joinable())
                return;
            sender = std::thread([&] {
                for (int i = 1; i <= Values; ++i)
                    QMetaObject::invokeMethod(
                        form.data(), [&set, i] { set(i); }, Qt::QueuedConnection);
            });
            QTRY_COMPARE(arrived, Values);
        });
        node->AddObserver(&waiting);
        node->SetStringValue("start", nullptr);
        sender.join();
        node->DeleteObserver(&waiting);
        QCOMPARE(Held(form, window.get()), QString::number(Values));
    }

private:
    Form form;
    std::unique_ptr<QWidget> window;
    ValueBase *node = nullptr;
};

ORBEL_TEST_MAIN(TestUpdates)
#include "tst_updates.moc"
