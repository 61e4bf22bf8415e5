// What an operator types or pastes: what each kind of field understands, shows and applies. Besides a table of texts
// there are random ones, as many as ORBEL_TYPED_STEPS says; ORBEL_TYPED_SEED varies
// them, and a run of more than five minutes wants QTEST_FUNCTION_TIMEOUT, in milliseconds.

#include "fieldnote.h"
#include "frequencytext.h"
#include "liveform.h"
#include "numberreader.h"
#include "typedspinbox.h"
#include "vclineedit.h"

#include <cmath>

namespace
{

/// A field in a form of its own: the control "f" of that class, its field, and the node of the field's number.
struct Field {
    QString Class;
    QStringList Properties;
    QString Name = "f", Node = "f";
};
const QMap<QString, Field> Fields = [] {
    const QStringList receiver{"minimum=String:9000", "maximum=String:26500000000", "labelText=String:Frequency"};
    const auto frequency = [](const QStringList &more, const char *value) {
        return Field{"FrequencyEdit", more + QStringList{QString("value=String:") + value}};
    };
    const Field range{"FrequencyRangeEdit", {"startFrequency=String:100000000", "stopFrequency=String:200000000"}};
    QMap<QString, Field> fields{{"kHz", frequency(receiver, "50000")}, {"MHz", frequency(receiver, "100000000")},
        {"GHz", frequency(receiver, "1000000000")}, {"open MHz", frequency({}, "100000000")},
        {"open Hz", frequency({}, "50")}, {"Hz", frequency({"minimum=String:0", "maximum=String:20000"}, "500")},
        {"large", frequency(receiver, "100000000")}, {"start", range}, {"stop", range}};
    fields["large"].Properties << "MainFreqEdit=Bool:true";
    fields["large"].Name = "frequency";
    fields["start"].Name = "f_StartFrequency";
    fields["start"].Node = "f_1";
    fields["stop"].Name = "f_StopFrequency";
    fields["stop"].Node = "f_2";
    return fields;
}();

/// The reader of a kind of field that stands in no form here.
Orbel::NumberReader Reader(const QString &kind, const QLocale &locale)
{
    Orbel::NumberReader reader = Orbel::NumberReader::OfHertz(locale);
    reader.IsFrequency = kind != "number dBm";
    if (kind.startsWith("box")) {
        reader.TakesShownUnit = true;
        reader.IsWhole = true;
        reader.Suffix = kind.mid(4);
        reader.ShownPower = Orbel::FrequencyText::PowerOfUnit(reader.Suffix).value_or(0);
        reader.Decimals = reader.ShownPower;
    } else if (!reader.IsFrequency) {
        reader.Suffix = " dBm";
        reader.Decimals = 2;
    }
    return reader;
}

/// Spin boxes, alone, in a list and in the cells of a table, each with a number in it.
const QMap<QString, Field> Boxes{
    {"dB", {"DoubleSpinBox", {"minimum=Double:-10", "maximum=Double:100", "decimals=Int:2", "suffix=String: dB"}}},
    {"count", {"SpinBox", {"minimum=Int:0", "maximum=Int:1000"}}},
    {"off", {"SpinBox", {"minimum=Int:0", "maximum=Int:1000", "suffix=String: s", "specialValueText=String:off"}}},
    {"Hz",
        {"BandwidthEdit", {"unitScale=UInt64:1", "minimum=Int64:100", "maximum=Int64:10000000", "value=Int64:1000"}}},
    {"kHz", {"BandwidthEdit", {"unitScale=UInt64:1000", "minimum=Int64:1", "maximum=Int64:5000", "value=Int64:12500"}}},
    {"MHz",
        {"DoubleSpinBox", {"suffix=String: MHz", "decimals=Int:6", "minimum=Double:0.009", "maximum=Double:26500"}}},
    {"3 MHz", {"DoubleSpinBox", {"suffix=String: mhz", "decimals=Int:3", "maximum=Double:26500"}}},
    {"unit", {"DoubleSpinBox", {"unit=String:kHz", "decimals=Int:3", "maximum=Double:5000"}}},
    {"scaled", {"DoubleSpinBox", {"unit=String:Hz", "displayScalingFactor=Double:0.001", "decimals=Int:3"}}},
    {"list", {"DoubleSpinBoxList", {"itemCount=Int:2", "suffix=String:kHz", "decimals=Int:3"}, "f_0", "f_0"}},
    {"cell", {"ChannelSpacingTable", {"spacingsCount=Int:2", "decimals=Int:2"}}},
    {"cell kHz", {"ChannelSpacingTable", {"spacingsCount=Int:2", "decimals=Int:2", "unit=String:kHz"}}},
};

/// Draws texts that look like numbers, mostly.
class Dice
{
public:
    int Roll(int count) { return int(Random.bounded(count)); }
    template <class List> auto Pick(const List &list) { return list[size_t(Roll(int(std::size(list))))]; }

    QString Text()
    {
        static constexpr const char *pieces[] = {"0", "00", "000", "1", "9", "145", "500", "26", "8",
            "12345678901234567890", ".", ",", ".", ",", " ", "'", "_", "\u00a0", "-", "\u2212", "+", "\u0663", "k", "M",
            "G", "Hz", "kHz", " MHz", "ghz", "dBm", "h", "x", "e6", "\U0001d7d9"};
        QString text;
        if (Roll(2))
            text = Orbel::FrequencyText::Write(double(Random.generate64() % 100000000000U) / Pick(Scales), Roll(12));
        for (int i = Roll(4); i > 0; --i)
            text.insert(Roll(text.size() + 1), QString::fromUtf8(Pick(pieces)));
        return text;
    }
    Orbel::NumberReader Reader()
    {
        Orbel::NumberReader reader = Orbel::NumberReader::OfHertz(Roll(2) ? QLocale(QLocale::German) : QLocale::c());
        reader.ShownPower = 3 * Roll(4);
        reader.Suffix = Roll(2) ? QString() : ' ' + Orbel::FrequencyText::Units()[3 - reader.ShownPower / 3];
        reader.IsWhole = Roll(2);
        reader.TakesShownUnit = Roll(2);
        if (Roll(2))
            reader.Minimum = Pick(Scales) - 1000;
        if (Roll(2))
            reader.Maximum = Pick(Scales) * 26.5;
        if (Roll(3) == 0)
            reader.Decimals = Roll(10);
        if (Roll(4) == 0) {
            reader.IsFrequency = false;
            reader.ShownPower = 0;
        }
        return reader;
    }

private:
    static constexpr double Scales[] = {1, 1e3, 1e6, 1e9};
    QRandomGenerator Random{quint32(FromEnvironment("ORBEL_TYPED_SEED", 0))};
};

/// A number that is shown by a factor keeps fifteen digits, and binary arithmetic adds its last bits.
bool IsSameToFifteenDigits(double number, double expected)
{
    return std::fabs(number - expected) <= std::fabs(expected) * 6e-15;
}

/// What is wrong with the reading of a text; empty for nothing.
QString Faults(const Orbel::NumberReader &reader, const QString &text)
{
    const Orbel::TypedNumber typed = reader.Read(text);
    if ((typed.State == QValidator::Intermediate) != typed.Text.isEmpty())
        return "a text that may become a number gives no reason, any other does";
    if (!typed.IsNumber())
        return QString();
    if (!(typed.Number >= reader.Minimum && typed.Number <= reader.Maximum))
        return "out of the limits";
    if (reader.IsWhole && std::trunc(typed.Number) != typed.Number)
        return "no whole number";
    if (reader.Read(typed.Text).Number != typed.Number)
        return "told is " + typed.Text;
    Orbel::NumberReader shown = reader;
    shown.TakesShownUnit = true;
    const QString plain = Orbel::FrequencyText::Plain(typed.Shown);
    // More digits than a number holds are rounded twice.
    const double apart = std::fabs(shown.Read(plain).Number - typed.Number);
    return apart <= std::fabs(typed.Number) * 3e-16 ? QString() : "shown is " + plain;
}

} // namespace

class TestTyped : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        QCOMPARE(LeftOver(), QString());
    }

    void texts_data()
    {
        const auto row
            = Columns<QString, QString, QString, QString, QString>({"kind", "text", "note", "shown", "applied"});
        const auto add = [&](const QString &kind, const QString &text, const QString &note, const QString &shown,
                             const QString &applied) {
            row(qPrintable(QString("%1: %2").arg(kind, text.left(40))), kind, text, note, shown, applied);
        };
        // A field shows what is told. Nothing is told of a text that may become a number, null is applied of one that
        // is none.
        const QByteArray table = BytesOf(ORBEL_SOURCE_DIR "/tests/numbers/typed.json");
        for (const QJsonValue &rows : QJsonDocument::fromJson(table).object()) {
            for (const QJsonValue &each : rows.toArray()) {
                const bool isBox = each.toArray().size() == 5;
                const auto cell = [&](int index) { return each[index].toString(); };
                add((isBox ? "box in a form " : "") + cell(0), cell(1), cell(2), isBox ? cell(3) : cell(2).mid(2),
                    cell(isBox ? 4 : 3));
            }
        }
        for (const char *kind : {"reader", "MHz", "large"})
            add(kind, QString(400, '9'), "too large", QString(), QString());
        add("reader", QString(10000, ' ') + "7", "= 7 Hz", "7 Hz", "7");
    }
    void texts()
    {
        auto [kind, text, note, shown, applied]
            = Fetch<QString, QString, QString, QString, QString>({"kind", "text", "note", "shown", "applied"});
        const bool isBox = kind.startsWith("box in");
        for (const QLocale &locale : {QLocale::c(), QLocale(QLocale::German)}) {
            // The point of a field is the locale's in what is told, never in what is understood; a box has its own.
            if (isBox && locale.language() == QLocale::German) {
                for (QChar &mark : text)
                    mark = mark == '.' ? ',' : mark == ',' ? '.' : mark;
            }
            for (QString *told : {&note, &shown})
                told->replace('.', note.startsWith("unknown") ? QChar('.') : locale.decimalPoint());
            QLocale::setDefault(locale);
            if (!isBox && !Fields.contains(kind))
                QCOMPARE(Reader(kind, locale).Read(text).Note(), note);
            else
                for (const bool paste : {false, true})
                    Enter(isBox ? Boxes[kind.mid(14)] : Fields[kind], text, paste, note, shown, applied);
        }
    }

    void anyTextIsAppliedAsItIsShown()
    {
        Dice dice;
        for (const QString kind : {"MHz", "large", "start", "Hz", "open Hz"}) {
            const Field &place = Fields[kind];
            LiveForm live(ControlOf(place));
            auto *field = live.Find<VCLineEdit>(place.Name);
            const auto held = [&] { return AppliedBy(live, place).toDouble(); };
            field->setFocus();
            for (int step = FromEnvironment("ORBEL_TYPED_STEPS", 20000) / 50; step > 0; --step) {
                const QString text = dice.Text();
                ReplaceBy(text, field, field);
                const Orbel::TypedNumber typed = field->GetReader().Read(field->text());
                const double expected
                    = field->text() != Orbel::FrequencyText::Write(held()) && typed.IsNumber() ? typed.Number : held();
                QTest::keyClick(field, dice.Roll(2) ? Qt::Key_Return : Qt::Key_Tab);
                QTest::keyClick(field, Qt::Key_Escape);
                field->setFocus();
                QVERIFY2(held() == expected, qPrintable(text));
                QVERIFY2(Orbel::NumberReader::OfHertz().Read(field->text()).Number == held(), qPrintable(text));
                QVERIFY2(
                    !typed.IsNumber() || (held() >= field->GetReader().Minimum && held() <= field->GetReader().Maximum),
                    qPrintable(text));
            }
        }
    }

    void anyTextInABoxIsAppliedAsItIsShown()
    {
        Dice dice;
        for (const QString kind : {"dB", "count", "off", "Hz", "kHz", "MHz", "unit", "scaled"}) {
            LiveForm live(ControlOf(Boxes[kind]));
            auto *box = live.Find<Orbel::TypedSpinBox>("f");
            auto *edit = box->findChild<QLineEdit *>();
            const double unit = kind == "kHz" || kind == "scaled" ? 1000 : 1;
            box->setFocus();
            for (int step = FromEnvironment("ORBEL_TYPED_STEPS", 20000) / 80; step > 0; --step) {
                const QString text = dice.Text();
                const double before = box->value();
                ReplaceBy(text, box, edit);
                const double typed
                    = box->IsReadable() && edit->text() != "off" ? box->valueFromText(edit->text()) : before;
                QTest::keyClick(box, dice.Roll(2) ? Qt::Key_Return : Qt::Key_Tab);
                QTest::keyClick(box, Qt::Key_Escape);
                box->setFocus();
                const double expected = qBound(box->minimum(), typed, box->maximum());
                QVERIFY2(IsSameToFifteenDigits(box->value(), expected), qPrintable(text));
                QVERIFY2(box->value() >= box->minimum() && box->value() <= box->maximum(), qPrintable(text));
                const double held = AppliedBy(live, Boxes[kind]).toDouble();
                const QString shown = box->text() == "off" ? "0" : box->cleanText().remove(' ');
                QVERIFY2(IsSameToFifteenDigits(shown.toDouble() * unit, held), qPrintable(text));
            }
        }
    }

    void anyTextIsReadAsItIsTold()
    {
        Dice dice;
        int numbers = 0;
        const int steps = FromEnvironment("ORBEL_TYPED_STEPS", 20000);
        for (int step = steps; step > 0; --step) {
            const Orbel::NumberReader reader = dice.Reader();
            const QString text = dice.Text();
            QCOMPARE(Faults(reader, text) + " of " + text, " of " + text);
            numbers += reader.Read(text).IsNumber();
        }
        qInfo("%d of %d texts are numbers", numbers, steps);
    }

    void shownTexts_data()
    {
        const auto row = Columns<double, int, QString>({"hertz", "leastPower", "text"});
        row("zero", 0, 0, "0 Hz");
        row("a kilohertz", 1000, 0, "1.000 kHz");
        row("more than there is a unit for", 12345e9, 0, "12 345.000 000 000 GHz");
        row("fraction of a hertz", 1000000.9, 0, "1.000 000 9 MHz");
        row("zeros up to a digit", 8000, 8, "000.008 000 MHz");
        row("infinity", qInf(), 0, "");
    }
    void shownTexts()
    {
        const auto [hertz, leastPower] = Fetch<double, int>({"hertz", "leastPower"});
        QTEST(Orbel::FrequencyText::Write(hertz, leastPower), "text");
    }

    void everyDigitKnowsItsPlace()
    {
        const QString text = Orbel::FrequencyText::Write(-1234567890.5);
        QCOMPARE(text, QString("-1.234 567 890 5 GHz"));
        for (int power = 9; power >= -1; --power)
            QCOMPARE(Orbel::FrequencyText::PowerAt(text, Orbel::FrequencyText::PositionOf(text, power)),
                std::optional<int>(power));
        for (int position : {-1, 0, 2, 6, 16, 100})
            QVERIFY(!Orbel::FrequencyText::PowerAt(text, position));
        QCOMPARE(Orbel::FrequencyText::PositionOf(text, 10), -1);
    }

private:
    static QString ControlOf(const Field &place)
    {
        return Widget("f", place.Class, place.Properties + QStringList{"visible=Bool:true", "enabled=Bool:true"});
    }
    /// Types the text as one key. What is posted comes first, which else waits for an event loop.
    static void ReplaceBy(const QString &text, QWidget *control, QLineEdit *edit)
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        edit->selectAll();
        if (text.isEmpty())
            QTest::keyClick(control, Qt::Key_Delete);
        else
            QTest::sendKeyEvent(QTest::Click, control, Qt::Key_unknown, text, Qt::NoModifier);
    }
    /// QTest knows the keys of Latin letters only.
    static void TypeOrPaste(QWidget *field, const QString &text, bool paste)
    {
        field->setFocus();
        QTest::keySequence(field, QKeySequence::SelectAll);
        QTest::keyClick(field, Qt::Key_Delete);
        QApplication::clipboard()->setText(text);
        if (paste)
            QTest::keySequence(field, QKeySequence::Paste);
        for (const QChar letter : paste ? QString() : text)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
    static QString ShownBy(QWidget *control)
    {
        if (const auto *table = qobject_cast<QTableWidget *>(control))
            return qobject_cast<QStyledItemDelegate *>(table->itemDelegate())
                ->displayText(table->item(0, 0)->data(Qt::DisplayRole), table->locale());
        return control->property("text").toString();
    }
    static QString AppliedBy(const LiveForm &live, const Field &place)
    {
        const auto *table = live.Find<QTableWidget>(place.Name);
        return table ? table->item(0, 0)->text() : Tree::Instance()->GetNode("/Form/" + place.Node)->GetStringValue();
    }
    void Enter(const Field &place, const QString &text, bool paste, const QString &note, const QString &shown,
        const QString &applied)
    {
        LiveForm live(ControlOf(place));
        QWidget *control = live.Find(place.Name);
        const QString before = ShownBy(control), held = AppliedBy(live, place);
        auto *table = qobject_cast<QTableWidget *>(control);
        const QPointer<QWidget> field = table ? OpenCell(table, 0) : control;
        TypeOrPaste(field, text, paste);
        QCOMPARE(Orbel::FieldNote::TextOf(field), note);
        const bool isRefused = applied.isNull() && !note.isEmpty();
        QCOMPARE(field->palette().color(QPalette::Text) != live.window->palette().color(QPalette::Text), isRefused);
        const auto *edit = field->findChild<QLineEdit *>();
        const QString typed = field->property("text").toString();
        // What is typed ends with Return or Escape, what is pasted into a field when that is left.
        QFocusEvent leave(QEvent::FocusOut, Qt::TabFocusReason);
        const bool isLeft = paste && !edit;
        if (isLeft)
            QApplication::sendEvent(field, &leave);
        else
            QTest::keyClick(field, Qt::Key_Return);
        if (applied.isNull() && !isLeft) {
            QCOMPARE(field->property("text").toString(), typed);
            QCOMPARE(Orbel::FieldNote::TextOf(field).isEmpty(), note.isEmpty() && !edit);
            QTest::keyClick(field, Qt::Key_Escape);
        }
        PassTime(0);
        QCOMPARE(Orbel::FieldNote::TextOf(field), QString());
        QCOMPARE(ShownBy(control), applied.isNull() ? before : shown);
        QCOMPARE(AppliedBy(live, place), applied.isNull() ? held : applied);
    }
};

ORBEL_TEST_MAIN(TestTyped)
#include "tst_typed.moc"
