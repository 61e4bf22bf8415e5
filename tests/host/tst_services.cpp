// The services of the host layer: traces and exceptions, and translation catalogues.

#include "idllinstance.h"
#include "lxexception.h"
#include "testcase.h"
#include "trace.h"
#include "translationcenter.h"

#include <limits>

/// Writes a catalogue that translates "text" in the context `context` into `translation`.
static void WriteCatalogue(const QString &path, const QByteArray &context, const QString &translation)
{
    const QByteArray source = "text";
    quint32 hash = 0;
    for (const char c : source) {
        hash = (hash << 4) + uchar(c);
        hash ^= (hash & 0xf0000000) >> 24;
        hash &= 0x0fffffff;
    }
    QByteArray hashes, messages;
    QDataStream(&hashes, QIODevice::WriteOnly) << hash << quint32(0);
    QDataStream message(&messages, QIODevice::WriteOnly);
    message << quint8(3) << quint32(2 * translation.size());
    for (const QChar c : translation)
        message << c.unicode();
    // Byte arrays are streamed with their length before them, as the format has it.
    message << quint8(6) << source << quint8(7) << context << quint8(1);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd"));
    QDataStream(&file) << quint8(0x42) << hashes << quint8(0x69) << messages;
}

static QString Translated(const QString &context)
{
    return QCoreApplication::translate(context.toUtf8().constData(), "text");
}

class TestServices : public TestCase
{
    Q_OBJECT

    QTemporaryDir Directory;
    QString In(const char *name) const { return Directory.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        TranslationCenter::Instance().AddDirectory(In("first"));
        TranslationCenter::Instance().AddDirectory(In("second"));
    }
    void cleanup()
    {
        QLocale::setDefault(QLocale::c());
        TranslationCenter::Instance().SetListener({});
        ErrorHandler::Instance().SetSink({});
        ErrorHandler::Instance().SetTraceMask(0);
        QCOMPARE(TranslationCenter::Instance().GetRegistered(), QStringList("early"));
        QCOMPARE(LeftOver(), QString());
    }

    void nameRegisteredBeforeTheApplication() { QCOMPARE(Translated("early"), QString("in time")); }

    void catalogueIsFound_data()
    {
        // What is found is what it translates to: the file's name without .qm.
        const auto row = Columns<QStringList, QString>({"files", "found"});
        row("country_before_language", {"first/%1_de", "first/%1_de_AT"}, "first/%1_de_AT");
        row("language_before_plain", {"first/%1", "first/%1_de"}, "first/%1_de");
        row("first_directory_wins", {"first/%1", "second/%1_de"}, "first/%1");
        row("beside_the_program", {"program/%1"}, "program/%1");
    }

    void catalogueIsFound()
    {
        const auto [files, found] = Fetch<QStringList, QString>({"files", "found"});
        const QString name = QTest::currentDataTag();
        const QString beside = QCoreApplication::applicationDirPath() + "/translations/" + name;
        for (const QString &file : files) {
            const QString path = file.startsWith("program") ? beside : In(qPrintable(file.arg(name)));
            WriteCatalogue(path + ".qm", name.toUtf8(), file.arg(name));
        }
        QLocale::setDefault(QLocale("de_AT"));
        TranslationCenter::Instance().Register(name);
        QCOMPARE(Translated(name), found.arg(name));
        TranslationCenter::Instance().Unregister(name);
        QFile::remove(beside + ".qm");
        QCOMPARE(Translated(name), QString("text"));
    }

    void registrationsAreCounted()
    {
        TranslationCenter &center = TranslationCenter::Instance();
        QStringList log;
        center.SetListener([&log](bool registered, const QString &name) { log << (registered ? "+" : "-") + name; });
        for (const char *name : {"b", "a", "", "b"})
            center.Register(name);
        QCOMPARE(center.GetRegistered(), QStringList({"early", "b", "a"}));
        WriteCatalogue(In("late/b.qm"), "b", "late");
        center.AddDirectory(In("late"));
        center.Unregister("b");
        QCOMPARE(Translated("b"), QString("late"));
        QVERIFY(QDir(In("late")).removeRecursively());
        center.Reload();
        QCOMPARE(Translated("b"), QString("text"));
        for (const char *name : {"b", "b", "a"})
            center.Unregister(name);
        QCOMPARE(log.join(' '), QString("+b +a +b -b -b -a"));
    }

    void tracesAndExceptionsGoToTheSink()
    {
        constexpr unsigned int none = std::numeric_limits<unsigned int>::max();
        QStringList lines;
        ErrorHandler &handler = ErrorHandler::Instance();
        handler.SetSink([&lines](const QString &line) { lines << line; });
        for (const int mask : {0, int(ekTraceResync), int(ekTraceResync | ekTraceFailure)}) {
            handler.SetTraceMask(mask);
            TraceFailure("masked", "/some/where/file.cpp", mask);
        }
        _Q_Trace("with a line end\n", "file.cpp", 4);
        const LxException exception("no way", "file.cpp", "Class", "Method", 12, none);
        const int before = handler.GetExceptionCount();
        ErrorHandler::Interface()->TakeException(exception);
        QCOMPARE(handler.GetExceptionCount(), before + 1);
        for (const unsigned code : {none, 7u})
            ErrorHandler::Interface()->ReportException(exception, 0, code, 1, 0);
        const QString line = "Exception in Class::Method: no way (file.cpp:12)";
        const QString masked = QString("masked (file.cpp:%1)").arg(ekTraceResync | ekTraceFailure);
        QVERIFY2(IDllInstance("plain").Init(0, nullptr), "nothing keeps it from working");
        QCOMPARE(lines, QStringList({masked, "with a line end (file.cpp:4)", line, line + " code 7"}));
    }
};

int main(int argc, char **argv)
{
    QTemporaryDir directory;
    WriteCatalogue(directory.filePath("early.qm"), "early", "in time");
    TranslationCenter::Instance().AddDirectory(directory.path());
    TranslationCenter::Instance().Register("early");
    TestServices test;
    return Orbel::RunTest(&test, argc, argv);
}
#include "tst_services.moc"
