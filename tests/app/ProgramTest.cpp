#include "app/Composition.h"
#include "quiz/forms/SegmentControl.h"
#include "storage/TAVStorageManager.h"
#include "support/GuiTest.h"
#include "views/TAVLexiconController.h"
#include "views/WordTableView.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QToolButton>

namespace {

/** What the program shares, with what became of it. It goes with the composition. */
struct Prompt : RatingPrompt
{
    void configure(const Thresholds &) override
    {
        isConfiguredFirst = !QFileInfo::exists(
            platform::services().folders->applicationSupportDirectories().first() + u"/Tavimo"_qs);
    }
    bool isConfiguredFirst = false;
};
struct Sync : DropBoxController
{
    void syncWithDropbox() override { ++syncs; }
    void setDelegate(DropboxControllerDelegate *receiver) override { delegate = receiver; }
    int syncs = 0;
    DropboxControllerDelegate *delegate = nullptr;
};
struct Usage : KeenClient
{
    void addEvent(const QVariantMap &, const QString &collection) override { events.append(collection); }
    QStringList events;
};

class ProgramTest : public ServicesTest
{
protected:
    ProgramTest()
    {
        services.settings.setValue(QStringLiteral("hasShownVocabularyHelp"), true);
        program.awakeFromNib();
    }
    template <typename Type, typename Base> static Type *put(std::unique_ptr<Base> &place)
    {
        auto made = std::make_unique<Type>();
        Type *object = made.get();
        place = std::move(made);
        return object;
    }
    template <typename Control> Control *control(const char *name)
    {
        return findControl<Control>(window(), name);
    }
    QMainWindow *window() { return program.mainWindowController().mainWindow(); }
    TAVLexiconController *words() { return program.mainWindowController().vocabularyController(); }
    /** Italian with three words, as a user makes it. */
    void makeLanguage()
    {
        control<QLineEdit>("firstLanguageField")->setText(u"Italian"_qs);
        control<QPushButton>("getStartedButton")->click();
        for (const char *word : {"uno", "due", "tre"})
            addWord(word);
        words()->updateEntireView();
    }
    void addWord(const char *text)
    {
        const QString word = QLatin1String(text);
        words()->vocabulary()->addWord(std::make_shared<TAVWord>(word, word, QString()));
    }

    SharedObjects shared;
    Prompt *prompt = put<Prompt>(shared.ratingPrompt);
    Sync *sync = put<Sync>(shared.sync);
    Usage *usage = put<Usage>(shared.usage);
    Composition composition{std::move(shared)};
    Program &program = composition.makeProgram();
};

} // namespace

TEST_F(ProgramTest, StartedAgainItBringsItsWindowToTheFrontAndUpToDate)
{
    window()->showMinimized();
    sync->syncs = 0;
    program.reopen("token");
    EXPECT_FALSE(window()->isMinimized());
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(services.desktop.activated, QList<platform::Desktop::Application>{window()->winId()});
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token");
    EXPECT_EQ(sync->syncs, 1);
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST_F(ProgramTest, WhatIsSharedStandsBeforeItIsAskedFor)
{
    EXPECT_TRUE(prompt->isConfiguredFirst) << "before there is any folder";
    EXPECT_EQ(RatingPrompt::shared(), prompt);
    EXPECT_EQ(sync->delegate, &program.mainWindowController());
    services.settings.setValue(QStringLiteral("isEnableUserStatistics"), true);
    makeLanguage();
    composition.delegate().applicationDidFinishLaunching({});
    EXPECT_EQ(usage->events, QStringList{u"languageInfo"_qs});
}

TEST_F(ProgramTest, EachKindOfQuizCanBeStarted)
{
    makeLanguage();
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

TEST_F(ProgramTest, NoControlOfAHiddenPageTakesTheKeyboard)
{
    makeLanguage();
    const auto click = [this](const char *button) { control<QAbstractButton>(button)->click(); };
    const auto wait = [this](double seconds) { services.clock.advanceSeconds(seconds); };
    const auto openQuiz = [=] {
        click("showQuiz");
        wait(1);
    };
    const auto startQuiz = [=, this](int mode) {
        openQuiz();
        control<SegmentControl>("quizModeSegmentControl")->setSelectedSegment(mode);
        click("quizStartQuizButton");
    };
    const auto onCards = [this](const char *name) {
        return findControl<QAbstractButton>(window()->findChild<QWidget *>(u"flashCardPage"_qs), name);
    };
    control<QSlider>("flipTimeoutSlider")->setValue(0);
    const struct
    {
        const char *moment;
        std::function<void()> reach;
        qint64 answers;
    } cases[] = {
        {"the page is built once more", [=] { click("showQuiz"); }, 0},
        {"the run is about to start", [=] { startQuiz(0); }, 0},
        {"the card flips at the start", [=] { startQuiz(0), wait(0.5); }, 0},
        {"the field gets the keyboard", [=] { startQuiz(0), wait(1.1); }, 0},
        {"a step is pending", [=] { startQuiz(0), wait(2), click("nextButton"), wait(0.1); }, 1},
        {"the card flips", [=] { startQuiz(0), wait(2), click("nextButton"), wait(0.5); }, 1},
        {"cards are about to start", [=] { startQuiz(1); }, 0},
        {"a mark is pending",
         [=] {
             startQuiz(1), wait(2), onCards("showAnswerButton")->click(), wait(1);
             onCards("wrongButton")->click();
         },
         1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.moment);
        c.reach();
        click("showVocabulary");
        window()->activateWindow();
        processEvents();
        auto *search = control<QLineEdit>("searchField");
        search->clear();
        search->setFocus();
        ASSERT_TRUE(search->hasFocus());
        wait(0.15);
        QTest::keyClicks(QApplication::focusWidget(), u"u"_qs);
        wait(2);
        processEvents();
        EXPECT_TRUE(search->hasFocus());
        QTest::keyClicks(QApplication::focusWidget(), u"n "_qs);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        wait(2);
        EXPECT_EQ(search->text(), u"un "_qs);
        const bool areCards = window()->findChild<QuizView *>()->currentPage() == QuizView::flashCardPage;
        const QuizRun &run = areCards ? static_cast<const QuizRun &>(program.flashCardQuiz().run())
                                      : program.typingQuiz().run();
        EXPECT_EQ(run.numberOfAnswers(), c.answers) << "only what the user did";
    }
}

TEST_F(ProgramTest, TheQuizPageFollowsTheSelectionAndTheSync)
{
    makeLanguage();
    words()->view()->findChild<WordTableView *>()->selectAll();
    control<QToolButton>("showQuiz")->click();
    EXPECT_EQ(program.quizSetup().preSelectedWords().size(), 3);
    auto *due = control<QLabel>("unknownNoOfDueLabel");
    EXPECT_EQ(due->text(), u"3 due"_qs);
    addWord("quattro");
    services.clock.advanceSeconds(0.5);
    EXPECT_EQ(due->text(), u"4 due"_qs) << "the page is built a second time";

    addWord("cinque");
    ASSERT_TRUE(TAVStorageManager::saveVocabulary(words()->vocabulary()));
    program.mainWindowController().dropboxControllerDidFinishSync();
    EXPECT_EQ(due->text(), u"5 due"_qs);
    EXPECT_TRUE(program.quizSetup().preSelectedWords().isEmpty());
}

TEST_F(ProgramTest, TheKeyboardsSourcesMayComeAfterTheVocabulary)
{
    const auto vocabulary = std::make_shared<TAVLexicon>();
    vocabulary->setForeignTextInputSourceId(u"de"_qs);
    program.mainWindowController().vocabularyController()->setVocabulary(vocabulary);
    EXPECT_EQ(vocabulary->foreignTextInputSource(), nullptr);
    const auto source = services.inputSources.add(u"de"_qs);
    services.inputSources.reportListChanged();
    services.queues.drain();
    EXPECT_EQ(vocabulary->foreignTextInputSource(), source);
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
