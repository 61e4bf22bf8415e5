// Dependencies run one way: host, base, controls, form, viewer. Reads the include lines of the sources.

#include <QtTest>

namespace
{

enum Level { Host, Base, Controls, FormLevel, Viewer };

/// Files of orbelparser/ itself that stand above the controls, without their endings.
const QStringList FormFiles{"delegatefactory", "formdoor.cpp", "formfactory", "orbelformular", "formbody",
    "formbodyvalues", "managerbody", "orbelformularmanager", "orbelparser", "orbelsheet", "orbelelement", "widgetindex",
    "orbelwidget.cpp", "formconfiguration"};
const QStringList ViewerFiles{"orbeltest", "orbeltestmain", "loadinterface"};

Level LevelOf(const QFileInfo &file)
{
    const QString path = file.filePath();
    if (path.contains("/host/"))
        return Host;
    if (path.contains("/widgets/"))
        return Controls;
    const auto isIn
        = [&](const QStringList &names) { return names.contains(file.baseName()) || names.contains(file.fileName()); };
    return isIn(ViewerFiles) ? Viewer : isIn(FormFiles) ? FormLevel : Base;
}

QFileInfoList Sources()
{
    QFileInfoList files;
    for (const char *folder : {"/host", "/orbelparser"}) {
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
        for (const QFileInfo &file : sources)
            headers.insert(file.fileName(), file);
        QStringList wrong;
        int arrows = 0;
        for (const QFileInfo &file : sources) {
            for (const QString &name : IncludesOf(file)) {
                QVERIFY2(!name.contains('/'), qPrintable(file.fileName() + " includes by path: " + name));
                if (!headers.contains(name))
                    continue;
                ++arrows;
                if (LevelOf(headers.value(name)) > LevelOf(file))
                    wrong << file.fileName() + " -> " + name;
            }
        }
        QVERIFY(arrows > 100);
        QCOMPARE(wrong.join(", "), QString());
    }

    void aControlIncludesNoOtherControl()
    {
        // What several controls are made of, and no control itself.
        const QStringList shared{"celldelegate", "celledit", "cellitemdelegate", "changesbutton",
            "channelspacingitemdelegate", "exclusiondialog", "flagscope", "floatspindelegate", "formkeys",
            "freqrangetable", "listelements", "recordingcells", "spinbuilder", "spinlistdelegate", "tablekeys",
            "wholehertz"};
        QStringList wrong;
        for (const QFileInfo &file : Sources()) {
            if (LevelOf(file) != Controls)
                continue;
            for (const QString &name : IncludesOf(file)) {
                const QString other = QFileInfo(name).baseName();
                const bool isControl = QFile::exists(file.path() + '/' + name) && !shared.contains(other);
                if (isControl && other != file.baseName())
                    wrong << file.fileName() + " -> " + name;
            }
        }
        QCOMPARE(wrong.join(", "), QString());
    }
};

QTEST_APPLESS_MAIN(TestArchitecture)
#include "tst_architecture.moc"
