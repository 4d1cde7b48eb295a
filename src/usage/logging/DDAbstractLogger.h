#pragma once

#include "platform/Queues.h"
#include "usage/logging/DDLogMessage.h"

#include <memory>

/** Turns a message into the text that a logger writes. */
class DDLogFormatter
{
public:
    virtual ~DDLogFormatter() = default;
    virtual QString formatLogMessage(const DDLogMessage &message) = 0;
};

/**
 * Base of all loggers. logMessage(), didAddLogger(), willRemoveLogger() and flush() run only on the logger's
 * own queue.
 */
class DDAbstractLogger
{
public:
    DDAbstractLogger(const DDAbstractLogger &) = delete;
    DDAbstractLogger &operator=(const DDAbstractLogger &) = delete;
    virtual ~DDAbstractLogger();

    virtual void logMessage(const DDLogMessage &message) = 0;
    virtual void didAddLogger() {}
    virtual void willRemoveLogger() {}
    /** Writes out what the logger has not written yet. */
    virtual void flush() {}

    /**
     * The formatter never changes under a running logMessage(), as both wait for the logging queue and then
     * for the logger's. Neither may be called on one of these.
     */
    std::shared_ptr<DDLogFormatter> logFormatter() const;
    void setLogFormatter(std::shared_ptr<DDLogFormatter> formatter);

    platform::SerialQueue &loggerQueue() const { return *m_loggerQueue; }
    QString loggerName() const { return m_loggerQueue->label(); }

protected:
    explicit DDAbstractLogger(const QString &loggerName);
    /** The text by the formatter, else the message's own. On the logger's queue. */
    QString formatted(const DDLogMessage &message) const;
    /** Runs the task on the logger's queue, after all that was logged before, and waits for it. */
    void runInOrder(const platform::Task &task) const;

    /** Touched only on the logger's queue. */
    std::shared_ptr<DDLogFormatter> m_formatter;

private:
    std::unique_ptr<platform::SerialQueue> m_loggerQueue;
};
