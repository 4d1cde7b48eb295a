#pragma once

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <limits>

/** Conversions of numbers from files, which may be of any size. */
namespace coding {

/** Toward zero; 0 for what is no number or does not fit. */
inline qint64 integerFromReal(double value)
{
    constexpr double limit = 9223372036854775808.0;
    return value > -limit && value < limit ? qint64(value) : 0;
}

/** The sum; the nearest number that fits where it doesn't. */
inline qint64 sum(qint64 a, qint64 b)
{
    qint64 result = 0;
    if (!__builtin_add_overflow(a, b, &result))
        return result;
    return a < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

/** The same for a difference. */
inline qint64 difference(qint64 a, qint64 b)
{
    qint64 result = 0;
    if (!__builtin_sub_overflow(a, b, &result))
        return result;
    return a < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

/** 0 for a negative value. */
inline quint64 unsignedOf(qint64 value)
{
    return quint64(std::max<qint64>(0, value));
}

/** Seconds since 1970-01-01 00:00:00 UTC; an invalid date for what lies hundreds of thousands of years away.
 */
inline QDateTime dateFromSeconds(double seconds)
{
    constexpr double limit = 1e13;
    if (!(seconds > -limit && seconds < limit))
        return {};
    return QDateTime::fromMSecsSinceEpoch(std::llround(seconds * 1000), Qt::UTC);
}

inline double secondsFromDate(const QDateTime &date)
{
    return double(date.toMSecsSinceEpoch()) / 1000;
}

} // namespace coding
