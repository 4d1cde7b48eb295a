#pragma once

#include <QDateTime>

#include <algorithm>
#include <cmath>

/** Conversions of numbers from files, which may be of any size. */
namespace coding {

/** Toward zero; 0 for what is no number or does not fit. */
inline qint64 integerFromReal(double value)
{
    constexpr double limit = 9223372036854775808.0;
    return value > -limit && value < limit ? qint64(value) : 0;
}

/** A count, or the sync's version: 0 for a value so large that calculating with it could overflow. */
inline qint64 plausibleCount(qint64 value)
{
    constexpr qint64 limit = qint64(1) << 56;
    return value > -limit && value < limit ? value : 0;
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
