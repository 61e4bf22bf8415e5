// The small line at a field: where it stands, when it is in sight, what it tells, and what it leaves alone.

#include "fieldnote.h"
#include "readablecolor.h"
#include "testcase.h"

namespace
{

/// A scrolled form on the screen with a field that has the focus, and another field.
struct Window : QScrollArea {
    Window()
    {
        auto *content = new QWidget;
        auto *rows = new QVBoxLayout(content);
        rows->addWidget(Field = new QLineEdit);
        rows->addWidget(Other = new QLineEdit);
        rows->addSpacing(1000);
        setWidget(content);
        content->setFixedWidth(180);
        setGeometry(100, 100, 200, 150);
        Field->setAccessibleDescription("own");
        show();
        activateWindow();
        Field->setFocus();
    }
    bool IsReady() { return QTest::qWaitForWindowActive(this); }
    QLabel *Note() const { return Field->findChild<QLabel *>("fieldNote", Qt::FindDirectChildrenOnly); }
    bool IsSeen() const { return Note() && Note()->isVisible(); }
    QRect At() const { return QRect(Field->mapToGlobal(QPoint(0, 0)), Field->size()); }
    QPointer<QLineEdit> Field;
    QLineEdit *Other;
};

} // namespace

class TestFieldNote : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void leavesTheFormAsItIs()
    {
        Window window;
        QVERIFY(window.IsReady());
        const QRect field = window.Field->geometry(), other = window.Other->geometry();
        window.Field->setText("12");
        window.Field->setSelection(0, 1);
        Orbel::FieldNote::Show(window.Field, "= <b>12</b> kHz", Orbel::FieldNote::Understood);
        Orbel::FieldNote::Show(window.Field, "= <b>12</b> kHz", Orbel::FieldNote::Understood);
        QVERIFY(window.IsSeen() && window.Note()->textFormat() == Qt::PlainText);
        QVERIFY(window.Field->hasFocus() && window.isActiveWindow() && window.Field->selectedText() == "1");
        QVERIFY(window.Field->geometry() == field && window.Other->geometry() == other);
        QCOMPARE(Orbel::FieldNote::TextOf(window.Field), QString("= <b>12</b> kHz"));
        QCOMPARE(window.Field->accessibleDescription(), QString("= <b>12</b> kHz"));
        Orbel::FieldNote::Hide(window.Other);
        Orbel::FieldNote::Hide(window.Field);
        QCOMPARE(Orbel::FieldNote::TextOf(window.Field), QString());
        QCOMPARE(window.Field->accessibleDescription(), QString("own"));
        // A description that the field is given meanwhile is its own.
        Orbel::FieldNote::Show(window.Field, "a", Orbel::FieldNote::Refused);
        window.Field->setAccessibleDescription("new");
        Orbel::FieldNote::Show(window.Other, "b", Orbel::FieldNote::Refused);
        QCOMPARE(window.Field->accessibleDescription(), QString("new"));
        QCOMPARE(Orbel::FieldNote::TextOf(window.Field), QString());
        Orbel::FieldNote::Show(window.Other, QString(), Orbel::FieldNote::Refused);
        QTRY_VERIFY(!window.Note());
    }

    void standsAtTheField()
    {
        Window window;
        QVERIFY(window.IsReady());
        Orbel::FieldNote::Show(window.Field, "= 145.500 000 MHz", Orbel::FieldNote::Understood);
        const QLabel *note = window.Note();
        QCOMPARE(note->pos(), window.At().bottomLeft() + QPoint(0, 1));
        window.move(130, 120);
        QTRY_COMPARE(note->pos(), window.At().bottomLeft() + QPoint(0, 1));
        window.verticalScrollBar()->setValue(5);
        QCOMPARE(note->pos(), window.At().bottomLeft() + QPoint(0, 1));
        window.setLayoutDirection(Qt::RightToLeft);
        QTRY_COMPARE(note->pos().x() + note->width(), window.At().right() + 1);
        const QRect screen = window.screen()->availableGeometry();
        window.move(screen.right() - 190, screen.bottom() - 40);
        QTRY_COMPARE(note->pos().y() + note->height(), window.At().top());
        window.setLayoutDirection(Qt::LeftToRight);
        Orbel::FieldNote::Show(window.Field, QString(50, 'M'), Orbel::FieldNote::Refused);
        QTRY_VERIFY(screen.contains(QRect(note->pos(), note->size())));
    }

    void isInSightWhileItsFieldIs()
    {
        Window window;
        QVERIFY(window.IsReady());
        QWidget another;
        Orbel::FieldNote::Show(window.Field, "a", Orbel::FieldNote::Understood);
        const std::pair<std::function<void()>, std::function<void()>> ways[]{
            {[&] { window.verticalScrollBar()->setValue(500); }, [&] { window.verticalScrollBar()->setValue(0); }},
            {[&] { window.Field->hide(); }, [&] { window.Field->show(); }},
            {[&] { window.widget()->hide(); }, [&] { window.widget()->show(); }},
            {[&] { window.showMinimized(); }, [&] { window.showNormal(); }},
            {[&] { another.show(), another.activateWindow(); }, [] {}},
        };
        for (const auto &[away, back] : ways) {
            QTRY_VERIFY(window.IsSeen());
            away();
            QTRY_VERIFY(!window.IsSeen());
            QCOMPARE(Orbel::FieldNote::TextOf(window.Field), QString("a"));
            back();
            window.activateWindow();
        }
        QTRY_VERIFY(window.IsSeen());
        delete window.Field;
        Orbel::FieldNote::Show(window.Other, "b", Orbel::FieldNote::Refused);
        QCOMPARE(Orbel::FieldNote::TextOf(window.Other), QString("b"));
    }

    /// What is told goes by itself, but not before it was seen, and not while another text stands.
    void tellsForAWhile()
    {
        Window window;
        QVERIFY(window.IsReady());
        QWidget another;
        another.show();
        another.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&another));
        Orbel::FieldNote::TellDropped(window.Field, "145.5");
        Orbel::FieldNote::Tell(window.Field, Orbel::FieldNote::TextOf(window.Field), 100);
        QTest::qWait(150);
        QCOMPARE(Orbel::FieldNote::TextOf(window.Field), QString("not taken: 145.5"));
        window.activateWindow();
        QTRY_COMPARE(Orbel::FieldNote::TextOf(window.Field), QString());
        Orbel::FieldNote::Tell(window.Field, "b", 20);
        Orbel::FieldNote::Show(window.Field, "c", Orbel::FieldNote::Understood);
        QTest::qWait(60);
        QCOMPARE(Orbel::FieldNote::TextOf(window.Field), QString("c"));
        QAbstractScrollArea *view = &window;
        Orbel::FieldNote::Tell(view->viewport(), "d", 2000, Orbel::FieldNote::Refused, QRect(5, 40, 50, 20));
        const QLabel *note = view->viewport()->findChild<QLabel *>("fieldNote", Qt::FindDirectChildrenOnly);
        QCOMPARE(note->pos(), view->viewport()->mapToGlobal({5, 60}));
        window.verticalScrollBar()->setValue(10);
        QCOMPARE(Orbel::FieldNote::TextOf(view->viewport()), QString());
    }

    void canBeRead()
    {
        Window window;
        const std::pair<QColor, QColor> colours[]{
            {"#353535", "#ffffff"}, {"#ffffff", "#ffffff"}, {"#808080", "#909090"}, {"#c00000", "#000000"}};
        for (const auto &[background, letters] : colours) {
            QPalette palette = window.palette();
            palette.setColor(QPalette::ToolTipBase, background);
            palette.setColor(QPalette::ToolTipText, letters);
            QVector<QColor> told;
            for (const auto kind : {Orbel::FieldNote::Understood, Orbel::FieldNote::Refused}) {
                Orbel::FieldNote::Show(window.Field, "a", kind);
                window.setPalette(palette);
                const QPalette shown = window.Note()->palette();
                QCOMPARE(shown.color(QPalette::Window), background);
                told << shown.color(QPalette::WindowText);
                QVERIFY(Orbel::ReadableColor::Contrast(background, told.last()) >= 4.5);
                window.setPalette({});
            }
            QVERIFY2(letters != QColor(Qt::white) || told[0] != told[1], "a refusal has a colour of its own");
        }
    }
};

ORBEL_TEST_MAIN(TestFieldNote)
#include "tst_fieldnote.moc"
