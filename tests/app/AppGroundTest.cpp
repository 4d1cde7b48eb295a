#include "app/ground/AppGround.h"

#include "app/ground/TAVFile.h"
#include "files/RecordingOperations.h"
#include "platform/Texts.h"
#include "support/TestServices.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

void linkTavimoTexts();

namespace {

class AppGroundTest : public ServicesTest
{
protected:
    static void touch(const QString &path)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    }
    const QString root = services.directory.path() + QStringLiteral("/Tavimo");
};

TEST_F(AppGroundTest, deletedFoldersComeBackAsTheyAreAskedFor)
{
    ASSERT_EQ(AppGround::applicationSupportFolder(), root);
    EXPECT_TRUE(QDir(root).isEmpty()) << "folders below are made when they are needed";
    const std::pair<QString (*)(), const char *> accessors[] = {
        {AppGround::backupFolderPath, "/Backups"},    {AppGround::vocabularyFolderPath, "/Vocabularies"},
        {AppGround::logsFolderPath, "/Logs"},         {AppGround::uploadFolderPath, "/Upload"},
        {AppGround::downloadFolderPath, "/Download"},
    };
    for (const bool wasDeleted : {false, true}) {
        for (const auto &[accessor, name] : accessors) {
            EXPECT_FALSE(QFile::exists(root + QLatin1String(name)));
            EXPECT_EQ(accessor(), root + QLatin1String(name));
            EXPECT_TRUE(QFile::exists(root + QLatin1String(name)));
        }
        if (!wasDeleted) {
            ASSERT_TRUE(QDir(root).removeRecursively());
            EXPECT_EQ(AppGround::vocabularyFolderPath(), root + QStringLiteral("/Vocabularies"));
            EXPECT_FALSE(QFile::exists(root)) << "missing parents are not made";
            AppGround::applicationSupportFolder();
        }
    }
}

TEST_F(AppGroundTest, missingSupportFolderIsToldEndsTheProgramAndTouchesNothing)
{
    services.folders.hasApplicationSupport = false;
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(services.directory.path()));
    touch(services.directory.filePath(QStringLiteral("Mine (1).tavv")));

    EXPECT_EQ(AppGround::applicationSupportFolder(), QString());
    EXPECT_TRUE(AppGround::loadAllAvailableLanguages().isEmpty());
    EXPECT_TRUE(QFile::exists(QStringLiteral("Mine (1).tavv"))) << "the current folder is none of ours";
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
    ASSERT_EQ(services.alerts.shown.size(), 1);
    EXPECT_EQ(services.alerts.shown.constFirst().title, QStringLiteral("Alert"));
    EXPECT_EQ(services.alerts.shown.constFirst().text,
              QStringLiteral("Can't find application support folder"));
    EXPECT_EQ(services.alerts.shown.constFirst().buttons, QStringList{QStringLiteral("Quit")});
    QDir::setCurrent(before);

    // The request must reach an event loop that starts only later.
    QTimer::singleShot(0, QCoreApplication::instance(), [this] { services.queues.drain(); });
    QTimer::singleShot(5000, QCoreApplication::instance(), [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(AppGroundTest, listsVocabulariesAndDeletesConflictedCopies)
{
    AppGround::applicationSupportFolder();
    const QString folder = AppGround::vocabularyFolderPath();
    struct Case
    {
        const char *name;
        bool isListed;
        bool isKept;
    };
    const Case cases[] = {
        {"Italian - English.tavv", true, true},
        {"Upper.TAVV", true, true},
        {"Mixed.v2.TaVv", true, true},
        {"日本語.tavv", true, true},
        {"Copy (1).tavv", false, false},
        {").tavv", false, false},
        {"Upper (1).TAVV", true, true},
        {"Inner (1) more.tavv", true, true},
        {"Twice.tavv.tavv", false, true},
        {"Behind.tavv.bak", false, true},
        {"Old.lxa", false, true},
        {"Copy (2).txt", false, true},
        {".tavv", true, true},
        {"tavv", false, true},
        {"Twice.tavv).tavv", false, true},
    };
    QStringList expected;
    for (const Case &c : cases) {
        touch(folder + u'/' + QString::fromUtf8(c.name));
        if (c.isListed)
            expected.append(folder + u'/' + QString::fromUtf8(c.name));
    }
    const QByteArray broken = QFile::encodeName(folder) + "/Z\xfcrich.tavv";
    close(open(broken.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    services.diagnosticLines.clear();
    QStringList paths = AppGround::loadAllAvailableLanguagePaths();
    EXPECT_TRUE(services.diagnosticLines.contains(
        QStringLiteral("AppGround > loadAllAvailableLanguages > no UTF-8: Z%FCrich.tavv")));
    for (const Case &c : cases)
        EXPECT_EQ(QFile::exists(folder + u'/' + QString::fromUtf8(c.name)), c.isKept) << c.name;

    QStringList named;
    const auto files = AppGround::loadAllAvailableLanguages();
    for (const auto &file : files)
        named.append(file->filePath());
    EXPECT_EQ(named, paths) << "both list in the order of the folder";
    paths.sort();
    expected.sort();
    EXPECT_EQ(paths, expected);

    // One that can't be deleted isn't a language all the same.
    touch(folder + QStringLiteral("/Copy (1).tavv"));
    RecordingOperations operations;
    operations.fail("remove", 1, EPERM);
    EXPECT_EQ(AppGround::loadAllAvailableLanguages().size(), expected.size());
    operations.fail("list", 1, EACCES);
    EXPECT_TRUE(AppGround::loadAllAvailableLanguages().isEmpty());
}

TEST_F(AppGroundTest, todayBeginsAtLocalMidnight)
{
    struct Case
    {
        const char *zone;
        const char *now;
        const char *midnight;
    };
    const Case cases[] = {
        {"Europe/Berlin", "2026-06-30T21:59:59Z", "2026-06-29T22:00:00Z"},
        {"Europe/Berlin", "2026-06-30T22:00:00Z", "2026-06-30T22:00:00Z"},
        // The clocks go forward and back at night, after midnight: the day begins in the old offset.
        {"Europe/Berlin", "2026-03-29T12:00:00Z", "2026-03-28T23:00:00Z"},
        {"Europe/Berlin", "2026-10-25T12:00:00Z", "2026-10-24T22:00:00Z"},
        {"America/Los_Angeles", "2027-01-01T07:59:59Z", "2026-12-31T08:00:00Z"},
        // Midnight itself is left out: the day begins at one o'clock.
        {"America/Sao_Paulo", "2018-11-04T12:00:00Z", "2018-11-04T03:00:00Z"},
    };
    for (const Case &c : cases) {
        services.clock.setTimeZone(QTimeZone(c.zone));
        services.clock.setNow(QDateTime::fromString(QLatin1String(c.now), Qt::ISODate));
        EXPECT_EQ(AppGround::todaysDate(), QDateTime::fromString(QLatin1String(c.midnight), Qt::ISODate))
            << c.zone << " " << c.now;
    }
}

TEST_F(AppGroundTest, timeSinceDateTellsRoughlyHowLong)
{
    linkTavimoTexts();
    platform::installTexts(QStringLiteral("en"));
    constexpr double minute = 60;
    constexpr double hour = 60 * minute;
    constexpr double day = 24 * hour;
    const std::pair<double, const char *> cases[] = {
        {0, "1 minute"},          {59, "1 minute"},
        {119.999, "1 minute"},    {120, "2 minutes"},
        {hour - 1, "59 minutes"}, {hour, "1 hour"},
        {-hour, "1 hour"},        {2 * hour - 1, "1 hour"},
        {2 * hour, "2 hours"},    {day - 1, "23 hours"},
        {day, "1 day"},           {2 * day - 1, "1 day"},
        {-2 * day, "2 days"},     {7 * day - 1, "6 days"},
        {7 * day, "1 week"},      {13 * day + 23 * hour, "1 week"},
        {14 * day, "2 weeks"},    {30 * day - 1, "4 weeks"},
        {30 * day, "1 month"},    {60 * day - 1, "1 month"},
        {60 * day, "2 months"},   {365 * day - 1, "12 months"},
        {365 * day, "1 year"},    {730 * day - 1, "1 year"},
        {730 * day, "2 years"},   {36500 * day, "100 years"},
    };
    for (const auto &[seconds, phrase] : cases) {
        const QDateTime date = services.clock.now().addMSecs(-qint64(seconds * 1000));
        EXPECT_EQ(AppGround::timeSinceDate(date), QLatin1String(phrase)) << seconds;
        EXPECT_EQ(AppGround::timeSinceDate(date.toTimeZone(QTimeZone("Asia/Tokyo"))), QLatin1String(phrase));
    }
    EXPECT_EQ(AppGround::timeSinceDate(QDateTime()), QStringLiteral("never"));
}

TEST_F(AppGroundTest, localeNameIsTheLanguageInItsOwnWords)
{
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"de-AT", "Deutsch (Österreich)", "Deutsch"},
        {"en-US", "English (United States)", "English"},
        {"it", "italiano", "italiano"},
        {"ja-JP", "日本語 (日本)", "日本語"},
        {"sr-Latn-RS", "srpski (latinica, Srbija)", "srpski"},
        {"zh-Hans-CN", "中文（简体，中国）", "中文"},
    };
    for (const auto &[name, displayName, language] : cases) {
        const QString told = AppGround::localeDisplayName(QLatin1String(name));
        EXPECT_EQ(told, QString::fromUtf8(displayName));
        EXPECT_EQ(AppGround::nameWithoutRegion(told), QString::fromUtf8(language));
    }
    EXPECT_EQ(AppGround::nameWithoutRegion(QStringLiteral(" A \n(B) (C)")), QStringLiteral("A"));
    EXPECT_FALSE(AppGround::selectedLocaleName().isEmpty());
}

TEST_F(AppGroundTest, inputSourceNamesComeFromTheLastListHoweverTheArgumentReads)
{
    EXPECT_TRUE(AppGround::allInputSources(false).isEmpty());
    EXPECT_EQ(services.diagnosticLines,
              QStringList{QStringLiteral("AppDelegate > allInputSources > NO SOURCES")});

    const auto us = services.inputSources.add(QStringLiteral("us"));
    services.inputSources.add(QStringLiteral("palette"), false);
    const auto it = services.inputSources.add(QStringLiteral("it"));
    EXPECT_EQ(AppGround::allInputSources(false), (QList{us, it}));
    EXPECT_EQ(AppGround::namesForInputSources({it}), QStringList{QStringLiteral("Name of us")});
    EXPECT_EQ(AppGround::namesForInputSources({it, it, it, it}).size(), 2) << "a longer list names no more";
}

TEST_F(AppGroundTest, fileKeepsWhatItKnewWhenThePathIsGone)
{
    const QString path = services.directory.filePath(QStringLiteral("Klingon.v2.tavv"));
    touch(path);
    const QDateTime modified(QDate(2024, 2, 29), QTime(12, 30), Qt::UTC);
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(modified, QFile::FileModificationTime));
    }
    TAVFile file(path);
    file.setFilePath(path + QStringLiteral(".gone"));
    EXPECT_EQ(file.filePath(), path);
    EXPECT_EQ(file.description(), QStringLiteral("FileName: Klingon.v2 ModDate: 2024-02-29 12:30:00 UTC"));
    EXPECT_EQ(services.diagnosticLines, QStringList{QStringLiteral("File %1.gone not found").arg(path)});

    const QString youngerPath = services.directory.filePath(QStringLiteral("KLINGON.V2.tavv"));
    touch(youngerPath);
    const TAVFile younger(youngerPath);
    const TAVFile missing(QStringLiteral("/missing"));
    EXPECT_EQ(file.compareNames(younger), 0);
    EXPECT_EQ(file.compareNames(missing), 1);
    EXPECT_EQ(file.compareModDates(younger), -1);
    EXPECT_EQ(file.compareModDatesFromYoungToOld(younger), 1);
    EXPECT_EQ(missing.compareModDates(file), -1);
    EXPECT_EQ(missing.compareModDates(missing), 0);
}

} // namespace
