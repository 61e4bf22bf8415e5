// The registry against the code: classes, properties in both directions, and what each class does.

#include "delegatefactory.h"
#include "forms.h"
#include "formtexts.h"
#include "orbelcheck.h"
#include "registry.h"
#include "testmain.h"

#include <QRegularExpression>
#include <QTranslator>
#include <QtTest>

using namespace Orbel;
using namespace forms;

namespace
{

const QString Source = ORBEL_SOURCE_DIR "/orbelparser/";

QString TextOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QList<QStringList> Matches(const QString &pattern, const QString &text)
{
    QList<QStringList> all;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext())
        all << match.next().capturedTexts();
    return all;
}

/// The names of the properties that a text of the library speaks of.
QSet<QString> PropertiesIn(const QString &text)
{
    static const QHash<QString, QString> names = [] {
        QHash<QString, QString> read;
        for (const QStringList &constant :
            Matches("QLatin1String (\\w+) = Latin1\\(\"(\\w+)\"\\)", TextOf(Source + "propertynames.h")))
            read.insert(constant.at(1), constant.at(2));
        return read;
    }();
    QSet<QString> found;
    for (const QStringList &use : Matches("\\bprop::(\\w+)", text))
        found << names.value(use.at(1), "no such constant: " + use.at(1));
    return found;
}

/// While it lives, notes what is asked of it in the contexts that are no classes, but for the library's words at each
/// headline: "context: text".
class Asked : public QTranslator
{
public:
    Asked() { QCoreApplication::installTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const bool isForms = !QByteArray(context).contains("::") && *context != 'Q' && *context != 'V';
        if (isForms && qstrcmp(text, "Hide %1") != 0)
            Texts << QString("%1: %2").arg(context, text);
        return QString();
    }

    mutable QSet<QString> Texts;
};

/// The sources of a control, and of what it is made of.
QString SourcesOf(const QString &stem, QSet<QString> &seen)
{
    QString text;
    if (seen.contains(stem))
        return text;
    seen << stem;
    for (const char *folder : {"widgets/", ""}) {
        const QString path = Source + folder + stem;
        text += TextOf(path + ".h") + TextOf(path + ".cpp");
    }
    for (const QStringList &include : Matches("#include \"(\\w+)\\.h\"", QString(text))) {
        if (QFile::exists(Source + "widgets/" + include.at(1) + ".h") || include.at(1) == "exclusionlistdelegate")
            text += SourcesOf(include.at(1), seen);
    }
    return text;
}

QSet<QString> BaseProperties()
{
    QString text;
    for (const char *file : {"orbeldelegate.cpp", "orbeldelegatevalues.cpp", "orbeldelegatexml.cpp", "orbelwidget.cpp"})
        text += TextOf(Source + file);
    return PropertiesIn(text);
}

QString Sorted(const QSet<QString> &names)
{
    QStringList list(names.cbegin(), names.cend());
    list.sort();
    return list.join(' ');
}

QSet<QString> CommonNames()
{
    const QStringList names = Registry::PropertyNames(*Registry::FindClass("SpecialObject_Generic"));
    return QSet<QString>(names.cbegin(), names.cend());
}

} // namespace

class TestRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// The texts that translators are given are those that a form asks for.
    void textsForTranslators_data()
    {
        QTest::addColumn<QString>("path");
        const QDir folder(ORBEL_EXAMPLES_DIR "/forms");
        for (const QString &name : folder.entryList({"*.orbel"}))
            QTest::newRow(qPrintable(name)) << folder.filePath(name);
    }

    void textsForTranslators()
    {
        QFETCH(QString, path);
        QSet<QString> told;
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray definition = file.readAll();
        for (const FormText &text : TextsOf(definition, false))
            told << text.Context + ": " + text.Source;
        Asked asked;
        const Form form(KV218::OrbelParser().ParseORBELFile(path));
        form->CreateValueTree("/Form");
        form->CreateGUI(true);
        const std::unique_ptr<QWidget> window(form->GetGUI());
        for (const QString &missing : asked.Texts - told) // a script computes others
            QVERIFY2(!definition.contains(missing.section(": ", 1).toUtf8()), qPrintable(missing));
        // Other scripts set texts before anybody sees those of the definition, or only later.
        if (path.endsWith("all_controls.orbel"))
            QCOMPARE((told - asked.Texts).values().join('\n'), QString());
    }

    void cleanup() { QCOMPARE(LeftOver(), QString()); }

    void classesAreThoseOfTheFactory()
    {
        QCOMPARE(Registry::ClassNames().join(' '), KV218::DelegateClassNames().join(' '));
        for (const ClassInfo &info : Registry::Classes())
            QCOMPARE(
                QString(Registry::MetaObjectOf(info.name)->className()), QString("KV218::") + info.delegate->delegate);
        QCOMPARE(QString(Registry::MetaObjectOf("Unknown")->className()), QString("KV218::OrbelDelegate"));
        QCOMPARE(QString(Registry::MetaObjectOf(QString())->className()), QString("KV218::OrbelSheetUi"));
    }

    void propertiesAreThoseOfTheCode_data()
    {
        QTest::addColumn<QString>("delegate");
        QSet<QString> seen;
        for (const ClassInfo &info : Registry::Classes()) {
            const QString delegate = info.delegate->delegate;
            if (!seen.contains(delegate) && delegate != "OrbelDelegate")
                QTest::newRow(info.delegate->delegate) << delegate;
            seen << delegate;
        }
    }

    void propertiesAreThoseOfTheCode()
    {
        QFETCH(QString, delegate);
        QSet<QString> known;
        for (const ClassInfo &info : Registry::Classes()) {
            if (delegate == info.delegate->delegate) {
                for (const QString &name : Registry::PropertyNames(info))
                    known << name;
            }
        }
        QSet<QString> seen;
        const QString sources = SourcesOf(delegate.toLower(), seen);
        QVERIFY(sources.contains(QRegularExpression("class (\\w+ )?" + delegate)));
        QSet<QString> read = PropertiesIn(sources);
        // The one that this object sets is its labels'.
        if (delegate == "OrbelDSCObject")
            read.remove("text");
        QCOMPARE(Sorted(read - known), QString());
        QCOMPARE(Sorted(known - CommonNames() - read - BaseProperties()), QString());
    }

    void propertiesOfEveryControlAreThoseOfTheBase()
    {
        QCOMPARE(Sorted(CommonNames() - BaseProperties()), QString());
        QSet<QString> all;
        for (const ClassInfo &info : Registry::Classes()) {
            for (const QString &name : Registry::PropertyNames(info))
                all << name;
        }
        QCOMPARE(Sorted(BaseProperties() - all), QString());
    }

    void propertiesOfTheSheetAreThoseOfTheCode()
    {
        const QStringList names = Registry::SheetPropertyNames();
        const QSet<QString> known(names.cbegin(), names.cend());
        QSet<QString> seen;
        const QSet<QString> read = PropertiesIn(SourcesOf("orbelsheetui", seen));
        QCOMPARE(Sorted(known - read - PropertiesIn(TextOf(Source + "orbelsheet.cpp"))), QString());
        // A script shows or hides the sheet; a definition cannot.
        QCOMPARE(Sorted(read - known), QString("Attribute_ visible"));
    }

    void traitsAreTrue_data()
    {
        QTest::addColumn<QString>("className");
        for (const ClassInfo &info : Registry::Classes())
            QTest::newRow(info.name) << info.name;
    }

    void traitsAreTrue()
    {
        QFETCH(QString, className);
        const unsigned traits = Registry::FindClass(className)->delegate->traits;
        const QStringList properties{"labelText=String:L", "visible=Bool:true", "text=String:t", "enumName=String:E",
            "itemCount=Int:2", "rowCount=Int:1", "columnCount=Int:1", "spacingsCount=Int:1",
            "parameterListItemTag=String:I", "startFrequencyParameterXmlTag=String:A",
            "stopFrequencyParameterXmlTag=String:B"};
        const auto build = [&](bool writes, std::unique_ptr<QWidget> &gui) {
            const QStringList more = writes ? QStringList("generateParameterXml=Bool:true") : QStringList();
            const Form form = Bind(Definition(Widget("w", className, properties + more),
                "<Enums><Enum "
                "name='E'><EnumValue><DisplayName>A</DisplayName><Value>1</Value></EnumValue></Enum></Enums>"));
            form->CreateGUI(false);
            gui.reset(form->GetGUI());
            return form;
        };
        std::unique_ptr<QWidget> gui;
        const bool writesUnasked = build(false, gui)->GetXmlString(false).contains("<w");
        QCOMPARE(writesUnasked, bool(traits & ekAlwaysWrites));
        const Form form = build(true, gui);
        const QString document = form->GetXmlString(false);
        QCOMPARE(document.contains("<w") || document.contains("<A"), bool(traits & ekWrites));
        QCOMPARE(document.contains("<I "), (traits & ekItems) && className != "HiddenMap");
        QCOMPARE(gui->findChild<QLabel *>("labelw") != nullptr, bool(traits & ekRow));
    }

    void explanationsAreUpToDate() { QCOMPARE(Check::Explanations(), TextOf(ORBEL_SOURCE_DIR "/docs/checks.md")); }
};

ORBEL_TEST_MAIN(TestRegistry)
#include "tst_registry.moc"
