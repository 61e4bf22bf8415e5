#include "spinbuilder.h"

#include "formlimits.h"
#include "frequencytext.h"
#include "orbeldelegate.h"
#include "propertynames.h"
#include "vcnumericfloatspin.h"

#include <QLocale>

#include <cmath>

namespace KV218
{

VCNumericFloatSpin *BuildSpin(const OrbelDelegate &delegate, IValueNumeric *node, QWidget *parent, const QString &name)
{
    auto *spin = new VCNumericFloatSpin(parent, nullptr, true);
    spin->setObjectName(name);
    spin->setSuffix(delegate.property(prop::Suffix.data()).toString());
    spin->SetUnit(delegate.property(prop::Unit.data()).toString());
    spin->setAdditionalPrecision(delegate.GetInt(prop::Decimals, 0));
    spin->SetFactor(DisplayFactor(delegate));
    // Meant: this greatest width sets no width at all; the form's layout decides it.
    spin->setFixedWidth(QWIDGETSIZE_MAX);
    spin->EnableWrapAround(delegate.GetBool(prop::Wrapping, false));
    spin->SetNumericValue(node);
    return spin;
}

QString SpinBounds(const OrbelDelegate &delegate, const VCNumericFloatSpin *spin)
{
    if (!spin)
        return QString();
    const auto limit = [&](const PropertyKey &name, double number) {
        // Groups are for the eye.
        const QString text = spin->textFromValue(number).remove(QLatin1Char(' '));
        return delegate.property(name.data()).isValid() ? SpokenNumber(text) : QString();
    };
    const QString bounds = BoundsText(limit(prop::Minimum, spin->minimum()), limit(prop::Maximum, spin->maximum()));
    return bounds.isEmpty() ? QString() : QStringLiteral("%1 %2").arg(bounds, spin->suffix().trimmed()).trimmed();
}

double DisplayFactor(const OrbelDelegate &delegate)
{
    return delegate.GetDouble(prop::DisplayScalingFactor, 1.0);
}

static bool IsShownAsMinimum(double shown, const VCNumericFloatSpin &spin)
{
    return std::fabs(shown - spin.minimum()) * std::pow(10, spin.decimals()) < 0.5;
}

QString SpellNumber(const OrbelDelegate &delegate, double number, const VCNumericFloatSpin *spin)
{
    // Without what binary arithmetic adds to the product.
    constexpr int digits = 15;
    const double shown = QString::number(number * DisplayFactor(delegate), 'g', digits).toDouble();
    if (spin && !spin->specialValueText().isEmpty() && IsShownAsMinimum(shown, *spin))
        return spin->specialValueText();
    const int decimals = qMax(0, DocumentDecimals(delegate));
    const bool fits = QString::number(shown, 'f', decimals).toDouble() == shown;
    QLocale plain;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    const QString text = plain.toString(shown, 'f', fits ? decimals : QLocale::FloatingPointShortest);
    const QString suffix = delegate.property(prop::Suffix.data()).toString();
    return Orbel::FrequencyText::BeforeSuffix(text, suffix, plain.decimalPoint()) + suffix;
}

int DocumentDecimals(const OrbelDelegate &delegate)
{
    return qMin(delegate.GetInt(prop::Decimals, 0), limit::Decimals);
}

} // namespace KV218
