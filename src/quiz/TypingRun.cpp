#include "quiz/TypingRun.h"

void TypingRun::begin()
{
    TypedRun::begin();
    m_lastWord = askedWord();
}

Verdict TypingRun::answer(const QString &text)
{
    takeDecisions();
    return judge(text);
}

void TypingRun::end()
{
    takeDecisions();
    commit(Change::TypingRunEnded);
}

ShownLevels TypingRun::overruledLevels() const
{
    return {m_lastWordOriginLevel, levelAbove(m_lastWordOriginLevel), true, true, presentLevel() != maxLevel};
}
