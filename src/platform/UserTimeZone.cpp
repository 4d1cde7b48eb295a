#include "platform/UserTimeZone.h"

#include <QDateTime>

#include <ctime>

namespace platform {

QTimeZone userTimeZone(const QDateTime &now)
{
    const std::time_t seconds = now.toSecsSinceEpoch();
    std::tm local = {};
    tzset();
    const int offset = localtime_r(&seconds, &local) ? int(local.tm_gmtoff) : 0;
    const QTimeZone zone = QTimeZone::systemTimeZone();
    // Qt reads a name such as UTC-14 the other way round than the system does.
    if (zone.isValid() && zone.offsetFromUtc(now) == offset)
        return zone;
    return QTimeZone(offset);
}

} // namespace platform
