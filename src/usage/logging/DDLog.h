#pragma once

#include "usage/logging/DDAbstractLogger.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/**
 * The dispatcher of all lines that carry a severity. A message goes through one serial queue to every
 * attached logger that admits its flag, so that each logger sees the same order. Any thread may call; an
 * application object is not needed. What was logged is written out when the application or the process ends.
 *
 * A source file names its level once and logs by one of the macros:
 *
 *     static constexpr int ddLogLevel = ddlog::levelAll;
 *     DDLogWarn(QStringLiteral("DB > sync > could not read db file %1").arg(path));
 */
class DDLog
{
public:
    /** The level is a mask of the flags that the logger is to get. */
    static void addLogger(std::shared_ptr<DDAbstractLogger> logger, int level = ddlog::levelAll);
    static void removeLogger(const std::shared_ptr<DDAbstractLogger> &logger);
    static void removeAllLoggers();
    static QList<std::shared_ptr<DDAbstractLogger>> allLoggers();

    /** An absent format does nothing; %1, %2, ... in it stand for the arguments. */
    static void log(bool asynchronous, int level, int flag, int context, const char *file,
                    const char *function, int line, const QVariant &tag, const std::optional<QString> &format,
                    const QStringList &arguments = {});
    static void log(bool asynchronous, const DDLogMessage &message);
    /**
     * Blocks while a thousand messages are under way. A synchronous message has been handled by all loggers
     * when this returns; it must not come from a logger.
     */
    static void queueLogMessage(const DDLogMessage &message, bool asynchronously);
    /** Returns when all that was logged before has been written out by every logger. */
    static void flushLog();

    /** Classes whose level can be read and set while the program runs; they are known by name. */
    static void registerClass(const QString &name, std::function<int()> logLevel,
                              std::function<void(int)> setLogLevel);
    static QStringList registeredClassNames();
    static bool isRegisteredClass(const QString &name);
    /** 0 for a class that is not registered. */
    static int logLevelForClassWithName(const QString &name);
    static void setLogLevelForClassWithName(int level, const QString &name);

    static platform::SerialQueue &loggingQueue();
};

#define DD_LOG_IF_ADMITTED(asynchronous, flag, text)                                                         \
    do {                                                                                                     \
        if (ddLogLevel & (flag))                                                                             \
            DDLog::log(asynchronous, ddLogLevel, flag, 0, __FILE_NAME__, __func__, __LINE__, {}, text);      \
    } while (false)

/** An error line is out before the caller goes on. */
#define DDLogError(text) DD_LOG_IF_ADMITTED(false, ddlog::flagError, text)
#define DDLogWarn(text) DD_LOG_IF_ADMITTED(true, ddlog::flagWarn, text)
#define DDLogInfo(text) DD_LOG_IF_ADMITTED(true, ddlog::flagInfo, text)
#define DDLogDebug(text) DD_LOG_IF_ADMITTED(true, ddlog::flagDebug, text)
#define DDLogVerbose(text) DD_LOG_IF_ADMITTED(true, ddlog::flagVerbose, text)
