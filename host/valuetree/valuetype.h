#pragma once

#include <QString>

/// The types of node. The numbers are fixed.
enum ValueType {
    ekTypeString = 1,
    ekTypeBoolean = 2,
    ekTypeInt = 6,
    ekTypeInt64 = 7,
    ekTypeDouble = 8,
    ekTypeSelection = 9,
    ekTypeRangeMap = 10,
};

/// The type of the nodes that hold a `T`; only the types named below can be held.
template <class T> struct ValueTypeOf;
template <> struct ValueTypeOf<QString> {
    static constexpr ValueType Type = ekTypeString;
    static constexpr QLatin1String Name{"string", 6};
};
template <> struct ValueTypeOf<bool> {
    static constexpr ValueType Type = ekTypeBoolean;
    static constexpr QLatin1String Name{"boolean", 7};
};
template <> struct ValueTypeOf<int> {
    static constexpr ValueType Type = ekTypeInt;
    static constexpr QLatin1String Name{"int", 3};
};
template <> struct ValueTypeOf<qint64> {
    static constexpr ValueType Type = ekTypeInt64;
    static constexpr QLatin1String Name{"int64", 5};
};
template <> struct ValueTypeOf<double> {
    static constexpr ValueType Type = ekTypeDouble;
    static constexpr QLatin1String Name{"double", 6};
};
