#include "StorageTest.h"

#include "app/ground/Rescue.h"
#include "files/FileOperations.h"
#include "storage/SafeSaves.h"
#include "support/Words.h"

#include <QDirIterator>
#include <QMap>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Tree = QMap<QString, QByteArray>;

/** One change of the disk, as the program asked for it. */
struct DiskChange
{
    enum Kind { Create, Write, Cut, Sync, Rename, Remove, MakeFolder };
    Kind kind;
    QByteArray path;
    qint64 offset = 0;
    QByteArray bytes = {};
    QByteArray newPath = {};
};

/** Notes what the program does to the disk, while doing it. */
class DiskRecorder : public files::FileOperations
{
public:
    DiskRecorder()
        : m_previous(files::installOperations(this))
    {
    }
    ~DiskRecorder() override { files::installOperations(m_previous); }

    int open(const QByteArray &path, int flags, unsigned mode) override
    {
        const bool isNew = access(path.constData(), F_OK) != 0;
        const int file = FileOperations::open(path, flags, mode);
        if (file >= 0 && (flags & O_ACCMODE) != O_RDONLY) {
            m_paths[file] = path;
            m_offsets[file] = 0;
            if (isNew)
                changes.append({DiskChange::Create, path});
            if (flags & O_TRUNC)
                changes.append({DiskChange::Cut, path});
        }
        return file;
    }
    qint64 write(int file, const char *bytes, qint64 size) override
    {
        const qint64 count = FileOperations::write(file, bytes, std::min(size, maxBytesPerCall));
        changes.append({DiskChange::Write, m_paths[file], m_offsets[file], QByteArray(bytes, count)});
        m_offsets[file] += count;
        return count;
    }
    int cutTo(int file, qint64 size) override
    {
        changes.append({DiskChange::Cut, m_paths[file], size});
        return FileOperations::cutTo(file, size);
    }
    int sync(int file) override
    {
        if (m_paths.contains(file))
            changes.append({DiskChange::Sync, m_paths[file]});
        return 0;
    }
    int close(int file) override
    {
        m_paths.remove(file);
        return FileOperations::close(file);
    }
    int rename(const QByteArray &from, const QByteArray &to) override
    {
        changes.append({DiskChange::Rename, from, 0, {}, to});
        return FileOperations::rename(from, to);
    }
    int remove(const QByteArray &path) override
    {
        changes.append({DiskChange::Remove, path});
        return FileOperations::remove(path);
    }
    int makeFolder(const QByteArray &path, unsigned mode) override
    {
        changes.append({DiskChange::MakeFolder, path});
        return FileOperations::makeFolder(path, mode);
    }

    QList<DiskChange> changes;
    static constexpr qint64 maxBytesPerCall = 400;

private:
    files::FileOperations *m_previous;
    QMap<int, QByteArray> m_paths;
    QMap<int, qint64> m_offsets;
};

void write(const DiskChange &change, qsizetype length)
{
    const int file = open(change.path.constData(), O_WRONLY);
    if (file < 0)
        return;
    std::ignore = pwrite(file, change.bytes.constData(), size_t(length), change.offset);
    close(file);
}

void apply(const DiskChange &change)
{
    switch (change.kind) {
    case DiskChange::Create:
        close(open(change.path.constData(), O_WRONLY | O_CREAT, 0600));
        break;
    case DiskChange::Write:
        write(change, change.bytes.size());
        break;
    case DiskChange::Cut:
        std::ignore = truncate(change.path.constData(), change.offset);
        break;
    case DiskChange::Sync:
        break;
    case DiskChange::Rename:
        std::ignore = rename(change.path.constData(), change.newPath.constData());
        break;
    case DiskChange::Remove:
        unlink(change.path.constData());
        break;
    case DiskChange::MakeFolder:
        mkdir(change.path.constData(), 0700);
        break;
    }
}

bool isSynced(const QList<DiskChange> &changes, qsizetype index, qsizetype end)
{
    for (qsizetype i = index + 1; i < end; ++i) {
        if (changes[i].kind == DiskChange::Sync && changes[i].path == changes[index].path)
            return true;
    }
    return false;
}

/** A machine that stops: what was synced is there; of all the rest, something may be missing. */
class CrashTest : public StorageTest
{
protected:
    QString root() const { return QFileInfo(AppGround::vocabularyFolderPath()).path(); }
    Tree content() const
    {
        Tree tree;
        QDirIterator entries(root(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString path = entries.next();
            tree.insert(path, bytesOf(path));
        }
        return tree;
    }
    void restore(const Tree &tree) const
    {
        for (const QString &path : content().keys())
            QFile::remove(path);
        for (auto it = tree.begin(); it != tree.end(); ++it) {
            QDir().mkpath(QFileInfo(it.key()).path());
            writeBytes(it.key(), it.value());
        }
    }
    static TAVLexiconRef withWords(int count)
    {
        const TAVLexiconRef vocabulary = makeNamed(u"Italian"_s);
        for (int i = 0; i < count; ++i)
            vocabulary->addWord(makeWord({u"word %1"_s.arg(i * 7919), u"parola %1"_s.arg(i * 104729)}));
        return vocabulary;
    }
    /** As after a start; -1 if there is no such file, -2 if it can't be loaded. */
    qint64 wordsAfterAStart()
    {
        storage::finishTornWrites();
        const QString path = inVocabularies(u"Italian - English.tavv"_s);
        if (!QFile::exists(path))
            return -1;
        const TAVLexiconRef vocabulary = TAVStorageManager::vocabularyFromFile(path);
        return vocabulary ? vocabulary->countAllWords() : -2;
    }
};

} // namespace

TEST_F(CrashTest, EveryStateOfTheDiskDuringASaveLeavesTheWordsBeforeOrAfter)
{
    struct Case
    {
        /** Of the words in the file; -1: there is none yet. */
        int before;
        int after;
    };
    for (const Case &c : {Case{200, 300}, Case{300, 200}, Case{-1, 200}}) {
        SCOPED_TRACE(std::to_string(c.before) + " to " + std::to_string(c.after));
        restore({});
        if (c.before >= 0) {
            ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords(c.before)));
        }
        TAVStorageManager::resetForTest();
        const Tree before = content();
        QList<DiskChange> changes;
        {
            DiskRecorder recorder;
            ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords(c.after)));
            changes = recorder.changes;
        }
        int states = 0;
        const auto expectWhole = [&](const char *what, qsizetype prefix, qsizetype missing) {
            ++states;
            const qint64 words = wordsAfterAStart();
            EXPECT_TRUE(words == c.before || words == c.after)
                << words << " words: " << what << ' ' << missing << " of the first " << prefix;
        };
        for (qsizetype prefix = 0; prefix <= changes.size(); ++prefix) {
            const auto replay = [&](const std::function<void(qsizetype)> &instead) {
                restore(before);
                for (qsizetype i = 0; i < prefix; ++i)
                    instead(i);
            };
            replay([&](qsizetype i) { apply(changes[i]); });
            expectWhole("nothing missing", prefix, -1);
            replay([&](qsizetype i) {
                if (changes[i].kind != DiskChange::Write || isSynced(changes, i, prefix))
                    apply(changes[i]);
            });
            expectWhole("without any unsynced write", prefix, -1);
            for (qsizetype missing = 0; missing < prefix; ++missing) {
                const bool isLosable =
                    changes[missing].kind == DiskChange::Write || changes[missing].kind == DiskChange::Cut;
                if (!isLosable || isSynced(changes, missing, prefix))
                    continue;
                for (const bool isCut : {false, true}) {
                    replay([&](qsizetype i) {
                        if (i != missing)
                            apply(changes[i]);
                        else if (isCut && changes[i].kind == DiskChange::Write)
                            write(changes[i], changes[i].bytes.size() / 2);
                    });
                    expectWhole(isCut ? "half of" : "without", prefix, missing);
                }
            }
        }
        EXPECT_GT(states, 40);
    }
    EXPECT_TRUE(services.alerts.shown.isEmpty());
}

TEST_F(CrashTest, WhatFindsNoPlaceInItsFileIsRescued)
{
    const QString path = inVocabularies(u"Italian - English.tavv"_s);
    const auto leaveRecord = [&](const QByteArray &oldBytes = {}) {
        QFile::remove(path);
        ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords(10)));
        if (!oldBytes.isEmpty())
            writeBytes(path, oldBytes);
        Tree torn = content();
        DiskRecorder recorder;
        ASSERT_TRUE(TAVStorageManager::saveVocabulary(withWords(20)));
        // Up to where the record is whole, and the file not yet touched.
        restore(torn);
        for (const DiskChange &change : std::as_const(recorder.changes)) {
            apply(change);
            if (change.kind == DiskChange::Rename)
                break;
        }
    };
    const auto rescuedWords = [&]() -> qint64 {
        const QStringList names = QDir(rescue::folderPath()).entryList(QDir::Files);
        if (names.isEmpty())
            return -1;
        const qint64 words = TAVStorageManager::vocabularyFromFile(rescue::folderPath() + u'/' + names.last())
                                 ->countAllWords();
        QDir(rescue::folderPath()).removeRecursively();
        return words;
    };
    const QDir journal(AppGround::ownFolderPath(u"Journal"_s));

    leaveRecord();
    EXPECT_EQ(wordsAfterAStart(), 10) << "the old file is whole";
    EXPECT_EQ(rescuedWords(), 20);
    EXPECT_TRUE(journal.entryList(QDir::Files).isEmpty());

    leaveRecord();
    QFile::remove(path);
    EXPECT_EQ(wordsAfterAStart(), -1) << "a language that is gone does not come back";
    EXPECT_EQ(rescuedWords(), 20);

    leaveRecord();
    writeBytes(path, bzip2(R"({"unknownWords":{"words":[{"yw":"a","fw":"b"}]}})"));
    EXPECT_EQ(wordsAfterAStart(), 1) << "another program has written the file whole";
    EXPECT_EQ(rescuedWords(), 20);

    leaveRecord();
    writeBytes(path, bytesOf(path).first(100));
    EXPECT_EQ(wordsAfterAStart(), 20);
    EXPECT_EQ(rescuedWords(), -1);

    // The old bytes were no vocabulary before, so that it isn't this write which damaged them.
    leaveRecord("damaged before");
    QDir(rescue::folderPath()).removeRecursively(); // of the damaged bytes themselves
    EXPECT_EQ(wordsAfterAStart(), -2) << "the file is as the user left it";
    EXPECT_EQ(bytesOf(path), "damaged before");
    EXPECT_EQ(rescuedWords(), 20);

    leaveRecord();
    storage::forgetWrites(path);
    EXPECT_EQ(wordsAfterAStart(), 10);
    EXPECT_EQ(rescuedWords(), -1);

    // What lies elsewhere is none of the journal's business, whatever a record says.
    leaveRecord();
    const QString elsewhere = root() + u"/mine.txt"_s;
    writeBytes(elsewhere, "mine");
    const QString foreign = journal.filePath(journal.entryList(QDir::Files).value(0));
    writeBytes(foreign, bytesOf(foreign).replace(path.toUtf8(), elsewhere.toUtf8()));
    writeBytes(journal.filePath(u"notes.txt"_s), "mine");
    EXPECT_EQ(wordsAfterAStart(), 10);
    EXPECT_EQ(bytesOf(elsewhere), "mine");
    EXPECT_EQ(bytesOf(journal.filePath(u"notes.txt"_s)), "mine");
    QFile::remove(journal.filePath(u"notes.txt"_s));
    const QStringList kept = QDir(rescue::folderPath()).entryList({u"mine-*.txt"_s}, QDir::Files);
    EXPECT_EQ(kept.size(), 1);
    QDir(rescue::folderPath()).removeRecursively();

    // A record that was damaged is believed in nothing.
    leaveRecord();
    const QString record = journal.filePath(journal.entryList(QDir::Files).value(0));
    writeBytes(record, bytesOf(record).chopped(1));
    writeBytes(path, "torn");
    EXPECT_EQ(wordsAfterAStart(), -2);
    EXPECT_EQ(rescuedWords(), -1);
}

TEST_F(CrashTest, OnlyLanguagesOfTheFolderHaveRecords)
{
    QTemporaryDir other;
    DiskRecorder recorder;
    ASSERT_TRUE(TAVStorageManager::saveVocabularyToTAVVFile(withWords(3), other.filePath(u"export.tavv"_s)));
    for (const DiskChange &change : std::as_const(recorder.changes))
        EXPECT_FALSE(change.path.contains("/Journal")) << change.path.toStdString();
}
