#include "platform/Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace {

class SettingsTest : public ::testing::Test
{
protected:
    std::unique_ptr<platform::Settings> open() const { return platform::makeSystemSettings(folder()); }
    QString folder() const { return m_directory.path() + QStringLiteral("/not/made/yet"); }
    QString file() const { return folder() + QStringLiteral("/settings.ini"); }
    void writeFile(const QByteArray &content) const
    {
        open()->setValue(QStringLiteral("makes"), QStringLiteral("the folder"));
        QFile opened(file());
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        opened.write(content);
    }

private:
    QTemporaryDir m_directory;
};

TEST_F(SettingsTest, valuesOfEveryTypeAndKeysOfAnyCharacterComeBack)
{
    const QStringList keys{QString(),
                           QStringLiteral("plain"),
                           QStringLiteral("Plain"),
                           QStringLiteral("General"),
                           QStringLiteral("a/b"),
                           QStringLiteral("a//b"),
                           QStringLiteral("/a\\b"),
                           QStringLiteral("Deutsch - Español [neu]=;%41 \n"),
                           QStringLiteral("日本語")};
    auto written = open();
    for (qsizetype i = 0; i < keys.size(); ++i)
        written->setValue(keys.at(i), qint64(i) + 5'000'000'000);
    written->setValue(QStringLiteral("b"), true);
    written->setValue(QStringLiteral("r"), 2.5);
    written->setValue(QStringLiteral("t"), QStringLiteral("  a, \"b\"; @x\nü "));
    written.reset();

    const auto read = open();
    for (qsizetype i = 0; i < keys.size(); ++i)
        EXPECT_EQ(read->read<qint64>(keys.at(i)), i + 5'000'000'000) << keys.at(i).toStdString();
    EXPECT_EQ(read->read<bool>(QStringLiteral("b")), true);
    EXPECT_EQ(read->read<double>(QStringLiteral("r")), 2.5);
    EXPECT_EQ(read->read<QString>(QStringLiteral("t")), QStringLiteral("  a, \"b\"; @x\nü "));
    read->remove(QStringLiteral("a/b"));
    EXPECT_FALSE(read->contains(QStringLiteral("a/b")));
    EXPECT_TRUE(read->contains(QStringLiteral("a//b")));
}

TEST_F(SettingsTest, valueOfAWrongTypeReadsAsTheDefaultAndThatAsNothing)
{
    writeFile("[General]\nnumber=seven\nflag=perhaps\nreal=nan\ntext=one, two\nbig=99999999999999999999\n");
    const auto settings = open();
    const auto ifRegistered = [](bool isRegistered, auto value) {
        return isRegistered ? std::optional(value) : std::nullopt;
    };
    for (const bool hasDefaults : {false, true}) {
        EXPECT_EQ(settings->read<qint64>(QStringLiteral("number")), ifRegistered(hasDefaults, qint64(7)));
        EXPECT_EQ(settings->read<qint64>(QStringLiteral("big")), std::nullopt);
        EXPECT_EQ(settings->read<bool>(QStringLiteral("flag")), ifRegistered(hasDefaults, true));
        EXPECT_EQ(settings->read<double>(QStringLiteral("real")), ifRegistered(hasDefaults, 0.5));
        EXPECT_EQ(settings->read<QString>(QStringLiteral("text")),
                  ifRegistered(hasDefaults, QStringLiteral("d")));
        EXPECT_EQ(settings->read<qint64>(QStringLiteral("absent")), ifRegistered(hasDefaults, qint64(9)));
        settings->registerDefaults({{QStringLiteral("number"), 7},
                                    {QStringLiteral("flag"), true},
                                    {QStringLiteral("real"), 0.5},
                                    {QStringLiteral("text"), QStringLiteral("d")},
                                    {QStringLiteral("absent"), 9}});
    }
}

TEST_F(SettingsTest, brokenFileReadsAsAbsentAndCanBeWrittenAgain)
{
    writeFile(
        QByteArrayLiteral("\x00\xff[[[[\nno value\n%%%=@Variant(\\0\\0\\0\x7f\\xff)\ngood=1\n=\n@Invalid("));
    auto settings = open();
    EXPECT_FALSE(settings->contains(QStringLiteral("no value")));
    settings->setValue(QStringLiteral("new"), 3);
    settings.reset();
    EXPECT_EQ(open()->read<qint64>(QStringLiteral("new")), 3);
}

TEST_F(SettingsTest, whateverStandsInTheirPlaceTheProgramGoesOnAndCanTell)
{
    using platform::SettingsState;
    struct Case
    {
        const char *name;
        std::function<void()> prepare;
        SettingsState expected;
        bool isKept;
    };
    const auto makeFolder = [](const QString &path) { return QDir().mkpath(path); };
    const Case cases[] = {
        {"nothing", [] {}, SettingsState::Sound, true},
        {"a file", [&] { writeFile("[General]\na=1\n"); }, SettingsState::Sound, true},
        {"garbage", [&] { writeFile(QByteArray(1000, '\x01') + "\n[[\nno value\n"); }, SettingsState::Damaged,
         true},
        {"a pipe",
         [&] {
             makeFolder(folder());
             ASSERT_EQ(mkfifo(QFile::encodeName(file()).constData(), 0600), 0);
         },
         SettingsState::Unusable, false},
        {"a link to an endless device",
         [&] {
             makeFolder(folder());
             QFile::link(QStringLiteral("/dev/zero"), file());
         },
         SettingsState::Unusable, false},
        {"a folder in the place of their lock", [&] { makeFolder(file() + QStringLiteral(".lock")); },
         SettingsState::Unusable, false},
        {"a folder in the place of the file", [&] { makeFolder(file()); }, SettingsState::Unusable, false},
        {"a file in the place of the folder",
         [&] {
             makeFolder(QFileInfo(folder()).path());
             QFile(folder()).open(QIODevice::WriteOnly);
         },
         SettingsState::Unusable, false},
        {"a file of others",
         [&] {
             writeFile("[General]\na=1\n");
             QFile::setPermissions(file(), {});
         },
         SettingsState::Unusable, false},
    };
    const bool isOverRights = geteuid() == 0;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        if (isOverRights && c.name == std::string("a file of others"))
            continue;
        QFile::remove(folder());
        QDir(folder()).removeRecursively();
        c.prepare();
        auto settings = open();
        EXPECT_EQ(settings->state(), c.expected);
        settings->setValue(QStringLiteral("key"), 5);
        settings->setValue(QStringLiteral("gone"), 6);
        settings->remove(QStringLiteral("gone"));
        settings->synchronize();
        EXPECT_EQ(settings->read<qint64>(QStringLiteral("key")), 5);
        EXPECT_FALSE(settings->contains(QStringLiteral("gone")));
        settings.reset();
        EXPECT_EQ(open()->contains(QStringLiteral("key")), c.isKept);
    }
}

} // namespace
