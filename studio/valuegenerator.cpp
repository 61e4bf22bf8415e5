#include "valuegenerator.h"

#include <QObject>
#include <QRandomGenerator>

#include <cmath>

namespace Orbel
{

/// Milliseconds.
static constexpr int RampTime = 5000;
/// Whole numbers beyond it are none of a double's.
static constexpr double Farthest = 9e15;

QVariant ValueGenerator::At(qint64 time, const ControlInfo &control) const
{
    if (What == None)
        return QVariant();
    double part = 0;
    if (What == Ramp)
        part = double(time % RampTime) / RampTime;
    else if (What == Noise)
        part = QRandomGenerator::global()->generateDouble();
    const double number = From + part * (To - From);
    switch (control.What) {
    case ControlInfo::Switch:
        return What == Constant ? From != 0 : part >= 0.5;
    case ControlInfo::Whole:
        return qint64(std::floor(qBound(-Farthest, number, Farthest)));
    case ControlInfo::OneOf: {
        const int rows = control.Choices.size();
        return rows == 0 ? QVariant() : QVariant(control.Choices.at(int(qBound(0.0, number, rows - 1.0))).Value);
    }
    case ControlInfo::Text:
        return QString::number(number, 'f', 3);
    case ControlInfo::List:
    case ControlInfo::None:
        return QVariant();
    case ControlInfo::Real:
        break;
    }
    return number;
}

QStringList GeneratorNames()
{
    return {QObject::tr("none"), QObject::tr("constant"), QObject::tr("ramp"), QObject::tr("noise")};
}

} // namespace Orbel
