#pragma once

#include <QString>

class IValueNumeric;
class QWidget;
class VCNumericFloatSpin;

namespace KV218
{

class OrbelDelegate;

/// Makes the control that edits `node`, or none when it is null, with the suffix, decimals, display factor and wrapping
/// that the properties of `delegate` state. It belongs to `parent`.
VCNumericFloatSpin *BuildSpin(const OrbelDelegate &delegate, IValueNumeric *node, QWidget *parent, const QString &name);

/// The limits that the definition or a script states for `spin`, as it shows them.
QString SpinBounds(const OrbelDelegate &delegate, const VCNumericFloatSpin *spin);

/// The property `displayScalingFactor`: controls show the node's number times this.
double DisplayFactor(const OrbelDelegate &delegate);

/// A node's number as the operator reads it in `spin`, which may be null: in display units, with the suffix, or as the
/// text that stands there for the minimum.
QString SpellNumber(const OrbelDelegate &delegate, double number, const VCNumericFloatSpin *spin);

/// How many decimal places a parameter document gives a number: the property `decimals`, within bounds.
int DocumentDecimals(const OrbelDelegate &delegate);

} // namespace KV218
