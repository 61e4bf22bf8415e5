#pragma once

#include "registry.h"

namespace Orbel
{

/// Properties that several delegates share, and those of one: each written down once. A table of properties is a
/// vector, and a delegate lists the tables it is made of.
namespace group
{

extern const QVector<PropertyInfo> Row;
extern const QVector<PropertyInfo> Unit;
extern const QVector<PropertyInfo> NumberValue;
extern const QVector<PropertyInfo> Bounds;
extern const QVector<PropertyInfo> Step;
extern const QVector<PropertyInfo> Spin;
extern const QVector<PropertyInfo> SpinText;
extern const QVector<PropertyInfo> Offset;
extern const QVector<PropertyInfo> UnitScale;
extern const QVector<PropertyInfo> ListItem;
extern const QVector<PropertyInfo> ItemCount;
extern const QVector<PropertyInfo> ShiftCount;
extern const QVector<PropertyInfo> Shape;
extern const QVector<PropertyInfo> Spacings;
extern const QVector<PropertyInfo> Choice;
extern const QVector<PropertyInfo> Check;
extern const QVector<PropertyInfo> Line;
extern const QVector<PropertyInfo> LabelText;
extern const QVector<PropertyInfo> Headline;
extern const QVector<PropertyInfo> Margin;
extern const QVector<PropertyInfo> Height;
extern const QVector<PropertyInfo> Button;
extern const QVector<PropertyInfo> Script;
extern const QVector<PropertyInfo> HiddenText;
extern const QVector<PropertyInfo> HiddenCount;
extern const QVector<PropertyInfo> Frequency;
extern const QVector<PropertyInfo> FrequencyRange;
extern const QVector<PropertyInfo> Sheet;

} // namespace group

} // namespace Orbel
