// What an operator types or pastes: what each kind of field understands, shows and applies.

#include "fieldnote.h"
#include "frequencytext.h"
#include "liveform.h"
#include "numberreader.h"
#include "testmain.h"

#include <QClipboard>
#include <QtTest>

namespace
{

/// A field in a form of its own: the control "f" of that class, its field, and the property of the field's number.
struct Field {
    QString Class;
    QStringList Properties;
    QString Name = "f", Property = "value";
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
    fields["start"].Property = "startFrequency";
    fields["stop"].Name = "f_StopFrequency";
    fields["stop"].Property = "stopFrequency";
    return fields;
}();

/// The reader of a kind of field that stands in no form here.
NumberReader Reader(const QString &kind, const QLocale &locale)
{
    NumberReader reader = NumberReader::OfHertz(locale);
    reader.IsFrequency = kind != "number dBm" && kind != "integer";
    if (kind.startsWith("box")) {
        reader.TakesShownUnit = true;
        reader.IsWhole = true;
        reader.Suffix = kind.mid(4);
        reader.ShownPower = FrequencyText::PowerOfUnit(reader.Suffix).value_or(0);
        reader.Decimals = reader.ShownPower;
    } else if (kind == "number dBm") {
        reader.Suffix = " dBm";
        reader.Decimals = 2;
    } else if (kind == "integer") {
        reader.Decimals = 0;
    }
    return reader;
}

// What is understood, which the field then shows; an empty note is of a text that may become a number. What is applied,
// in Hz; null for nothing.
// clang-format off
constexpr struct { const char *Kind, *Text, *Note, *Applied; } Texts[] = {
    // An integer is in hertz where that lies within the limits, else in the shown unit; a number with a point the other way.
    {"MHz",        "145.5",                       "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145,5",                       "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145",                         "= 145.000 000 MHz",                  "145000000"},
    {"MHz",        "9",                           "= 9.000 000 MHz",                    "9000000"},
    {"MHz",        "8999",                        "= 8.999 000 000 GHz",                "8999000000"},
    {"MHz",        "9000",                        "= 9.000 kHz",                        "9000"},
    {"MHz",        "145500000",                   "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145500",                      "= 145.500 kHz",                      "145500"},
    {"MHz",        "145500000.0",                 "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "27000",                       "= 27.000 kHz",                       "27000"},
    {"MHz",        "27000.0",                     "= 27.000 kHz",                       "27000"},
    {"MHz",        "26500.0",                     "= 26.500 000 000 GHz",               "26500000000"},
    {"MHz",        "0",                           "below 9 kHz",                        nullptr},
    {"MHz",        "0.008",                       "below 9 kHz",                        nullptr},
    {"MHz",        "0.009",                       "= 9.000 kHz",                        "9000"},
    {"MHz",        "26500000001",                 "above 26.5 GHz",                     nullptr},
    {"MHz",        "-145.5",                      "below 9 kHz",                        nullptr},
    {"kHz",        "12.5",                        "= 12.500 kHz",                       "12500"},
    {"kHz",        "12",                          "= 12.000 kHz",                       "12000"},
    {"kHz",        "8",                           "below 9 kHz",                        nullptr},
    {"kHz",        "145500.5",                    "= 145.500 500 MHz",                  "145500500"},
    {"kHz",        "8999",                        "= 8.999 000 MHz",                    "8999000"},
    {"GHz",        "2.4",                         "= 2.400 000 000 GHz",                "2400000000"},
    {"GHz",        "26",                          "= 26.000 000 000 GHz",               "26000000000"},
    {"GHz",        "27",                          "above 26.5 GHz",                     nullptr},
    {"GHz",        "145500.0",                    "= 145.500 kHz",                      "145500"},
    {"Hz",         "145.5",                       "= 146 Hz",                           "146"},
    {"Hz",         "20001",                       "above 20 kHz",                       nullptr},
    {"Hz",         "-1",                          "below 0 Hz",                         nullptr},
    {"Hz",         "15 kHz",                      "= 15.000 kHz",                       "15000"},
    {"Hz",         "12.5k",                       "= 12.500 kHz",                       "12500"},
    {"Hz",         "9000",                        "= 9.000 kHz",                        "9000"},
    {"open MHz",   "145",                         "= 145 Hz",                           "145"},
    {"open MHz",   "145.5",                       "= 145.500 000 MHz",                  "145500000"},
    {"open MHz",   "-3",                          "= -3 Hz",                            "-3"},
    {"reader",     "145.5",                       "= 145.5 Hz",                         "145.5"},
    {"reader",     "99999999999",                 "= 99.999 999 999 GHz",               "99999999999"},
    {"large",      "145.5",                       "= 145.500 000 MHz",                  "145500000"},
    {"large",      "145",                         "= 145.000 000 MHz",                  "145000000"},
    {"large",      "90g",                         "above 26.5 GHz",                     nullptr},
    {"large",      "8",                           "= 8.000 000 MHz",                    "8000000"},
    {"large",      "abc",                         "no number",                          nullptr},
    {"large",      "M145",                        "no number",                          nullptr},
    {"large",      "145.5 M",                     "= 145.500 000 MHz",                  "145500000"},
    {"large",      "145500 kHz",                  "= 145.500 000 MHz",                  "145500000"},
    {"start",      "144.8",                       "= 144.800 000 MHz",                  "144800000"},
    {"start",      "8",                           "= 8.000 000 MHz",                    "8000000"},
    {"start",      "8 k",                         "= 8.000 kHz",                        "8000"},
    {"start",      "26.5 G",                      "above 26.499 999 999 GHz",           nullptr},
    {"start",      "300",                         "= 300.000 000 MHz",                  "300000000"},
    {"stop",       "146",                         "= 146.000 000 MHz",                  "146000000"},
    {"stop",       "26.5 G",                      "= 26.500 000 000 GHz",               "26500000000"},
    {"stop",       "8 k",                         "below 8.001 kHz",                    nullptr},
    {"stop",       "50",                          "= 50.000 000 MHz",                   "50000000"},
    // Units.
    {"open Hz",    "145.5M",                      "= 145.500 000 MHz",                  "145500000"},
    {"open Hz",    "145.5 mhz",                   "= 145.500 000 MHz",                  "145500000"},
    {"open Hz",    "145500000 hZ",                "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145500 k",                    "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "9000 Hz",                     "= 9.000 kHz",                        "9000"},
    {"MHz",        "9 Hz",                        "below 9 kHz",                        nullptr},
    {"MHz",        "2.4 GHZ",                     "= 2.400 000 000 GHz",                "2400000000"},
    {"MHz",        "1g",                          "= 1.000 000 000 GHz",                "1000000000"},
    {"MHz",        "26.6 G",                      "above 26.5 GHz",                     nullptr},
    {"MHz",        "145.5 MH",                    "",                                   nullptr},
    {"MHz",        "145.5 H",                     "",                                   nullptr},
    {"MHz",        "145.5 MB",                    "unknown unit \"MB\"",                nullptr},
    {"MHz",        "1e6",                         "unknown unit \"e6\"",                nullptr},
    {"MHz",        "145.5x",                      "unknown unit \"x\"",                 nullptr},
    {"MHz",        "100 megahertz ago",           "unknown unit \"megahertzago\"",      nullptr},
    {"MHz",        "145.5 M-5",                   "unknown unit \"M-5\"",               nullptr},
    {"MHz",        "MHz",                         "no number",                          nullptr},
    {"MHz",        "nan",                         "no number",                          nullptr},
    {"MHz",        "inf",                         "no number",                          nullptr},
    {"MHz",        "0x10",                        "unknown unit \"x10\"",               nullptr},
    {"MHz",        "",                            "",                                   nullptr},
    {"MHz",        "  ",                          "",                                   nullptr},
    {"MHz",        "-",                           "",                                   nullptr},
    {"MHz",        "+",                           "",                                   nullptr},
    {"MHz",        ".",                           "",                                   nullptr},
    {"MHz",        "..",                          "two decimal points",                 nullptr},
    // Points and groups.
    {"MHz",        "145.500.000",                 "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145,500,000",                 "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "1.234.567,8",                 "= 1.234 568 MHz",                    "1234568"},
    {"MHz",        "1,234,567.8 Hz",              "= 1.234 568 MHz",                    "1234568"},
    {"MHz",        "1,234.5",                     "= 1.234 500 000 GHz",                "1234500000"},
    {"MHz",        "1.234,5",                     "= 1.234 500 000 GHz",                "1234500000"},
    {"MHz",        "1.234,567,890 G",             "= 1.234 567 890 GHz",                "1234567890"},
    {"MHz",        "1.5,000,000",                 "groups have three digits",           nullptr},
    {"MHz",        "1.2.3",                       "two decimal points",                 nullptr},
    {"MHz",        "145.5.",                      "two decimal points",                 nullptr},
    {"MHz",        "1.234.5",                     "",                                   nullptr},
    {"MHz",        "1.234.",                      "",                                   nullptr},
    {"MHz",        "1.2345.678",                  "two decimal points",                 nullptr},
    {"MHz",        "12,34.5",                     "two decimal points",                 nullptr},
    {"MHz",        "1,2,3,4",                     "groups have three digits",           nullptr},
    {"MHz",        "1.234.567,890,123",           "groups have three digits",           nullptr},
    {"MHz",        "145'500'000",                 "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145_500_000_",                "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145\u2019500\u2019000",       "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        " 145 . 5 M Hz ",              "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "144.800 000 MHz",             "= 144.800 000 MHz",                  "144800000"},
    {"MHz",        "144\u00a0" "800\u202f" "000\u2009", "= 144.800 000 MHz",                  "144800000"},
    {"MHz",        "\ufeff\u200e" "145.5\u200b",  "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "14 5,5",                      "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        ".5",                          "= 500.000 kHz",                      "500000"},
    {"MHz",        "5.",                          "= 5.000 000 MHz",                    "5000000"},
    {"MHz",        "+5",                          "= 5.000 000 MHz",                    "5000000"},
    {"reader",     "\u2212" "3",                  "= -3 Hz",                            "-3"},
    {"reader",     "-12.5k",                      "= -12.500 kHz",                      "-12500"},
    {"reader",     "-0",                          "= 0 Hz",                             "0"},
    {"reader",     "\u0661\u0662k",               "= 12.000 kHz",                       "12000"},
    {"reader",     "\U0001d7d9\U0001d7da",        "= 12 Hz",                            "12"},
    {"reader",     "--3",                         "no number",                          nullptr},
    // Whole hertz.
    {"MHz",        "145.5000004",                 "= 145.500 000 MHz",                  "145500000"},
    {"MHz",        "145.5000005",                 "= 145.500 001 MHz",                  "145500001"},
    {"MHz",        "26500.0000004",               "= 26.500 000 000 GHz",               "26500000000"},
    {"MHz",        "8999.5 Hz",                   "= 9.000 kHz",                        "9000"},
    {"reader",     "0.000000001 GHz",             "= 1 Hz",                             "1"},
    {"reader",     "1.0000005M",                  "= 1.000 000 5 MHz",                  "1000000.5"},
    // Boxes.
    {"box Hz",     "15k",                         "= 15.000 kHz",                       "15000"},
    {"box Hz",     "15 kHz",                      "= 15.000 kHz",                       "15000"},
    {"box Hz",     "15kHzHz",                     "= 15.000 kHz",                       "15000"},
    {"box Hz",     "15 Hz",                       "= 15 Hz",                            "15"},
    {"box Hz",     "15Hz Hz",                     "= 15 Hz",                            "15"},
    {"box Hz",     "15",                          "= 15 Hz",                            "15"},
    {"box Hz",     "15.4",                        "= 15 Hz",                            "15"},
    {"box Hz",     "Hz",                          "",                                   nullptr},
    {"box Hz",     "15kH Hz",                     "",                                   nullptr},
    {"box Hz",     "x Hz",                        "no number",                          nullptr},
    {"box kHz",    "12.5",                        "= 12.500 kHz",                       "12500"},
    {"box kHz",    "12",                          "= 12.000 kHz",                       "12000"},
    {"box kHz",    "12500 Hz kHz",                "= 12.500 kHz",                       "12500"},
    {"box kHz",    "2 MkHz",                      "= 2.000 000 MHz",                    "2000000"},
    {"box kHz",    "1.0015",                      "= 1.002 kHz",                        "1002"},
    {"box MHz",    "0.0000005",                   "= 1 Hz",                             "1"},
    {"box MHz",    "1 kHz",                       "= 1.000 kHz",                        "1000"},
    {"number dBm", "-12.5",                       "= -12.5 dBm",                        nullptr},
    {"number dBm", "-12,50 dbm",                  "= -12.5 dBm",                        nullptr},
    {"number dBm", "-12.5 dBm dBm",               "= -12.5 dBm",                        nullptr},
    {"number dBm", "1 000.25",                    "= 1000.25 dBm",                      nullptr},
    {"number dBm", "1.234,5",                     "= 1234.5 dBm",                       nullptr},
    {"number dBm", "1.255",                       "at most 2 digits behind the point",  nullptr},
    {"number dBm", "5 dB",                        "",                                   nullptr},
    {"number dBm", "5k",                          "unknown unit \"k\"",                 nullptr},
    {"number dBm", "5 k dBm",                     "unknown unit \"k\"",                 nullptr},
    {"number dBm", "- dBm",                       "",                                   nullptr},
    {"integer",    "1.000",                       "= 1",                                nullptr},
    {"integer",    "1.000.000",                   "= 1000000",                          nullptr},
    {"integer",    "1 000",                       "= 1000",                             nullptr},
    {"integer",    "1.5",                         "whole numbers only",                 nullptr},
    {"integer",    "5k",                          "unknown unit \"k\"",                 nullptr},
};
// clang-format on

} // namespace

class TestTyped : public QObject
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
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("note");
        QTest::addColumn<QString>("applied");
        for (const auto &row : Texts)
            QTest::addRow("%s: %s", row.Kind, row.Text) << QString(row.Kind) << QString::fromUtf8(row.Text)
                                                        << QString::fromUtf8(row.Note) << QString(row.Applied);
        for (const char *kind : {"reader", "MHz", "large"})
            QTest::addRow("%s: too long for a number", kind) << kind << QString(400, '9') << "too large" << QString();
        QTest::newRow("ten thousand blanks") << "reader" << QString(10000, ' ') + "7"
                                             << "= 7 Hz"
                                             << "7";
    }
    void texts()
    {
        QFETCH(QString, kind);
        QFETCH(QString, text);
        QFETCH(QString, note);
        QFETCH(QString, applied);
        for (const QLocale &locale : {QLocale::c(), QLocale(QLocale::German)}) {
            // The point is the locale's in what is told, never in what is understood.
            if (!note.startsWith("unknown"))
                note.replace('.', locale.decimalPoint());
            if (!Fields.contains(kind)) {
                QCOMPARE(Reader(kind, locale).Read(text).Note(), note);
                continue;
            }
            QLocale::setDefault(locale);
            for (const bool paste : {false, true})
                Enter(Fields[kind], text, paste, note, applied);
        }
    }

private:
    void Enter(const Field &place, const QString &text, bool paste, const QString &note, const QString &applied)
    {
        LiveForm live(
            forms::Widget("f", place.Class, place.Properties + QStringList{"visible=Bool:true", "enabled=Bool:true"}));
        QWidget *field = live.Find(place.Name);
        const QString before = field->property("text").toString();
        const QColor colour = field->palette().color(QPalette::Text);
        const QVariant held = live.Get("f")->property(place.Property.toLatin1());
        field->setFocus();
        QTest::keySequence(field, QKeySequence::SelectAll);
        QTest::keyClick(field, Qt::Key_Delete);
        QApplication::clipboard()->setText(text);
        if (paste)
            QTest::keySequence(field, QKeySequence::Paste);
        // QTest knows the keys of Latin letters only.
        for (const QChar letter : paste ? QString() : text)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(letter), Qt::NoModifier);
        QCOMPARE(FieldNote::TextOf(field), note);
        const bool refused = applied.isNull() && !note.isEmpty();
        QCOMPARE(field->palette().color(QPalette::Text) != colour, refused);
        QTest::keyClick(field, Qt::Key_Return);
        if (applied.isNull()) {
            QCOMPARE(field->property("text").toString(), text);
            QCOMPARE(FieldNote::TextOf(field), note);
            QTest::keyClick(field, Qt::Key_Escape);
        }
        QCOMPARE(FieldNote::TextOf(field), QString());
        QCOMPARE(live.Get("f")->property(place.Property.toLatin1()).toString(),
            applied.isNull() ? held.toString() : applied);
        QCOMPARE(field->property("text").toString(), applied.isNull() ? before : note.mid(2));
    }
};

ORBEL_TEST_MAIN(TestTyped)
#include "tst_typed.moc"
