// The float group layout: its arithmetic against worked figures, then the layout on items of fixed hints, then the
// scroll area on real widgets.

#include "firstline.h"
#include "floatgrouparranger.h"
#include "floatgrouplayout.h"
#include "floatscrollarea.h"
#include "layoutpause.h"
#include "rowlabel.h"
#include "testcase.h"

using Item = FloatGroupItem;
using Items = QVector<Item>;
using Change = std::function<void(FloatGroupLayout &)>;
Q_DECLARE_METATYPE(Item)
Q_DECLARE_METATYPE(Change)

namespace
{

/// A row of a control, of a label, and the line over a section.
constexpr int Row = Item::ItemGroup;
constexpr int Label = Item::ItemGroup | Item::ItemLabel;
constexpr int Line = Item::ItemGroup | Item::ItemSection;

QString Text(const QVector<QRect> &rects, const QSize &total)
{
    QString text;
    for (const QRect &r : rects)
        text += QString("%1,%2 %3x%4, ").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    return text + QString("in %1x%2").arg(total.width()).arg(total.height());
}

QString Arranged(const Items &items, int width, int columnCount = 0, int spacingX = 4, int spacingY = 4)
{
    FloatGroupArranger arranger(items, spacingX, spacingY);
    arranger.arrange(width, columnCount);
    return Text(arranger.hints(), arranger.totalSize());
}

/// Has a fixed size, keeps the rectangle it is given, and counts how often it is asked.
class Stub : public QSpacerItem
{
public:
    using QSpacerItem::QSpacerItem;
    QSize sizeHint() const override
    {
        ++Asked;
        if (const auto act = std::exchange(OnAsked, nullptr))
            act();
        return QSpacerItem::sizeHint();
    }
    mutable int Asked = 0;
    mutable std::function<void()> OnAsked;
};

/// Acts once on the next resize of a widget.
class OnResize : public QObject
{
public:
    OnResize(QWidget *watched, std::function<void()> act) : Act(std::move(act)) { watched->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (const auto act = event->type() == QEvent::Resize ? std::exchange(Act, nullptr) : nullptr)
            act();
        return false;
    }

private:
    std::function<void()> Act;
};

QLabel *LabelOf(FloatGroupLayout &form)
{
    return qobject_cast<QLabel *>(form.itemAt(1)->widget());
}

/// A layout in a window that is never shown, with a number of rows of one stub.
struct Form {
    explicit Form(int rows)
    {
        for (int i = 0; i < rows; ++i) {
            Layout.addGroup();
            Layout.addItem(new Stub(10 * (i + 1), 9));
        }
    }
    Stub *At(int index) { return static_cast<Stub *>(Layout.itemAt(index)); }
    /// Places everything, somewhere else and less high than needed.
    QString Placed(int width)
    {
        Layout.setGeometry(QRect(7, 9, width, 3));
        QVector<QRect> rects;
        for (int i = 0; i < Layout.count(); ++i)
            rects << Layout.itemAt(i)->geometry();
        return Text(rects, Layout.sizeHint());
    }
    QWidget Window;
    FloatGroupLayout Layout{&Window};
};

} // namespace

class TestFloatGroupLayout : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rectangles_data()
    {
        const auto row = Columns<int, Items, QString>({"width", "items", "arranged"});
        // clang-format off
        row("a label is at most 24 high", 999, {{Label, 9, 16}, {0, 9, 30}, {Label, 9, 16}, {0, 9, 60}, {Row, 9, 1}}, "0,0 9x24, 13,0 9x30, 0,34 9x24, 13,34 9x60, 0,98 9x1, in 21x99");
        row("a control without label is widened but not measured", 999, {{Row, 300, 9}, {Label, 9, 9}, {0, 50, 9}, {Row, 40, 9}}, "0,0 300x9, 0,13 9x13, 13,13 50x9, 0,26 50x9, in 299x35");
        row("invisible items take width but no height", 999, {{Label, 0, 0}, {0, 50, 20}, {Label, 30, 16}, {0, 0, 0}, {Label, 0, 0}, {0, 0, 0}, {Row, 9, 9}}, "0,0 30x24, 34,0 50x20, 0,24 30x20, 34,24 50x0, 0,44 30x0, 34,44 50x0, 0,44 50x9, in 83x53");
        row("a margin above a line, none above the first", 60, {{Line, 9, 2, 5}, {Row, 50, 9}, {Line, 9, 2, 7}, {Row, 50, 9}}, "0,0 54x2, 0,6 50x9, 0,26 54x2, 0,32 50x9, in 53x41");
        row("no margin at the top of a column", 200, {{Line, 9, 2, 5}, {Row, 50, 9}, {Line, 9, 2, 7}, {Row, 50, 9}}, "0,0 54x2, 0,6 50x9, 62,0 54x2, 62,6 50x9, in 115x15");
        row("a column that ends on the width is too wide", 124, {{Line, 9, 2}, {Row, 50, 9}, {Line, 9, 2}, {Row, 50, 9}}, "0,0 54x2, 0,6 50x9, 0,19 54x2, 0,25 50x9, in 53x34");
        row("a row of a second column folds to the left of the form", 150, {{Line, 9, 9}, {Row, 50, 9}, {Line, 9, 9}, {Label, 9, 9}, {0, 50, 9}, {0, 9, 9}}, "0,0 54x9, 0,13 50x9, 62,0 76x9, 62,13 9x13, 75,13 50x9, 0,26 50x9, in 137x35");
        // clang-format on
    }

    void rectangles()
    {
        const auto [width, items] = Fetch<int, Items>({"width", "items"});
        QTEST(Arranged(items, width), "arranged");
    }

    /// The checksum tells the arrangements of 20000 forms with all kinds of items. It belongs to the rules that the
    /// rows above show one by one: whoever changes a rule on purpose changes rows and checksum.
    void randomFormsKeepTheirArrangement()
    {
        QRandomGenerator random(218);
        const auto below = [&](int end) { return int(random.bounded(end)); };
        QCryptographicHash all(QCryptographicHash::Md5);
        for (int run = 0; run < 20000; ++run) {
            Items items(1 + below(1 + below(40)));
            const int sectionEvery = 1 + below(8), shown = 1 + below(6);
            for (Item &item : items) {
                static const int usual[] = {0, 0, Row, Label, Item::ItemSpecial, Row | Item::ItemSpecial};
                const int flags = !below(30) ? below(32) : !below(sectionEvery) ? Line : usual[below(6)];
                const int width = below(150), height = below(shown) ? below(60) : 0;
                item = {flags, width, height, below(12)};
            }
            const int width = below(4) ? below(1200) : below(150) - 5;
            const int count = below(8) - 2, x = below(8), y = below(8);
            all.addData(Arranged(items, width, count, x, y).toLatin1());
        }
        QCOMPARE(all.result().toHex(), QByteArray("81708516a18085ec436e3ef4552ca009"));
    }

    void children()
    {
        Form form(0);
        QCOMPARE(form.Layout.sizeHint(), QSize(0, 0));
        QCOMPARE(form.Layout.minimumSize(), QSize(4, 4));
        form.Layout.addSection("line");
        QGroupBox *titled = form.Layout.addHeadline("Title", 7, "titled");
        QGroupBox *odd = form.Layout.addHeadline("", 7, "odd");
        form.Layout.addHeadline("", 0, nullptr);
        QWidget *gap = form.Layout.addSeparator(11, "gap");
        gap->setMinimumWidth(20);
        auto *edit = new QWidget(&form.Window);
        edit->setObjectName("freq");
        edit->setFixedSize(50, 30);
        form.Layout.addRow("x", edit);
        QCOMPARE(titled->contentsMargins(), QMargins(0, 7, 0, 0));
        QCOMPARE(odd->contentsMargins(), QMargins(0, 4, 0, 0));
        QCOMPARE(form.Layout.itemAt(5)->widget()->objectName(), QString("labelfreq"));
        QVERIFY(!form.Layout.itemAt(-1) && !form.Layout.itemAt(7) && !form.Layout.takeAt(-1) && !form.Layout.takeAt(7));

        titled->setFixedSize(40, 10);
        form.Layout.itemAt(5)->widget()->setFixedWidth(20);
        QCOMPARE(form.Placed(999),
            QString("0,0 74x2, 0,13 40x10, 0,31 74x8, 0,43 74x5, 0,52 50x11, 0,67 20x24, 24,67 50x30, in 73x97"));
        gap->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        QCOMPARE(form.Placed(999).section(", ", 4, 4), QString("0,52 20x11"));
        form.Layout.removeAllWidgets();
        QVERIFY(form.Window.children() == QObjectList{&form.Layout});
        QCOMPARE(form.Layout.sizeHint(), QSize(73, 97));
        form.Layout.addItem(new Stub(10, 9));
        QCOMPARE(form.Placed(999), QString("0,0 10x9, in 9x9"));
        QCOMPARE(form.Layout.geometry(), QRect(7, 9, 999, 3));
    }

    void marksAddUpAndKeepTheirPlaces()
    {
        Form form(1);
        form.Layout.addSpecial();
        form.Layout.addGroup();
        form.Layout.addItem(new Stub(5, 9));
        form.Layout.addItem(new Stub(30, 9));
        form.Layout.addItem(new Stub(5, 9));
        QCOMPARE(form.Placed(999), QString("0,0 30x9, 0,13 5x9, 9,13 30x9, 43,13 30x9, in 72x22"));
        delete form.Layout.takeAt(0);
        QCOMPARE(form.Placed(999), QString("0,0 5x9, 0,13 30x9, 34,13 5x9, in 38x22"));
        QCOMPARE(form.At(0)->Asked, 2);
    }

    void theFirstRequestFixesTheArrangement()
    {
        Form form(1);
        form.Layout.addSection("line");
        form.Layout.addGroup();
        form.Layout.addItem(new Stub(50, 20));
        QCOMPARE(form.Layout.sizeHint(), QSize(53, 39));
        QCOMPARE(form.Layout.heightForWidth(500), 39);
        form.Layout.setHorizontalSpacing(6);
        form.Layout.setVerticalSpacing(10);
        QCOMPARE(form.Placed(500), QString("0,0 10x9, 0,13 54x2, 0,19 50x20, in 53x39"));
        form.Layout.invalidate();
        QCOMPARE(form.Layout.heightForWidth(500), 32);
        QCOMPARE(form.Layout.sizeHint(), QSize(83, 32));
        QCOMPARE(form.Layout.minimumSize(), QSize(10, 9));
        form.Layout.removeAllWidgets();
        QCOMPARE(form.Layout.minimumSize(), QSize(6, 10));
    }

    void aListStretchesItsRows()
    {
        Form form(0);
        form.Layout.addList();
        auto *list = new QWidget(&form.Window);
        list->setMinimumWidth(70);
        auto *rows = new QVBoxLayout(list);
        rows->addStretch();
        rows->addWidget(new QWidget);
        form.Layout.addWidget(list);
        form.Placed(500);
        QCOMPARE(rows->itemAt(1)->widget()->minimumWidth(), 70);
        delete list;
        QCOMPARE(form.Layout.count(), 0);
    }

    /// What is kept of an arrangement must not outlive what it was made of.
    void aChangeIsArrangedAsInAFreshForm_data()
    {
        const auto row = Columns<Change>({"change"});
        row("text", [](FloatGroupLayout &form) { LabelOf(form)->setText("A label that is longer"); });
        row("font", [](FloatGroupLayout &form) { LabelOf(form)->setFont(QFont(LabelOf(form)->font().family(), 20)); });
        row("font of the form", [](FloatGroupLayout &form) { form.parentWidget()->setFont(QFont("sans", 17)); });
        row("sheet", [](FloatGroupLayout &form) { form.itemAt(2)->widget()->setStyleSheet("padding: 9px"); });
        row("minimum", [](FloatGroupLayout &form) { form.itemAt(2)->widget()->setMinimumSize(180, 77); });
        row("policy", [](FloatGroupLayout &form) {
            form.itemAt(2)->widget()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        });
        row("margin of a line",
            [](FloatGroupLayout &form) { form.itemAt(3)->widget()->setContentsMargins(0, 31, 0, 0); });
        row("hidden", [](FloatGroupLayout &form) { form.itemAt(2)->widget()->hide(); });
        row("hidden and shown", [](FloatGroupLayout &form) {
            form.itemAt(2)->widget()->hide();
            form.itemAt(2)->widget()->setMinimumHeight(50);
            form.itemAt(2)->widget()->show();
        });
        row("taken", [](FloatGroupLayout &form) { delete form.itemAt(2)->widget(); });
        row("taken and added", [](FloatGroupLayout &form) {
            delete form.itemAt(5)->widget();
            form.addWidget(new QPushButton("Button"));
        });
        row("spacing", [](FloatGroupLayout &form) {
            form.setVerticalSpacing(11);
            form.setHorizontalSpacing(13);
            form.invalidate();
        });
    }

    void aChangeIsArrangedAsInAFreshForm()
    {
        const auto [change] = Fetch<Change>({"change"});
        const auto rectangles = [](const FloatGroupLayout &layout) {
            QVector<QRect> rects;
            for (int i = 0; i < layout.count(); ++i)
                rects << (layout.itemAt(i)->isEmpty() ? QRect() : layout.itemAt(i)->geometry());
            return Text(rects, QSize());
        };
        const auto arranged = [&](const Change &early, const Change &late) {
            FloatScrollArea area(nullptr);
            area.setWidget(new QWidget);
            auto &layout = *new FloatGroupLayout(&area);
            for (const char *text : {"One", "Two"}) {
                layout.addHeadline(text, 7, nullptr);
                layout.addRow(text, new QLineEdit);
            }
            early(layout);
            area.resize(500, 400);
            area.show();
            QCoreApplication::processEvents();
            area.resize(300, 400);
            QCoreApplication::processEvents();
            late(layout);
            area.resize(500, 400);
            QCoreApplication::processEvents();
            return rectangles(layout);
        };
        const Change none = [](FloatGroupLayout &) {};
        const QString fresh = arranged(change, none);
        QVERIFY(fresh != arranged(none, none));
        QCOMPARE(arranged(none, change), fresh);
    }

    /// Qt tells no layout of what becomes of a widget whose least and greatest size are the same.
    void aFixedWidgetIsAskedAnewForANewWidth()
    {
        FloatScrollArea area(nullptr);
        area.setWidget(new QWidget);
        auto &layout = *new FloatGroupLayout(&area);
        auto *fixed = new QWidget;
        layout.addRow("x", fixed);
        fixed->setFixedSize(200, 170);
        area.show();
        QCoreApplication::processEvents();
        fixed->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
        area.resize(area.width() + 10, 300);
        QVERIFY(layout.sizeHint().height() < 170);
    }

    /// An item that is asked arranges everything for sizes that hold for so long only.
    void whatArrangesMeanwhileLeavesNothing()
    {
        Form form(2);
        const QString before = form.Placed(300);
        form.At(0)->OnAsked = [&] {
            form.At(1)->changeSize(70, 90);
            form.Layout.invalidate();
            form.Layout.heightForWidth(300);
            form.At(1)->changeSize(20, 9);
            form.Layout.invalidate();
        };
        form.Layout.invalidate();
        QCOMPARE(form.Placed(300), before);
    }

    void aPauseArrangesOnceForEachChange()
    {
        Form form(1);
        form.Window.show();
        QCoreApplication::processEvents();
        const KV218::LayoutPause pause(&form.Layout);
        form.Layout.invalidate();
        form.Layout.invalidate();
        const int before = form.At(0)->Asked;
        QTRY_VERIFY(form.At(0)->Asked > before);
        const int after = form.At(0)->Asked;
        for (int i = 0; i < 9; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(form.At(0)->Asked, after);
    }

    /// The text of a label is placed by what stands first in the control, and that is placed for it.
    void aHandlerOfWhatIsPlacedTakesTheLabel_data()
    {
        const auto row = Columns<Change>({"take"});
        row("destroyed", [](FloatGroupLayout &form) { delete form.itemAt(0)->widget(); });
        row("item", [](FloatGroupLayout &form) { delete form.takeAt(0); });
    }

    void aHandlerOfWhatIsPlacedTakesTheLabel()
    {
        const auto [take] = Fetch<Change>({"take"});
        Form form(0);
        auto *control = new QWidget;
        auto *field = new QLineEdit;
        (new QVBoxLayout(control))->addWidget(field);
        control->setMinimumHeight(80);
        form.Layout.addRow("Gain", control);
        form.Layout.addGroup();
        auto *wider = new QLineEdit;
        form.Layout.addRow("Two", wider);
        form.Window.show();
        QCoreApplication::processEvents();
        const OnResize handler(field, [&form, take = take] { take(form.Layout); });
        wider->setMinimumWidth(400);
        QTRY_COMPARE(form.Layout.count(), 3);
    }

    void aLabelAskedAgainMeanwhileKeepsThatAnswer()
    {
        const QSize small(100, 60), large(100, 200);
        QWidget control;
        auto *field = new QLineEdit;
        (new QVBoxLayout(&control))->addWidget(field);
        RowLabel label("Gain", nullptr), other("Gain", nullptr);
        {
            const OnResize handler(field, [&] { label.StandBeside(&control, large, 20, 20); });
            label.StandBeside(&control, small, 20, 20);
        }
        QCOMPARE(label.StandBeside(&control, large, 20, 20), other.StandBeside(&control, large, 20, 20));
    }

    void anAreaFlowsWithItsWidth()
    {
        FloatScrollArea area(nullptr);
        area.setWidget(new QWidget);
        auto &layout = *new FloatGroupLayout(&area);
        for (int i = 0; i < 6; ++i) {
            layout.addSection("line");
            layout.addSeparator(100, "row")->setFixedWidth(188);
        }
        const auto columns = [&] {
            QSet<int> lefts;
            for (int i = 0; i < layout.count(); ++i)
                lefts << layout.itemAt(i)->geometry().left();
            return lefts.size();
        };
        area.show();
        for (const auto &[width, fitting] : {std::pair(1000, 3), {450, 2}, {150, 1}, {1900, 6}, {650, 3}}) {
            const QSize before = area.viewport()->size();
            area.resize(width, 150);
            QVERIFY2(area.viewport()->size() == before, "the event ends at the layout, the area follows later");
            QTRY_COMPARE(columns(), fitting);
            QTRY_COMPARE(area.verticalScrollBar()->isVisible(), fitting < 6);
            QTRY_COMPARE(area.widget()->minimumSize(), layout.sizeHint());
        }
        QCOMPARE(area.minimumSizeHint(), area.QAbstractScrollArea::minimumSizeHint().boundedTo(QSize(9999, 20)));
    }

    /// The label of a control that has not its place yet stands where it will.
    void theFirstLineIsThatOfThePlace()
    {
        const QSize place(120, 60);
        QLineEdit field;
        QSpinBox spin;
        QComboBox choice;
        for (QWidget *control : std::initializer_list<QWidget *>{&field, &spin, &choice}) {
            const std::optional<int> before = FirstBaseline(control, place);
            control->resize(place);
            QVERIFY(before && before == FirstBaseline(control, place));
        }
    }

    void aLabelIsAsHighAsItsTextAndTheControlNeed()
    {
        QSpinBox control;
        RowLabel label("<b>Gain:</b>", nullptr);
        const auto beside = [&] { return label.StandBeside(&control, QSize(90, 80), 10, 20); };
        QCOMPARE(beside(), 20);
        label.setText("Gain:");
        const int plain = beside();
        QVERIFY(plain > 40);
        control.setFont(QFont(control.font().family(), 3 * control.font().pointSize()));
        QVERIFY2(beside() > plain, "the text of a greater font stands lower in a control of the same size");
    }

    void aRowLabelHintsAtTheSizesOfAnyLabel()
    {
        RowLabel own("Gain:", nullptr);
        QLabel any("Gain:");
        const QStringList texts{"Gain:", "a & b", "two\nlines", "", "<b>rich</b> text", "tab\tx", "&amp; <i>", "ÄÖß",
            QString(300, 'w'), "Gain:"};
        const std::unique_ptr<QStyle> windows(QStyleFactory::create("windows"));
        const std::vector<std::function<void(QLabel &)>> changes{
            [](QLabel &label) { label.setFont(QFont(label.font().family(), 13)); },
            [&](QLabel &label) { label.setStyle(windows.get()); },
            [](QLabel &label) { label.setStyleSheet("font-style: italic"); },
            [](QLabel &label) { label.setLayoutDirection(Qt::RightToLeft); },
            [](QLabel &label) { label.setAlignment(Qt::AlignHCenter | Qt::AlignBottom); },
            [](QLabel &label) { label.setContentsMargins(1, 2, 3, 4); },
            [](QLabel &label) { label.setMargin(5); },
            [](QLabel &label) { label.setMinimumSize(60, 30); },
            [](QLabel &label) { label.setFrameShape(QFrame::Box); },
            [](QLabel &label) { label.setWordWrap(true); },
            [](QLabel &label) { label.setIndent(7); },
            [](QLabel &label) { label.setTextFormat(Qt::RichText); },
            [](QLabel &label) { label.setStyle(nullptr); },
        };
        for (const auto &change : changes) {
            change(own);
            change(any);
            for (const QString &text : texts) {
                own.setText(text);
                any.setText(text);
                QVERIFY2(own.sizeHint() == any.sizeHint(), qPrintable(text));
                QVERIFY2(own.minimumSizeHint() == any.minimumSizeHint(), qPrintable(text));
            }
        }
    }
};

ORBEL_TEST_MAIN(TestFloatGroupLayout)
#include "tst_floatgrouplayout.moc"
