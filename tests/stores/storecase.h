#pragma once

#include "liveform.h"

#include <QtTest>
#include <QXmlStreamReader>

/// A store named "s" in a form on the screen, without an apply row. It writes entries `i` with the unit "m", and a log
/// watches it.
struct LiveStore : LiveForm {
    explicit LiveStore(const QString &className, const QStringList &properties = {})
        : LiveForm(
            forms::Widget("s", className,
                properties
                    + QStringList{"generateParameterXml=Bool:true", "parameterListItemTag=String:i", "unit=String:m"}),
            false)
    {
        log.Watch("s", Get("s"));
    }
    void Read(const QString &entries) { form->SetXmlString("<Parameters><s>" + entries + "</s></Parameters>"); }
    /// The entries in the document, joined with blanks: the values of the attributes, then ":" and the text.
    QString Written()
    {
        QXmlStreamReader reader(form->GetXmlString(false));
        reader.readNextStartElement();
        reader.readNextStartElement();
        QStringList entries;
        while (reader.readNextStartElement()) {
            QString entry;
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                entry += attribute.value();
            entries << entry + ':' + reader.readElementText();
        }
        return entries.join(' ');
    }
};

/// A row for CheckStore(): the script leaves its result in r, then a document with the entries is read, unless they are
/// null. Of the events, "apply" is the sheet's.
inline void StoreRow(const char *name, const QString &className, const QStringList &properties, const QString &script,
    const QString &entries, const QString &events, const QString &result, const QString &written)
{
    QTest::newRow(name) << className << properties << script << entries << events << result << written;
}

inline void AddStoreColumns()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QStringList>("properties");
    for (const char *text : {"script", "entries", "events", "result", "written"})
        QTest::addColumn<QString>(text);
}

inline void CheckStore()
{
    QFETCH(QString, className);
    QFETCH(QStringList, properties);
    QFETCH(QString, script);
    QFETCH(QString, entries);
    LiveStore store(className, properties);
    store.form->EvaluateScript("var r = ''; " + script);
    if (!entries.isNull()) {
        store.Read(entries);
        QVERIFY(!store.Get("s")->isModified());
    }
    QTEST(store.log.Take().replace("sheet.si_parametersModified()", "apply"), "events");
    QTEST(store.form->GetScriptValues().value("r").toString(), "result");
    QTEST(store.Written(), "written");
}
