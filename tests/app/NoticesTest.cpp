#include "app/Composition.h"
#include "files/RecordingOperations.h"
#include "support/GuiTest.h"

#include <QDir>
#include <QLabel>

namespace {

/** What the user is told quietly when something around the program is wrong. */
class NoticesTest : public ServicesTest
{
protected:
    /** The object names of the lines that the window shows after a start. */
    QStringList linesAfterAStart()
    {
        Composition composition;
        Program &program = composition.makeProgram();
        program.awakeFromNib();
        services.clock.advanceSeconds(1);
        processEvents();
        QStringList names;
        for (const QLabel *line : program.mainWindowController().mainWindow()->findChildren<QLabel *>()) {
            if (!line->isVisible() || !line->parentWidget()->objectName().contains(u"notices"_qs))
                continue;
            names.append(line->objectName());
            EXPECT_FALSE(line->text().isEmpty());
            EXPECT_EQ(line->accessibleName(), line->text());
        }
        EXPECT_TRUE(services.alerts.shown.isEmpty());
        return names;
    }
    QString own(const QString &name) const { return services.directory.filePath(u"Tavimo/"_qs + name); }
};

} // namespace

TEST_F(NoticesTest, WhatIsWrongIsToldOnThePageThatTheStartLeadsTo)
{
    using platform::SettingsState;
    services.settings.setValue(QStringLiteral("hasShownVocabularyHelp"), true);
    const QByteArray language = QByteArray::fromHex("425a683917724538509000000000"); // nothing at all, packed
    for (const bool hasLanguage : {false, true}) {
        SCOPED_TRACE(hasLanguage ? "vocabulary page" : "first start");
        QDir(own({})).removeRecursively();
        ASSERT_TRUE(QDir().mkpath(own(u"Vocabularies"_qs)));
        if (hasLanguage) {
            QFile file(own(u"Vocabularies/A - B.tavv"_qs));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(language);
        }
        services.settings.present = SettingsState::Sound;
        EXPECT_EQ(linesAfterAStart(), QStringList());
        services.settings.present = SettingsState::Damaged;
        EXPECT_EQ(linesAfterAStart(), QStringList{u"settingsLabel"_qs});
        services.settings.present = SettingsState::Unusable;
        EXPECT_EQ(linesAfterAStart(), QStringList{u"settingsLabel"_qs});
        // Nobody can open that for a lock.
        QFile::remove(own(u".lock"_qs));
        ASSERT_TRUE(QDir().mkpath(own(u".lock"_qs)));
        EXPECT_EQ(linesAfterAStart(), QStringList({u"folderNotLockedLabel"_qs, u"settingsLabel"_qs}));
    }
}

TEST_F(NoticesTest, AFolderThatCannotBeListedIsNoTotalLoss)
{
    class Unlistable : public RecordingOperations
    {
    public:
        int list(const QByteArray &folder, QByteArrayList *names) override
        {
            return folder.endsWith("/Vocabularies") ? -EACCES : RecordingOperations::list(folder, names);
        }
    };
    const Unlistable operations;
    EXPECT_EQ(linesAfterAStart(), QStringList{u"folderUnreadableLabel"_qs});
}
