#include "usage/logging/DDASLLogger.h"

#include "platform/Services.h"

using platform::SystemLogLevel;

namespace {

SystemLogLevel systemLogLevel(int flag)
{
    switch (flag) {
    case ddlog::flagError:
        return SystemLogLevel::alert;
    case ddlog::flagWarn:
        return SystemLogLevel::critical;
    case ddlog::flagInfo:
        return SystemLogLevel::error;
    case ddlog::flagDebug:
        return SystemLogLevel::warning;
    default:
        return SystemLogLevel::notice;
    }
}

} // namespace

DDASLLogger::DDASLLogger()
    : DDAbstractLogger(QStringLiteral("cocoa.temiopilvi.aslLogger"))
    , m_ownSystemLog(platform::makeSystemLog())
{
}

std::shared_ptr<DDASLLogger> DDASLLogger::sharedInstance()
{
    static const auto instance = std::make_shared<DDASLLogger>();
    return instance;
}

void DDASLLogger::logMessage(const DDLogMessage &message)
{
    if (message.tag.toString() == QLatin1String(ignoreTag))
        return;
    platform::SystemLog *installed = platform::services().systemLog;
    platform::SystemLog &systemLog = installed ? *installed : *m_ownSystemLog;
    systemLog.write(systemLogLevel(message.logFlag), formatted(message));
}
