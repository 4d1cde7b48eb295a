#include "quiz/AnswerJudge.h"
#include "quiz/QuizWords.h"
#include "support/TestServices.h"

namespace {

class AnswerJudgeTest : public ServicesTest
{
protected:
    /** The verdict on the answer to the word at the index, in a quiz of these words. */
    Verdict judge(const TAVWordList &words, const char *answer, qint64 askIndex = 0, bool askedForeign = true)
    {
        m_quiz.setVocabulary(m_words.vocabulary);
        m_quiz.mutableWordsToAsk() = words;
        m_quiz.setAskIndex(askIndex);
        const TAVWordRef &asked = words.at(askIndex);
        const AnswerJudge::Judgement judgement =
            AnswerJudge::judge(m_quiz, asked, QString::fromUtf8(answer), askedForeign);
        m_judged = judgement.word;
        EXPECT_EQ(m_judged == asked, judgement.verdict != Verdict::correctBySynonym);
        return judgement.verdict;
    }

    QuizWords m_words;
    TAVQuizInterface m_quiz;
    TAVWordRef m_judged;
};

TEST_F(AnswerJudgeTest, ADistanceOfOneIsMisspelledUnlessThatIsSwitchedOff)
{
    struct Case
    {
        const char *expected;
        const char *answer;
        Verdict tolerant;
        Verdict strict = Verdict::wrong;
    };
    const Case cases[] = {
        {"Haus", "Haus", Verdict::correct, Verdict::correct},
        {"Haus", "haus", Verdict::misspelled},
        {"Haus", "Huas", Verdict::misspelled},
        {"Haus", "Hauss", Verdict::misspelled},
        {"Haus", "Haus ", Verdict::misspelled},
        {"Haus", "Huass", Verdict::wrong},
        {"a", "b", Verdict::misspelled},
        {"a", "", Verdict::wrong},
        {"a", " ", Verdict::wrong},
        {"", "", Verdict::wrong},
        {"ab", "  ", Verdict::wrong},
        {"the house", "house", Verdict::wrong},
    };
    for (const Case &c : cases) {
        for (const bool strict : {false, true}) {
            m_words = QuizWords();
            m_words.vocabulary->setIsDisableMisspellRecognition(strict);
            EXPECT_EQ(judge({m_words.add("frage", c.expected)}, c.answer), strict ? c.strict : c.tolerant)
                << c.expected << " / " << c.answer;
        }
    }
}

TEST_F(AnswerJudgeTest, ASynonymCountsAsLongAsItWasNotAsked)
{
    const TAVWordRef asked = m_words.add("Hund", "dog");
    EXPECT_EQ(judge({asked}, "dog", 0, false), Verdict::wrong);
    EXPECT_EQ(judge({asked}, "Hund", 0, false), Verdict::correct);
    const TAVWordRef synonym = m_words.add("Hund", "hound");
    EXPECT_EQ(judge({asked, synonym}, "hound"), Verdict::correctBySynonym);
    EXPECT_EQ(m_judged, synonym);
    EXPECT_EQ(judge({asked}, "hound"), Verdict::correctBySynonym);
    EXPECT_EQ(judge({synonym, asked}, "hound", 1), Verdict::wrong);
    EXPECT_EQ(judge({asked, synonym}, "houns"), Verdict::wrong) << "a near miss of one is none";

    // Of two with the same texts the first decides, though the second is still to come.
    const TAVWordRef twin = m_words.add("Hund", "hound");
    EXPECT_EQ(judge({synonym, asked, twin}, "hound", 1), Verdict::wrong);

    const TAVWordRef otherWay = m_words.add("Köter", "dog");
    EXPECT_EQ(judge({asked}, "Köter", 0, false), Verdict::correctBySynonym);
    EXPECT_EQ(m_judged, otherWay);

    // Without an answer, too: one whose text is empty.
    m_words.add("Hund", "");
    EXPECT_EQ(judge({asked}, ""), Verdict::correctBySynonym);
}

} // namespace
