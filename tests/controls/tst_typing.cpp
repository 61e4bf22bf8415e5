// What happens in the middle of typing: another window, a lock of the input, values that arrive. For every kind of
// field.

#include "fieldnote.h"
#include "liveform.h"

namespace
{

/// A form with one field of each kind, into which an operator types while a receiver sends 20 values a second.
struct Desk {
    Desk()
    {
        live.window->resize(400, 900);
        const QStringList paths{"line", "plain", "large", "range_1", "spin", "list_0"};
        QObject::connect(&Receiver, &QTimer::timeout, [this, paths] {
            ++Sent;
            for (const QString &path : paths) {
                if (ValueBase *node = Tree::Instance()->GetNode("/Form/" + path))
                    node->SetStringValue(QString::number(Sent % 50 + 1000), nullptr);
            }
        });
        Receiver.start(50);
    }

    /// Gives the focus to a field, opens its cell where it is one, and types over what stands there.
    QPointer<QWidget> Type(const QString &name, const QString &text)
    {
        QWidget *field = live.Find(name);
        field->setFocus();
        if (auto *table = qobject_cast<QTableWidget *>(field))
            OpenCell(table, 0);
        field = QApplication::focusWidget();
        QTest::keyClick(field, Qt::Key_F2);
        TypeOver(field, text);
        return field;
    }
    /// Lets the receiver send some values.
    void Receive()
    {
        const int before = Sent;
        QTRY_VERIFY(Sent > before + 2);
    }
    static QString TextOf(QWidget *field)
    {
        if (auto *box = qobject_cast<QAbstractSpinBox *>(field))
            field = box->findChild<QLineEdit *>();
        return qobject_cast<QLineEdit *>(field)->text();
    }
    /// What is told anywhere in the form.
    QString Told() const
    {
        QString told;
        for (QWidget *widget : live.window->findChildren<QWidget *>())
            told += Orbel::FieldNote::TextOf(widget);
        return told;
    }
    LiveForm live{Labelled("line", "LineEdit") + Labelled("plain", "FrequencyEdit")
        + Labelled("large", "FrequencyEdit", {"MainFreqEdit=Bool:true"})
        + Labelled("range", "FrequencyRangeEdit", {"minimum=Double:0"}) + Labelled("spin", "DoubleSpinBox")
        + Labelled("list", "DoubleSpinBoxList", {"itemCount=Int:2"})
        + Labelled("cells", "ChannelSpacingTable", {"spacingsCount=Int:2"})
        + Labelled("grid", "TableWidget", {"rowCount=Int:2", "columnCount=Int:1"})};
    QTimer Receiver;
    int Sent = 0;
};

} // namespace

class TestTyping : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fields_data()
    {
        const auto row = Columns<QString>({"name"});
        for (const char *name :
            {"line", "plain", "FrequencyControl", "range_StartFrequency", "spin", "list_0", "cells", "grid"})
            row(name, name);
    }

    void fields()
    {
        QFETCH(QString, name);
        Desk desk;
        const bool isCell = name == "cells" || name == "grid";
        // Another window takes nothing, nor does hiding this one.
        QPointer<QWidget> field = desk.Type(name, "12");
        const QString typed = desk.TextOf(field);
        QVERIFY(typed.contains("12"));
        {
            QWidget another;
            another.show();
            another.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&another));
            desk.Receive();
            desk.live.window->hide();
            desk.live.window->show();
            desk.live.window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(desk.live.window.get()));
        }
        QVERIFY(field && field->hasFocus());
        QCOMPARE(desk.TextOf(field), typed);
        QTest::keyClicks(field, "3");
        desk.Receive();
        QVERIFY(desk.TextOf(field).contains("123"));

        // A lock takes it back, tells it, and lets nothing else get what is typed on.
        const QScrollBar *place = desk.live.window->findChild<QScrollArea *>()->verticalScrollBar();
        const int before = place->value();
        desk.live.log.Take();
        desk.live.form->EnableInput(false);
        QVERIFY(desk.Told().startsWith("not taken: 123"));
        QVERIFY2(!desk.live.log.Take().contains("Modified"), "nothing was committed");
        QVERIFY(QApplication::focusWidget() == desk.live.window.get());
        desk.Receive();
        QVERIFY2(desk.Told().startsWith("not taken: 123"), "arriving values leave it there");
        QTest::keyClicks(QApplication::focusWidget(), "45");
        QCOMPARE(place->value(), before);
        desk.live.form->EnableInput(true);
        QWidget *control = isCell ? desk.live.Find(name) : field.data();
        QCOMPARE(QApplication::focusWidget(), control);

        // What takes the focus meanwhile keeps it.
        QLineEdit elsewhere(desk.live.window.get());
        elsewhere.show();
        desk.live.form->EnableInput(false);
        elsewhere.setFocus();
        desk.live.form->EnableInput(true);
        QVERIFY(elsewhere.hasFocus());

        // Leaving the field commits, though nobody may tell it of that while another window has the keys.
        desk.Receiver.stop();
        field = desk.Type(name, "77");
        QWidget another;
        another.setVisible(!isCell);
        another.activateWindow();
        QVERIFY(isCell || QTest::qWaitForWindowActive(&another));
        elsewhere.setFocus();
        desk.live.window->activateWindow();
        const ValueBase *node = Tree::Instance()->GetNode("/Form/" + name);
        QTRY_VERIFY(!node || node->GetStringValue().startsWith("77"));
        QCoreApplication::processEvents();
        QVERIFY(!isCell || qobject_cast<QTableWidget *>(control)->item(0, 0)->text() == "77");
    }
};

ORBEL_TEST_MAIN(TestTyping)
#include "tst_typing.moc"
