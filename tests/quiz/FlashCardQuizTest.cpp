#include "quiz/QuizFormsTest.h"
#include "quiz/forms/QuizResultPage.h"
#include "quiz/forms/TAVFlashCardQuizController.h"

#include <QSlider>

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
        m_cards.setVocabulary(m_words.vocabulary);
        m_cards.setWordsToAsk(words);
        m_cards.mutableWordsToAsk() = words;
        m_cards.setAskForForeignWord(true);
        m_cards.setAskForYourWord(false);
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
    bool shows(const char *name) { return on<QWidget>(card, name)->isVisible(); }
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
    EXPECT_FALSE(shows("correctAnswerTextField"));
    clickCard();
    EXPECT_TRUE(shows("correctAnswerTextField"));
    EXPECT_EQ(on<QLabel>(card, "correctAnswerTextField")->text(), QStringLiteral("dog"));
    EXPECT_TRUE(m_recorder.calls.isEmpty());
    EXPECT_FALSE(words[0]->lastAsked().isValid());

    clickCard();
    EXPECT_EQ(m_cards.numberOfSkipped(), 1);
    EXPECT_EQ(words[0]->level(), 2);
    EXPECT_TRUE(words[0]->lastAsked().isValid());
    EXPECT_EQ(m_recorder.calls, QStringList{QStringLiteral("flagged, mark")});
    EXPECT_TRUE(QFile::exists(m_recorder.path()));
    EXPECT_EQ(m_cards.currentWord(), words[1]);
    EXPECT_FALSE(shows("correctAnswerTextField"));
    EXPECT_EQ(m_view.statusText()->text(), QStringLiteral("2 of 3"));
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
        {Qt::Key_C, 600, 2, 3, true, false}, {Qt::Key_Right, 600, 5, 5, false, false},
        {Qt::Key_X, 500, 3, 2, false, true}, {Qt::Key_Left, 500, 0, 0, false, false},
        {Qt::Key_X, 500, 5, 2, false, true},
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
        services.clock.advance(std::chrono::milliseconds(milliseconds - 1));
        EXPECT_FALSE(word->lastAsked().isValid());
        services.clock.advance(std::chrono::milliseconds(1));
        EXPECT_TRUE(word->lastAsked().isValid());
        EXPECT_EQ(word->level(), after);
        pass();
    }
}

TEST_F(FlashCardQuizTest, TheSecondMarkReplacesTheFirstAndIsBookedOnce)
{
    const TAVWordList words = threeWords();
    startCards(words);
    clickCard();
    press(Qt::Key_C);
    services.clock.advance(std::chrono::milliseconds(300));
    press(Qt::Key_X);
    pass();
    EXPECT_EQ(m_cards.numberOfCorrect(), 0);
    EXPECT_EQ(m_cards.numberOfWrong(), 1);
    EXPECT_EQ(words[0]->level(), 1);
    EXPECT_EQ(m_cards.currentWord(), words[1]);
}

TEST_F(FlashCardQuizTest, AutoplayKeepsItsPaceAndStopsBeforeTheResult)
{
    setSpeed(2);
    m_cards.setVocabulary(m_words.vocabulary);
    const TAVWordList words = threeWords();
    m_cards.setWordsToAsk(words);
    m_cards.mutableWordsToAsk() = words;
    m_view.showPage(card);
    m_cards.startQuiz();
    EXPECT_TRUE(m_cards.isAutoPlay());
    EXPECT_FALSE(shows("showAnswerButton"));
    services.clock.advance(std::chrono::milliseconds(2999));
    EXPECT_FALSE(m_cards.isShowingSolution());
    services.clock.advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(m_cards.isShowingSolution());
    services.clock.advance(std::chrono::milliseconds(1999));
    EXPECT_EQ(m_cards.currentWord(), words[0]);
    services.clock.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(m_cards.currentWord(), words[1]);
    services.clock.advanceSeconds(3.5 * 3 + 2);
    EXPECT_FALSE(m_cards.isAutoPlay());
    EXPECT_EQ(m_view.currentPage(), result);
    EXPECT_EQ(m_cards.numberOfSkipped(), 3);
    EXPECT_TRUE(on<QWidget>(result, "restartWithWrongButton")->isHidden());
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
    for (const TAVWordRef &word : words)
        EXPECT_FALSE(word->lastAsked().isValid());

    // Gone to another tab within the delay of the start.
    startCards(words);
    services.clock.advanceSeconds(60);
    EXPECT_FALSE(m_cards.isAutoPlay());
    EXPECT_FALSE(words.first()->lastAsked().isValid());
}

TEST_F(FlashCardQuizTest, TheCountdownAsksTheSameWordsAgainUnlessItIsStopped)
{
    const TAVWordList words = threeWords();
    const auto finish = [this] {
        for (int i = 0; i < 6; ++i)
            clickCard();
        ASSERT_EQ(m_view.currentPage(), result);
    };
    startCards(words);
    finish();
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
    EXPECT_EQ(m_cards.wordsToAsk().size(), 3);
    EXPECT_EQ(m_cards.numberOfSkipped(), 0);
    EXPECT_TRUE(words.contains(m_cards.currentWord()));

    const TAVWordRef deleted = m_cards.currentWord();
    clickCard();
    m_words.vocabulary->removeWord(deleted);
    m_cards.wordPopoverDidDeleteWords({deleted});
    pass();
    EXPECT_NE(m_cards.currentWord(), deleted);
    for (int i = 0; i < 4; ++i)
        clickCard();
    button->click();
    services.clock.advanceSeconds(6);
    EXPECT_EQ(m_cards.numberOfWordsToAsk(), 2);
    EXPECT_FALSE(m_cards.wordsToAsk().contains(deleted));
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
    services.clock.advance(std::chrono::milliseconds(200));
    EXPECT_EQ(m_view.currentPage(), result);
    EXPECT_EQ(m_cards.numberOfWrong(), 2);
    EXPECT_EQ(words[1]->level(), 1);
    EXPECT_FALSE(words[2]->lastAsked().isValid());
    EXPECT_EQ(m_recorder.calls, (QStringList{QStringLiteral("flagged, mark"), QStringLiteral("sync, saved"),
                                             QStringLiteral("event 1")}));
    pass();
    on<QPushButton>(result, "restartWithWrongButton")->click();
    pass();
    EXPECT_EQ(m_view.currentPage(), card);
    EXPECT_EQ(m_cards.wordsToAsk(), (TAVWordList{words[0], words[1]}));
    EXPECT_TRUE(m_cards.wrongAnsweredWords().isEmpty());
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
    clickCard();
    EXPECT_TRUE(native->dontAskAgain());
    EXPECT_TRUE(m_words.vocabulary->nativeWithoutDontAsk().isEmpty());
}

} // namespace
