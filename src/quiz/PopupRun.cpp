#include "quiz/PopupRun.h"

void PopupRun::begin()
{
    savePendingAnswer();
    reset();
    m_isPostponed = false;
    m_isRunning = true;
    m_hasCreatedCorrectWordsToAsk = true;
}

bool PopupRun::ask()
{
    dropDecisions();
    if (std::exchange(m_isPostponed, false)) {
        m_askedWordOriginLevel = askedWord()->level();
        return true;
    }
    if (!m_hasCreatedCorrectWordsToAsk) {
        m_quiz.setNumberOfWordsToAsk(wordsOfAList);
        m_quiz.createWordsToAsk();
    }
    if (numberOfAnswers() >= m_quiz.numberOfWordsToAsk()) {
        m_askedWord.reset();
        return false;
    }
    askNext();
    if (!askedWord())
        return false;
    m_askedWordOriginLevel = askedWord()->level();
    return true;
}

Verdict PopupRun::check(const QString &answer)
{
    const Verdict verdict = judge(answer);
    // The panel shows the level from which the asked word came, even if a synonym was named.
    m_lastWordOriginLevel = m_askedWordOriginLevel;
    m_askedWord.reset();
    m_hasPendingAnswer = true;
    return verdict;
}

void PopupRun::savePendingAnswer()
{
    if (!m_hasPendingAnswer)
        return;
    takeDecisions();
    m_hasPendingAnswer = false;
    commit(Change::PopupAnswered);
}

void PopupRun::end()
{
    if (!m_hasPendingAnswer)
        commit(Change::PopupRunEnded);
    leave();
}

void PopupRun::leave()
{
    savePendingAnswer();
    m_isRunning = false;
    m_hasCreatedCorrectWordsToAsk = false;
    m_isPostponed = false;
    m_askedWord.reset();
    m_lastWord.reset();
}

RunProgress PopupRun::questionProgress() const
{
    RunProgress progress;
    progress.total = m_quiz.numberOfWordsToAsk();
    // The answer with a synonym that is none of the run doesn't count.
    progress.reached = std::max<qint64>(numberOfAnswers() + (askedWord() ? 1 : 0), 1);
    progress.correct = m_counts.correct;
    return progress;
}

RunResult PopupRun::result() const
{
    RunResult result = TypedRun::result();
    result.total = numberOfAnswers();
    return result;
}

ShownLevels PopupRun::overruledLevels() const
{
    const bool moves = presentLevel() != maxLevel;
    return {m_lastWordOriginLevel, levelAbove(presentLevel()), true, moves, moves};
}
