#include "model/WordIds.h"

#include "platform/Services.h"

namespace wordids {

qint64 fromClock()
{
    /** 2001-01-01 00:00:00 UTC in the reckoning of the clock. */
    constexpr qint64 millisecondsTo2001 = 978307200000;
    return (platform::clock().now().toMSecsSinceEpoch() - millisecondsTo2001) / 1000;
}

qint64 firstOfBlock(qint64 range)
{
    const qint64 time = fromClock();
    if (range < 100)
        return time * 100;
    if (range < 1000)
        return time * 1000;
    return range < 10000 ? time * 10000 : time * 100000;
}

} // namespace wordids
