#include "quiz/FlashCardRun.h"
#include "quiz/QuizRunTest.h"

namespace {

class FlashCardRunTest : public QuizRunTest
{
protected:
    void book(CardMark mark)
    {
        m_run.book(mark);
        m_run.askNext();
    }
    TAVWordList threeWords(quint64 level)
    {
        return {m_words.add("Hund", "dog", level), m_words.add("Katze", "cat", level),
                m_words.add("Maus", "mouse", level)};
    }

    FlashCardRun m_run{m_quiz, m_document};
};

TEST_F(FlashCardRunTest, AMarkMovesTheWordAndNoMarkOnlyStampsIt)
{
    const TAVWordList words = threeWords(4);
    begin(m_run, words);
    m_run.setIsExcluded(true);
    book(CardMark::notKnown);
    book(CardMark::none);
    EXPECT_EQ(m_run.progress().reached, 3);
    book(CardMark::known);
    EXPECT_EQ(m_recorder.take(), QString());
    m_run.saveCard();
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    constexpr quint64 after[] = {2, 4, 5};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(words[i]->level(), after[i]);
        EXPECT_TRUE(words[i]->lastAsked().isValid());
        EXPECT_EQ(words[i]->dontAskAgain(), i == 0) << "an exclusion goes with its own card";
    }
    EXPECT_EQ(m_run.askedWord(), nullptr);
    EXPECT_EQ(m_run.wrongAnsweredWords(), TAVWordList{words[0]}) << "skipped is not wrong";
    const RunResult result = m_run.result();
    EXPECT_TRUE(result.correct == 1 && result.between == 1 && result.wrong == 1);
    EXPECT_EQ(m_run.progress().correct, 1);
    m_run.setIsExcluded(true);
    m_run.beginWithWrongWords();
    EXPECT_EQ(m_run.askedWord(), words[0]);
    EXPECT_EQ(m_run.numberOfAnswers(), 0);
    words[0]->setDontAskAgain(false);
    book(CardMark::none);
    EXPECT_FALSE(words[0]->dontAskAgain()) << "nor does it outlive its run";
}

TEST_F(FlashCardRunTest, TheEndBooksALastCardOnlyIfItIsMarked)
{
    const struct
    {
        CardMark mark;
        const char *changes;
        qint64 answers;
        bool canRestart;
    } cases[] = {{CardMark::none, "sync, saved, saved", 0, false},
                 {CardMark::known, "flagged, mark; sync, saved, saved", 1, false},
                 {CardMark::notKnown, "flagged, mark; sync, saved, saved", 1, true}};
    for (const auto &c : cases) {
        const TAVWordList words = threeWords(5);
        begin(m_run, words);
        m_words.vocabulary->nativeWithoutDontAsk();
        EXPECT_TRUE(m_run.offersExclusion());
        m_run.setIsExcluded(true);
        m_run.end(c.mark);
        EXPECT_TRUE(m_words.vocabulary->needsSync()) << "a word was excluded";
        EXPECT_EQ(m_recorder.take(), QLatin1String(c.changes));
        EXPECT_TRUE(words[0]->dontAskAgain());
        EXPECT_FALSE(m_words.vocabulary->nativeWithoutDontAsk().contains(words[0]));
        EXPECT_EQ(m_run.numberOfAnswers(), c.answers);
        EXPECT_EQ(words[0]->lastAsked().isValid(), c.answers > 0);
        EXPECT_EQ(m_run.result().canRestartWithWrong, c.canRestart);
        EXPECT_EQ(m_run.askedWord(), nullptr);
    }
}

TEST_F(FlashCardRunTest, DeletedWordsAreNotAskedAndTheOthersAre)
{
    const TAVWordList words = threeWords(2) + threeWords(2);
    begin(m_run, words);
    book(CardMark::notKnown);
    book(CardMark::notKnown);
    // One that was asked, one that is still to come, and one that is none of the run.
    m_run.forgetWords({words[0], words[3], m_words.add("Uhu", "owl")});
    EXPECT_EQ(m_run.wrongAnsweredWords(), TAVWordList{words[1]});
    for (const TAVWordRef &next : {words[4], words[5], TAVWordRef()}) {
        book(CardMark::none);
        EXPECT_EQ(m_run.askedWord(), next);
    }
}

TEST_F(FlashCardRunTest, ThePreviewOfALevelShowsOneStep)
{
    constexpr quint64 above[] = {1, 2, 3, 4, 5, 5, 5};
    constexpr quint64 below[] = {0, 0, 1, 2, 3, 3, 3};
    for (quint64 level = 0; level < std::size(above); ++level) {
        EXPECT_EQ(FlashCardRun::levelAbove(level), above[level]);
        EXPECT_EQ(FlashCardRun::levelBelow(level), below[level]);
    }
}

} // namespace
