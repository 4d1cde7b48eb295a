#include "usage/logging/DDFileLogger.h"
#include "usage/logging/DDLog.h"

#include "support/TestServices.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

constexpr int ddLogLevel = ddlog::levelAll;

class LogFilesTest : public ServicesTest
{
protected:
    LogFilesTest()
    {
        // Files get the machine's dates, so the test begins there.
        services.clock.setNow(platform::systemTime());
    }
    ~LogFilesTest() override { DDLog::removeAllLoggers(); }

    DDLogFileManagerDefault manager() const { return DDLogFileManagerDefault(folder, QStringLiteral("App")); }
    std::shared_ptr<DDFileLogger> addLogger() const
    {
        const auto logger = std::make_shared<DDFileLogger>(manager());
        DDLog::addLogger(logger);
        return logger;
    }
    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList names() const { return QDir(folder).entryList(QDir::Files, QDir::Name); }
    const QString folder = services.directory.filePath(QStringLiteral("made/by the logger"));
};

TEST_F(LogFilesTest, namesOfLogFilesAreToldFromOthers)
{
    const std::pair<const char *, bool> cases[] = {
        {"App 2026-11-18 09-00.log", true},
        {"App 2026-11-18 09-00 2.log", true},
        {"App 2026-11-18 09-00 2 3.log", false},
        {"App 2026-13-18 09-00.log", false},
        {"App 2026-11-18 25-00.log", false},
        {"App 2026-11-18.log", false},
        {"Other 2026-11-18 09-00.log", false},
        {"App 2026-11-18 09-00.txt", false},
        {"App.log", false},
        {"App   2026-11-18 09-00.log", false},
        {".log", false},
        {"", false},
    };
    for (const auto &[name, isLogFile] : cases)
        EXPECT_EQ(manager().isLogFile(QLatin1String(name)), isLogFile) << name;
}

TEST_F(LogFilesTest, fullFileIsArchivedAndTheOldestAreDeleted)
{
    const auto logger = addLogger();
    DDLogError(QStringLiteral("first ü"));
    const QString firstPath = logger->currentLogFilePath();
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d:\\d{3}  first ü\\n$"))
            .match(QString::fromUtf8(content(firstPath)))
            .hasMatch());
    EXPECT_FALSE(DDLogFileInfo(firstPath).isArchived());

    logger->setMaximumFileSize(60);
    logger->setMaximumNumberOfLogFiles(3);
    // The first line is in the file already; then two lines of 32 bytes fill one each.
    for (int i = 0; i < 12; ++i) {
        DDLogError(QStringLiteral("line %1").arg(i, 2));
        // Files made within one tick of the file system's clock have no order.
        const QDeadlineTimer tick(20);
        EXPECT_TRUE(waitUntil([&] { return tick.hasExpired(); }));
    }
    const QList<DDLogFileInfo> infos = manager().sortedLogFileInfos();
    ASSERT_EQ(infos.size(), 4) << "three finished ones and the one that is being written";
    EXPECT_EQ(infos.constFirst().filePath(), logger->currentLogFilePath());
    EXPECT_TRUE(content(infos.at(0).filePath()).endsWith("line 11\n"));
    EXPECT_TRUE(content(infos.at(1).filePath()).endsWith("line 10\n"));
    EXPECT_TRUE(content(infos.at(3).filePath()).endsWith("line  6\n"));
    EXPECT_FALSE(infos.at(0).isArchived());
    EXPECT_TRUE(infos.at(1).isArchived());
    EXPECT_FALSE(content(firstPath).contains("first")) << "the name may have been taken anew";
}

TEST_F(LogFilesTest, newestFileIsTakenAsItIsUnlessANewOneIsWanted)
{
    QDir().mkpath(folder);
    const QString old = folder + QStringLiteral("/App 2020-01-01 00-00.log");
    {
        QFile file(old);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("old\n");
    }
    DDLogFileInfo(old).setArchived(true);
    auto logger = addLogger();
    DDLogError(QStringLiteral("more"));
    EXPECT_EQ(names().size(), 1) << "even when it is archived";
    EXPECT_TRUE(content(old).startsWith("old\n"));
    EXPECT_TRUE(content(old).endsWith("more\n"));
    DDLog::removeLogger(logger);

    DDLogFileInfo(old).setArchived(false);
    logger = addLogger();
    logger->setDoNotReuseLogFiles(true);
    logger->setMaximumFileSize(3);
    DDLogError(QStringLiteral("new"));
    EXPECT_EQ(names().size(), 2);
    EXPECT_FALSE(content(old).contains("new"));
    EXPECT_TRUE(DDLogFileInfo(old).isArchived()) << "it is over the limit";
}

TEST_F(LogFilesTest, agedFileIsRolledByTheClock)
{
    const auto logger = addLogger();
    DDLogError(QStringLiteral("one"));
    const QString path = logger->currentLogFilePath();
    services.clock.advance(std::chrono::hours(23));
    EXPECT_EQ(logger->currentLogFilePath(), path);
    services.clock.advance(std::chrono::hours(1) + std::chrono::seconds(5));
    EXPECT_EQ(logger->currentLogFilePath(), QString());
    EXPECT_TRUE(DDLogFileInfo(path).isArchived());
    DDLogError(QStringLiteral("two"));
    EXPECT_NE(logger->currentLogFilePath(), path);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(LogFilesTest, failuresAreToldTenTimesAndHurtNobody)
{
    QFile inTheWay(services.directory.filePath(QStringLiteral("made")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    addLogger();
    for (int i = 0; i < 15; ++i)
        DDLogError(QStringLiteral("lost"));
    ASSERT_EQ(services.diagnosticLines.size(), 11);
    EXPECT_TRUE(
        services.diagnosticLines.constFirst().startsWith(QStringLiteral("DDFileLogger.logMessage: ")));
    EXPECT_TRUE(
        services.diagnosticLines.constLast().endsWith(QStringLiteral("will not log any more of them.")));

    services.diagnosticLines.clear();
    DDLogFileInfo info(services.directory.filePath(QStringLiteral("gone.log")));
    info.renameFile(QStringLiteral("other.log"));
    ASSERT_EQ(services.diagnosticLines.size(), 1);
    EXPECT_TRUE(services.diagnosticLines.constFirst().startsWith(
        QStringLiteral("DDLogFileInfo: Error renaming file (")));
    EXPECT_EQ(info.fileName(), QStringLiteral("gone.log"));
}

} // namespace
