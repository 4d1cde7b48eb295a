#include "quiz/QuizFormsTest.h"
#include "quiz/forms/LevelPicture.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/TAVFlashCardQuizController.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>

namespace {

constexpr auto card = QuizView::flashCardPage;
constexpr auto result = QuizView::resultPage;

class FlashCardQuizTest : public QuizFormsTest
{
protected:
    FlashCardQuizTest() { setSpeed(0); }

    void setSpeed(int position) { on<QSlider>(card, "flipTimeoutSlider")->setValue(position); }
    void startCards(const TAVWordList &words)
    {
        prepare(m_cards, words);
        m_cards.startQuiz();
        m_view.showPage(card);
        pass();
        m_recorder.restart();
    }
    /** On the card itself, beside all buttons. */
    void clickCard()
    {
        QTest::mouseClick(on<QWidget>(card, "showAnswerHiddenButton"), Qt::LeftButton);
        pass();
    }
    void press(Qt::Key key) { QTest::keyClick(m_view.page(card), key); }
    void wait(int milliseconds) { services.clock.advance(std::chrono::milliseconds(milliseconds)); }
    bool shows(const char *name) { return on<QWidget>(card, name)->isVisible(); }
    QString onCardText(const char *name) { return text(m_view.page(card), name); }
    TAVWordList threeWords(quint64 level = 2)
    {
        return {m_words.add("Hund", "dog", level), m_words.add("Katze", "cat", level),
                m_words.add("Maus", "mouse", level)};
    }

    TAVFlashCardQuizController m_cards{&m_view, m_document};
};

TEST_F(FlashCardQuizTest, AClickShowsTheSolutionAndTheNextOneBooksAsSkipped)
{
    const TAVWordList words = threeWords();
    startCards(words);
    m_cards.setAskForForeignWord(false);
    m_cards.setAskForYourWord(true);
    EXPECT_FALSE(shows("correctAnswerTextField") || shows("commentTextField"));
    clickCard();
    EXPECT_EQ(onCardText("correctAnswerTextField"), QStringLiteral("dog"));
    EXPECT_TRUE(shows("commentTextField"));
    EXPECT_TRUE(on<QPushButton>(card, "editButton")->isEnabled());
    EXPECT_EQ(m_recorder.take(), QString());
    EXPECT_FALSE(words[0]->lastAsked().isValid());

    clickCard();
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    EXPECT_EQ(m_cards.run().numberOfSkipped(), 1);
    EXPECT_EQ(m_cards.currentWord(), words[1]);
    EXPECT_FALSE(shows("correctAnswerTextField"));
    EXPECT_FALSE(on<QPushButton>(card, "editButton")->isEnabled()) << "it would show the solution";
    EXPECT_EQ(onCardText("questionTextField"), QStringLiteral("cat")) << "drawn for each question";
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("2 of 3"));
    for (int i = 0; i < 3; ++i)
        clickCard();
    m_cards.showNext();
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("3 of 3"));
}

TEST_F(FlashCardQuizTest, MarksMoveTheWordAfterTheirOwnTimeAndShowWhereItGoes)
{
    const struct
    {
        Qt::Key key;
        int milliseconds;
        quint64 before;
        quint64 after;
        bool rises;
        bool falls;
    } cases[] = {
        {Qt::Key_C, 600, 2, 3, true, false},
        {Qt::Key_X, 500, 3, 2, false, true},
        {Qt::Key_Right, 600, 5, 5, false, false},
        {Qt::Key_Left, 500, 0, 0, false, false},
    };
    for (const auto &[key, milliseconds, before, after, rises, falls] : cases) {
        const TAVWordRef word = m_words.add("Hund", "dog", before);
        startCards({word, m_words.add("Katze", "cat")});
        press(key);
        services.clock.advanceSeconds(2);
        EXPECT_FALSE(m_cards.isShowingSolution()) << "a mark before the solution was seen";
        press(Qt::Key_Space);
        pass();
        press(key);
        EXPECT_EQ(shows("upArrowImageView"), rises);
        EXPECT_EQ(shows("downArrowImageView"), falls);
        if (rises || falls) {
            const auto *picture = on<QLabel>(card, rises ? "upperLevelImageView" : "lowerLevelImageView");
            EXPECT_EQ(picture->accessibleName(), LevelPicture::name(after));
        }
        wait(milliseconds - 1);
        EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);
        wait(1);
        EXPECT_EQ(m_cards.run().numberOfAnswers(), 1);
        EXPECT_EQ(word->level(), after);
        pass();
    }
}

TEST_F(FlashCardQuizTest, TheSecondMarkReplacesTheFirstAndIsBookedOnce)
{
    startCards(threeWords());
    clickCard();
    press(Qt::Key_C);
    wait(300);
    press(Qt::Key_X);
    // The run is stopped when the next question is chosen, but not shown yet.
    wait(305);
    on<QPushButton>(card, "stopButton")->click();
    pass();
    EXPECT_EQ(m_cards.run().numberOfWrong(), 1);
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 1);
}

TEST_F(FlashCardQuizTest, AMarkThatComesAfterTheLastWordWasBookedDoesNothing)
{
    for (const char *mark : {"correctButton", "wrongButton"}) {
        startCards({m_words.add("Hund", "dog", 2)});
        clickCard();
        press(Qt::Key_Space);
        on<QPushButton>(card, mark)->click();
        pass();
        EXPECT_EQ(m_cards.run().numberOfSkipped(), 1);
        EXPECT_EQ(m_cards.run().numberOfAnswers(), 1);
        EXPECT_EQ(m_view.currentPage(), result);
    }
    // The next question is chosen, but the card still shows the last one.
    startCards(threeWords());
    clickCard();
    press(Qt::Key_Space);
    on<QPushButton>(card, "correctButton")->click();
    pass();
    EXPECT_FALSE(m_cards.isShowingSolution());
}

TEST_F(FlashCardQuizTest, SpaceAndArrowsBelongToAFocusedControl)
{
    const struct
    {
        const char *control;
        Qt::Key key;
        std::function<bool()> isDone;
    } cases[] = {
        {"flipTimeoutSlider", Qt::Key_Right,
         [this] { return on<QSlider>(card, "flipTimeoutSlider")->value() == 1; }},
        {"flipTimeoutSlider", Qt::Key_Left,
         [this] { return on<QSlider>(card, "flipTimeoutSlider")->value() == 0; }},
        {"correctButton", Qt::Key_Left, [this] { return hasFocus(card, "wrongButton"); }},
        {"correctButton", Qt::Key_Space,
         [this] { return on<QPushButton>(card, "correctButton")->isChecked(); }},
        {"stopButton", Qt::Key_Space,
         [this] {
             pass();
             return m_view.currentPage() == result;
         }},
    };
    startCards({m_words.add("Hund", "dog", 2)});
    QTest::mouseClick(on<QWidget>(card, "showAnswerButton"), Qt::LeftButton);
    EXPECT_TRUE(m_view.page(card)->hasFocus()) << "the arrows are the marks'";
    for (const auto &[control, key, isDone] : cases) {
        SCOPED_TRACE(control);
        on<QWidget>(card, control)->setFocus();
        QTest::keyClick(on<QWidget>(card, control), key);
        EXPECT_TRUE(isDone());
    }
    EXPECT_EQ(m_cards.run().numberOfCorrect(), 1) << "the mark alone";
}

TEST_F(FlashCardQuizTest, AKeyThatIsHeldDownBooksNothing)
{
    services.desktop.repeatsArePresses = true;
    startCards(threeWords());
    const auto repeat = [this](Qt::Key key, quint64 time) {
        sendKey(QEvent::KeyRelease, key, time);
        QKeyEvent override(QEvent::ShortcutOverride, key, Qt::NoModifier);
        override.setTimestamp(time);
        override.ignore();
        QSpontaneKeyEvent::setSpontaneous(&override);
        qApp->notify(QApplication::focusWidget(), &override);
        // A key that nobody claims becomes a shortcut.
        if (!override.isAccepted())
            press(key);
    };
    press(Qt::Key_Space);
    pass();
    for (quint64 time = 6500; time < 8000; time += 33)
        repeat(Qt::Key_Space, time);
    pass();
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);
    EXPECT_TRUE(m_cards.isShowingSolution());
    press(Qt::Key_Space);
    pass();
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 1);
}

TEST_F(FlashCardQuizTest, AWordThatIsDeletedAfterItWasBookedLeavesTheNextCardAlone)
{
    const TAVWordList words = threeWords();
    startCards(words);
    clickCard();
    m_cards.editCurrentWord();
    clickCard();
    clickCard();
    m_cards.wordPopoverDidDeleteWords({words[0]});
    EXPECT_FALSE(shows("deletedImageView"));
    EXPECT_TRUE(on<QPushButton>(card, "editButton")->isEnabled());
    EXPECT_EQ(m_cards.currentWord(), words[1]);
}

TEST_F(FlashCardQuizTest, AutoplayPausesWhileTheWindowIsOnAnotherDesktop)
{
    setSpeed(2);
    const TAVWordList words = threeWords();
    m_view.showPage(card);
    startCards(words);
    services.desktop.isAway = true;
    services.clock.advanceSeconds(60);
    EXPECT_FALSE(m_cards.isShowingSolution());
    services.desktop.isAway = false;
    wait(2900);
    EXPECT_FALSE(m_cards.isShowingSolution()) << "it has its whole time again";
    wait(600);
    EXPECT_TRUE(m_cards.isShowingSolution());
    services.desktop.isAway = true;
    services.clock.advanceSeconds(60);
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);
    press(Qt::Key_P);
    EXPECT_FALSE(m_cards.isAutoPlay());
    services.desktop.isAway = false;
    services.clock.advanceSeconds(60);
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);
}

TEST_F(FlashCardQuizTest, AutoplayKeepsItsPaceAndStopsBeforeTheResult)
{
    setSpeed(2);
    const TAVWordList words = threeWords();
    prepare(m_cards, words);
    m_view.showPage(card);
    m_cards.startQuiz();
    EXPECT_TRUE(m_cards.isAutoPlay());
    EXPECT_FALSE(shows("showAnswerButton"));
    wait(2999);
    EXPECT_FALSE(m_cards.isShowingSolution());
    wait(1);
    EXPECT_TRUE(m_cards.isShowingSolution());
    wait(1999);
    EXPECT_EQ(m_cards.currentWord(), words[0]);
    wait(1);
    EXPECT_EQ(m_cards.currentWord(), words[1]);
    services.clock.advanceSeconds(3.5 * 3 + 2);
    EXPECT_FALSE(m_cards.isAutoPlay());
    EXPECT_EQ(m_view.currentPage(), result);
    EXPECT_EQ(text(m_view.page(result), "statisticsMissspelled"), QStringLiteral("3 / 3"));
    EXPECT_TRUE(on<QWidget>(result, "restartWithWrongButton")->isHidden());
    EXPECT_EQ(services.settings.value(QStringLiteral("learnFlipLevel")), 2);

    // Switched on over a solution, it leaves that no longer than any other; an edit holds it.
    setSpeed(0);
    startCards(words);
    clickCard();
    setSpeed(1);
    press(Qt::Key_P);
    wait(2999);
    EXPECT_TRUE(m_cards.isShowingSolution());
    wait(1);
    EXPECT_FALSE(m_cards.isShowingSolution());
    services.clock.advanceSeconds(5.1);
    EXPECT_TRUE(m_cards.isShowingSolution());
    on<QPushButton>(card, "editButton")->click();
    services.clock.advanceSeconds(60);
    EXPECT_EQ(m_cards.currentWord(), words[1]);
    words[1]->setForeignWord(QStringLiteral("tomcat"));
    m_cards.wordPopoverDidEditWords({words[1]});
    EXPECT_EQ(onCardText("correctAnswerTextField"), QStringLiteral("tomcat"));
}

TEST_F(FlashCardQuizTest, NothingIsBookedUnseenWhereverTheUserGoes)
{
    setSpeed(3);
    const TAVWordList words = threeWords();
    startCards(words);
    EXPECT_TRUE(m_cards.isAutoPlay());
    setSpeed(0);
    EXPECT_FALSE(m_cards.isAutoPlay());
    press(Qt::Key_P);
    EXPECT_FALSE(m_cards.isAutoPlay()) << "without a pace the words would run through unread";
    setSpeed(3);
    press(Qt::Key_P);
    EXPECT_TRUE(m_cards.isAutoPlay());

    m_view.hide();
    services.clock.advanceSeconds(60);
    EXPECT_FALSE(m_cards.isAutoPlay());
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);

    // Gone to another tab within the delay of the start.
    startCards(words);
    services.clock.advanceSeconds(60);
    EXPECT_FALSE(m_cards.isAutoPlay());
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);
}

TEST_F(FlashCardQuizTest, AMarkIsBookedThoughItsPageIsLeft)
{
    const std::function<void()> ways[] = {[this] { m_view.close(); }, [this] { m_setup.showQuiz(); },
                                          [this] {
                                              m_setup.setLearnController(&m_cards);
                                              m_setup.showQuiz();
                                              m_setup.startQuiz();
                                          }};
    for (const auto &leave : ways) {
        const TAVWordRef word = m_words.add("Hund", "dog", 2);
        startCards({word, m_words.add("Katze", "cat", 2)});
        clickCard();
        press(Qt::Key_C);
        leave();
        pass();
        EXPECT_EQ(word->level(), 3);
        EXPECT_EQ(m_cards.run().numberOfAnswers(), 1);
        EXPECT_FALSE(m_view.page(card)->hasFocus());
        m_view.show();
        m_view.activateWindow();
        processEvents();
    }
}

TEST_F(FlashCardQuizTest, TheCountdownAsksTheSameWordsAgainUnlessItIsStopped)
{
    const TAVWordList words = threeWords();
    startCards(words);
    for (int i = 0; i < 6; ++i)
        clickCard();
    ASSERT_EQ(m_view.currentPage(), result);
    auto *button = on<QPushButton>(result, "countdownButton");
    button->click();
    services.clock.advanceSeconds(3);
    EXPECT_EQ(on<QLabel>(result, "countdownField")->text(), QStringLiteral("2s"));
    button->click();
    services.clock.advanceSeconds(60);
    EXPECT_EQ(m_view.currentPage(), result);

    button->click();
    m_setup.showQuiz();
    services.clock.advanceSeconds(60);
    EXPECT_EQ(m_view.currentPage(), QuizView::setupPage);

    m_view.showPage(result);
    button->click();
    services.clock.advanceSeconds(6);
    EXPECT_EQ(m_view.currentPage(), card);
    EXPECT_EQ(TAVWordSet(m_cards.wordsToAsk()), TAVWordSet(words));
    EXPECT_EQ(m_cards.run().numberOfSkipped(), 0);

    const TAVWordRef deleted = m_cards.currentWord();
    clickCard();
    m_cards.wordPopoverDidDeleteWords({deleted});
    EXPECT_TRUE(shows("deletedImageView"));
    pass();
    EXPECT_FALSE(shows("deletedImageView")) << "the next word is there";
    EXPECT_NE(m_cards.currentWord(), deleted);
    EXPECT_FALSE(m_cards.wordsToAsk().contains(deleted));
}

TEST_F(FlashCardQuizTest, OfAWordThatAnEditMadeSeveralOfNothingIsBooked)
{
    const TAVWordList words = threeWords();
    startCards({words[0], words[1]});
    for (const TAVWordRef &word : {words[0], words[1]}) {
        clickCard();
        press(Qt::Key_X);
        m_words.vocabulary->removeWord(word);
        m_cards.wordPopoverDidEditWords({word});
        EXPECT_TRUE(shows("deletedImageView"));
        EXPECT_FALSE(m_cards.wordsToAsk().contains(word));
        pass();
        EXPECT_FALSE(m_cards.isShowingSolution());
        EXPECT_FALSE(word->lastAsked().isValid());
    }
    EXPECT_EQ(m_cards.run().numberOfAnswers(), 0);
    EXPECT_EQ(m_recorder.take(), QStringLiteral("sync, saved; event 1, saved"));
    EXPECT_EQ(m_view.currentPage(), result);
}

TEST_F(FlashCardQuizTest, StoppingBooksTheLastMarkAndWrongWordsComeAgainInTheirOrder)
{
    const TAVWordList words = threeWords();
    startCards(words);
    clickCard();
    press(Qt::Key_X);
    pass();
    clickCard();
    press(Qt::Key_X);
    m_recorder.restart();
    on<QPushButton>(card, "stopButton")->click();
    wait(200);
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark; sync, saved; event 1, saved"));
    EXPECT_EQ(m_view.currentPage(), result);
    EXPECT_EQ(m_cards.run().numberOfWrong(), 2);
    pass();
    on<QPushButton>(result, "restartWithWrongButton")->click();
    pass();
    EXPECT_EQ(m_view.currentPage(), card);
    EXPECT_EQ(m_cards.wordsToAsk(), (TAVWordList{words[0], words[1]}));
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("1 of 2"));
}

TEST_F(FlashCardQuizTest, OnlyItsOwnResultOffersTheCountdown)
{
    startCards({m_words.add("Hund", "dog")});
    on<QPushButton>(card, "stopButton")->click();
    pass();
    EXPECT_TRUE(on<QWidget>(result, "countdownButton")->isVisible());

    start({m_words.add("Katze", "cat")});
    answer("cat");
    pressReturn();
    pass();
    ASSERT_EQ(m_view.currentPage(), result);
    EXPECT_FALSE(on<QWidget>(result, "countdownButton")->isVisible());
}

TEST_F(FlashCardQuizTest, OnlyTheHighestLevelOffersNotToAskAgain)
{
    const TAVWordRef native = m_words.add("Hund", "dog", 5);
    startCards({m_words.add("Katze", "cat", 4), native});
    clickCard();
    EXPECT_FALSE(on<QWidget>(card, "dontAskAgainCheckBox")->isEnabled());
    clickCard();
    clickCard();
    on<QCheckBox>(card, "dontAskAgainCheckBox")->click();
    on<QPushButton>(card, "stopButton")->click();
    pass();
    EXPECT_TRUE(native->dontAskAgain());
    EXPECT_FALSE(native->lastAsked().isValid()) << "seen, but not marked";
}

} // namespace
