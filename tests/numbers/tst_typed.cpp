// What an operator types or pastes: what each kind of field makes of it.

#include "numberreader.h"
#include "testmain.h"

#include <QtTest>

namespace
{

NumberReader Reader(const QString &kind, const QLocale &locale)
{
    NumberReader reader;
    reader.Locale = locale;
    reader.IsFrequency = !kind.startsWith("number") && kind != "integer";
    if (kind.startsWith("receiver")) {
        reader.Minimum = 9e3;
        reader.Maximum = 26.5e9;
        reader.IsWhole = true;
        reader.ShownPower = kind.endsWith("GHz") ? 9 : kind.endsWith("MHz") ? 6 : kind.endsWith("kHz") ? 3 : 0;
    } else if (kind.startsWith("box")) {
        reader.TakesShownUnit = true;
        reader.IsWhole = true;
        reader.Suffix = kind.mid(4);
        reader.ShownPower = kind.endsWith("MHz") ? 6 : kind.endsWith("kHz") ? 3 : 0;
        reader.Decimals = reader.ShownPower;
    } else if (kind == "number dBm") {
        reader.Suffix = " dBm";
        reader.Decimals = 2;
    } else if (kind == "integer") {
        reader.Decimals = 0;
    } else if (kind == "open MHz") {
        reader.ShownPower = 6;
    }
    return reader;
}

// clang-format off
constexpr struct { const char *Kind, *Text, *Note; } Texts[] = {
    // An integer is in hertz where that lies within the limits, else in the shown unit; a number with a point the other way.
    {"receiver MHz", "145.5",             "= 145.500 000 MHz"},
    {"receiver MHz", "145,5",             "= 145.500 000 MHz"},
    {"receiver MHz", "145",               "= 145.000 000 MHz"},
    {"receiver MHz", "9",                 "= 9.000 000 MHz"},
    {"receiver MHz", "8999",              "= 8.999 000 000 GHz"},
    {"receiver MHz", "9000",              "= 9.000 kHz"},
    {"receiver MHz", "145500000",         "= 145.500 000 MHz"},
    {"receiver MHz", "145500",            "= 145.500 kHz"},
    {"receiver MHz", "145500000.0",       "= 145.500 000 MHz"},
    {"receiver MHz", "27000",             "= 27.000 kHz"},
    {"receiver MHz", "27000.0",           "= 27.000 kHz"},
    {"receiver MHz", "26500.0",           "= 26.500 000 000 GHz"},
    {"receiver MHz", "0",                 "below 9 kHz"},
    {"receiver MHz", "0.008",             "below 9 kHz"},
    {"receiver MHz", "0.009",             "= 9.000 kHz"},
    {"receiver MHz", "26500000001",       "above 26.5 GHz"},
    {"receiver MHz", "-145.5",            "below 9 kHz"},
    {"receiver kHz", "12.5",              "= 12.500 kHz"},
    {"receiver kHz", "12",                "= 12.000 kHz"},
    {"receiver kHz", "8",                 "below 9 kHz"},
    {"receiver kHz", "145500.5",          "= 145.500 500 MHz"},
    {"receiver kHz", "8999",              "= 8.999 000 MHz"},
    {"receiver GHz", "2.4",               "= 2.400 000 000 GHz"},
    {"receiver GHz", "26",                "= 26.000 000 000 GHz"},
    {"receiver GHz", "27",                "above 26.5 GHz"},
    {"receiver GHz", "145500.0",          "= 145.500 kHz"},
    {"receiver Hz",  "145.5",             "below 9 kHz"},
    {"receiver Hz",  "9000",              "= 9.000 kHz"},
    {"open MHz",     "145",               "= 145 Hz"},
    {"open MHz",     "145.5",             "= 145.500 000 MHz"},
    {"open MHz",     "-3",                "= -3 Hz"},
    {"open",         "145.5",             "= 145.5 Hz"},
    {"open",         "99999999999",       "= 99.999 999 999 GHz"},
    // Units.
    {"receiver Hz",  "145.5M",            "= 145.500 000 MHz"},
    {"receiver Hz",  "145.5 mhz",         "= 145.500 000 MHz"},
    {"receiver Hz",  "145500000 hZ",      "= 145.500 000 MHz"},
    {"receiver MHz", "145500 k",          "= 145.500 000 MHz"},
    {"receiver MHz", "9000 Hz",           "= 9.000 kHz"},
    {"receiver MHz", "9 Hz",              "below 9 kHz"},
    {"receiver MHz", "2.4 GHZ",           "= 2.400 000 000 GHz"},
    {"receiver MHz", "1g",                "= 1.000 000 000 GHz"},
    {"receiver MHz", "26.6 G",            "above 26.5 GHz"},
    {"receiver MHz", "145.5 MH",          ""},
    {"receiver MHz", "145.5 H",           ""},
    {"receiver MHz", "145.5 MB",          "unknown unit \"MB\""},
    {"receiver MHz", "1e6",               "unknown unit \"e6\""},
    {"receiver MHz", "145.5x",            "unknown unit \"x\""},
    {"receiver MHz", "100 megahertz ago", "unknown unit \"megahertzago\""},
    {"receiver MHz", "145.5 M-5",         "unknown unit \"M-5\""},
    {"receiver MHz", "MHz",               "no number"},
    {"receiver MHz", "nan",               "no number"},
    {"receiver MHz", "inf",               "no number"},
    {"receiver MHz", "0x10",              "unknown unit \"x10\""},
    {"receiver MHz", "",                  ""},
    {"receiver MHz", "  ",                ""},
    {"receiver MHz", "-",                 ""},
    {"receiver MHz", "+",                 ""},
    {"receiver MHz", ".",                 ""},
    {"receiver MHz", "..",                "two decimal points"},
    // Points and groups.
    {"receiver MHz", "145.500.000",       "= 145.500 000 MHz"},
    {"receiver MHz", "145,500,000",       "= 145.500 000 MHz"},
    {"receiver MHz", "1.234.567,8",       "= 1.234 568 MHz"},
    {"receiver MHz", "1,234,567.8 Hz",    "= 1.234 568 MHz"},
    {"receiver MHz", "1,234.5",           "= 1.234 500 000 GHz"},
    {"receiver MHz", "1.234,5",           "= 1.234 500 000 GHz"},
    {"receiver MHz", "1.234,567,890 G",   "= 1.234 567 890 GHz"},
    {"receiver MHz", "1.5,000,000",       "groups have three digits"},
    {"receiver MHz", "1.2.3",             "two decimal points"},
    {"receiver MHz", "145.5.",            "two decimal points"},
    {"receiver MHz", "1.234.5",           ""},
    {"receiver MHz", "1.234.",            ""},
    {"receiver MHz", "1.2345.678",        "two decimal points"},
    {"receiver MHz", "12,34.5",           "two decimal points"},
    {"receiver MHz", "1,2,3,4",           "groups have three digits"},
    {"receiver MHz", "1.234.567,890,123", "groups have three digits"},
    {"receiver MHz", "145'500'000",       "= 145.500 000 MHz"},
    {"receiver MHz", "145_500_000_",      "= 145.500 000 MHz"},
    {"receiver MHz", "145\u2019500\u2019000", "= 145.500 000 MHz"},
    {"receiver MHz", " 145 . 5 M Hz ",    "= 145.500 000 MHz"},
    {"receiver MHz", "144.800 000 MHz",   "= 144.800 000 MHz"},
    {"receiver MHz", "144\u00a0" "800\u202f" "000\u2009", "= 144.800 000 MHz"},
    {"receiver MHz", "\ufeff\u200e" "145.5\u200b", "= 145.500 000 MHz"},
    {"receiver MHz", "14 5,5",            "= 145.500 000 MHz"},
    {"receiver MHz", ".5",                "= 500.000 kHz"},
    {"receiver MHz", "5.",                "= 5.000 000 MHz"},
    {"receiver MHz", "+5",                "= 5.000 000 MHz"},
    {"open",         "\u2212" "3",        "= -3 Hz"},
    {"open",         "-12.5k",            "= -12.500 kHz"},
    {"open",         "-0",                "= 0 Hz"},
    {"open",         "\u0661\u0662k",     "= 12.000 kHz"},
    {"open",         "\U0001d7d9\U0001d7da", "= 12 Hz"},
    {"open",         "--3",               "no number"},
    // Whole hertz.
    {"receiver MHz", "145.5000004",       "= 145.500 000 MHz"},
    {"receiver MHz", "145.5000005",       "= 145.500 001 MHz"},
    {"receiver MHz", "26500.0000004",     "= 26.500 000 000 GHz"},
    {"receiver MHz", "8999.5 Hz",         "= 9.000 kHz"},
    {"open",         "0.000000001 GHz",   "= 1 Hz"},
    {"open",         "1.0000005M",        "= 1.000 000 5 MHz"},
    // Boxes.
    {"box Hz",       "15k",               "= 15.000 kHz"},
    {"box Hz",       "15 kHz",            "= 15.000 kHz"},
    {"box Hz",       "15kHzHz",           "= 15.000 kHz"},
    {"box Hz",       "15 Hz",             "= 15 Hz"},
    {"box Hz",       "15Hz Hz",           "= 15 Hz"},
    {"box Hz",       "15",                "= 15 Hz"},
    {"box Hz",       "15.4",              "= 15 Hz"},
    {"box Hz",       "Hz",                ""},
    {"box Hz",       "15kH Hz",           ""},
    {"box Hz",       "x Hz",              "no number"},
    {"box kHz",      "12.5",              "= 12.500 kHz"},
    {"box kHz",      "12",                "= 12.000 kHz"},
    {"box kHz",      "12500 Hz kHz",      "= 12.500 kHz"},
    {"box kHz",      "2 MkHz",            "= 2.000 000 MHz"},
    {"box kHz",      "1.0015",            "= 1.002 kHz"},
    {"box MHz",      "0.0000005",         "= 1 Hz"},
    {"box MHz",      "1 kHz",             "= 1.000 kHz"},
    {"number dBm",   "-12.5",             "= -12.5 dBm"},
    {"number dBm",   "-12,50 dbm",        "= -12.5 dBm"},
    {"number dBm",   "-12.5 dBm dBm",     "= -12.5 dBm"},
    {"number dBm",   "1 000.25",          "= 1000.25 dBm"},
    {"number dBm",   "1.234,5",           "= 1234.5 dBm"},
    {"number dBm",   "1.255",             "at most 2 digits behind the point"},
    {"number dBm",   "5 dB",              ""},
    {"number dBm",   "5k",                "unknown unit \"k\""},
    {"number dBm",   "5 k dBm",           "unknown unit \"k\""},
    {"number dBm",   "- dBm",             ""},
    {"integer",      "1.000",             "= 1"},
    {"integer",      "1.000.000",         "= 1000000"},
    {"integer",      "1 000",             "= 1000"},
    {"integer",      "1.5",               "whole numbers only"},
    {"integer",      "5k",                "unknown unit \"k\""},
};
// clang-format on

} // namespace

class TestTyped : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("note");
        for (const auto &row : Texts)
            QTest::addRow("%s: %s", row.Kind, row.Text)
                << QString(row.Kind) << QString::fromUtf8(row.Text) << QString::fromUtf8(row.Note);
        QTest::newRow("too long for a number") << "open" << QString(400, '9') << "too large";
        QTest::newRow("too long within limits") << "receiver MHz" << QString(400, '9') << "too large";
        QTest::newRow("ten thousand blanks") << "open" << QString(10000, ' ') + "7" << "= 7 Hz";
    }
    void texts()
    {
        QFETCH(QString, kind);
        QFETCH(QString, text);
        QFETCH(QString, note);
        QCOMPARE(Reader(kind, QLocale::c()).Read(text).Note(), note);
        // The point is the locale's in what is told, never in what is understood.
        if (note.startsWith("= ") || note.startsWith("above"))
            note.replace('.', ',');
        QCOMPARE(Reader(kind, QLocale(QLocale::German)).Read(text).Note(), note);
    }
};

ORBEL_TEST_MAIN(TestTyped)
#include "tst_typed.moc"
