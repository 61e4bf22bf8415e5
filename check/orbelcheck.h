#pragma once

#include "checkexport.h"
#include "finding.h"

#include <QByteArray>

#include <functional>

namespace Orbel
{

/// Finds the mistakes in documents of the form dialect, about which the library itself never says a word. Text in, list
/// of findings out, in the order of the file; nothing is printed, no file is read and no form of the caller is touched.
/// Documents are bytes as they stand in a file, in the encoding that they declare. Needs a QCoreApplication, and
/// belongs to the GUI thread like the forms themselves.
class ORBEL_CHECK_EXPORT Check
{
public:
    /// A form definition, as it is loaded from a file of these bytes.
    static Findings Definition(const QByteArray &document);
    /// A component list: all its definitions. Places inside a `value` attribute are places in the list.
    static Findings ComponentList(const QByteArray &document);
    /// A template of a definition, as `orbel expand` reads it. Places are those in the template; what is wrong with
    /// several items of a repetition is told once.
    static Findings Template(const QByteArray &document);
    /// A changed definition, against the form that it is to change. Places are those in `changed`.
    static Findings Changed(const QByteArray &changed, const QByteArray &form);
    /// A parameter document, against the form that is to read it. Places are those in `parameters`.
    static Findings Parameters(const QByteArray &parameters, const QByteArray &form);

    /// Told true before a form's script runs, and false behind it.
    using RunWatch = std::function<void(bool isRunning)>;

    /// Builds the form of a definition, or each of a component list, in this process, as a host does: runs its script
    /// and makes its controls, without showing them. Tells uncaught exceptions and names that the script does not know.
    /// A script that still runs after `milliseconds` is ended; pending events are processed meanwhile. Needs a
    /// QApplication. A loop inside one call of the script language itself cannot be ended; who must be safe from that
    /// calls this in a process of its own, with a watch. A definition that is not read to its end is not run.
    static Findings RunDefinition(const QByteArray &document, int milliseconds, const RunWatch &watch = RunWatch());
    static Findings RunTemplate(const QByteArray &document, int milliseconds, const RunWatch &watch = RunWatch());
    static Findings RunComponentList(const QByteArray &document, int milliseconds, const RunWatch &watch = RunWatch());

    /// The line of the document in which a line of a definition's script stands; both count from 1. 1 for a document
    /// without a script.
    static int LineOfScript(const QByteArray &definition, int line);
    /// The same for the first definition of a component of that name in a component list.
    static int LineOfScript(const QByteArray &list, const QString &component, int line);

    /// Whether there is neither an error nor a warning.
    static bool IsClean(const Findings &findings);
    /// The page docs/checks.md, from the same table as the findings.
    static QString Explanations();
};

} // namespace Orbel
