#pragma once

#include "numbertext.h"

#include <QString>

#include <algorithm>
#include <limits>
#include <type_traits>

/// How a type is spelled. ToText() gives a text that FromText() takes back to the same value; FromText() gives false,
/// and leaves the value alone, for a text that stands for none. All are exported: a node's type is visible to other
/// libraries only if its formats are.

/// "true" and "false"; in any case, and "1" and "0" too, on the way in.
template <class T> struct ORBEL_HOST_EXPORT FormatBool {
    /// A value as text, and back.
    static QString ToText(T value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }
    static bool FromText(const QString &text, T &value)
    {
        const bool yes = text == QLatin1String("1") || !text.compare(QLatin1String("true"), Qt::CaseInsensitive);
        const bool no = text == QLatin1String("0") || !text.compare(QLatin1String("false"), Qt::CaseInsensitive);
        if (yes || no)
            value = yes;
        return yes || no;
    }
};

/// Decimal; on the way in also "12.0" or "1e3". An integer out of range gives the nearest bound of the type.
template <class T> struct ORBEL_HOST_EXPORT FormatInt {
    /// A value as text, and back.
    static QString ToText(T value) { return QString::number(value); }
    static bool FromText(const QString &text, T &value)
    {
        qint64 number = 0;
        if (!Orbel::TextToInteger(text, number))
            return false;
        value
            = static_cast<T>(std::clamp<qint64>(number, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
        return true;
    }
};

/// As NumberToText() spells it.
template <class T> struct ORBEL_HOST_EXPORT FormatFloat {
    /// A value as text, and back.
    static QString ToText(T value) { return Orbel::NumberToText(value); }
    static bool FromText(const QString &text, T &value) { return Orbel::TextToNumber(text, value); }
};

/// The text itself.
template <class T> struct ORBEL_HOST_EXPORT FormatString {
    /// A value as text, and back.
    static QString ToText(const T &value) { return value; }
    static bool FromText(const QString &text, T &value)
    {
        value = text;
        return true;
    }
};

/// How a text from outside meets a format: blanks around it do not matter, but in a text value they belong to it.
template <class T, class Format> struct ORBEL_HOST_EXPORT StreamFormat {
    /// The text of a value, and back.
    static QString Write(const T &value) { return Format::ToText(value); }
    static bool Read(const QString &text, T &value)
    {
        if constexpr (std::is_same_v<T, QString>)
            return Format::FromText(text, value);
        else
            return Format::FromText(text.trimmed(), value);
    }
};
