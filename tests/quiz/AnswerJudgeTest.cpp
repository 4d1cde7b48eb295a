#include "quiz/AnswerJudge.h"
#include "quiz/QuizWords.h"
#include "support/TestServices.h"

namespace {

class AnswerJudgeTest : public ServicesTest
{
protected:
    /** The words in this very order, with the one at the index handed out last. */
    void run(const TAVWordList &words, qint64 askIndex = 0)
    {
        m_run.setVocabulary(m_words.vocabulary);
        m_run.mutableWordsToAsk() = words;
        m_run.setNumberOfWordsToAsk(words.size());
        m_run.setAskIndex(askIndex);
        m_judge.beginRun();
    }

    QuizWords m_words;
    TAVQuizInterface m_run;
    AnswerJudge m_judge{m_run};
};

TEST_F(AnswerJudgeTest, ADistanceOfOneIsMisspelledUnlessThatIsSwitchedOff)
{
    struct Case
    {
        const char *expected;
        const char *answer;
        Verdict tolerant;
        Verdict strict;
    };
    const Case cases[] = {
        {"Haus", "Haus", Verdict::correct, Verdict::correct},
        {"Haus", "haus", Verdict::misspelled, Verdict::wrong},
        {"Haus", "Huas", Verdict::misspelled, Verdict::wrong},
        {"Haus", "Hauss", Verdict::misspelled, Verdict::wrong},
        {"Haus", "Haus ", Verdict::misspelled, Verdict::wrong},
        {"Haus", "Huass", Verdict::wrong, Verdict::wrong},
        {"a", "b", Verdict::misspelled, Verdict::wrong},
        {"a", "", Verdict::wrong, Verdict::wrong},
        {"a", " ", Verdict::wrong, Verdict::wrong},
        {"", "", Verdict::wrong, Verdict::wrong},
        {"ab", "  ", Verdict::wrong, Verdict::wrong},
        {"the house", "house", Verdict::wrong, Verdict::wrong},
    };
    for (const Case &c : cases) {
        for (const bool strict : {false, true}) {
            m_words = QuizWords();
            m_words.vocabulary->setIsDisableMisspellRecognition(strict);
            const TAVWordRef word = m_words.add("frage", c.expected, 3);
            run({word});
            const Verdict expected = strict ? c.strict : c.tolerant;
            EXPECT_EQ(m_judge.judge(word, QString::fromUtf8(c.answer), true), expected)
                << c.expected << " / " << c.answer;
            EXPECT_EQ(word->level(), expected == Verdict::correct ? 4 : expected == Verdict::wrong ? 2 : 3);
            EXPECT_EQ(m_judge.lastWordOriginLevel(), 3);
            EXPECT_EQ(m_judge.numberOfCorrect(), expected == Verdict::correct);
            EXPECT_EQ(m_judge.numberOfMisspelled(), expected == Verdict::misspelled);
            EXPECT_EQ(m_judge.numberOfWrong(), expected == Verdict::wrong);
            EXPECT_EQ(m_judge.wrongAnsweredWords().contains(word), expected != Verdict::correct);
        }
    }
}

TEST_F(AnswerJudgeTest, TheDirectionChoosesTheExpectedText)
{
    const TAVWordRef word = m_words.add("Haus", "house");
    run({word});
    EXPECT_EQ(m_judge.judge(word, QStringLiteral("house"), false), Verdict::wrong);
    EXPECT_EQ(m_judge.judge(word, QStringLiteral("Haus"), false), Verdict::correct);
}

TEST_F(AnswerJudgeTest, ASynonymStillToComeIsCreditedAndTheAskedWordComesNext)
{
    const TAVWordRef asked = m_words.add("Hund", "dog", 1);
    const TAVWordRef other = m_words.add("Katze", "cat");
    const TAVWordRef synonym = m_words.add("Hund", "hound", 2);
    run({asked, other, synonym});
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("hound"), true), Verdict::correctBySynonym);
    EXPECT_EQ(m_judge.lastWord(), synonym);
    EXPECT_EQ(m_judge.lastWordOriginLevel(), 2);
    EXPECT_EQ(synonym->level(), 3);
    EXPECT_EQ(asked->level(), 1);
    EXPECT_FALSE(asked->lastAsked().isValid());
    EXPECT_EQ(m_run.wordsToAsk(), (TAVWordList{synonym, asked, other}));
    EXPECT_EQ(m_judge.numberOfCorrect(), 1);
    EXPECT_EQ(m_run.nextWordToAsk(), asked);
}

TEST_F(AnswerJudgeTest, ASynonymFromOutsideLengthensTheListButNotTheProgress)
{
    const TAVWordRef asked = m_words.add("Hund", "dog");
    const TAVWordRef synonym = m_words.add("Hund", "hound");
    run({asked});
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("hound"), true), Verdict::correctBySynonym);
    EXPECT_EQ(m_judge.numberOfAnswers(), 0);
    EXPECT_EQ(m_run.numberOfWordsToAsk(), 1);
    EXPECT_EQ(m_run.wordsToAsk(), (TAVWordList{synonym, asked}));
    EXPECT_EQ(m_run.nextWordToAsk(), asked);
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("dog"), true), Verdict::correct);
    EXPECT_EQ(m_judge.numberOfCorrect(), 1);
    EXPECT_EQ(m_run.nextWordToAsk(), nullptr);
}

TEST_F(AnswerJudgeTest, ASynonymAlreadyAskedAndANearMissOfOneCountForNothing)
{
    const TAVWordRef synonym = m_words.add("Hund", "hound");
    const TAVWordRef asked = m_words.add("Hund", "dog");
    run({synonym, asked}, 1);
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("hound"), true), Verdict::wrong);
    run({asked, synonym}, 0);
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("houns"), true), Verdict::wrong);
    EXPECT_EQ(m_judge.lastWord(), asked);
    EXPECT_EQ(m_run.wordsToAsk(), (TAVWordList{asked, synonym}));

    // Of two with the same texts the first decides, though the second is still to come.
    const TAVWordRef twin = m_words.add("Hund", "hound");
    run({synonym, asked, twin}, 1);
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("hound"), true), Verdict::wrong);

    const TAVWordRef foreignTwin = m_words.add("Köter", "dog");
    run({asked, foreignTwin});
    EXPECT_EQ(m_judge.judge(asked, QStringLiteral("Köter"), false), Verdict::correctBySynonym);
}

TEST_F(AnswerJudgeTest, NoAnswerIsASynonymsEmptyText)
{
    const TAVWordRef asked = m_words.add("Hund", "dog");
    const TAVWordRef empty = m_words.add("Hund", "");
    run({asked, empty});
    EXPECT_EQ(m_judge.judge(asked, QString(), true), Verdict::correctBySynonym);
    EXPECT_EQ(m_judge.lastWord(), empty);
}

TEST_F(AnswerJudgeTest, AnOverruleUndoesTheFallAndBooksACorrectAnswer)
{
    struct Case
    {
        const char *answer;
        quint64 before;
        quint64 after;
    };
    // Misspelled keeps the level, wrong falls; both end one level above the start.
    for (const Case &c :
         {Case{"dof", 3, 4}, Case{"", 3, 4}, Case{"", 5, 5}, Case{"", 0, 1}, Case{"dof", 5, 5}}) {
        const TAVWordRef word = m_words.add("Hund", "dog", c.before);
        const TAVWordRef misspelledBefore = m_words.add("Katze", "cat");
        run({misspelledBefore, word}, 1);
        m_judge.judge(misspelledBefore, QStringLiteral("cta"), true);
        m_judge.judge(word, QString::fromUtf8(c.answer), true);
        m_judge.takeOverrule();
        EXPECT_EQ(word->level(), c.after) << c.answer << " at " << c.before;
        EXPECT_EQ(m_judge.numberOfCorrect(), 1);
        EXPECT_EQ(m_judge.numberOfAnswers(), 2);
        EXPECT_EQ(m_judge.wrongAnsweredWords(), TAVWordList{misspelledBefore});
    }
}

} // namespace
