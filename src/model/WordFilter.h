#pragma once

#include "model/TAVWord.h"

#include <optional>

/** The words in which the term occurs, in their order; all words for an absent or empty term. */
TAVWordList wordsMatching(const TAVWordList &words, const std::optional<QString> &searchTerm);

/** The words that have all of the tags, or one of them at least; all words where no tag is asked for. */
TAVWordList wordsTagged(const TAVWordList &words, const TAVTextSet &tags, bool mustHaveAll);
