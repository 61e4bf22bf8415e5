#pragma once

#include "change.h"
#include "finding.h"
#include "rowlabel.h"
#include "testsupportexport.h"

#include <QString>
#include <QTest>

namespace Orbel
{

/// "Rx/Gain: 10 dB -> 42 dB; Rx/Name: north -> south", in the operator's words; nothing stands before the arrow where
/// it is not known what was applied. Empty for no changes.
ORBEL_TESTSUPPORT_EXPORT QString TextOf(const ChangeList &changes);
/// "4:7 error unknown-class: text", a line each.
ORBEL_TESTSUPPORT_EXPORT QString TextOf(const QVector<Finding> &findings);
/// "none", "changed", "unconfirmed", "differs" or "refused".
ORBEL_TESTSUPPORT_EXPORT QString TextOf(RowLabel::Mark mark);

} // namespace Orbel

namespace QTest
{

/// What QCOMPARE() says of values that differ.
template <> inline char *toString(const RowLabel::Mark &mark)
{
    return qstrdup(qPrintable(Orbel::TextOf(mark)));
}

/// What QCOMPARE() says of values that differ.
template <> inline char *toString(const QVector<Orbel::Finding> &findings)
{
    return qstrdup(qPrintable(Orbel::TextOf(findings)));
}

} // namespace QTest
