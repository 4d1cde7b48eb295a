#include "model/LevelLists.h"

const TAVWordList &LevelLists::wordsOfLevel(quint64 level, const TAVWordList &allWords)
{
    if (!m_lists) {
        m_lists.emplace();
        for (const TAVWordRef &word : allWords)
            (*m_lists)[levels::indexOf(word->level())].append(word);
    }
    return (*m_lists)[levels::indexOf(level)];
}

const TAVWordList &LevelLists::nativeWithoutDontAsk(const TAVWordList &allWords)
{
    if (!m_nativeWithoutDontAsk) {
        m_nativeWithoutDontAsk.emplace();
        for (const TAVWordRef &word : allWords) {
            if (word->level() >= levels::highest && !word->dontAskAgain())
                m_nativeWithoutDontAsk->append(word);
        }
    }
    return *m_nativeWithoutDontAsk;
}

void LevelLists::adopt(Lists lists)
{
    m_lists = std::move(lists);
    m_nativeWithoutDontAsk.reset();
}

void LevelLists::drop()
{
    m_lists.reset();
    m_nativeWithoutDontAsk.reset();
}
