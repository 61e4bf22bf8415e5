#pragma once

#include "finding.h"
#include "opendocument.h"

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

#include <map>
#include <memory>

namespace Orbel
{

/// The documents that an editor has open, and the answers to what it asks about them. Parameters and answers are those
/// of the protocol. A document whose address ends in ".orbel", or that the editor calls "orbel", is a form definition,
/// one in ".orbelt" a template of one, any other one a component list.
class Workspace
{
public:
    /// Whether the editor knows snippets.
    void SetTakesSnippets(bool takes) { TakesSnippets = takes; }

    /// What the editor tells of its documents; each gives the address of the document that it is about, or nothing for
    /// one that makes no sense and changes nothing.
    QString Open(const QJsonObject &params);
    QString Change(const QJsonObject &params);
    QString Close(const QJsonObject &params);

    /// Whether it is a request about a document.
    static bool Knows(const QString &method);
    /// Throws an RpcFailure where there is no answer.
    QJsonValue Answer(const QString &method, const QJsonObject &params);

    /// What is wrong with a document now, as the protocol publishes it; with one that is not open nothing is wrong.
    QJsonObject Diagnostics(const QString &uri);

    /// A document of which nothing is known that keeps its script from running; null for another one.
    const OpenDocument *Runnable(const QString &uri);
    /// What a run of a document of these bytes and its check have found. False when there is nothing new, or when the
    /// document is another one by now.
    bool TakeRun(const QString &uri, const QByteArray &bytes, const Findings &findings);

private:
    struct Entry {
        std::unique_ptr<OpenDocument> Document;
        QJsonValue Version;
        std::unique_ptr<Findings> Found; ///< Of the text as it is; null until somebody asks.
    };
    using Answering = QJsonValue (Workspace::*)(Entry &, const QJsonObject &);

    static const QHash<QString, Answering> &Table();
    Entry &EntryOf(const QJsonObject &params);
    const Findings &FindingsIn(Entry &entry);

    QJsonValue Complete(Entry &entry, const QJsonObject &params);
    QJsonValue Hover(Entry &entry, const QJsonObject &params);
    QJsonValue Definition(Entry &entry, const QJsonObject &params);
    QJsonValue References(Entry &entry, const QJsonObject &params);
    QJsonValue Highlight(Entry &entry, const QJsonObject &params);
    QJsonValue PrepareRename(Entry &entry, const QJsonObject &params);
    QJsonValue Rename(Entry &entry, const QJsonObject &params);
    QJsonValue Symbols(Entry &entry, const QJsonObject &params);
    QJsonValue Format(Entry &entry, const QJsonObject &params);
    QJsonValue CodeActions(Entry &entry, const QJsonObject &params);

    std::map<QString, Entry> Entries;
    bool TakesSnippets = false;
};

} // namespace Orbel
