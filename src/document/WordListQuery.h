#pragma once

#include "model/TAVLexicon.h"
#include "model/WordSorting.h"

/** Which words of a vocabulary a list holds, and in what order. */
struct WordListQuery
{
    /** For the level: all words. */
    static constexpr quint64 allLevels = 6;

    quint64 level = 0;
    /** Instead of a level, the words that share a text with another. */
    bool isSynonyms = false;
    /** Empty: no search. */
    QString searchTerm;
    /** A word passes with any of them; none: no filter. */
    TAVTextSet tags;
    WordOrder order = WordOrder::YourLang;

    /** Ascending. */
    TAVWordList wordsOf(TAVLexicon &vocabulary) const;
};
