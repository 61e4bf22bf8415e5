#pragma once

#include <memory>

class QLayout;
class QWidget;

/// A window as one would write it by hand: Qt's own controls in the rows of a QFormLayout, with the labels, texts and
/// limits of the controls in `form`, the layout of a form that is built. What is hidden there is left out.
std::unique_ptr<QWidget> HandMade(const QLayout &form);
