#include "app/Composition.h"
#include "app/ground/SettingsKeys.h"
#include "quiz/forms/SegmentControl.h"
#include "storage/TAVStorageManager.h"
#include "support/GuiTest.h"
#include "usage/KeenClient.h"
#include "views/TAVLexiconController.h"

namespace {

class CountingSync : public DropBoxController
{
public:
    CountingSync() { setSharedManager(this); }
    ~CountingSync() override { setSharedManager(nullptr); }
    void syncWithDropbox() override { ++syncs; }
    int syncs = 0;
};

class CountingUsage : public KeenClient
{
public:
    CountingUsage() { setSharedClient(this); }
    ~CountingUsage() override { setSharedClient(nullptr); }
    void addEvent(const QVariantMap &, const QString &collection) override { events.append(collection); }
    QStringList events;
};

class ProgramTest : public ServicesTest
{
protected:
    ProgramTest() { program.awakeFromNib(); }
    template <typename Control> Control *control(const char *name)
    {
        return findControl<Control>(window(), name);
    }
    QMainWindow *window() { return program.mainWindowController().mainWindow(); }

    Composition composition;
    CountingSync sync;
    Program &program = composition.makeProgram();
};

} // namespace

TEST_F(ProgramTest, StartedAgainItBringsItsWindowToTheFrontAndUpToDate)
{
    window()->showMinimized();
    sync.syncs = 0;
    program.reopen("token");
    EXPECT_FALSE(window()->isMinimized());
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(services.desktop.activated, QList<platform::Desktop::Application>{window()->winId()});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    EXPECT_EQ(sync.syncs, 1);
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(ProgramTest, FromTheFirstLanguageToEachKindOfQuiz)
{
    CountingUsage usage;
    services.settings.setValue(settingskeys::isEnableUserStatistics, true);
    services.settings.setValue(settingskeys::hasShownVocabularyHelp, true);
    control<QLineEdit>("firstLanguageField")->setText(u"Italian"_qs);
    control<QPushButton>("getStartedButton")->click();
    composition.delegate().applicationDidFinishLaunching({});
    EXPECT_EQ(usage.events, QStringList{u"languageInfo"_qs});

    const TAVLexiconRef vocabulary = program.mainWindowController().vocabularyController()->vocabulary();
    for (const char *word : {"uno", "due", "tre"})
        vocabulary->addWord(std::make_shared<TAVWord>(QLatin1String(word), QLatin1String(word), QString()));
    auto *view = window()->findChild<QuizView *>();
    const QuizView::Page pages[] = {QuizView::typingQuizPage, QuizView::flashCardPage,
                                    QuizView::popupQuizPage};
    for (int mode = 0; mode < 3; ++mode) {
        control<QToolButton>("showQuiz")->click();
        services.clock.advanceSeconds(1);
        control<SegmentControl>("quizModeSegmentControl")->setSelectedSegment(mode);
        control<QPushButton>("quizStartQuizButton")->click();
        services.clock.advanceSeconds(2);
        EXPECT_EQ(view->currentPage(), pages[mode]);
    }
    EXPECT_FALSE(control<QToolButton>("showQuiz")->isEnabled()) << "the popup quiz has reached the window";
}

TEST_F(ProgramTest, OnlyTheMainWindowsCloseEndsTheProgram)
{
    QApplication::setQuitOnLastWindowClosed(false);
    const auto later = [](const std::function<void()> &call) {
        QMetaObject::invokeMethod(qApp, call, Qt::QueuedConnection);
    };
    QDialog panel;
    bool runsAfterPanel = false;
    later([&] {
        window()->showMinimized();
        panel.show();
        panel.close();
        // Later than all that the closing of the panel may have set off.
        later([&] {
            later([&] {
                runsAfterPanel = true;
                panel.show();
                window()->close();
            });
        });
    });
    QApplication::exec();
    EXPECT_TRUE(runsAfterPanel);
    EXPECT_FALSE(window()->isVisible());
}
