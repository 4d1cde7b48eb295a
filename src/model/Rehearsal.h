#pragma once

#include "model/MemoryLevels.h"
#include "model/TAVWord.h"

#include <array>

class TAVRandom;

/** The rules of learning: what an answer does to a word, and when a word is due again. */
namespace rehearsal {

inline constexpr quint64 secondsByLevel[levels::number] = {0, 900, 10800, 86400, 259200, 604800};

/** How long after its last answer a word of the level is due again; a level above 5 means 5. */
inline quint64 secondsOfLevel(quint64 level)
{
    return secondsByLevel[levels::indexOf(level)];
}

/** Moves the word by an answer: 1 correct, -1 wrong, anything else misspelled. */
void bookAnswer(TAVWord &word, int answer, const QDateTime &now);

/** Those of a level's words that are due, the longest waiting first. */
TAVWordList dueWords(TAVWordList words, quint64 level, const QDateTime &now);

/** Up to count distinct words of the list. */
TAVWordList randomWords(const TAVWordList &words, qint64 count, const TAVRandom &random);

} // namespace rehearsal
