#include "usage/logging/DDASLLogger.h"
#include "usage/logging/DDLog.h"
#include "usage/logging/DDTTYLogger.h"

#include "support/TestServices.h"
#include "support/WaitUntil.h"

#include <QRegularExpression>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int ddLogLevel = ddlog::levelAll;

class RecordingLogger : public DDAbstractLogger
{
public:
    RecordingLogger()
        : DDAbstractLogger(QStringLiteral("recording"))
    {
    }
    void didAddLogger() override { events += u'+'; }
    void willRemoveLogger() override { events += u'-'; }
    void flush() override { events += u'f'; }
    void logMessage(const DDLogMessage &message) override
    {
        isOnOwnQueue = isOnOwnQueue && loggerQueue().isCurrent();
        messages.append(message);
        texts.append(formatted(message));
    }
    QList<DDLogMessage> messages;
    QStringList texts;
    QString events;
    bool isOnOwnQueue = true;
};

/** Handles no message until it is let. */
class GatedLogger : public DDAbstractLogger
{
public:
    GatedLogger()
        : DDAbstractLogger(QStringLiteral("gated"))
    {
    }
    void logMessage(const DDLogMessage &) override
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_permits > 0; });
        --m_permits;
    }
    void let(int count)
    {
        const std::lock_guard lock(m_mutex);
        m_permits += count;
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_permits = 0;
};

class UpperCaseFormatter : public DDLogFormatter
{
public:
    QString formatLogMessage(const DDLogMessage &message) override { return message.logMsg.toUpper(); }
};

class LoggingTest : public ServicesTest
{
protected:
    ~LoggingTest() override { DDLog::removeAllLoggers(); }
};

void logOneOfEach()
{
    DDLogVerbose(QStringLiteral("verbose"));
    DDLogDebug(QStringLiteral("debug"));
    DDLogInfo(QStringLiteral("info"));
    DDLogWarn(QStringLiteral("warn"));
    DDLogError(QStringLiteral("error"));
}

/** Stands for a source file that logs less than everything. */
namespace quiet {

constexpr int ddLogLevel = ddlog::flagError | ddlog::flagWarn;

void logInfoAndError()
{
    DDLogInfo(QStringLiteral("too little"));
    DDLogError(QStringLiteral("enough"));
}

} // namespace quiet

TEST_F(LoggingTest, eachLoggerGetsInOrderWhatItsLevelAdmits)
{
    const auto all = std::make_shared<RecordingLogger>();
    const auto errors = std::make_shared<RecordingLogger>();
    const auto middle = std::make_shared<RecordingLogger>();
    DDLog::addLogger(all);
    DDLog::addLogger(errors, ddlog::flagError);
    DDLog::addLogger(middle, ddlog::flagInfo | ddlog::flagDebug);
    EXPECT_EQ(DDLog::allLoggers().size(), 3);

    // The last one, an error, waits for all of them.
    logOneOfEach();
    EXPECT_EQ(all->texts.join(u' '), QStringLiteral("verbose debug info warn error"));
    EXPECT_EQ(errors->texts.join(u' '), QStringLiteral("error"));
    EXPECT_EQ(middle->texts.join(u' '), QStringLiteral("debug info"));
    EXPECT_TRUE(all->isOnOwnQueue);

    const DDLogMessage &message = all->messages.constFirst();
    EXPECT_EQ(message.file, "LoggingTest.cpp");
    EXPECT_EQ(message.function, "logOneOfEach");
    EXPECT_EQ(message.logFlag, ddlog::flagVerbose);
    EXPECT_EQ(message.machThreadID, quint64(gettid()));

    quiet::logInfoAndError();
    EXPECT_EQ(all->texts.last(), QStringLiteral("enough"));
    EXPECT_EQ(all->texts.size(), 6);

    DDLog::removeLogger(all);
    DDLogError(QStringLiteral("after"));
    EXPECT_EQ(all->texts.size(), 6);
    EXPECT_EQ(errors->texts.last(), QStringLiteral("after"));
    DDLog::flushLog();
    DDLog::removeAllLoggers();
    EXPECT_EQ(all->events, QStringLiteral("+-"));
    EXPECT_EQ(errors->events, QStringLiteral("+f-"));
}

TEST_F(LoggingTest, argumentsFillAFormatOnceAndAnAbsentFormatDoesNothing)
{
    const auto logger = std::make_shared<RecordingLogger>();
    DDLog::addLogger(logger);
    const auto log = [](const std::optional<QString> &format, const QStringList &arguments) {
        DDLog::log(false, ddLogLevel, ddlog::flagInfo, 0, __FILE__, "log", __LINE__, {}, format, arguments);
    };
    log(std::nullopt, {});
    log(QStringLiteral("%2 > %1 > 100 % %3 %"), {QStringLiteral("%2"), QStringLiteral("b")});
    EXPECT_EQ(logger->texts, QStringList{QStringLiteral("b > %2 > 100 % %3 %")});
}

TEST_F(LoggingTest, manyThreadsLoseNothingAndAllLoggersSeeOneOrder)
{
    const auto first = std::make_shared<RecordingLogger>();
    const auto second = std::make_shared<RecordingLogger>();
    DDLog::addLogger(first);
    DDLog::addLogger(second);
    constexpr int threadCount = 4;
    constexpr int messageCount = 600;
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int t = 0; t < threadCount; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < messageCount; ++i) {
                const QString text = QStringLiteral("%1 %2").arg(t).arg(i);
                if (i % 100 == 99)
                    DDLogError(text);
                else
                    DDLogInfo(text);
            }
        });
    }
    // A formatter may come and go meanwhile.
    const auto formatter = std::make_shared<UpperCaseFormatter>();
    first->setLogFormatter(formatter);
    EXPECT_EQ(first->logFormatter(), formatter);
    first->setLogFormatter(nullptr);
    for (std::thread &thread : threads)
        thread.join();
    DDLog::flushLog();

    ASSERT_EQ(first->texts.size(), threadCount * messageCount);
    EXPECT_EQ(first->texts, second->texts);
    std::vector<int> next(threadCount, 0);
    for (const QString &text : std::as_const(first->texts)) {
        const QStringList parts = text.split(u' ');
        EXPECT_EQ(parts.at(1).toInt(), next.at(size_t(parts.at(0).toInt()))++);
    }
}

TEST_F(LoggingTest, theThousandAndFirstMessageWaitsForAPlace)
{
    const auto gated = std::make_shared<GatedLogger>();
    DDLog::addLogger(gated);
    constexpr int total = 1003;
    std::atomic<int> passed = 0;
    std::thread logging([&] {
        for (int i = 0; i < total; ++i) {
            DDLogInfo(QString::number(i));
            ++passed;
        }
    });
    EXPECT_TRUE(waitUntil([&] { return passed == 1000; }));
    // Time enough for another one to slip through.
    const QDeadlineTimer patience(50);
    EXPECT_TRUE(waitUntil([&] { return patience.hasExpired(); }));
    EXPECT_EQ(passed, 1000);
    gated->let(1);
    EXPECT_TRUE(waitUntil([&] { return passed == 1001; }));
    gated->let(total);
    logging.join();
    DDLog::flushLog();
}

TEST_F(LoggingTest, systemLogGetsItsOwnSeverities)
{
    DDLog::addLogger(std::make_shared<DDASLLogger>());
    logOneOfEach();
    DDLog::log(false, ddLogLevel, ddlog::flagError, 0, __FILE__, __func__, __LINE__,
               QLatin1String(DDASLLogger::ignoreTag), QStringLiteral("left out"));
    using enum platform::SystemLogLevel;
    const QList<std::pair<platform::SystemLogLevel, QString>> expected{
        {notice, QStringLiteral("verbose")}, {warning, QStringLiteral("debug")},
        {error, QStringLiteral("info")},     {critical, QStringLiteral("warn")},
        {alert, QStringLiteral("error")},
    };
    EXPECT_EQ(services.systemLog.lines, expected);
}

TEST_F(LoggingTest, allIsWrittenOutWhenTheApplicationEnds)
{
    const auto logger = std::make_shared<RecordingLogger>();
    DDLog::addLogger(logger);
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        for (int i = 0; i < 500; ++i)
            DDLogInfo(QString::number(i));
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(logger->texts.size(), 500);
    EXPECT_EQ(logger->events, QStringLiteral("+f"));
}

TEST(LoggingDeathTest, allIsWrittenOutWhenTheProcessEndsAndQueuesAreGuarded)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            DDLog::addLogger(DDTTYLogger::sharedInstance());
            for (int i = 0; i < 500; ++i)
                DDLogInfo(QStringLiteral("line %1.").arg(i));
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "line 499\\.");
#ifndef QT_NO_DEBUG
    EXPECT_DEATH(DDLog::loggingQueue().sync([] { DDTTYLogger::sharedInstance()->setLogFormatter(nullptr); }),
                 "Core architecture requirement failure");
#endif
}

class TerminalTest : public LoggingTest
{
protected:
    TerminalTest() { EXPECT_EQ(pipe(m_ends), 0); }
    ~TerminalTest() override
    {
        DDLog::removeAllLoggers();
        close(m_ends[0]);
        close(m_ends[1]);
    }
    std::shared_ptr<DDTTYLogger> addLogger(DDTTYLogger::ColorMode mode) const
    {
        const auto logger = std::make_shared<DDTTYLogger>(m_ends[1], mode);
        DDLog::addLogger(logger);
        return logger;
    }
    QByteArray read() const
    {
        QByteArray bytes(60000, '\0');
        const ssize_t count = ::read(m_ends[0], bytes.data(), size_t(bytes.size()));
        return bytes.left(std::max<ssize_t>(0, count));
    }

private:
    int m_ends[2] = {-1, -1};
};

TEST_F(TerminalTest, linesTellTimeProcessAndThread)
{
    const auto logger = addLogger(DDTTYLogger::ColorMode::none);
    DDLogError(QStringLiteral("größer"));
    const QRegularExpression form(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d:\\d{3} test_usage\\[%1:%2\\] größer\\n$")
            .arg(getpid())
            .arg(quint64(gettid()), 0, 16));
    const QString line = QString::fromUtf8(read());
    EXPECT_TRUE(form.match(line).hasMatch()) << line.toStdString();

    DDLogError(QString(20000, u'x') + u'\n');
    const QByteArray longLine = read();
    EXPECT_TRUE(longLine.endsWith("] " + QByteArray(20000, 'x') + '\n'));

    logger->setLogFormatter(std::make_shared<UpperCaseFormatter>());
    DDLogError(QStringLiteral("alone"));
    EXPECT_EQ(read(), "ALONE\n");
}

TEST_F(TerminalTest, coloursAreTakenByTagThenByFlag)
{
    using Mode = DDTTYLogger::ColorMode;
    struct Case
    {
        Mode mode;
        const char *errorStart;
        const char *taggedStart;
        const char *end;
    };
    const QVariant tag = QStringLiteral("tag");
    for (const Case &c :
         {Case{Mode::none, "", "", ""}, Case{Mode::sixteenColors, "\033[91m", "\033[90m\033[107m", "\033[0m"},
          Case{Mode::manyColors, "\033[38;5;196m", "\033[38;5;102m\033[48;5;231m", "\033[0m"},
          Case{Mode::xcodeColors, "\033[fg255,0,0;", "\033[fg128,128,128;\033[bg255,255,255;", "\033[;"}}) {
        const auto logger = addLogger(c.mode);
        logger->setLogFormatter(std::make_shared<UpperCaseFormatter>());
        logger->setForegroundColor(DDTTYLogger::Color{128, 128, 128}, DDTTYLogger::Color{255, 255, 255}, tag);
        DDLogError(QStringLiteral("off"));
        logger->setColorsEnabled(true);
        DDLogError(QStringLiteral("flag"));
        DDLog::log(false, ddLogLevel, ddlog::flagError, 0, "", "", 0, tag, QStringLiteral("tag"));
        DDLog::log(false, ddLogLevel, ddlog::flagVerbose, 0, "", "", 0, {}, QStringLiteral("plain"));
        logger->clearAllColors();
        DDLogError(QStringLiteral("clear"));
        const QByteArray expected = QByteArray("OFF\n") + c.errorStart + "FLAG\n" + c.end + c.taggedStart +
                                    "TAG\n" + c.end + "PLAIN\nCLEAR\n";
        EXPECT_EQ(read(), expected);
        DDLog::removeLogger(logger);
    }
}

TEST_F(LoggingTest, classesKeepTheirLevelByName)
{
    static int level = ddlog::flagError;
    DDLog::registerClass(
        QStringLiteral("Noisy"), [] { return level; }, [](int value) { level = value; });
    DDLog::setLogLevelForClassWithName(ddlog::levelAll, QStringLiteral("Noisy"));
    DDLog::setLogLevelForClassWithName(3, QStringLiteral("Unknown"));
    EXPECT_EQ(level, ddlog::levelAll);
    EXPECT_EQ(DDLog::logLevelForClassWithName(QStringLiteral("Noisy")), ddlog::levelAll);
    EXPECT_EQ(DDLog::logLevelForClassWithName(QStringLiteral("Unknown")), 0);
    EXPECT_EQ(DDLog::registeredClassNames(), QStringList{QStringLiteral("Noisy")});
}

} // namespace
