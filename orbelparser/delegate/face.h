#pragma once

#include "orbelexport.h"

#include <functional>
#include <QPointer>
#include <QString>
#include <QWidget>

class QAbstractItemModel;

namespace KV218
{

/// A widget by which the operator meets a control, as assistive tools tell of it. Most controls have one, a range two,
/// a list one for each item. Its texts are made when a tool asks for them; null is no text.
struct Face {
    /// Makes the text when it is asked for.
    using Text = std::function<QString()>;

    /// Not owned; null once it was destroyed.
    QPointer<QWidget> Widget;
    /// What tells it from the control's other ones, in the operator's language; none for the control itself.
    Text Part = nullptr;
    /// Limits with their unit.
    Text Bounds = nullptr;

    /// The same as texts; empty for none.
    QString GetPart() const { return Part ? Part() : QString(); }
    QString GetBounds() const { return Bounds ? Bounds() : QString(); }
};

/// "column kHz, row 2", of the headers; row and column count from 0.
QString CellPlace(const QAbstractItemModel &cells, int row, int column);

/// A number for a voice: without the zeros at the end that fill a text for the eye.
ORBEL_EXPORT QString SpokenNumber(QString number);
/// "0 to 60 dB". An empty limit is none.
ORBEL_EXPORT QString BoundsText(const QString &lowest, const QString &highest);
/// "9 kHz to 26.5 GHz", for limits in Hz; from 1e308 on in either direction there is none.
ORBEL_EXPORT QString FrequencyBounds(double lowest, double highest);

} // namespace KV218
