#include "platform/SystemLog.h"

#include <syslog.h>

namespace platform {

namespace {

int priority(SystemLogLevel level)
{
    switch (level) {
    case SystemLogLevel::alert:
        return LOG_ALERT;
    case SystemLogLevel::critical:
        return LOG_CRIT;
    case SystemLogLevel::error:
        return LOG_ERR;
    case SystemLogLevel::warning:
        return LOG_WARNING;
    case SystemLogLevel::notice:
        break;
    }
    return LOG_NOTICE;
}

class SyslogSystemLog : public SystemLog
{
public:
    SyslogSystemLog() { openlog("tavimo", LOG_PID, LOG_USER); }
    void write(SystemLogLevel level, const QString &text) override
    {
        syslog(priority(level), "%s", text.toUtf8().constData());
    }
};

} // namespace

std::unique_ptr<SystemLog> makeSystemLog()
{
    return std::make_unique<SyslogSystemLog>();
}

} // namespace platform
