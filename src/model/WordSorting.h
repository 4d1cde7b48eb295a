#pragma once

#include "model/TAVWord.h"

#include <vector>

/** What a list of words can be sorted by; each stands for the comparison of that name on TAVWord. */
enum class WordOrder { YourLang, ForeignLang, Comment, LastAsked, Tags };

/**
 * Sorts as a stable sort by that comparison would. Each word's sort key is made only once, so that nobody
 * waits for tens of thousands of words.
 */
void sortWords(TAVWordList &words, WordOrder order);

/** Brings the words into the given order of their indexes. */
void arrangeWords(TAVWordList &words, const std::vector<qsizetype> &order);
