#pragma once

#include "callsite.h"
#include "testsupportexport.h"

#include <functional>
#include <QString>

class QAbstractItemView;
class QWidget;

namespace Orbel
{

/// Fails the test that runs, and returns. In a function of a QtTest it is QTest::qFail(). Elsewhere the handler of
/// SetFailureHandler() is called; without one the process ends with the text.
ORBEL_TESTSUPPORT_EXPORT void FailTest(const QString &text, const CallSite &at = CallSite::Here());

/// How a test of another kind fails. The handler must return:
///
///     Orbel::SetFailureHandler([](const QString &text, const Orbel::CallSite &at) {
///         ADD_FAILURE_AT(at.File, at.Line) << text.toStdString();
///     });
using FailureHandler = std::function<void(const QString &text, const CallSite &at)>;
ORBEL_TESTSUPPORT_EXPORT void SetFailureHandler(const FailureHandler &handler);

/// Lets come what is posted: queued signals, deleted widgets. No timer goes off, so that nothing is applied by itself.
ORBEL_TESTSUPPORT_EXPORT void Settle();
/// Lets all timers go off that are due within these milliseconds, and what follows from them. Shows what does not come.
ORBEL_TESTSUPPORT_EXPORT void PassTime(int milliseconds);

/// Types over all that a field holds, for fields that stand in no form: of a dialog, for instance. The edit is not
/// finished.
ORBEL_TESTSUPPORT_EXPORT void TypeOver(QWidget *field, const QString &text);
/// Types behind what stands in the field; any letters, not only Latin ones.
ORBEL_TESTSUPPORT_EXPORT void TypeText(QWidget *field, const QString &text);
/// Opens the editor of a cell by F2 and gives it; null for a cell without one. Row and column count from 0.
ORBEL_TESTSUPPORT_EXPORT QWidget *OpenCell(QAbstractItemView *table, int row, int column = 0);

/// The windows and the nodes of the value tree that are there, as text: what a test that has ended must not leave
/// behind. Empty for nothing.
ORBEL_TESTSUPPORT_EXPORT QString LeftOver();

} // namespace Orbel
