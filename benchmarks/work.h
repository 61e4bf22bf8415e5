#pragma once

#include <QString>

/// The form that all measures are taken with, in each of its spellings. Of five controls two are double spin boxes, and
/// one each is a line edit, a check box and a combo box of eight items; a headline opens each group of twenty. Every
/// control has a label, a tooltip and eight properties, and the script connects a handler and assigns a value to each.
/// Controls count from 0.
namespace work
{

enum class Kind { Spin, Line, Check, Combo };

constexpr int RowsOfGroup = 20;
constexpr int ComboItems = 8;
constexpr int SpinDecimals = 2;
constexpr double SpinMaximum = 1000;
constexpr int LineLength = 40;

Kind KindOf(int control);
QString NameOf(int control);
QString LabelOf(int control);
QString ToolTipOf(int control);
/// The title of the group that the control opens; empty when it opens none.
QString TitleAt(int control);
QString ItemText(int item);

/// The value of a control as a parameter document spells it. Different versions differ in every control.
QString ValueText(int control, int version);
/// The same of spin, check and combo box: the number, the state and the item.
double SpinValue(int control, int version);
bool IsChecked(int control, int version);
int ComboIndex(int control, int version);

/// The form definition.
QString Definition(int controls);
/// The script of the definition.
QString Script(int controls);
/// The same form as Qt Designer saves it: a scroll area with a form layout.
QByteArray UiText(int controls);

} // namespace work
