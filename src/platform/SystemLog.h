#pragma once

#include <QString>

#include <memory>

namespace platform {

/** Severities of the system log, the gravest first. */
enum class SystemLogLevel { alert, critical, error, warning, notice };

class SystemLog
{
public:
    virtual ~SystemLog() = default;
    virtual void write(SystemLogLevel level, const QString &text) = 0;
};

std::unique_ptr<SystemLog> makeSystemLog();

} // namespace platform
