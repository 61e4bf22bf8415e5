#pragma once

#include "orbelexport.h"

#include <QPointer>
#include <QString>
#include <QWidget>

namespace KV218
{

/// A widget by which the operator meets a control, as assistive tools tell of it. Most controls have one, a range two,
/// a list one for each item.
struct Face {
    QPointer<QWidget> Widget;
    /// What tells it from the control's other ones, in the operator's language; empty for the control itself.
    QString Part;
    /// Limits with their unit; empty for none.
    QString Bounds;
};

/// A number for a voice: without the zeros at the end that fill a text for the eye.
ORBEL_EXPORT QString SpokenNumber(QString number);
/// "0 to 60 dB". An empty limit is none.
ORBEL_EXPORT QString BoundsText(const QString &lowest, const QString &highest);
/// "9 kHz to 26.5 GHz", for limits in Hz; from 1e308 on in either direction there is none.
ORBEL_EXPORT QString FrequencyBounds(double lowest, double highest);

} // namespace KV218
