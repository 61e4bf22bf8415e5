#include "writtenunit.h"

#include <QRegularExpression>

namespace Orbel
{

WrittenUnit WrittenUnit::Of(const QString &text)
{
    const QString unit = text.trimmed();
    // Levels against different references are different units.
    if (unit.startsWith(QLatin1String("dB")) && !unit.contains(QLatin1Char(' ')))
        return {QString(unit).replace(QChar(0xb5), QLatin1Char('u')).replace(QChar(0x3bc), QLatin1Char('u')), 1};
    for (const char *name : {"Hz", "Bd", "bit/s", "bit", "W", "V", "A", "m", "s", "B"}) {
        const QLatin1String base(name);
        const bool isHertz = base == QLatin1String("Hz") && unit.endsWith(base, Qt::CaseInsensitive);
        if (!unit.endsWith(base) && !isHertz)
            continue;
        const QString prefix = unit.left(unit.size() - base.size());
        const struct {
            const char *text;
            double size;
        } prefixes[] = {{"", 1}, {"k", 1e3}, {"K", 1e3}, {"M", 1e6}, {"G", 1e9}, {"m", 1e-3}, {"u", 1e-6},
            {"\xc2\xb5", 1e-6}, {"\xce\xbc", 1e-6}, {"n", 1e-9}};
        for (const auto &each : prefixes) {
            if (prefix == QString::fromUtf8(each.text))
                return {base, each.size};
        }
    }
    return WrittenUnit();
}

WrittenUnit WrittenUnit::OfLabel(const QString &label)
{
    static const QRegularExpression brackets(QStringLiteral("[(\\[]([^()\\[\\]]+)[)\\]]:?\\s*$"));
    return Of(brackets.match(label).captured(1));
}

} // namespace Orbel
