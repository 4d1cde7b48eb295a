#pragma once

#include "model/TAVWord.h"

/** How the words of two lists come together, and which of equal words go. No list is changed here. */
namespace merging {

struct Versions
{
    /** The words of the other version that win, in its order. */
    TAVWordList taken;
    /** The present words that they replace. */
    TAVWordSet replaced;
};

/**
 * Compares two versions of a vocabulary by the ids of their words. The first word of the others that is new,
 * edited later or higher lets all behind it win too. Present words that stay take over what the other version
 * of them knows better.
 */
Versions mergedVersions(const TAVWordList &present, const TAVWordList &others);

/** Those of the others whose two texts no present word has, each pair of texts once. */
TAVWordList newByTexts(const TAVWordList &present, const TAVWordList &others);

/**
 * Those of the removed words that have not come back meanwhile, as after a sync: neither the word itself is
 * present nor another with its id and its two texts.
 */
TAVWordList notReturned(const TAVWordList &present, const TAVWordList &removed);

/** Of each group with the same two texts, all words but the one that is worth most to the user. */
TAVWordSet worseDuplicates(TAVWordList candidates);

} // namespace merging
