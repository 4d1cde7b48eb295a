#pragma once

#include "model/TAVLexicon.h"

/** What the word editor does to words, apart from its panel. */
namespace WordEdits {

/** What stands in the panel. */
struct Content
{
    QString yourWord;
    QString foreignWord;
    QString comment;
    QStringList tags;
    bool dontAskAgain = false;

    bool operator==(const Content &) const = default;
};

/** What stands in the panel where several words differ. */
struct VariousTexts
{
    QString comment;
    QString tag;
};

/** What several words have in common. */
struct Summary
{
    bool allNative = true;
    bool allFlagged = true;
    bool noneFlagged = true;
    bool sameTags = true;
    bool noComments = true;
};

Summary summaryOf(const TAVWordList &words);

Content contentOf(const TAVWord &word);
/** The new words that this makes, one for each pair; none without any text. */
TAVWordList newWordsFrom(const Content &content);

/** Whether a text holds the sign that separates several words. */
bool holdsSeveral(const Content &content);
/** How many pairs both texts make; empty pieces and single blanks don't count. */
qsizetype numberOfPairs(const Content &content);

/** Gives the word what stands in the panel, as an edit of this moment. */
void applyToWord(TAVWord &word, const Content &content);
/** Adds a word for each pair; a pair that is the word itself changes it, otherwise the word goes. */
void applyPairs(TAVLexicon &vocabulary, const TAVWordRef &word, const Content &content);
/** Gives each word what is common; texts that stand for various values leave the words' own. */
void applyToMany(const TAVWordList &words, const Content &content, const VariousTexts &various);

/** For each word the first of the vocabulary with the same texts, as far as there is one. */
TAVWordList counterparts(const TAVWordList &words, const TAVLexicon &vocabulary);

} // namespace WordEdits
