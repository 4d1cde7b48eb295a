#include "StorageTest.h"

#include "app/ground/Rescue.h"
#include "files/RecordingOperations.h"
#include "storage/Backups.h"
#include "storage/Fullness.h"
#include "storage/LanguageName.h"
#include "support/Words.h"
#include "usage/logging/DDLog.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QRegularExpression>

#include <atomic>
#include <thread>
#include <utime.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using FilesTest = StorageTest;

TEST_F(FilesTest, backupsAreMadeAtMostEveryQuarterHourAndNotTwiceInARow)
{
    struct Step
    {
        const char *language;
        double secondsLater;
        qsizetype backups;
    };
    const Step steps[] = {{"A", 0, 1},   {"A", 5000, 1}, {"B", 0, 2},   {"A", 900, 2},
                          {"B", 0.5, 2}, {"A", 0, 3},    {"B", 899, 3}, {"B", 1.5, 4}};
    for (const Step &step : steps) {
        services.clock.advanceSeconds(step.secondsLater);
        SCOPED_TRACE(step.language + std::to_string(step.secondsLater));
        EXPECT_TRUE(TAVStorageManager::saveVocabulary(makeNamed(QLatin1String(step.language))));
        EXPECT_EQ(backups().size(), step.backups);
    }
}

TEST_F(FilesTest, aBackupIsACopyNamedByTheUsersTime)
{
    services.clock.setNow(QDateTime(QDate(2015, 3, 20), QTime(13, 5, 9), Qt::UTC));
    services.clock.setTimeZone(QTimeZone(3600));
    const QString path = inVocabularies(u"a.tavv b.tavv"_s);
    ASSERT_TRUE(TAVStorageManager::saveVocabularyToTAVVFile(makeNamed(u"A"_s), path));
    ASSERT_EQ(backups(), QStringList{u"a-2015-03-20-14-05-09.tavv b-2015-03-20-14-05-09.tavv"_s});
    EXPECT_EQ(bytesOf(AppGround::backupFolderPath() + u'/' + backups().first()), bytesOf(path));
}

TEST_F(FilesTest, tidyingDeletesAllOldBackupsOrNone)
{
    struct Case
    {
        int total;
        int old;
        int left;
    };
    const Case cases[] = {{30, 5, 25}, {30, 9, 21}, {30, 10, 30}, {20, 1, 20}, {19, 17, 2}, {19, 1, 18}};
    const QString folder = AppGround::backupFolderPath();
    const auto makeOlder = [this](const QString &path, qint64 seconds) {
        const time_t time = services.clock.now().toSecsSinceEpoch() - seconds;
        const utimbuf times{time, time};
        EXPECT_EQ(utime(QFile::encodeName(path).constData(), &times), 0);
    };
    const QString elsewhere = services.directory.path() + u"/elsewhere"_s;
    ASSERT_TRUE(QDir().mkpath(elsewhere));
    writeBytes(elsewhere + u"/old"_s, "x");
    makeOlder(elsewhere + u"/old"_s, 2592001);
    for (const Case &c : cases) {
        SCOPED_TRACE(std::to_string(c.total) + " " + std::to_string(c.old));
        QDir(folder).removeRecursively();
        ASSERT_TRUE(QDir().mkpath(folder + u"/sub"_s));
        // The subfolder and the link count among all entries; a hidden file doesn't.
        writeBytes(folder + u"/.hidden"_s, "x");
        ASSERT_TRUE(QFile::link(elsewhere, folder + u"/link"_s));
        for (int i = 0; i < c.total - 2; ++i) {
            const QString path = folder + (i % 2 ? u"/sub/"_s : u"/"_s) + QString::number(i);
            writeBytes(path, "x");
            makeOlder(path, i < c.old ? 2592001 : 2592000);
        }
        TAVStorageManager::tidyBackups();
        services.queues.drain();
        int left = 0;
        for (QDirIterator it(folder, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
             it.hasNext(); it.next())
            ++left;
        EXPECT_EQ(left, c.left);
        EXPECT_TRUE(QFileInfo::exists(folder + u"/.hidden"_s));
        EXPECT_TRUE(QFileInfo::exists(elsewhere + u"/old"_s));
    }
}

TEST_F(FilesTest, aFileThatCannotBeReadIsToldWithTheWayToTheBackups)
{
    struct Case
    {
        const char *name;
        QByteArray bytes;
        const char *words;
    };
    const QByteArray packed = bzip2("{}");
    const Case cases[] = {{"none.tavv", {}, "(File read error)"},
                          {"folder.tavv", {}, "(File read error)"},
                          {"junk.x %1.tavv", "junk", "(Decompression error)"},
                          {"empty.tavv", "", "(Decompression error)"},
                          {"cut.LXA", packed.chopped(3), "(Decompression error)"},
                          {"cut", packed.chopped(3), "(Decompression error)"}};
    ASSERT_TRUE(QDir().mkpath(inVocabularies(u"folder.tavv"_s)));
    for (const Case &c : cases) {
        const QString path = inVocabularies(QLatin1String(c.name));
        SCOPED_TRACE(c.name);
        if (!c.bytes.isNull())
            writeBytes(path, c.bytes);
        for (const int button : {0, 1}) {
            services.alerts.shown.clear();
            services.browser.openedFolders.clear();
            services.alerts.answerNext(button);
            EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(path));
            ASSERT_EQ(services.alerts.shown.size(), 1);
            const platform::Alert alert = services.alerts.shown.first();
            EXPECT_EQ(alert.title, u"Error"_s);
            EXPECT_EQ(alert.text,
                      u"The selected language '"_s + QFileInfo(path).completeBaseName() +
                          u"' could not be loaded. "_s + QLatin1String(c.words) +
                          u"\nGo to '~/Library/Application Support/Tavimo/Backups' to restore from "
                          "the last backup copy."_s);
            EXPECT_EQ(alert.buttons, QStringList({u"OK"_s, u"Go to backups folder"_s}));
            EXPECT_EQ(alert.additionalLine, AppGround::backupFolderPath());
            EXPECT_EQ(services.browser.openedFolders.size(), button);
        }
        EXPECT_EQ(bytesOf(path), c.bytes);
    }
}

TEST_F(FilesTest, aFileThatNeverEndsIsNotReadToItsEnd)
{
    const QString pipe = inVocabularies(u"pipe.tavv"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(pipe));
    const QString endless = inVocabularies(u"endless.tavv"_s);
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, endless));
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(endless));
    // Terabytes of nothing, behind a stream that ends early and behind one that doesn't.
    const QString huge = inVocabularies(u"huge.tavv"_s);
    for (const QByteArray &start : {QByteArray(), bzip2("{}").chopped(1)}) {
        writeBytes(huge, start);
        ASSERT_TRUE(QFile::resize(huge, qint64(1) << 40));
        EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(huge));
        EXPECT_TRUE(services.alerts.shown.last().text.contains(u"(Decompression error)"_s));
        EXPECT_FALSE(TAVStorageManager::vocabularyFromLXAFile(huge));
    }
}

TEST_F(FilesTest, noSaveLeavesTheVocabularyFolder)
{
    const QString outside = services.directory.path() + u"/outside"_s;
    ASSERT_TRUE(QFile::link(outside, inVocabularies(u"Dangling - English.tavv"_s)));
    ASSERT_TRUE(QDir().mkpath(inVocabularies(u"Folder - English.tavv"_s)));
    const QString names[] = {u"../x"_s,     u"/tmp/x"_s, u"a/b"_s,          QString(QChar::Null) + u"x"_s,
                             u"Dangling"_s, u"Folder"_s, QString(300, u'x')};
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        services.alerts.shown.clear();
        EXPECT_FALSE(TAVStorageManager::saveVocabulary(makeNamed(name)));
        ASSERT_EQ(services.alerts.shown.size(), 1);
        EXPECT_EQ(services.alerts.shown.first().title, u"Error"_s);
        EXPECT_EQ(services.alerts.shown.first().text,
                  u"The selected language '"_s + name +
                      u"' could not be saved. (Write error)\nPlease restart "
                      "Tavimo and try again."_s);
        EXPECT_EQ(services.alerts.shown.first().buttons, QStringList{u"OK"_s});
    }
    EXPECT_EQ(TAVStorageManager::savePathForVocabulary(*makeNamed(u"a/b"_s)), QString());
    EXPECT_EQ(TAVStorageManager::saveUrlForVocabularyWithName(u"a/b"_s), QUrl());
    EXPECT_EQ(TAVStorageManager::saveUrlForVocabularyWithName(u"50% ?#"_s),
              QUrl::fromLocalFile(inVocabularies(u"50% ?#.tavv"_s)));
    EXPECT_FALSE(QFileInfo::exists(outside));
    EXPECT_TRUE(backups().isEmpty());
    for (const QString &name : {u".."_s, u""_s, u"%1 ?"_s}) {
        EXPECT_TRUE(TAVStorageManager::saveVocabulary(makeNamed(name)));
        EXPECT_TRUE(QFileInfo::exists(inVocabularies(name + u" - English.tavv"_s)));
    }
    EXPECT_FALSE(TAVStorageManager::saveVocabularyToLXAFile(makeNamed(u"A"_s), outside + u"/x.lxa"_s));
    // A link to a file is followed, as people link their languages into folders that are kept in step.
    writeBytes(outside, bzip2("{}"));
    EXPECT_TRUE(TAVStorageManager::saveVocabulary(makeNamed(u"Dangling"_s)));
    EXPECT_TRUE(QFileInfo(inVocabularies(u"Dangling - English.tavv"_s)).isSymLink());
    EXPECT_TRUE(bunzip2(bytesOf(outside)).contains("Dangling"));
    QFile::remove(outside);
    EXPECT_FALSE(TAVStorageManager::saveVocabulary(nullptr));
    EXPECT_FALSE(TAVStorageManager::saveVocabularyToLXAFile(nullptr, outside));
}

TEST_F(FilesTest, aShorterFileReplacesALongerOneWhole)
{
    const TAVLexiconRef vocabulary = makeNamed(u"Italian"_s);
    TAVWordList words;
    for (int i = 0; i < 500; ++i)
        words.append(std::make_shared<TAVWord>(QString::number(i), QString::number(i * i), std::nullopt));
    vocabulary->batchAddWords(words);
    const std::pair<QString, bool (*)(TAVLexiconRef, const QString &)> forms[] = {
        {u"a.tavv"_s, TAVStorageManager::saveVocabularyToTAVVFile},
        {u"a.lxa"_s, TAVStorageManager::saveVocabularyToLXAFile}};
    for (const auto &[name, save] : forms)
        ASSERT_TRUE(save(vocabulary, inVocabularies(name)));
    vocabulary->removeWords(words);
    for (const auto &[name, save] : forms) {
        ASSERT_TRUE(save(vocabulary, inVocabularies(name)));
        ASSERT_TRUE(save(vocabulary, inVocabularies(u"new "_s + name)));
        EXPECT_EQ(bytesOf(inVocabularies(name)), bytesOf(inVocabularies(u"new "_s + name)));
    }
}

TEST_F(FilesTest, aLanguageIsNamedByWhatAFileCanBeCalled)
{
    const std::pair<QString, bool> cases[] = {
        {u"Português (Brasil)"_s, true},
        {QString(50, u'é'), true},
        {QString(51, u'é'), false},
        {u"a/b"_s, false},
        {u"a\n"_s, false},
        {u"My.TAVV"_s, false},
        {QChar(u'\xd800'), false},
    };
    for (const auto &[name, isPossible] : cases)
        EXPECT_EQ(isPossibleLanguageName(name), isPossible) << name.toStdString();
}

TEST_F(FilesTest, aFailureLeavesItsReasonInTheLog)
{
    class Listener : public DDAbstractLogger
    {
    public:
        Listener()
            : DDAbstractLogger(u"listener"_s)
        {
        }
        void logMessage(const DDLogMessage &message) override { lines.append(formatted(message)); }
        QStringList lines;
    };
    const auto listener = std::make_shared<Listener>();
    DDLog::addLogger(listener, ddlog::flagError);
    EXPECT_FALSE(TAVStorageManager::vocabularyFromTAVVFile(std::nullopt));
    EXPECT_FALSE(TAVStorageManager::vocabularyFromLXAFile(std::nullopt));
    EXPECT_EQ(listener->lines, QStringList(2, u"StorageM > vocFromTAVVFile > path is nil"_s));
    EXPECT_TRUE(services.alerts.shown.isEmpty());

    listener->lines.clear();
    const QString path = inVocabularies(u"a.tavv"_s);
    const QString archive = inVocabularies(u"a.lxa"_s);
    const QString failures[] = {u"(Write error)"_s, u"(Write error)"_s, u"(File read error)"_s, u"loaded."_s};
    RecordingOperations operations;
    // The record in the journal, the file, the archive.
    for (const int n : {1, 2, 3})
        operations.fail("write", n, ENOSPC);
    EXPECT_FALSE(TAVStorageManager::saveVocabularyToTAVVFile(makeNamed(u"A"_s), path));
    EXPECT_FALSE(TAVStorageManager::saveVocabularyToLXAFile(makeNamed(u"A"_s), archive));
    EXPECT_TRUE(backups().isEmpty());
    for (const int n : {1, 2})
        operations.fail("read", n, EIO);
    writeBytes(path, bzip2("{}"));
    writeBytes(archive, "x");
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(path));
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(archive));
    DDLog::removeLogger(listener);
    const QString noSpace = qt_error_string(ENOSPC);
    const QString inputOutput = qt_error_string(EIO);
    EXPECT_EQ(listener->lines,
              QStringList({u"StorageM > saveVoc > "_s + path + u": "_s + noSpace,
                           u"StorageM > saveVoc > "_s + archive + u": "_s + noSpace,
                           u"StorageM > vocFromTAVVFile > "_s + path + u": "_s + inputOutput,
                           u"StorageM > vocFromLXAFile > "_s + archive + u": "_s + inputOutput}));
    ASSERT_EQ(services.alerts.shown.size(), 4);
    for (qsizetype i = 0; i < 4; ++i)
        EXPECT_TRUE(services.alerts.shown[i].text.contains(failures[i])) << i;
}

TEST_F(FilesTest, theAlertOfAFailedSaveSaysWhyAndThatNothingIsLostYet)
{
    const std::pair<int, QString> cases[] = {
        {ENOSPC, u"noRoom"_s}, {EROFS, u"noPermission"_s}, {EIO, qt_error_string(EIO)}};
    for (const auto &[number, expected] : cases) {
        RecordingOperations operations;
        operations.fail("write", 2, number);
        services.alerts.shown.clear();
        EXPECT_FALSE(TAVStorageManager::saveVocabulary(makeNamed(u"A"_s)));
        ASSERT_EQ(services.alerts.shown.size(), 1);
        EXPECT_EQ(services.alerts.shown.first().additionalLine, expected + u"\nwordsAreSafe"_s);
    }
}

TEST_F(FilesTest, theNewestBackupThatOpensIsNamedAndNoneGoesWithoutACopy)
{
    const QString backupFolder = AppGround::backupFolderPath();
    const QString path = inVocabularies(u"A - English.tavv"_s);
    const auto put = [&](const QString &name, const QByteArray &bytes) {
        writeBytes(backupFolder + u'/' + name, bytes);
        QFile file(backupFolder + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(services.clock.now().addDays(-31), QFile::FileModificationTime));
    };
    put(u"A - English-2026-01-02-03-04-05.tavv"_s, bzip2("1"));
    put(u"A - English-2026-01-03-03-04-05.tavv"_s, bzip2("2"));
    put(u"A - English-2026-01-04-03-04-05.tavv"_s, "torn");
    put(u"B - English-2026-01-05-03-04-05.tavv"_s, bzip2("3"));
    const auto rescued = [] {
        QStringList names = QDir(rescue::folderPath()).entryList(QDir::Files);
        return names.replaceInStrings(QRegularExpression(u"-2026-11-18-09-00-00"_s), QString());
    };
    storage::tidyBackupsIn(backupFolder);
    EXPECT_TRUE(backups().isEmpty());
    EXPECT_EQ(rescued(), QStringList({u"A - English-2026-01-04-03-04-05.tavv"_s,
                                      u"B - English-2026-01-05-03-04-05.tavv"_s}));

    put(u"A - English-2026-01-02-03-04-05.tavv"_s, bzip2("1"));
    put(u"A - English-2026-01-03-03-04-05.tavv"_s, bzip2("2"));
    put(u"A - English-2026-01-04-03-04-05.tavv"_s, "torn");
    put(u"Ab - English-2026-01-05-03-04-05.tavv"_s, bzip2("3"));
    writeBytes(path, "broken");
    EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(path));
    EXPECT_EQ(services.alerts.shown.last().additionalLine, backupFolder + u"\nnewestBackup"_s)
        << "by its key, as no texts are installed";
    EXPECT_EQ(storage::newestBackupThatOpens(u"A - English.tavv"_s),
              backupFolder + u"/A - English-2026-01-03-03-04-05.tavv"_s);
    EXPECT_EQ(storage::newestBackupThatOpens(u"English.tavv"_s), QString());
    storage::tidyBackupsIn(backupFolder);
    EXPECT_EQ(rescued().size(), 5) << "a language could not be loaded in this run";
}

TEST_F(FilesTest, rescuedCopiesGoWhenTheyAreOldOrTooMany)
{
    const auto put = [this](const char *name, int ageInDays, qint64 size) {
        ASSERT_TRUE(QDir().mkpath(rescue::folderPath()));
        const QString stamp = services.clock.now().addDays(-ageInDays).toString(u"yyyy-MM-dd-HH-mm-ss"_s);
        QFile file(u"%1/%2-%3.tavv"_s.arg(rescue::folderPath(), QLatin1String(name), stamp));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.resize(size));
    };
    /** What is left after the tidying of a start, as the letter of the name and the age. */
    const auto left = [this] {
        TAVStorageManager::tidyBackups();
        services.queues.drain();
        QStringList copies;
        for (const QString &name : QDir(rescue::folderPath()).entryList(QDir::Files)) {
            const QDateTime made = QDateTime::fromString(name.mid(2, 10), u"yyyy-MM-dd"_s);
            copies.append(name.first(1) + QString::number(made.date().daysTo(services.clock.now().date())));
        }
        QDir(rescue::folderPath()).removeRecursively();
        copies.sort();
        return copies.join(u' ');
    };
    put("A", 3, 1);
    put("A", 89, 1);
    put("A", 91, 1);
    put("A-2026-01-02-03-04-05", 91, 1);
    put("B", 400, 1);
    put("B-2026-01-02-03-04-05", 401, 1);
    EXPECT_EQ(left(), u"A3 A89 B400"_s) << "the newest of a name stays, or of the backups of that";

    constexpr qint64 mebibyte = 1 << 20;
    put("A", 3, 100 * mebibyte);
    put("A", 5, 100 * mebibyte);
    put("A", 6, 56 * mebibyte + 1);
    put("B", 50, 1);
    EXPECT_EQ(left(), u"A3 A5 B50"_s)
        << "the folder is too large: the oldest go, those that aren't the last of a name first";
    put("A", 3, 150 * mebibyte);
    put("A", 4, 1);
    put("B", 50, 150 * mebibyte);
    EXPECT_EQ(left(), u"A3"_s);
}

TEST_F(FilesTest, aNameThatLeavesNoRoomForAStampIsCut)
{
    const QString name = QString(108, u'é') + u"x (a conflicted copy).tavv"_s;
    for (const QByteArray &bytes : {QByteArray("a"), QByteArray("b"), QByteArray("b")})
        EXPECT_TRUE(rescue::keep(name, bytes));
    EXPECT_TRUE(rescue::keep(u'x' + name, "b"));
    const QStringList names = QDir(rescue::folderPath()).entryList(QDir::Files);
    ASSERT_EQ(names.size(), 3) << "equal bytes are known by the cut name too";
    for (const QString &kept : names)
        EXPECT_TRUE(kept.contains(QString(108, u'é')) && kept.endsWith(u".tavv"_s)) << kept.toStdString();
}

TEST_F(FilesTest, aSaveMakesTheFoldersAnewThatWereDeletedMeanwhile)
{
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(makeNamed(u"A"_s)));
    const QString folder = AppGround::vocabularyFolderPath();
    for (const QString &deleted : {folder, QFileInfo(folder).path()}) {
        ASSERT_TRUE(QDir(deleted).removeRecursively());
        EXPECT_TRUE(TAVStorageManager::saveVocabulary(makeNamed(u"A"_s))) << deleted.toStdString();
        EXPECT_TRUE(TAVStorageManager::vocabularyFromFile(folder + u"/A - English.tavv"_s));
    }
    EXPECT_TRUE(services.alerts.shown.isEmpty());
}

TEST_F(FilesTest, howFullAFileIsIsKnownFromItsLastLoadOrSave)
{
    struct Case
    {
        qsizetype jsonSize;
        bool isWorthTelling;
        bool isBeyond;
        double mebibytes;
    };
    const Case cases[] = {{3670015, false, false, 3.4},
                          {3670016, true, false, 3.5},
                          {4194303, true, false, 3.9},
                          {4194304, true, false, 4.0},
                          {4194305, true, true, 4.1}};
    const TAVLexiconRef vocabulary = makeNamed(u"A"_s);
    const TAVWordRef word = makeWord({u"a"_s, u"b"_s, 0, {}, u"c"_s});
    vocabulary->addWord(word);
    const qsizetype rest = vocabulary->jsonRepresentation().size() - 1;
    EXPECT_FALSE(storage::fullnessOf(*vocabulary).isWorthTelling()) << "nothing is known of it";
    for (const Case &c : cases) {
        const auto expectFullness = [&](const char *when) {
            const storage::Fullness fullness = storage::fullnessOf(*vocabulary);
            EXPECT_EQ(fullness.isWorthTelling(), c.isWorthTelling) << when << c.jsonSize;
            EXPECT_EQ(fullness.isBeyond(), c.isBeyond) << when << c.jsonSize;
            EXPECT_EQ(fullness.mebibytes(), c.mebibytes) << when << c.jsonSize;
        };
        word->setComment(QString(c.jsonSize - rest, u'c'));
        ASSERT_TRUE(TAVStorageManager::saveVocabulary(vocabulary));
        expectFullness("saved ");
        TAVStorageManager::resetForTest();
        const QString path = TAVStorageManager::savePathForVocabulary(*vocabulary);
        EXPECT_EQ(TAVStorageManager::vocabularyFromFile(path) == nullptr, c.isBeyond);
        if (!c.isBeyond)
            expectFullness("loaded ");
    }
}

TEST_F(FilesTest, aSaveDestroysNoWordThatNobodyHasSeen)
{
    const QString path = inVocabularies(u"Italian - English.tavv"_s);
    const auto rescued = [] {
        const QStringList names = QDir(rescue::folderPath()).entryList(QDir::Files);
        QDir(rescue::folderPath()).removeRecursively();
        return names.size();
    };
    const auto withWords = [](const QStringList &texts) {
        const TAVLexiconRef vocabulary = makeNamed(u"Italian"_s);
        for (const QString &text : texts)
            vocabulary->addWord(makeWord({text, text}));
        return vocabulary;
    };
    const auto startAnew = [] { TAVStorageManager::resetForTest(); };

    ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords({u"a"_s, u"b"_s})));
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords({u"a"_s})));
    EXPECT_EQ(rescued(), 0) << "this run's own last write";
    startAnew();
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords({u"a"_s, u"c"_s})));
    EXPECT_EQ(rescued(), 0) << "no word goes";
    startAnew();
    const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(path);
    loaded->removeWords(loaded->allWords());
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(loaded));
    EXPECT_EQ(rescued(), 0) << "what was loaded and deleted";

    // Another program writes: after an object was loaded that a quiz still holds, and while one is being
    // read.
    const QByteArray others = bzip2(R"({"unknownWords":{"words":[{"yw":"z"}]}})");
    writeBytes(path, bzip2("{\"foreignLanguageName\":\"Italian\",\"yourLanguageName\":\"English\"}"));
    const TAVLexiconRef held = TAVStorageManager::vocabularyFromFile(path);
    writeBytes(path, others);
    ASSERT_TRUE(TAVStorageManager::vocabularyFromFile(path));
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(held));
    EXPECT_EQ(rescued(), 1) << "the object of before lacks the word";
    startAnew();
    class WrittenWhileRead : public files::FileOperations
    {
    public:
        WrittenWhileRead(QString path, QByteArray bytes)
            : m_path(std::move(path))
            , m_bytes(std::move(bytes))
            , m_previous(files::installOperations(this))
        {
        }
        ~WrittenWhileRead() override { files::installOperations(m_previous); }
        int dropFromCache(int file) override
        {
            writeBytes(m_path, m_bytes);
            return FileOperations::dropFromCache(file);
        }

    private:
        QString m_path;
        QByteArray m_bytes;
        files::FileOperations *m_previous;
    };
    const auto readMeanwhile = [&] {
        const WrittenWhileRead other(path, others);
        return TAVStorageManager::vocabularyFromFile(path);
    }();
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(readMeanwhile));
    EXPECT_EQ(rescued(), 1) << "nobody has seen what was written meanwhile";
    startAnew();

    // An old backup in the folder, whose names point at the newer file.
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords({u"a"_s, u"b"_s})));
    QFile::copy(path, inVocabularies(u"Old.tavv"_s));
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords({u"a"_s, u"b"_s, u"c"_s})));
    startAnew();
    ASSERT_TRUE(TAVStorageManager::vocabularyFromFile(path));
    const TAVLexiconRef old = TAVStorageManager::vocabularyFromFile(inVocabularies(u"Old.tavv"_s));
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(old));
    EXPECT_EQ(rescued(), 1);
    for (const int expected : {0, 1}) {
        writeBytes(path, expected ? bzip2("{\"unknownWords\":{\"words\":[{\"yw\":\"z\"}]}}") : "unreadable");
        ASSERT_TRUE(TAVStorageManager::saveVocabulary(old));
        EXPECT_EQ(rescued(), expected) << "one copy an hour";
        services.clock.advanceSeconds(3601);
    }

    // What passes the ceiling can't be opened again: the last version that can stays.
    const TAVLexiconRef large = withWords({});
    for (int i = 0; i < 90; ++i)
        large->addWord(makeWord({QString(50'000, QChar(u'a' + i % 26)) + QString::number(i), u"x"_s}));
    for (const int expected : {1, 0}) {
        ASSERT_TRUE(TAVStorageManager::saveVocabulary(large));
        EXPECT_EQ(rescued(), expected);
    }
}

TEST_F(FilesTest, aSaveWritesOnceInPlaceAndThenCopies)
{
    const TAVLexiconRef vocabulary = makeNamed(u"A"_s);
    RecordingOperations operations;
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(vocabulary));
    QStringList changes =
        operations.calls.filter(QRegularExpression(u"^(write|rename|cutTo|remove|open.*tavv)"_s));
    changes.replaceInStrings(QRegularExpression(u"[0-9a-f]{40}"_s), u"target"_s);
    EXPECT_EQ(changes,
              QStringList({u"open A - English.tavv"_s, u"write"_s, u"cutTo"_s, u"rename target.record"_s,
                           u"open A - English.tavv"_s, u"open A - English.tavv"_s, u"write"_s, u"cutTo"_s,
                           u"remove target.record"_s, u"open A - English.tavv"_s,
                           u"open "_s + backups().value(0), u"write"_s}));
    // A save that succeeded stays one when its copy fails.
    services.clock.advanceSeconds(901);
    operations.fail("write", 3, ENOSPC);
    EXPECT_TRUE(TAVStorageManager::saveVocabulary(makeNamed(u"B"_s)));
    EXPECT_EQ(backups().size(), 1);
    EXPECT_TRUE(services.alerts.shown.isEmpty());
}

TEST_F(FilesTest, offTheMainThreadNoProgramIsStarted)
{
    services.alerts.answerNext(1);
    std::atomic<bool> isRead = false;
    std::thread reader([&] {
        EXPECT_FALSE(TAVStorageManager::vocabularyFromFile(inVocabularies(u"none.tavv"_s)));
        isRead = true;
    });
    while (!isRead)
        QCoreApplication::processEvents(); // shows the alert, for whose answer the reader waits
    reader.join();
    EXPECT_TRUE(services.browser.openedFolders.isEmpty());
    services.queues.drain();
    EXPECT_EQ(services.browser.openedFolders, QStringList{AppGround::backupFolderPath()});
}
