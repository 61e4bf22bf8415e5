// Frequencies as texts: what is shown, and that it reads back to the last hertz.

#include "frequencytext.h"
#include "numberreader.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QtTest>

class TestFrequencyText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    void frequenciesReadBackAsShown()
    {
        QRandomGenerator random(20260101);
        for (int i = 0; i < 100000; ++i) {
            const double hertz = double(random.generate64() % 100000000001ULL);
            const TypedNumber read = NumberReader::OfHertz().Read(FrequencyText::Write(hertz, i % 12));
            if (!read.IsNumber() || read.Number != hertz)
                QFAIL(qPrintable(QString::number(hertz, 'f', 3)));
        }
    }
};

ORBEL_TEST_MAIN(TestFrequencyText)
#include "tst_frequencytext.moc"
