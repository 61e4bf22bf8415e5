#pragma once

#include "liveform.h"

#include <QtTest>
#include <QXmlStreamReader>

/// The entries of the one list in a parameter document, joined with blanks: "attribute=value,attribute=value:text".
inline QString Entries(const QString &document)
{
    QXmlStreamReader reader(document);
    reader.readNextStartElement();
    reader.readNextStartElement();
    QStringList entries;
    while (reader.readNextStartElement()) {
        QStringList attributes;
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            attributes << attribute.name() + '=' + attribute.value();
        entries << attributes.join(',') + ':' + reader.readElementText();
    }
    return entries.join(' ');
}

/// A store named "s" in a form on the screen. It writes entries `i` with the unit "m", and a log watches it.
struct LiveStore : LiveForm {
    explicit LiveStore(const QString &className, const QStringList &properties = {}, bool applyUi = true)
        : LiveForm(forms::Widget("s", className,
                       properties
                           + QStringList{"generateParameterXml=Bool:true", "parameterListItemTag=String:i",
                               "unit=String:m", "visible=Bool:true"}),
            applyUi)
    {
        log.Watch("s", Get("s"));
    }
    void Read(const QString &entries) { form->SetXmlString("<Parameters><s>" + entries + "</s></Parameters>"); }
    QString Written() { return Entries(form->GetXmlString(false)); }
};

/// Columns for stores that a script and a document fill: the events end with "modified" when the script left that.
inline void AddStoreColumns()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QStringList>("properties");
    QTest::addColumn<QString>("script"); // leaves its result in r
    QTest::addColumn<QString>("read");
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("written");
}

inline void CheckStore()
{
    QFETCH(QString, className);
    QFETCH(QStringList, properties);
    QFETCH(QString, script);
    QFETCH(QString, read);
    LiveStore store(className, properties);
    store.form->EvaluateScript("var r = ''; " + script);
    const bool modified = store.Get("s")->isModified();
    QCOMPARE(store.form->GetSheet().isModified(), modified);
    if (!read.isNull()) {
        store.Read(read);
        QVERIFY(!store.Get("s")->isModified());
    }
    QTEST(store.log.Take() + (modified ? " modified" : ""), "events");
    QTEST(store.form->GetScriptValues().value("r").toString(), "result");
    QTEST(store.Written(), "written");
}
