#include "files/Files.h"

#include "support/UnsyncedOperations.h"

#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 anySize = 1 << 20;
constexpr int readings = 3000;

/** Runs the task again and again beside the test, until the end of the scope. */
class Beside
{
public:
    explicit Beside(std::function<void()> task)
        : m_thread([this, task = std::move(task)] {
            do {
                task();
            } while (!m_isOver);
        })
    {
    }
    ~Beside()
    {
        m_isOver = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};

class ThreadsTest : public ::testing::Test
{
protected:
    ThreadsTest()
    {
        EXPECT_TRUE(files::makeFolder(at(u"folder"_s)));
        EXPECT_TRUE(QFile::link(at(u"folder"_s), at(u"link"_s)));
        EXPECT_TRUE(files::writeInPlace(m_path, m_states[0]));
    }
    QString at(const QString &name) const { return m_directory.filePath(name); }
    bool isWhole(const files::Result<QByteArray> &read) const
    {
        return read && (*read == m_states[0] || *read == m_states[1]);
    }
    void write()
    {
        for (const QByteArray &state : m_states)
            EXPECT_TRUE(files::writeInPlace(m_path, state));
    }

private:
    UnsyncedOperations m_operations;
    QTemporaryDir m_directory;

protected:
    const QString m_path = at(u"folder/file"_s);
    const QByteArray m_states[2] = {QByteArray(100000, 'a'), QByteArray(60000, 'b')};
};

} // namespace

TEST_F(ThreadsTest, noReaderAndNoCopyMeetsHalfAWrite)
{
    const Beside writer([this] { write(); });
    for (int i = 0; i < readings; ++i) {
        // By another spelling than the writer's.
        ASSERT_TRUE(isWhole(files::read(at(u"link/../folder/file"_s), anySize))) << i;
        if (i % 10 == 0) {
            ASSERT_TRUE(files::copy(m_path, at(u"copy"_s)));
            ASSERT_TRUE(isWhole(files::read(at(u"copy"_s), anySize))) << i;
            ASSERT_TRUE(files::remove(at(u"copy"_s)));
        }
    }
}

TEST_F(ThreadsTest, noReaderMeetsHalfACopy)
{
    const QString copy = at(u"copy"_s);
    const Beside copier([this, copy] {
        EXPECT_TRUE(files::copy(m_path, copy));
        EXPECT_TRUE(files::remove(copy));
    });
    for (int i = 0; i < readings; ++i) {
        const files::Result<QByteArray> read = files::read(copy, anySize);
        ASSERT_TRUE(isWhole(read) || read.failedBy(files::Reason::NotFound)) << i;
    }
}

TEST_F(ThreadsTest, copiesInBothDirectionsDoNotWaitForEachOther)
{
    const QString other = at(u"a file before"_s);
    const Beside there([this, other] { static_cast<void>(files::copy(m_path, other)); });
    const Beside back([this, other] { static_cast<void>(files::copy(other, m_path)); });
    const Beside itself([this] { static_cast<void>(files::copy(m_path, m_path)); });
    for (int i = 0; i < readings / 20; ++i)
        EXPECT_TRUE(isWhole(files::read(m_path, anySize)));
}
