#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVector>

namespace Orbel
{

/// A control whose value is another one than the applied one.
struct Change {
    /// The parameter path, which names the control.
    QString Path;
    /// What the operator reads before the control, without its colon; the element name where it has no label.
    QString Label;
    /// The applied value and the one of now, typed as Session::Value() gives them. The old one is invalid where it is
    /// not known what was applied, after a change that began in a script for instance.
    QVariant Old;
    QVariant New;
    /// The same as the operator reads them, with the unit: "145.500 MHz".
    QString OldText;
    QString NewText;
};

using ChangeList = QVector<Change>;

} // namespace Orbel

Q_DECLARE_METATYPE(Orbel::Change)
