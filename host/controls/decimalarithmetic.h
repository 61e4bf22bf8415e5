#pragma once

namespace Orbel
{

// Arithmetic on doubles as the decimal numbers that they are written as, for controls that step and scale: 0.1 taken
// three times is 0.3 here. Exported to nobody.

/// How many decimal places the shortest text of the number has; 0 for infinity and NaN.
int DecimalPlaces(double number);
/// How many decimal places the first digit of the number needs: 3 for 0.001 and 0.0048, 0 from 1 on.
int PlacesOfFirstDigit(double number);
/// The double next to value + count * step. Beyond some eighteen digits, which no such number holds, plain arithmetic.
double WithSteps(double value, double step, int count);
/// Frees the result of a multiplication or division of the last binary digits: 15 significant digits are kept. Whole
/// numbers stay as they are.
double WithoutNoise(double number);

} // namespace Orbel
