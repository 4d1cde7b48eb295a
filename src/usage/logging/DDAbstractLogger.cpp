#include "usage/logging/DDAbstractLogger.h"

#include "usage/logging/DDLog.h"

DDAbstractLogger::DDAbstractLogger(const QString &loggerName)
    : m_loggerQueue(platform::makeSystemSerialQueue(loggerName))
{
}

DDAbstractLogger::~DDAbstractLogger() = default;

std::shared_ptr<DDLogFormatter> DDAbstractLogger::logFormatter() const
{
    std::shared_ptr<DDLogFormatter> formatter;
    runInOrder([&] { formatter = m_formatter; });
    return formatter;
}

void DDAbstractLogger::setLogFormatter(std::shared_ptr<DDLogFormatter> formatter)
{
    runInOrder([&] { m_formatter = std::move(formatter); });
}

QString DDAbstractLogger::formatted(const DDLogMessage &message) const
{
    return m_formatter ? m_formatter->formatLogMessage(message) : message.logMsg;
}

void DDAbstractLogger::runInOrder(const platform::Task &task) const
{
    Q_ASSERT_X(!DDLog::loggingQueue().isCurrent() && !m_loggerQueue->isCurrent(), "DDAbstractLogger",
               "Core architecture requirement failure");
    DDLog::loggingQueue().sync([&] { m_loggerQueue->sync(task); });
}
