#include "platform/Folders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr const char *variables[] = {"HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME",
                                     "XDG_RUNTIME_DIR"};

class FoldersTest : public ::testing::Test
{
protected:
    FoldersTest()
    {
        for (const char *variable : variables)
            m_before.append(qgetenv(variable));
        for (const char *variable : variables)
            qunsetenv(variable);
    }
    ~FoldersTest() override
    {
        for (qsizetype i = 0; i < m_before.size(); ++i) {
            if (m_before.at(i).isNull())
                qunsetenv(variables[i]);
            else
                qputenv(variables[i], m_before.at(i));
        }
    }
    QTemporaryDir directory;
    const QString home = directory.path() + QStringLiteral("/home");

private:
    QByteArrayList m_before;
};

TEST_F(FoldersTest, relativeAndMissingPathsGiveTheUsualOnesBelowHome)
{
    const auto folders = platform::makeSystemFolders();
    for (const char *named : {"", "relative/path", "./x"}) {
        qputenv("HOME", QFile::encodeName(home));
        for (const char *variable : {"XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
            qputenv(variable, named);
        EXPECT_EQ(folders->applicationSupportDirectories(),
                  QStringList{home + QStringLiteral("/.local/share")});
        EXPECT_EQ(folders->cacheDirectory(), home + QStringLiteral("/.cache/Tavimo"));
        EXPECT_EQ(folders->configDirectory(), home + QStringLiteral("/.config/Tavimo"));
        EXPECT_EQ(folders->runtimeDirectory(), folders->cacheDirectory());
    }
}

TEST_F(FoldersTest, namedFoldersCountAndTheOneForDataIsMadeForItsOwner)
{
    const auto folders = platform::makeSystemFolders();
    const QString data = directory.path() + QStringLiteral("/data home/below");
    qputenv("XDG_DATA_HOME", QFile::encodeName(data + u'/'));
    qputenv("XDG_CACHE_HOME", "/somewhere/cache");
    qputenv("XDG_CONFIG_HOME", "/somewhere/config");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(directory.path()));
    EXPECT_EQ(folders->applicationSupportDirectories(), QStringList{data});
    EXPECT_TRUE(QDir(data).exists());
    EXPECT_FALSE(QFile::permissions(data) & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther));
    EXPECT_EQ(folders->cacheDirectory(), QStringLiteral("/somewhere/cache/Tavimo"));
    EXPECT_EQ(folders->configDirectory(), QStringLiteral("/somewhere/config/Tavimo"));
    EXPECT_EQ(folders->runtimeDirectory(), directory.path());
    qputenv("XDG_RUNTIME_DIR", "/no/such/folder");
    EXPECT_EQ(folders->runtimeDirectory(), folders->cacheDirectory());
}

} // namespace
