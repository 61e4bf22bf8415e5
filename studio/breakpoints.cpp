#include "breakpoints.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QFileInfo>
#include <QScriptEngineDebugger>

#include <algorithm>

namespace Orbel
{

namespace
{

enum BreakpointColumn { IdColumn, LocationColumn, ConditionColumn };

/// The debugger has no functions for breakpoints; its list of them has all.
QAbstractItemModel *ListOf(const QScriptEngineDebugger &debugger)
{
    auto *const view = debugger.widget(QScriptEngineDebugger::BreakpointsWidget)->findChild<QAbstractItemView *>();
    return view ? view->model() : nullptr;
}

/// The debugger does what it is asked by events of these types, and the script is not to begin before them. Other
/// events wait, since a form is being made.
void DoWhatIsAsked()
{
    constexpr int FirstType = QEvent::User + 1;
    constexpr int LastType = QEvent::User + 4;
    // Each may ask for the next one.
    for (int turn = 0; turn < 2; ++turn) {
        for (int type = FirstType; type <= LastType; ++type)
            QCoreApplication::sendPostedEvents(nullptr, type);
    }
}

} // namespace

void Breakpoints::Take(const QScriptEngineDebugger &debugger, const QString &file)
{
    const QAbstractItemModel *const list = ListOf(debugger);
    All.clear();
    for (int row = 0; list && row < list->rowCount(); ++row) {
        const QString place = list->index(row, LocationColumn).data().toString();
        const int colon = place.lastIndexOf(QLatin1Char(':'));
        const int line = place.midRef(colon + 1).toInt();
        if (line > 0 && QFileInfo(place.left(colon)).fileName() == QFileInfo(file).fileName())
            All.append({line, list->index(row, IdColumn).data(Qt::CheckStateRole).toInt() == Qt::Checked,
                list->index(row, ConditionColumn).data().toString()});
    }
}

void Breakpoints::Give(const QScriptEngineDebugger &debugger, const QString &file) const
{
    QAbstractItemModel *const list = ListOf(debugger);
    QWidget *asking = nullptr;
    for (QWidget *each : debugger.widget(QScriptEngineDebugger::BreakpointsWidget)->findChildren<QWidget *>()) {
        if (each->inherits("QScriptNewBreakpointWidget"))
            asking = each;
    }
    for (const Breakpoint &each : All) {
        const int row = list ? list->rowCount() : 0;
        const bool isAsked = list && asking
            && QMetaObject::invokeMethod(asking, "newBreakpointRequest", Q_ARG(QString, file), Q_ARG(int, each.Line));
        DoWhatIsAsked();
        if (!isAsked || list->rowCount() <= row)
            return;
        if (!each.IsEnabled)
            list->setData(list->index(row, IdColumn), Qt::Unchecked, Qt::CheckStateRole);
        DoWhatIsAsked();
        if (!each.Condition.isEmpty())
            list->setData(list->index(row, ConditionColumn), each.Condition);
        DoWhatIsAsked();
    }
}

void Breakpoints::Follow(const QString &text)
{
    const QStringList before = std::exchange(Lines, text.split(QLatin1Char('\n')));
    for (Breakpoint &each : All)
        each.Line = Moved(each.Line, before, Lines);
    const auto isGone = [](const Breakpoint &each) { return each.Line == 0; };
    All.erase(std::remove_if(All.begin(), All.end(), isGone), All.end());
}

int Breakpoints::Moved(int line, const QStringList &before, const QStringList &after)
{
    const int shorter = std::min(before.size(), after.size());
    const int same = int(std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first - before.begin());
    const auto end = std::mismatch(before.rbegin(), before.rbegin() + (shorter - same), after.rbegin());
    const int sameEnd = int(end.first - before.rbegin());
    if (line <= same)
        return line;
    if (line > before.size() - sameEnd)
        return line + after.size() - before.size();
    const QStringList changed = after.mid(same, after.size() - same - sameEnd);
    QStringList trimmed;
    for (const QString &each : changed)
        trimmed.append(each.trimmed());
    const QString text = before.at(line - 1).trimmed();
    if (!text.isEmpty() && trimmed.count(text) == 1)
        return same + trimmed.indexOf(text) + 1;
    return line <= same + changed.size() ? line : 0;
}

} // namespace Orbel
