#pragma once

#include "model/MemoryLevels.h"
#include "model/TAVWord.h"

#include <array>
#include <optional>

/**
 * The words of a vocabulary by their levels: caches, which every page and quiz asks for often while the words
 * change rarely. They are built when they are asked for and stay as they are until they are dropped.
 */
class LevelLists
{
public:
    using Lists = std::array<TAVWordList, levels::number>;

    /** In the order of allWords; a level above 5 means 5. */
    const TAVWordList &wordsOfLevel(quint64 level, const TAVWordList &allWords);
    /** The words of level 5 that are still rehearsed. */
    const TAVWordList &nativeWithoutDontAsk(const TAVWordList &allWords);
    /** Takes over lists that somebody else has built. */
    void adopt(Lists lists);
    void drop();

private:
    std::optional<Lists> m_lists;
    std::optional<TAVWordList> m_nativeWithoutDontAsk;
};
