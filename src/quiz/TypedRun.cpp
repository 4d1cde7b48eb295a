#include "quiz/TypedRun.h"

void TypedRun::reset()
{
    QuizRun::reset();
    m_lastWord.reset();
    m_lastWordOriginLevel = 0;
    m_verdict = Verdict::correct;
    m_isOverruled = false;
}

Verdict TypedRun::judge(const QString &answer)
{
    const AnswerJudge::Judgement judgement =
        AnswerJudge::judge(m_quiz, askedWord(), answer, lastAskedForeign());
    m_verdict = judgement.verdict;
    m_lastWord = judgement.word;
    m_lastWordOriginLevel = presentLevel();
    if (m_verdict == Verdict::correctBySynonym)
        putInFrontOfAskedWord(m_lastWord);
    book();
    return m_verdict;
}

void TypedRun::putInFrontOfAskedWord(const TAVWordRef &synonym)
{
    TAVWordList &words = m_quiz.mutableWordsToAsk();
    // A synonym from outside makes the list longer than promised, so its answer must not move the progress.
    if (words.removeAll(synonym) == 0)
        --m_counts.correct;
    words.insert(m_quiz.askIndex(), synonym);
}

void TypedRun::book()
{
    switch (m_verdict) {
    case Verdict::correct:
    case Verdict::correctBySynonym:
        vocabulary()->answeredWord(m_lastWord, 1);
        ++m_counts.correct;
        return;
    case Verdict::misspelled:
        vocabulary()->answeredWord(m_lastWord, 0);
        ++m_counts.between;
        break;
    case Verdict::wrong:
        vocabulary()->answeredWord(m_lastWord, -1);
        ++m_counts.wrong;
        break;
    }
    m_wrongAnsweredWords.append(m_lastWord);
}

void TypedRun::takeDecisions()
{
    takeExclusion(m_lastWord);
    if (std::exchange(m_isOverruled, false) && offersOverrule())
        overrule();
}

void TypedRun::dropDecisions()
{
    setIsExcluded(false);
    m_isOverruled = false;
}

void TypedRun::overrule()
{
    if (lastWrongWasJustMisspelled()) {
        --m_counts.between;
    } else {
        m_lastWord->setLevel(m_lastWordOriginLevel);
        --m_counts.wrong;
    }
    vocabulary()->answeredWord(m_lastWord, 1);
    ++m_counts.correct;
    m_wrongAnsweredWords.removeAll(m_lastWord);
    commit(Change::DecisionTaken);
}

ShownLevels TypedRun::shownLevels() const
{
    if (m_isOverruled)
        return overruledLevels();
    const quint64 origin = m_lastWordOriginLevel;
    const quint64 present = presentLevel();
    if (isRight(m_verdict))
        return {origin, present, true, !isAtTop(), !isAtTop()};
    if (m_verdict == Verdict::misspelled)
        return {present, present, true, false, false};
    return {present, origin, false, origin != 0, origin != 0};
}
