#include "testprinters.h"

#include <QStringList>

namespace Orbel
{

QString TextOf(const ChangeList &changes)
{
    QStringList texts;
    for (const Change &change : changes) {
        const QString old = change.Old.isValid() ? change.OldText + QLatin1Char(' ') : QString();
        texts << QStringLiteral("%1: %2-> %3").arg(change.Path, old, change.NewText);
    }
    return texts.join(QStringLiteral("; "));
}

QString TextOf(const QVector<Finding> &findings)
{
    QStringList lines;
    for (const Finding &finding : findings)
        lines << QStringLiteral("%1:%2 %3 %4: %5")
                     .arg(finding.Line)
                     .arg(finding.Column)
                     .arg(NameOf(finding.Level), finding.Code, finding.Text);
    return lines.join(QLatin1Char('\n'));
}

QString TextOf(RowLabel::Mark mark)
{
    switch (mark) {
    case RowLabel::None:
        return QStringLiteral("none");
    case RowLabel::Changed:
        return QStringLiteral("changed");
    case RowLabel::Unconfirmed:
        return QStringLiteral("unconfirmed");
    case RowLabel::Differs:
        return QStringLiteral("differs");
    case RowLabel::Refused:
        return QStringLiteral("refused");
    }
    return QString();
}

} // namespace Orbel
