#include "usage/logging/DDLog.h"

#include "platform/Clock.h"

#include <QCoreApplication>
#include <QMap>

#include <cstdlib>
#include <latch>
#include <mutex>
#include <semaphore>
#include <thread>

namespace {

constexpr int maxMessagesInFlight = 1000;

/** One attached logger. */
struct DDLoggerNode
{
    std::shared_ptr<DDAbstractLogger> logger;
    platform::SerialQueue *loggerQueue = nullptr;
    int logLevel = 0;
};

/** Its lt_ operations belong to the logging queue. */
class Dispatcher
{
public:
    Dispatcher()
    {
        // What the writing of dates needs must be made before, so that it is still there when the process
        // ends.
        platform::systemTime().toLocalTime().toString(u"yyyy-MM-dd HH:mm:ss:zzz");
        std::atexit(DDLog::flushLog);
    }

    void lt_addLogger(const std::shared_ptr<DDAbstractLogger> &logger, int level)
    {
        assertOnLoggingQueue();
        m_nodes.append({logger, &logger->loggerQueue(), level});
        logger->loggerQueue().sync([&] { logger->didAddLogger(); });
    }

    void lt_removeLogger(const std::shared_ptr<DDAbstractLogger> &logger)
    {
        assertOnLoggingQueue();
        for (qsizetype i = 0; i < m_nodes.size(); ++i) {
            if (m_nodes.at(i).logger == logger) {
                logger->loggerQueue().sync([&] { logger->willRemoveLogger(); });
                m_nodes.removeAt(i);
                return;
            }
        }
    }

    void lt_removeAllLoggers()
    {
        assertOnLoggingQueue();
        for (const DDLoggerNode &node : std::as_const(m_nodes))
            node.loggerQueue->sync([&] { node.logger->willRemoveLogger(); });
        m_nodes.clear();
    }

    QList<std::shared_ptr<DDAbstractLogger>> lt_allLoggers() const
    {
        assertOnLoggingQueue();
        QList<std::shared_ptr<DDAbstractLogger>> loggers;
        for (const DDLoggerNode &node : m_nodes)
            loggers.append(node.logger);
        return loggers;
    }

    void lt_log(const DDLogMessage &message)
    {
        assertOnLoggingQueue();
        QList<DDLoggerNode> admitting;
        for (const DDLoggerNode &node : std::as_const(m_nodes)) {
            if (node.logLevel & message.logFlag)
                admitting.append(node);
        }
        if (m_processorCount == 1) {
            for (const DDLoggerNode &node : std::as_const(admitting))
                node.loggerQueue->sync([&] { node.logger->logMessage(message); });
        } else {
            // Kept alive by whoever leaves it last: the one that counts to zero still touches it afterwards.
            const auto group = std::make_shared<std::latch>(admitting.size());
            for (const DDLoggerNode &node : std::as_const(admitting)) {
                node.loggerQueue->async([&node, &message, group] {
                    node.logger->logMessage(message);
                    group->count_down();
                });
            }
            group->wait();
        }
        freePlaces.release();
    }

    void lt_flush()
    {
        assertOnLoggingQueue();
        for (const DDLoggerNode &node : std::as_const(m_nodes))
            node.loggerQueue->sync([&] { node.logger->flush(); });
    }

    const std::unique_ptr<platform::SerialQueue> queue =
        platform::makeSystemSerialQueue(QStringLiteral("cocoa.temiopilvi"));
    std::counting_semaphore<maxMessagesInFlight> freePlaces{maxMessagesInFlight};

private:
    void assertOnLoggingQueue() const
    {
        Q_ASSERT_X(queue->isCurrent(), "DDLog", "This method should only be run on the logging thread/queue");
    }

    const unsigned m_processorCount = std::max(1U, std::thread::hardware_concurrency());
    QList<DDLoggerNode> m_nodes;
};

Dispatcher &dispatcher()
{
    // Never destroyed, as lines may still come from the last destructors of the process.
    static Dispatcher &instance = *std::make_unique<Dispatcher>().release();
    return instance;
}

void flushAtApplicationEnd()
{
    QCoreApplication *application = QCoreApplication::instance();
    QObject::connect(application, &QCoreApplication::aboutToQuit, application, [] { DDLog::flushLog(); });
}
Q_COREAPP_STARTUP_FUNCTION(flushAtApplicationEnd)

/** In one go, so that a placeholder inside an argument stays as it is. */
QString filled(const QString &format, const QStringList &arguments)
{
    QString text;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const int number = format.at(i) == u'%' && i + 1 < format.size() ? format.at(i + 1).digitValue() : -1;
        if (number >= 1 && number <= arguments.size()) {
            text += arguments.at(number - 1);
            ++i;
        } else {
            text += format.at(i);
        }
    }
    return text;
}

struct RegisteredClass
{
    std::function<int()> logLevel;
    std::function<void(int)> setLogLevel;
};

struct Registry
{
    std::mutex mutex;
    QMap<QString, RegisteredClass> classes;
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

} // namespace

void DDLog::addLogger(std::shared_ptr<DDAbstractLogger> logger, int level)
{
    if (logger)
        loggingQueue().sync([&] { dispatcher().lt_addLogger(logger, level); });
}

void DDLog::removeLogger(const std::shared_ptr<DDAbstractLogger> &logger)
{
    if (logger)
        loggingQueue().sync([&] { dispatcher().lt_removeLogger(logger); });
}

void DDLog::removeAllLoggers()
{
    loggingQueue().sync([] { dispatcher().lt_removeAllLoggers(); });
}

QList<std::shared_ptr<DDAbstractLogger>> DDLog::allLoggers()
{
    QList<std::shared_ptr<DDAbstractLogger>> loggers;
    loggingQueue().sync([&] { loggers = dispatcher().lt_allLoggers(); });
    return loggers;
}

void DDLog::log(bool asynchronous, int level, int flag, int context, const char *file, const char *function,
                int line, const QVariant &tag, const std::optional<QString> &format,
                const QStringList &arguments)
{
    if (!format)
        return;
    const DDLogMessage message(filled(*format, arguments), level, flag, context, file, function, line, tag);
    queueLogMessage(message, asynchronous);
}

void DDLog::log(bool asynchronous, const DDLogMessage &message)
{
    queueLogMessage(message, asynchronous);
}

void DDLog::queueLogMessage(const DDLogMessage &message, bool asynchronously)
{
    dispatcher().freePlaces.acquire();
    if (asynchronously)
        loggingQueue().async([message] { dispatcher().lt_log(message); });
    else
        loggingQueue().sync([&message] { dispatcher().lt_log(message); });
}

void DDLog::flushLog()
{
    loggingQueue().sync([] { dispatcher().lt_flush(); });
}

void DDLog::registerClass(const QString &name, std::function<int()> logLevel,
                          std::function<void(int)> setLogLevel)
{
    const std::lock_guard lock(registry().mutex);
    registry().classes.insert(name, {std::move(logLevel), std::move(setLogLevel)});
}

QStringList DDLog::registeredClassNames()
{
    const std::lock_guard lock(registry().mutex);
    return registry().classes.keys();
}

bool DDLog::isRegisteredClass(const QString &name)
{
    const std::lock_guard lock(registry().mutex);
    return registry().classes.contains(name);
}

int DDLog::logLevelForClassWithName(const QString &name)
{
    const std::lock_guard lock(registry().mutex);
    const auto found = registry().classes.constFind(name);
    return found != registry().classes.constEnd() ? found->logLevel() : 0;
}

void DDLog::setLogLevelForClassWithName(int level, const QString &name)
{
    const std::lock_guard lock(registry().mutex);
    const auto found = registry().classes.constFind(name);
    if (found != registry().classes.constEnd())
        found->setLogLevel(level);
}

platform::SerialQueue &DDLog::loggingQueue()
{
    return *dispatcher().queue;
}
