#pragma once

#include "model/TAVWord.h"

#include <vector>

/** What a list of words can be sorted by; each stands for the comparison of that name on TAVWord. */
enum class WordOrder { YourLang, ForeignLang, Comment, LastAsked, Tags };

/**
 * Stable sort with the result that the plain comparisons give. Sort keys are made once for each word, so that
 * tens of thousands of words are no wait.
 */
void sortWords(TAVWordList &words, WordOrder order);

/** Brings the words into the given order of their indexes. */
void arrangeWords(TAVWordList &words, const std::vector<qsizetype> &order);
