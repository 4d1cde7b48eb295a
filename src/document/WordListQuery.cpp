#include "document/WordListQuery.h"

TAVWordList WordListQuery::wordsOf(TAVLexicon &vocabulary) const
{
    TAVWordList words;
    if (isSynonyms)
        words = vocabulary.synonyms().values();
    else if (level < TAVLexicon::numberOfLevels)
        words = vocabulary.wordsOfLevel(level);
    else
        words = vocabulary.allWords();
    if (!searchTerm.isEmpty())
        words = TAVLexicon::filterWords(words, searchTerm);
    words = TAVLexicon::filteredWords(words, tags, false);
    sortWords(words, order);
    return words;
}
