#pragma once

#include "usage/logging/DDAbstractLogger.h"
#include "usage/logging/DDLogFileManager.h"

#include <QFile>

#include <memory>

/** A line of a log file: the local time and the text. */
class DDLogFileFormatterDefault : public DDLogFormatter
{
public:
    QString formatLogMessage(const DDLogMessage &message) override;
};

/**
 * Writes to a file of its own, and begins a new one when that is too big or too old. The setters may be
 * called from any thread except the loggers' own queues.
 */
class DDFileLogger : public DDAbstractLogger, public std::enable_shared_from_this<DDFileLogger>
{
public:
    explicit DDFileLogger(const DDLogFileManagerDefault &logFileManager = DDLogFileManagerDefault());
    ~DDFileLogger() override;

    /** In bytes; 0 for no limit. */
    void setMaximumFileSize(qint64 size);
    /** In seconds; 0 for no limit. Watched by the clock service if the logger is held by a shared pointer. */
    void setRollingFrequency(qint64 seconds);
    void setMaximumNumberOfLogFiles(int number);
    /** Begin with a new file instead of going on with the newest one of the folder. */
    void setDoNotReuseLogFiles(bool doNotReuse);
    /** Closes the file; the next message makes a new one. */
    void rollLogFile();
    QString currentLogFilePath() const;

    void logMessage(const DDLogMessage &message) override;
    void willRemoveLogger() override;

private:
    void openLogFile();
    void closeLogFile();
    bool isOverLimit(const DDLogFileInfo &info) const;
    void roll();
    void maybeRollLogFileDueToSize();
    void maybeRollLogFileDueToAge();
    void scheduleRollDueToAge();

    DDLogFileManagerDefault m_logFileManager;
    qint64 m_maximumFileSize = 1048576;
    qint64 m_rollingFrequency = 86400;
    bool m_doNotReuseLogFiles = false;
    bool m_hasLogged = false;
    QFile m_file;
    /** Of the delayed call that counts; earlier ones come for nothing. */
    int m_delayedCallNumber = 0;
};
