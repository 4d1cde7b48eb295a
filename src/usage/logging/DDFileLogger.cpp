#include "usage/logging/DDFileLogger.h"

#include "platform/DiagnosticLog.h"
#include "platform/Services.h"
#include "usage/logging/DDLog.h"

#include <algorithm>
#include <atomic>

namespace {

constexpr int maxFailuresTold = 10;

void tellWriteFailure(const QString &reason)
{
    static std::atomic<int> failureCount = 0;
    const int number = ++failureCount;
    if (number > maxFailuresTold)
        return;
    platform::diagnosticLog(QStringLiteral("DDFileLogger.logMessage: %1").arg(reason));
    if (number == maxFailuresTold)
        platform::diagnosticLog(
            QStringLiteral("DDFileLogger.logMessage: Too many exceptions -- will not log any more of them."));
}

} // namespace

QString DDLogFileFormatterDefault::formatLogMessage(const DDLogMessage &message)
{
    const QString stamp = message.timestamp.toLocalTime().toString(u"yyyy/MM/dd HH:mm:ss:zzz");
    return stamp + QStringLiteral("  ") + message.logMsg;
}

DDFileLogger::DDFileLogger(const DDLogFileManagerDefault &logFileManager)
    : DDAbstractLogger(QStringLiteral("cocoa.temiopilvi.fileLogger"))
    , m_logFileManager(logFileManager)
{
    m_formatter = std::make_shared<DDLogFileFormatterDefault>();
}

DDFileLogger::~DDFileLogger()
{
    // Tasks of the queue still refer to the file.
    loggerQueue().sync([this] { closeLogFile(); });
}

void DDFileLogger::setMaximumFileSize(qint64 size)
{
    runInOrder([&] {
        m_maximumFileSize = size;
        maybeRollLogFileDueToSize();
    });
}

void DDFileLogger::setRollingFrequency(qint64 seconds)
{
    runInOrder([&] {
        m_rollingFrequency = seconds;
        maybeRollLogFileDueToAge();
    });
}

void DDFileLogger::setMaximumNumberOfLogFiles(int number)
{
    runInOrder([&] { m_logFileManager.setMaximumNumberOfLogFiles(number); });
}

void DDFileLogger::setDoNotReuseLogFiles(bool doNotReuse)
{
    runInOrder([&] { m_doNotReuseLogFiles = doNotReuse; });
}

void DDFileLogger::rollLogFile()
{
    runInOrder([&] { roll(); });
}

QString DDFileLogger::currentLogFilePath() const
{
    QString path;
    runInOrder([&] { path = m_file.fileName(); });
    return path;
}

void DDFileLogger::logMessage(const DDLogMessage &message)
{
    if (!m_file.isOpen())
        openLogFile();
    if (!m_file.isOpen())
        return;
    QByteArray line = formatted(message).toUtf8();
    if (!line.endsWith('\n'))
        line += '\n';
    if (m_file.write(line) != line.size())
        tellWriteFailure(m_file.errorString());
    maybeRollLogFileDueToSize();
}

void DDFileLogger::willRemoveLogger()
{
    closeLogFile();
}

void DDFileLogger::openLogFile()
{
    QString path;
    const QList<DDLogFileInfo> infos = m_logFileManager.sortedLogFileInfos();
    if (!m_hasLogged && !infos.isEmpty()) {
        DDLogFileInfo newest = infos.constFirst();
        if (!m_doNotReuseLogFiles)
            path = newest.filePath();
        else if (isOverLimit(newest))
            newest.setArchived(true);
    }
    m_hasLogged = true;
    if (path.isEmpty())
        path = m_logFileManager.createNewLogFile();
    if (path.isEmpty()) {
        tellWriteFailure(QStringLiteral("no file can be made in ") + m_logFileManager.logsDirectory());
        return;
    }
    m_file.setFileName(path);
    // Unbuffered, so that a line is out before the next one is taken.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        tellWriteFailure(m_file.errorString());
        return;
    }
    scheduleRollDueToAge();
}

void DDFileLogger::closeLogFile()
{
    m_file.close();
    m_file.setFileName(QString());
}

bool DDFileLogger::isOverLimit(const DDLogFileInfo &info) const
{
    return (m_maximumFileSize > 0 && info.fileSize() >= quint64(m_maximumFileSize)) ||
           (m_rollingFrequency > 0 && info.age() >= double(m_rollingFrequency));
}

void DDFileLogger::roll()
{
    if (!m_file.isOpen())
        return;
    DDLogFileInfo info(m_file.fileName());
    closeLogFile();
    info.setArchived(true);
}

void DDFileLogger::maybeRollLogFileDueToSize()
{
    if (m_file.isOpen() && m_maximumFileSize > 0 && m_file.pos() >= m_maximumFileSize)
        roll();
}

void DDFileLogger::maybeRollLogFileDueToAge()
{
    if (!m_file.isOpen() || m_rollingFrequency <= 0)
        return;
    if (DDLogFileInfo(m_file.fileName()).age() >= double(m_rollingFrequency))
        roll();
    else
        scheduleRollDueToAge();
}

void DDFileLogger::scheduleRollDueToAge()
{
    platform::Clock *clock = platform::services().clock;
    if (!clock || m_rollingFrequency <= 0)
        return;
    const double remaining = double(m_rollingFrequency) - DDLogFileInfo(m_file.fileName()).age();
    const auto delay = std::chrono::milliseconds(qint64(std::max(0.0, remaining) * 1000) + 1);
    const int number = ++m_delayedCallNumber;
    clock->callAfter(delay, nullptr, [weak = weak_from_this(), number] {
        if (weak.expired())
            return;
        // The logger is held by a task of the logging queue: its own could not end it.
        DDLog::loggingQueue().async([logger = weak.lock(), number] {
            if (logger)
                logger->loggerQueue().sync([&] {
                    if (number == logger->m_delayedCallNumber)
                        logger->maybeRollLogFileDueToAge();
                });
        });
    });
}
