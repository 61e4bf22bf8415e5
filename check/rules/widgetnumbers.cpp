#include "widgetnumbers.h"

#include "propertynames.h"

#include <QVariant>

#include <cmath>

namespace Orbel
{

namespace prop = KV218::prop;

bool WidgetNumbers::Reads(QLatin1String name) const
{
    const PropertyInfo *property = Registry::FindProperty(Info, name);
    return property && property->use != PropertyUse::Stored;
}

Number WidgetNumbers::NumberOf(QLatin1String name) const
{
    const PropertyEntry *property = Reads(name) ? Widget.Find(name) : nullptr;
    bool isNumber = false;
    const double value = property ? QVariant(property->Text).toDouble(&isNumber) : 0;
    return isNumber ? Number{property, value, property->Text} : Number();
}

Number WidgetNumbers::LimitOf(QLatin1String name) const
{
    if (!Reads(name) || Widget.States(name))
        return NumberOf(name);
    const QString absent = QLatin1String(Registry::FindProperty(Info, name)->absent);
    bool isNumber = false;
    const double value = absent.section(QLatin1Char(' '), 0, 0).toDouble(&isNumber);
    return isNumber ? Number{nullptr, value, absent} : Number();
}

double WidgetNumbers::Scale() const
{
    if (const Number unit = NumberOf(prop::UnitScale))
        return unit.Value == 1e3 || unit.Value == 1e6 || unit.Value == 1e9 ? 1 / unit.Value : 1;
    const Number factor = NumberOf(prop::DisplayScalingFactor);
    return factor ? factor.Value : 1;
}

QString BeyondLimits(double value, const Number &minimum, const Number &maximum, double scale)
{
    // No value lies inside of reversed limits, and no factor that is not above 0 leads to any.
    if (scale <= 0 || (minimum && maximum && minimum.Value > maximum.Value))
        return QString();
    const double shown = value * scale;
    const double slack = 1e-12 * std::abs(shown);
    const QString how = scale == 1 ? QString() : QStringLiteral(", shown as %1,").arg(shown);
    if (minimum && shown < minimum.Value - slack)
        return QStringLiteral("%1 is below the minimum %2").arg(how, minimum.Text);
    if (maximum && shown > maximum.Value + slack)
        return QStringLiteral("%1 is above the maximum %2").arg(how, maximum.Text);
    return QString();
}

} // namespace Orbel
