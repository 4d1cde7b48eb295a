#include "files/Files.h"

#include "files/PathLock.h"
#include "files/RecordingOperations.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using files::Reason;

namespace {

constexpr qint64 anySize = 1 << 20;

class FilesTest : public ::testing::Test
{
protected:
    QString at(const QString &name) const { return m_directory.filePath(name); }
    static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("absent");
    }
    static void put(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QStringList names() const
    {
        return QDir(m_directory.path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_directory;
};

template <typename Value> std::optional<Reason> reasonOf(const files::Result<Value> &result)
{
    return result ? std::nullopt : std::optional(result.error().reason);
}

} // namespace

TEST_F(FilesTest, aWriteReplacesAllBytesInPlace)
{
    const QString path = at(u"a ä.tavv"_s);
    const QString alias = at(u"alias"_s);
    put(path, "present");
    ASSERT_EQ(link(QFile::encodeName(path).constData(), QFile::encodeName(alias).constData()), 0);
    RecordingOperations operations;
    for (const QByteArray &bytes : {QByteArray(300000, 'x'), QByteArray("short"), QByteArray()}) {
        EXPECT_TRUE(files::writeInPlace(path, bytes));
        EXPECT_EQ(bytesOf(alias), bytes) << "the same file as before";
        EXPECT_EQ(*files::read(path, anySize), bytes);
    }
    const QString opening = u"open a ä.tavv"_s;
    EXPECT_EQ(operations.calls.mid(operations.calls.lastIndexOf(opening)),
              QStringList({opening, u"statusOfOpen"_s, u"dropFromCache"_s, u"close"_s}));
    EXPECT_EQ(names().size(), 2) << "no other file beside it";
}

TEST_F(FilesTest, whereThereIsNoRoomTheFileStaysWhole)
{
    const QString path = at(u"file"_s);
    put(path, "present");
    {
        RecordingOperations operations;
        operations.fail("reserve", 1, ENOSPC);
        EXPECT_EQ(reasonOf(files::writeInPlace(path, "a longer text")), Reason::NoSpace);
        EXPECT_EQ(bytesOf(path), "present");
        EXPECT_FALSE(operations.calls.contains(u"write"_s));
        operations.fail("write", 1, ENOSPC);
        EXPECT_EQ(reasonOf(files::writeInPlace(at(u"new"_s), "text")), Reason::NoSpace);
        EXPECT_EQ(bytesOf(at(u"new"_s)), "absent") << "an empty file would be taken for a damaged one";
    }
    RecordingOperations operations;
    for (const char *name : {"reserve", "sync"})
        operations.fail(name, 1, EOPNOTSUPP);
    EXPECT_TRUE(files::writeInPlace(path, "short"));
    EXPECT_EQ(bytesOf(path), "short");
    EXPECT_EQ(operations.calls, QStringList({u"open file"_s, u"statusOfOpen"_s, u"reserve"_s, u"write"_s,
                                             u"cutTo"_s, u"sync"_s, u"close"_s}));
    operations.fail("sync", 1, EIO);
    EXPECT_EQ(reasonOf(files::writeInPlace(path, "other")), Reason::Io) << "it may not be on the disk";
}

TEST_F(FilesTest, interruptedAndShortCallsGoOn)
{
    const QByteArray bytes = "0123456789";
    RecordingOperations operations;
    operations.maxBytesPerCall = 3;
    for (const char *name : {"open", "reserve", "write", "cutTo", "sync", "read", "close", "remove"})
        operations.fail(name, 1, EINTR);
    operations.fail("write", 3, EINTR);
    operations.fail("read", 4, EINTR);
    EXPECT_TRUE(files::writeInPlace(at(u"a"_s), bytes));
    EXPECT_EQ(*files::read(at(u"a"_s), anySize), bytes);
    EXPECT_TRUE(files::copy(at(u"a"_s), at(u"b"_s)));
    EXPECT_EQ(bytesOf(at(u"b"_s)), bytes);
    EXPECT_TRUE(files::remove(at(u"a"_s)));
    EXPECT_EQ(names(), QStringList{u"b"_s});
}

TEST_F(FilesTest, aFailureIsToldWithItsReason)
{
    struct Case
    {
        const char *call;
        int error;
        Reason reason;
    };
    const Case cases[] = {
        {"open", EACCES, Reason::NoPermission},  {"open", EROFS, Reason::NoPermission},
        {"open", ELOOP, Reason::NotRegular},     {"open", EMFILE, Reason::Io},
        {"statusOfOpen", EIO, Reason::Io},       {"write", ENOSPC, Reason::NoSpace},
        {"write", EDQUOT, Reason::NoSpace},      {"write", EIO, Reason::Io},
        {"close", ENOSPC, Reason::NoSpace},      {"read", EIO, Reason::Io},
        {"remove", EPERM, Reason::NoPermission}, {"makeFolder", ENOSPC, Reason::NoSpace},
        {"list", EACCES, Reason::NoPermission},
    };
    const QString path = at(u"file"_s);
    const QString copy = at(u"copy"_s);
    for (const Case &c : cases) {
        SCOPED_TRACE(c.call + std::to_string(c.error));
        const auto failing = [&c](auto operation) {
            RecordingOperations operations;
            operations.maxBytesPerCall = 2;
            operations.fail(c.call, 1, c.error);
            const auto result = operation();
            const QStringList calls =
                operations.calls.replaceInStrings(QRegularExpression(u" .*"_s), QString());
            const QString call = QLatin1String(c.call);
            const bool isAsked = calls.contains(call);
            const bool isOpened = calls.contains(u"open"_s) && call != u"open"_s;
            EXPECT_EQ(calls.count(u"close"_s), qsizetype(isOpened));
            EXPECT_EQ(reasonOf(result), isAsked ? std::optional(c.reason) : std::nullopt);
            EXPECT_TRUE(result || (result.error().number == c.error &&
                                   result.error().text() == qt_error_string(c.error)));
        };
        put(path, "bytes");
        failing([&] { return files::writeInPlace(path, "bytes"); });
        put(path, "bytes");
        if (QByteArray(c.call) != "close")
            failing([&] { return files::read(path, anySize); });
        failing([&] { return files::makeFolder(at(u"folder"_s)); });
        failing([&] { return files::list(at(u"."_s)); });
        failing([&] { return files::remove(path); });
    }

    // A copy that fails half way leaves no half file.
    put(path, "bytes");
    for (const auto &[call, n] :
         {std::pair("read", 2), std::pair("write", 2), std::pair("close", 1), std::pair("statusOfOpen", 2)}) {
        RecordingOperations operations;
        operations.maxBytesPerCall = 2;
        operations.fail(call, n, EIO);
        EXPECT_EQ(reasonOf(files::copy(path, copy)), Reason::Io) << call;
        EXPECT_EQ(bytesOf(copy), "absent") << call;
    }
}

TEST_F(FilesTest, onlyRegularFilesAreReadAndWritten)
{
    put(at(u"file"_s), "12345");
    ASSERT_TRUE(QDir().mkpath(at(u"folder"_s)));
    ASSERT_TRUE(QFile::link(at(u"file"_s), at(u"link"_s)));
    ASSERT_TRUE(QFile::link(at(u"nothing"_s), at(u"dangling"_s)));
    ASSERT_EQ(mkfifo(QFile::encodeName(at(u"pipe"_s)).constData(), 0600), 0);
    struct Case
    {
        QString path;
        std::optional<Reason> reading;
        std::optional<Reason> writing;
        bool exists;
    };
    const Case cases[] = {
        {at(u"dangling"_s), Reason::NotFound, Reason::LinkToNothing, false},
        {at(u"folder"_s), Reason::NotRegular, Reason::NotRegular, true},
        {at(u"pipe"_s), Reason::NotRegular, Reason::NotRegular, true},
        {u"/dev/zero"_s, Reason::NotRegular, Reason::NotRegular, true},
        {at(u"none/file"_s), Reason::NotFound, Reason::NotFound, false},
        {at(u"file/below"_s), Reason::NotFound, Reason::NotFound, false},
        {at(u"file"_s) + QChar::Null + u"x"_s, Reason::NotFound, Reason::NotFound, false},
        {QString(), Reason::NotFound, Reason::NotFound, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.path.toStdString());
        EXPECT_EQ(reasonOf(files::read(c.path, 5)), c.reading);
        EXPECT_EQ(reasonOf(files::copy(c.path, at(u"copy"_s))), c.reading);
        EXPECT_EQ(reasonOf(files::writeInPlace(c.path, "new")), c.writing);
        EXPECT_EQ(files::exists(c.path), c.exists);
    }
    EXPECT_EQ(bytesOf(at(u"file"_s)), "12345");
    EXPECT_FALSE(files::exists(at(u"nothing"_s)));
    EXPECT_EQ(reasonOf(files::read(at(u"file"_s), 4)), Reason::TooLarge);
    EXPECT_FALSE(files::read(at(u"file"_s), 4).error().text().isEmpty());
    EXPECT_EQ(reasonOf(files::remove(at(u"folder"_s))), Reason::NotRegular);
    // A link to a regular file is as good as the file.
    EXPECT_EQ(*files::read(at(u"link"_s), 5), "12345");
    EXPECT_TRUE(files::writeInPlace(at(u"link"_s), "54321"));
    EXPECT_EQ(bytesOf(at(u"file"_s)), "54321");
    EXPECT_TRUE(QFileInfo(at(u"link"_s)).isSymLink());
    EXPECT_TRUE(files::remove(at(u"link"_s)));
    EXPECT_EQ(reasonOf(files::list(QString())), Reason::NotFound);
}

TEST_F(FilesTest, aCopyReplacesNothingAndIsAsPrivateAsItsSource)
{
    const QByteArray bytes(700000, 'b');
    put(at(u"a"_s), bytes);
    ASSERT_TRUE(QFile::setPermissions(at(u"a"_s), QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_TRUE(files::copy(at(u"a"_s), at(u"b"_s)));
    EXPECT_EQ(bytesOf(at(u"b"_s)), bytes);
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(at(u"b"_s)).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);

    put(at(u"b"_s), "other");
    EXPECT_EQ(reasonOf(files::copy(at(u"a"_s), at(u"b"_s))), Reason::Exists);
    EXPECT_EQ(reasonOf(files::copy(at(u"a"_s), at(u"a"_s))), Reason::Exists);
    EXPECT_EQ(bytesOf(at(u"b"_s)), "other");
    EXPECT_EQ(bytesOf(at(u"a"_s)), bytes);
}

TEST_F(FilesTest, listsWhatStandsInAFolder)
{
    ASSERT_TRUE(files::makeFolder(at(u"f"_s)));
    EXPECT_TRUE(files::makeFolder(at(u"f"_s)));
    EXPECT_EQ(reasonOf(files::makeFolder(at(u"none/f"_s))), Reason::NotFound) << "parents are not made";
    ASSERT_TRUE(files::makeFolder(at(u"f/folder"_s)));
    put(at(u"f/.hidden 日"_s), "x");
    const QDateTime date(QDate(2024, 2, 29), QTime(12, 30, 15, 250), Qt::UTC);
    {
        QFile file(at(u"f/.hidden 日"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(date, QFile::FileModificationTime));
    }
    ASSERT_TRUE(QFile::link(at(u"f/folder"_s), at(u"f/link"_s)));
    put(at(u"f/x"_s), "x");
    const QByteArray undecodable = QFile::encodeName(at(u"f/"_s)) + "\xff";
    ASSERT_EQ(mkdir(undecodable.constData(), 0700), 0);

    const files::Result<QList<files::Entry>> listed = files::list(at(u"f"_s));
    ASSERT_EQ(rmdir(undecodable.constData()), 0);
    ASSERT_TRUE(listed);
    QHash<QString, files::Entry> entries;
    for (const files::Entry &entry : *listed)
        entries.insert(entry.name, entry);
    EXPECT_EQ(QSet<QString>(entries.keyBegin(), entries.keyEnd()),
              QSet<QString>({u"folder"_s, u".hidden 日"_s, u"link"_s, u"x"_s}));
    EXPECT_EQ(entries[u".hidden 日"_s].modified, date);
    EXPECT_TRUE(entries[u"folder"_s].isFolder);
    EXPECT_FALSE(entries[u"link"_s].isFolder || entries[u"x"_s].isFolder);
}

TEST_F(FilesTest, allSpellingsOfAPathAreOneLock)
{
    ASSERT_TRUE(QDir().mkpath(at(u"folder/deep"_s)));
    put(at(u"folder/file"_s), "x");
    ASSERT_TRUE(QFile::link(at(u"folder/deep"_s), at(u"link"_s)));
    ASSERT_TRUE(QFile::link(u"folder/new"_s, at(u"dangling"_s)));
    ASSERT_TRUE(QFile::link(at(u"circle"_s), at(u"circle"_s)));
    ASSERT_TRUE(QFile::link(at(u"dangling"_s), at(u"chain"_s)));
    const QString folder = QFileInfo(at(u"folder"_s)).canonicalFilePath();
    const std::pair<QString, QString> cases[] = {
        {at(u"folder/file"_s), u"/file"_s},    {at(u"link/../file"_s), u"/file"_s},
        {at(u"folder//./file"_s), u"/file"_s}, {at(u"folder/new"_s), u"/new"_s},
        {at(u"link/../new"_s), u"/new"_s},     {at(u"dangling"_s), u"/new"_s},
        {at(u"chain"_s), u"/new"_s},           {at(u"folder/new//"_s), u"/new"_s},
        {at(u"link/a/b"_s), u"/deep/a/b"_s},
    };
    for (const auto &[path, expected] : cases)
        EXPECT_EQ(files::canonicalPath(path), folder + expected) << path.toStdString();
    EXPECT_EQ(files::canonicalPath(at(u"circle"_s)),
              QFileInfo(at(u"."_s)).canonicalFilePath() + u"/circle"_s);
    EXPECT_EQ(files::canonicalPath(u"/"_s), u"/"_s);
    EXPECT_EQ(files::canonicalPath(u"/none such"_s), u"/none such"_s);
    EXPECT_EQ(files::canonicalPath(u"none such"_s), QFileInfo(u"."_s).canonicalFilePath() + u"/none such"_s);
}
