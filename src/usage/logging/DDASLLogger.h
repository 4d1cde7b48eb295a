#pragma once

#include "platform/SystemLog.h"
#include "usage/logging/DDAbstractLogger.h"

/** Writes to the system's log. */
class DDASLLogger : public DDAbstractLogger
{
public:
    /** A message with this tag is left out. */
    static constexpr const char *ignoreTag = "DDASLLoggerIgnoreLogMessageTag";

    DDASLLogger();
    static std::shared_ptr<DDASLLogger> sharedInstance();

    void logMessage(const DDLogMessage &message) override;

private:
    /** For lines before and after the services are installed. */
    const std::unique_ptr<platform::SystemLog> m_ownSystemLog;
};
