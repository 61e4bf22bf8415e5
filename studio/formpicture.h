#pragma once

#include <QImage>
#include <QSize>

class QWidget;

namespace Orbel
{

/// Draws a form's window without a caret that blinks.
class FormPicture
{
public:
    /// Pixels of a picture's side.
    static constexpr int GreatestSide = 16384;
    /// The width of the viewer's window.
    static constexpr int OrdinaryWidth = 500;

    /// Of that size, and with a height of 0 as high as the form needs. Shows the window; pending events are processed.
    static QImage Draw(QWidget &gui, QSize size);
};

} // namespace Orbel
