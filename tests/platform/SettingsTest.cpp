#include "platform/Settings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class SettingsTest : public ::testing::Test
{
protected:
    std::unique_ptr<platform::Settings> open() const
    {
        return platform::makeSystemSettings(m_directory.path() + QStringLiteral("/not/made/yet"));
    }
    void writeFile(const QByteArray &content) const
    {
        open()->setValue(QStringLiteral("makes"), QStringLiteral("the folder"));
        QFile file(m_directory.path() + QStringLiteral("/not/made/yet/settings.ini"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
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
        EXPECT_EQ(read->integer(keys.at(i)), i + 5'000'000'000) << keys.at(i).toStdString();
    EXPECT_TRUE(read->boolean(QStringLiteral("b")));
    EXPECT_EQ(read->real(QStringLiteral("r")), 2.5);
    EXPECT_EQ(read->text(QStringLiteral("t")), QStringLiteral("  a, \"b\"; @x\nü "));
    read->remove(QStringLiteral("a/b"));
    EXPECT_FALSE(read->contains(QStringLiteral("a/b")));
    EXPECT_TRUE(read->contains(QStringLiteral("a//b")));
}

TEST_F(SettingsTest, valueOfAWrongTypeReadsAsTheDefaultAndThatAsNothing)
{
    writeFile("[General]\nnumber=seven\nflag=perhaps\nreal=nan\ntext=one, two\nbig=99999999999999999999\n");
    const auto settings = open();
    for (const bool hasDefaults : {false, true}) {
        EXPECT_EQ(settings->integer(QStringLiteral("number")), hasDefaults ? 7 : 0);
        EXPECT_EQ(settings->integer(QStringLiteral("big")), 0);
        EXPECT_EQ(settings->boolean(QStringLiteral("flag")), hasDefaults);
        EXPECT_EQ(settings->real(QStringLiteral("real")), hasDefaults ? 0.5 : 0.0);
        EXPECT_EQ(settings->text(QStringLiteral("text")), hasDefaults ? QStringLiteral("d") : QString());
        EXPECT_EQ(settings->integer(QStringLiteral("absent")), hasDefaults ? 9 : 0);
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
    EXPECT_EQ(open()->integer(QStringLiteral("new")), 3);
}

} // namespace
