// Inputs that once broke something, found by fuzzing, and the seeds from which fuzzing starts: fed to the functions of
// the fuzzing programs, which end the process when something is wrong.

#include "fuzzsupport.h"
#include "testcase.h"

using Feed = int (*)(const uint8_t *data, size_t size);

#define FUZZ_PROGRAM(name) extern "C" int fuzz_##name(const uint8_t *data, size_t size);
FUZZ_PROGRAM(definition)
FUZZ_PROGRAM(changed)
FUZZ_PROGRAM(parameters)
FUZZ_PROGRAM(components)
FUZZ_PROGRAM(scanranges)
FUZZ_PROGRAM(exclusions)
FUZZ_PROGRAM(texts)

namespace
{

const QMap<QString, Feed> Programs{{"definition", fuzz_definition}, {"changed", fuzz_changed},
    {"parameters", fuzz_parameters}, {"components", fuzz_components}, {"scanranges", fuzz_scanranges},
    {"exclusions", fuzz_exclusions}, {"texts", fuzz_texts}};

} // namespace

class TestInputs : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        fuzz::EndKeptForm();
        QCOMPARE(LeftOver(), QString());
    }

    void areTaken_data()
    {
        QTest::addColumn<QString>("path");
        for (const char *folder : {"/fuzz/seeds", "/tests/strength/inputs"}) {
            QDirIterator walk(QString(ORBEL_SOURCE_DIR) + folder, QDir::Files, QDirIterator::Subdirectories);
            while (walk.hasNext()) {
                const QString path = walk.next();
                QTest::newRow(qPrintable(path.section('/', -3))) << path;
            }
        }
    }

    void areTaken()
    {
        QFETCH(QString, path);
        const Feed feed = Programs.value(path.section('/', -2, -2));
        QVERIFY2(feed, "the folder is named like a fuzzing program");
        const QByteArray bytes = BytesOf(path);
        const auto *data = reinterpret_cast<const uint8_t *>(bytes.constData());
        QCOMPARE(feed(data, size_t(bytes.size())), 0);
        QCOMPARE(feed(data, size_t(bytes.size())), 0);
    }
};

ORBEL_TEST_MAIN(TestInputs)
#include "tst_inputs.moc"
