#pragma once

#include "checkexport.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orbel
{

/// A function of a control, as scripts call it.
struct ScriptMethod {
    bool IsSignal = false;
    QVector<QList<QByteArray>> Overloads; ///< Types of the arguments, also without those that can be left out.
    QByteArray Result; ///< Its type.

    int Least() const;
    int Most() const;
    /// The type of an argument where all overloads of that many arguments agree; empty otherwise.
    QByteArray TypeOf(int argument, int count) const;
};

/// What a script can reach behind the name of a control.
class ORBEL_CHECK_INTERNAL ScriptClass
{
public:
    /// Of a class of definitions; the empty name means the sheet. Needs a QCoreApplication.
    static const ScriptClass &Of(const QString &className);

    /// Null for what is no signal, slot or invokable.
    const ScriptMethod *Find(const QString &name) const;
    QStringList Names() const { return Methods.keys(); }

private:
    QHash<QString, ScriptMethod> Methods;
};

} // namespace Orbel
