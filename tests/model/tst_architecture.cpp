// Dependencies run one way, from the command down to the host. Reads the include lines of the sources.

#include <QtTest>

namespace
{

/// From the lowest to the highest: a file includes from its own room and from those before it.
const QStringList Rooms{"host/services", "host/valuetree", "host/controls", "orbelparser/names", "orbelparser/layout",
    "orbelparser/delegate", "orbelparser/widgets", "orbelparser/form", "orbelparser/viewer", "check/document",
    "check/findings", "check/registry", "check/script", "check/rules", "check", "lsp/text", "lsp/protocol",
    "lsp/analysis", "lsp/features", "lsp", "session", "studio", "apps/orbel", "testsupport"};
/// Where classes count that hosts know, and that therefore stand in orbelparser/ itself; the others belong to the form.
const QHash<QString, QString> RoomOfHostsClass{{"applymode", "names"}, {"floatgrouplayout", "layout"},
    {"floatscrollarea", "layout"}, {"orbeldelegate", "delegate"}, {"orbelenum", "delegate"},
    {"orbelenumvalue", "delegate"}, {"orbelwidget.h", "delegate"}, {"loadinterface", "viewer"}};

QString RoomOf(const QFileInfo &file)
{
    const QString folder = QDir(ORBEL_SOURCE_DIR).relativeFilePath(file.path());
    // The door is seen from both sides: what a control may ask, and how the form answers.
    if (file.fileName() == "formdoor.cpp")
        return "orbelparser/form";
    if (folder != "orbelparser")
        return folder;
    const QString byFile = RoomOfHostsClass.value(file.fileName());
    return "orbelparser/" + (byFile.isEmpty() ? RoomOfHostsClass.value(file.baseName(), "form") : byFile);
}

QFileInfoList Sources()
{
    QFileInfoList files;
    for (const char *folder :
        {"/host", "/orbelparser", "/check", "/lsp", "/session", "/studio", "/testsupport", "/apps"}) {
        QDirIterator walk(
            QString(ORBEL_SOURCE_DIR) + folder, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            walk.next();
            files << walk.fileInfo();
        }
    }
    return files;
}

QStringList IncludesOf(const QFileInfo &info)
{
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression line("^#include \"([^\"]+)\"", QRegularExpression::MultilineOption);
    QStringList names;
    auto match = line.globalMatch(QString::fromUtf8(file.readAll()));
    while (match.hasNext())
        names << match.next().captured(1);
    return names;
}

} // namespace

class TestArchitecture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noArrowRunsTheWrongWay()
    {
        const QFileInfoList sources = Sources();
        QHash<QString, QFileInfo> headers;
        for (const QFileInfo &file : sources) {
            QVERIFY2(!headers.contains(file.fileName()), qPrintable("two files are named " + file.fileName()));
            QVERIFY2(Rooms.contains(RoomOf(file)), qPrintable("no room has " + file.filePath()));
            headers.insert(file.fileName(), file);
        }
        QStringList wrong;
        int arrows = 0;
        for (const QFileInfo &file : sources) {
            for (const QString &name : IncludesOf(file)) {
                QVERIFY2(!name.contains('/'), qPrintable(file.fileName() + " includes by path: " + name));
                if (!headers.contains(name))
                    continue;
                ++arrows;
                if (Rooms.indexOf(RoomOf(headers.value(name))) > Rooms.indexOf(RoomOf(file)))
                    wrong << file.fileName() + " -> " + name;
            }
        }
        QVERIFY(arrows > 100);
        QCOMPARE(wrong.join(", "), QString());
    }

    void aControlIncludesNoOtherControl()
    {
        const QStringList controls{
#define ORBEL_CLASS(name, delegate, ...) QString(#delegate).toLower(),
#include "controlclasses.inc"
        };
        QStringList wrong;
        for (const QFileInfo &file : Sources()) {
            if (RoomOf(file) != "orbelparser/widgets")
                continue;
            for (const QString &name : IncludesOf(file)) {
                const QString other = QFileInfo(name).baseName();
                if (controls.contains(other) && other != file.baseName() && other != "orbeldelegate")
                    wrong << file.fileName() + " -> " + name;
            }
        }
        QCOMPARE(wrong.join(", "), QString());
    }
};

QTEST_APPLESS_MAIN(TestArchitecture)
#include "tst_architecture.moc"
