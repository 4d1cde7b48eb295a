#pragma once

#include "model/TAVWord.h"

/**
 * Calls visit with each word in order. The words of a large vocabulary lie scattered in memory; those to come
 * are fetched meanwhile, or else a walk would mostly wait for memory.
 */
template <typename Visit> void walkWords(const TAVWordList &words, Visit visit)
{
    constexpr qsizetype recordsAhead = 12;
    constexpr qsizetype textsAhead = 6;
    const qsizetype size = words.size();
    for (qsizetype i = 0; i < size; ++i) {
        if (i + recordsAhead < size)
            __builtin_prefetch(words.at(i + recordsAhead).get());
        if (i + textsAhead < size) {
            const TAVWord &ahead = *words.at(i + textsAhead);
            __builtin_prefetch(ahead.yourWord().constData());
            __builtin_prefetch(ahead.foreignWord().constData());
        }
        visit(words.at(i));
    }
}
