// Frequencies as texts: what is understood, what is shown, and that the two agree to the last hertz.

#include "frequencytext.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QtTest>

class TestFrequencyText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("hertz"); // empty for a text that is no frequency
        const QVector<QPair<const char *, const char *>> texts{{"145.5M", "145500000"}, {"145.5 MHz", "145500000"},
            {"145,5 mhz", "145500000"}, {"8k", "8000"}, {"2.4 GHz", "2400000000"}, {"100000", "100000"},
            {" 1 234 567 Hz ", "1234567"}, {"144.800 000 MHZ", "144800000"}, {".5k", "500"}, {"5.", "5"},
            {"-12.5k", "-12500"}, {"+1g", "1000000000"}, {"0.000000001 GHz", "1"}, {"1.0000005M", "1000000.5"},
            {"99999999999", "99999999999"},
            {"\u2212"
             "3",
                "-3"},
            {"\u0661\u0662k", "12000"},
            {"1\u00a0"
             "000",
                "1000"},
            {"", ""}, {"MHz", ""}, {".", ""}, {"-", ""}, {"1.2.3M", ""}, {"1,234.5", ""}, {"145.5 MB", ""}, {"1e6", ""},
            {"12 34x", ""}, {"nan", ""}, {"inf", ""}, {"5 m", "5000000"}, {"3 h", ""}, {"0x10", ""}};
        for (const auto &[text, hertz] : texts)
            QTest::newRow(text) << QString::fromUtf8(text) << QString(hertz);
        QTest::newRow("too large for a number") << QString(400, '9') << QString();
        QTest::newRow("ten thousand blanks") << QString(10000, ' ') + "7" << QString("7");
    }
    void typedTexts()
    {
        QFETCH(QString, text);
        QFETCH(QString, hertz);
        const auto read = FrequencyText::Read(text);
        QCOMPARE(read ? FrequencyText::Plain(*read) : QString(), hertz);
        if (!read)
            return;
        QCOMPARE(*FrequencyText::Read(FrequencyText::Write(*read)), *read);
        const QLocale german(QLocale::German);
        QCOMPARE(*FrequencyText::Read(FrequencyText::Write(*read, 5, german.decimalPoint()), german), *read);
    }

    void shownTexts_data()
    {
        QTest::addColumn<double>("hertz");
        QTest::addColumn<int>("leastPower");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0.0 << 0 << "0 Hz";
        QTest::newRow("below a kilohertz") << 999.0 << 0 << "999 Hz";
        QTest::newRow("a kilohertz") << 1000.0 << 0 << "1.000 kHz";
        QTest::newRow("megahertz") << 145.5e6 << 0 << "145.500 000 MHz";
        QTest::newRow("gigahertz") << 26.5e9 << 0 << "26.500 000 000 GHz";
        QTest::newRow("more than there is a unit for") << 12345e9 << 0 << "12 345.000 000 000 GHz";
        QTest::newRow("fraction of a hertz") << 1000000.9 << 0 << "1.000 000 9 MHz";
        QTest::newRow("negative") << -2500.0 << 0 << "-2.500 kHz";
        QTest::newRow("zeros up to a digit") << 8000.0 << 8 << "000.008 000 MHz";
        QTest::newRow("infinity") << qInf() << 0 << "";
    }
    void shownTexts()
    {
        QFETCH(double, hertz);
        QFETCH(int, leastPower);
        QTEST(FrequencyText::Write(hertz, leastPower), "text");
    }

    void everyDigitKnowsItsPlace()
    {
        const QString text = FrequencyText::Write(-1234567890.5);
        QCOMPARE(text, QString("-1.234 567 890 5 GHz"));
        for (int power = 9; power >= -1; --power)
            QCOMPARE(FrequencyText::PowerAt(text, FrequencyText::PositionOf(text, power)), std::optional<int>(power));
        for (int position : {-1, 0, 2, 6, 16, 100})
            QVERIFY(!FrequencyText::PowerAt(text, position));
        QCOMPARE(FrequencyText::PositionOf(text, 10), -1);
    }

    void aMillionFrequenciesReadBackAsShown()
    {
        QRandomGenerator random(20260101);
        for (int i = 0; i < 1000000; ++i) {
            const double hertz = double(random.generate64() % 100000000001ULL);
            const auto read = FrequencyText::Read(FrequencyText::Write(hertz, i % 12));
            if (!read || *read != hertz)
                QFAIL(qPrintable(QString::number(hertz, 'f', 3)));
        }
    }
};

ORBEL_TEST_MAIN(TestFrequencyText)
#include "tst_frequencytext.moc"
