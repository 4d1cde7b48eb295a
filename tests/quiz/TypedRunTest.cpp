#include "quiz/PopupRun.h"
#include "quiz/QuizRunTest.h"
#include "quiz/TypingRun.h"

namespace {

/** Lower level, upper level and arrow, as far as they show: "3 4 up". */
QString text(const ShownLevels &levels)
{
    QString text = QString::number(levels.lower);
    if (levels.showsUpper)
        text += QStringLiteral(" %1").arg(levels.upper);
    if (levels.showsArrow)
        text += QLatin1String(levels.rises ? " up" : " down");
    return text;
}

class TypedRunTest : public QuizRunTest
{
protected:
    /** Answers the asked word in the typing quiz and goes on. */
    Verdict answer(const char *text)
    {
        const Verdict verdict = m_typing.answer(QString::fromUtf8(text));
        m_typing.askNext();
        return verdict;
    }
    void beginPopup(const TAVWordList &words)
    {
        begin(m_popup, words);
        m_popup.ask();
    }
    Verdict check(const char *text) { return m_popup.check(QString::fromUtf8(text)); }

    TypingRun m_typing{m_quiz, m_document};
    PopupRun m_popup{m_quiz, m_document};
};

TEST_F(TypedRunTest, AVerdictMovesTheWordAndAnOverruleTakesItBack)
{
    const struct
    {
        const char *answer;
        quint64 before;
        Verdict verdict;
        quint64 after;
        quint64 afterOverrule;
        const char *shown[2];
        const char *overruled[2];
        bool offersExclusion[2];
    } cases[] = {
        {"cat", 3, Verdict::correct, 4, 4, {"3 4 up", "3 4 up"}, {}, {false, false}},
        {"cat", 4, Verdict::correct, 5, 5, {"4 5 up", "4"}, {}, {false, true}},
        {"cat", 5, Verdict::correct, 5, 5, {"5", "5"}, {}, {true, true}},
        {"cta", 3, Verdict::misspelled, 3, 4, {"3", "3"}, {"3 4 up", "3 4 up"}, {}},
        {"cta", 5, Verdict::misspelled, 5, 5, {"5", "5"}, {"5 5", "5"}, {}},
        {"dog", 5, Verdict::wrong, 2, 5, {"2 5 down", "2 5 down"}, {"5 5 up", "5 3 up"}, {}},
        {"dog", 1, Verdict::wrong, 0, 2, {"0 1 down", "0 1 down"}, {"1 2 up", "1 1 up"}, {}},
        {"", 0, Verdict::wrong, 0, 1, {"0", "0"}, {"0 1 up", "0 1 up"}, {}},
    };
    for (const auto &c : cases) {
        for (const int form : {0, 1}) {
            SCOPED_TRACE(c.answer + std::to_string(c.before) + (form == 0 ? " typed" : " popup"));
            renew();
            const TAVWordRef word = m_words.add("Katze", "cat", c.before);
            TypedRun &run = form == 0 ? static_cast<TypedRun &>(m_typing) : m_popup;
            begin(run, {word, m_words.add("Maus", "mouse")});
            if (form == 1)
                m_popup.ask();
            EXPECT_EQ(form == 0 ? answer(c.answer) : check(c.answer), c.verdict);
            const bool isWrong = !isRight(c.verdict);
            EXPECT_EQ(word->level(), c.after);
            EXPECT_EQ(run.numberOfCorrect(), !isWrong);
            EXPECT_EQ(run.numberOfMisspelled(), c.verdict == Verdict::misspelled);
            EXPECT_EQ(run.numberOfWrong(), c.verdict == Verdict::wrong);
            EXPECT_EQ(run.wrongAnsweredWords().contains(word), isWrong);
            EXPECT_EQ(text(run.shownLevels()), QLatin1String(c.shown[form]));
            EXPECT_EQ(run.offersOverrule(), isWrong);
            EXPECT_EQ(run.offersExclusion(), c.offersExclusion[form]);
            if (isWrong) {
                run.setIsOverruled(true);
                EXPECT_EQ(run.shownVerdict(), Verdict::correct);
                EXPECT_EQ(text(run.shownLevels()), QLatin1String(c.overruled[form]));
                run.setIsOverruled(false);
                EXPECT_EQ(text(run.shownLevels()), QLatin1String(c.shown[form]));
                EXPECT_EQ(word->level(), c.after) << "nothing before the next step";
            }
            run.setIsOverruled(true);
            form == 0 ? m_typing.end() : m_popup.end();
            EXPECT_EQ(word->level(), c.afterOverrule);
            EXPECT_EQ(run.numberOfCorrect(), 1);
            EXPECT_EQ(run.numberOfAnswers(), 1);
            EXPECT_TRUE(run.wrongAnsweredWords().isEmpty());
        }
    }
}

TEST_F(TypedRunTest, DecisionsAreTakenWithTheNextAnswerAndOnlyOnce)
{
    const TAVWordRef top = m_words.add("Hund", "dog", 5);
    const TAVWordRef low = m_words.add("Katze", "cat", 3);
    const TAVWordRef first = m_words.add("Uhu", "owl");
    begin(m_typing, {first, top, low, m_words.add("Maus", "mouse", 3)});
    EXPECT_EQ(m_typing.lastWord(), first);
    answer("owk");
    answer("dog");
    EXPECT_EQ(m_words.vocabulary->nativeWithoutDontAsk().size(), 1);
    m_typing.setIsExcluded(true);
    EXPECT_FALSE(top->dontAskAgain());
    answer("x");
    EXPECT_TRUE(top->dontAskAgain() && !low->dontAskAgain());
    EXPECT_TRUE(m_words.vocabulary->nativeWithoutDontAsk().isEmpty());
    m_typing.setIsOverruled(true);
    answer("y");
    EXPECT_EQ(low->level(), 4);
    EXPECT_EQ(m_recorder.take(), QString());
    m_typing.saveAnswer();
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    m_typing.end();
    EXPECT_EQ(m_recorder.take(), QStringLiteral("mark; sync, saved, saved"));
    const RunResult result = m_typing.result();
    EXPECT_TRUE(result.correct == 2 && result.between == 1 && result.wrong == 1);
}

TEST_F(TypedRunTest, ASynonymStillToComeIsCreditedAndTheAskedWordComesNext)
{
    for (const bool isPopup : {false, true}) {
        renew();
        const TAVWordRef asked = m_words.add("Hund", "dog", 1);
        const TAVWordRef other = m_words.add("Katze", "cat");
        const TAVWordRef synonym = m_words.add("Hund", "hound", 3);
        isPopup ? beginPopup({asked, other, synonym}) : begin(m_typing, {asked, other, synonym});
        EXPECT_EQ(isPopup ? check("hound") : answer("hound"), Verdict::correctBySynonym);
        const TypedRun &run = isPopup ? static_cast<TypedRun &>(m_popup) : m_typing;
        EXPECT_EQ(run.lastWord(), synonym);
        // The popup shows from where the word came that it asked.
        EXPECT_EQ(text(run.shownLevels()), QLatin1String(isPopup ? "1 4 up" : "3 4 up"));
        EXPECT_EQ(synonym->level(), 4);
        EXPECT_EQ(asked->level(), 1);
        EXPECT_FALSE(asked->lastAsked().isValid());
        EXPECT_EQ(run.numberOfCorrect(), 1);
        EXPECT_EQ(m_quiz.wordsToAsk(), (TAVWordList{synonym, asked, other}));
        EXPECT_TRUE(!isPopup || m_popup.ask());
        EXPECT_EQ(run.askedWord(), asked);
    }
}

TEST_F(TypedRunTest, ASynonymFromOutsideLengthensTheListButNotTheProgress)
{
    const TAVWordRef asked = m_words.add("Hund", "dog");
    const TAVWordRef synonym = m_words.add("Hund", "hound");
    begin(m_typing, {asked});
    answer("hound");
    EXPECT_EQ(m_typing.numberOfAnswers(), 0);
    EXPECT_EQ(m_typing.progress().reached, 1);
    EXPECT_EQ(m_typing.progress().total, 1);
    EXPECT_EQ(m_quiz.wordsToAsk(), (TAVWordList{synonym, asked}));
    answer("dog");
    EXPECT_EQ(m_typing.result().correct, 1);
    EXPECT_EQ(m_typing.askedWord(), nullptr);
}

TEST_F(TypedRunTest, WrongWordsComeAgainInTheirOrderButNotForMisspelledOnesAlone)
{
    const TAVWordRef a = m_words.add("Hund", "dog");
    const TAVWordRef b = m_words.add("Katze", "cat");
    const TAVWordRef c = m_words.add("Maus", "mouse");
    const TAVWordRef d = m_words.add("Esel", "donkey");
    begin(m_typing, {b, c, a, d});
    answer("cta");
    EXPECT_FALSE(m_typing.result().canRestartWithWrong);
    EXPECT_EQ(m_typing.result().betweenPercent(), 25.0) << "an early end counts over all";
    for (int i = 0; i < 3; ++i)
        answer("x");
    EXPECT_TRUE(m_typing.result().canRestartWithWrong);
    m_typing.forgetWords({c});
    m_typing.beginWithWrongWords();
    EXPECT_EQ(m_quiz.wordsToAsk(), (TAVWordList{b, a, d}));
    EXPECT_EQ(m_typing.askedWord(), b);
    EXPECT_EQ(m_typing.progress().total, 3);
    EXPECT_EQ(m_typing.numberOfAnswers(), 0);
    EXPECT_TRUE(m_typing.wrongAnsweredWords().isEmpty());

    answer("x");
    m_typing.forgetWords({b});
    answer("dog");
    EXPECT_EQ(m_typing.askedWord(), d);
    EXPECT_FALSE(m_typing.result().canRestartWithWrong) << "wrong was only a word that is gone";
}

TEST_F(TypedRunTest, APendingAnswerIsWrittenOnceOnEveryWayOut)
{
    const struct
    {
        void (PopupRun::*wayOut)();
        const char *withoutAnswer;
        bool isRunning;
    } cases[] = {{&PopupRun::savePendingAnswer, "", true},
                 {&PopupRun::end, ", saved", false},
                 {&PopupRun::leave, "", false}};
    for (const auto &[wayOut, withoutAnswer, isRunning] : cases) {
        for (const bool isAnswered : {false, true}) {
            const TAVWordRef word = m_words.add("Katze", "cat", 5);
            beginPopup({word, m_words.add("Maus", "mouse")});
            EXPECT_EQ(m_popup.currentWord(), word);
            if (isAnswered) {
                check("cat");
                m_words.vocabulary->nativeWithoutDontAsk();
                m_popup.setIsExcluded(true);
            }
            EXPECT_EQ(m_recorder.take(), QString());
            EXPECT_EQ(m_popup.currentWord(), word);
            (m_popup.*wayOut)();
            EXPECT_EQ(m_recorder.take(), QLatin1String(isAnswered ? "flagged, mark, saved" : withoutAnswer));
            EXPECT_EQ(word->dontAskAgain(), isAnswered);
            EXPECT_EQ(m_words.vocabulary->nativeWithoutDontAsk().contains(word), !isAnswered);
            (m_popup.*wayOut)();
            EXPECT_EQ(m_recorder.take(), QLatin1String(withoutAnswer));
            EXPECT_EQ(m_popup.result().total, isAnswered) << "counts only answers";
            EXPECT_EQ(m_popup.isRunning(), isRunning);
            EXPECT_EQ(m_popup.currentWord() != nullptr, isRunning);
        }
    }
}

TEST_F(TypedRunTest, AQuestionOverAPendingAnswerDropsItsDecisionsNotTheAnswer)
{
    const TAVWordRef word = m_words.add("Katze", "cat", 3);
    const TAVWordRef second = m_words.add("Maus", "mouse", 3);
    beginPopup({word, second});
    check("x");
    EXPECT_EQ(m_popup.askedWord(), nullptr) << "nothing to check twice";
    m_popup.setIsOverruled(true);
    m_popup.setIsExcluded(true);
    EXPECT_TRUE(m_popup.ask());
    EXPECT_EQ(m_popup.currentWord(), second);
    m_popup.savePendingAnswer();
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    EXPECT_TRUE(word->level() == 2 && !word->dontAskAgain());
    check("mouse");
    EXPECT_FALSE(m_popup.ask());
    EXPECT_EQ(m_popup.result().correctPercent(), 50.0);
    m_popup.end();
    m_recorder.restart();

    // Another run over a pending answer takes its decisions first.
    beginPopup({word});
    check("x");
    m_popup.setIsOverruled(true);
    m_popup.begin();
    EXPECT_EQ(word->level(), 3);
    EXPECT_EQ(m_recorder.take(), QStringLiteral("flagged, mark, saved"));
    EXPECT_TRUE(m_popup.numberOfAnswers() == 0 && !m_popup.hasPendingAnswer());
}

TEST_F(TypedRunTest, ADecisionIsFlaggedWhereItChangesTheWord)
{
    const struct
    {
        const char *answer;
        bool isOverruled;
        bool isExcluded;
        bool wasExcluded;
        const char *atTheEnd;
    } cases[] = {{"cat", false, false, false, "mark; sync, saved, saved"},
                 {"cat", false, true, false, "flagged, mark; sync, saved, saved"},
                 {"cat", false, true, true, "mark; sync, saved, saved"},
                 {"cta", true, false, false, "flagged, mark; sync, saved, saved"},
                 {"x", true, false, false, "flagged, mark; sync, saved, saved"}};
    for (const auto &c : cases) {
        const TAVWordRef word = m_words.add("Katze", "cat", 5);
        word->setDontAskAgain(c.wasExcluded);
        begin(m_typing, {word});
        answer(c.answer);
        m_typing.saveAnswer();
        m_recorder.restart();
        m_typing.setIsOverruled(c.isOverruled);
        m_typing.setIsExcluded(c.isExcluded);
        m_typing.end();
        EXPECT_EQ(m_recorder.take(), QLatin1String(c.atTheEnd)) << c.answer;
    }
}

TEST_F(TypedRunTest, ThePopupMakesANewListWhenThereIsNone)
{
    for (int i = 0; i < 30; ++i)
        m_words.add(qPrintable(QString::number(i)), "x");
    beginPopup({});
    EXPECT_EQ(m_popup.currentWord(), nullptr);
    EXPECT_TRUE(m_quiz.wordsToAsk().isEmpty());
    m_popup.end();
    EXPECT_TRUE(m_popup.ask());
    EXPECT_EQ(m_quiz.wordsToAsk().size(), 10);
}

} // namespace
