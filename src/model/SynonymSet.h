#pragma once

#include "model/TAVWord.h"

/**
 * The words that share a text with another word, as far as the set was last brought up to date. Which words
 * belong together isn't kept; their texts tell.
 */
class SynonymSet
{
public:
    /** Of all words that are neighbours by one of their texts. Leaves the words sorted by the foreign ones.
     */
    static SynonymSet builtFrom(TAVWordList &allWords);

    const TAVWordSet &words() const { return m_words; }
    /** Adds the word and its partners; alone too, as it stands among all words itself. */
    void update(const TAVWordRef &word, const TAVWordList &allWords);
    /** A partner that is left alone stays. */
    void remove(const TAVWordSet &words);
    /** The members that share exactly one of the two texts with the word. */
    TAVWordSet partnersOf(const TAVWord &word) const;

private:
    TAVWordSet m_words;
};
