#include "model/WordFilter.h"

#include "model/WordWalk.h"

TAVWordList wordsMatching(const TAVWordList &words, const std::optional<QString> &searchTerm)
{
    if (!searchTerm || searchTerm->isEmpty())
        return words;
    TAVWordList found;
    walkWords(words, [&](const TAVWordRef &word) {
        if (word->matchesSearchTerm(searchTerm))
            found.append(word);
    });
    return found;
}

TAVWordList wordsTagged(const TAVWordList &words, const TAVTextSet &tags, bool mustHaveAll)
{
    if (tags.isEmpty())
        return words;
    TAVWordList found;
    std::copy_if(words.begin(), words.end(), std::back_inserter(found),
                 [&tags, mustHaveAll](const TAVWordRef &word) {
                     const auto isOnWord = [&word](const QString &tag) { return word->tags().contains(tag); };
                     return mustHaveAll ? std::all_of(tags.begin(), tags.end(), isOnWord)
                                        : std::any_of(tags.begin(), tags.end(), isOnWord);
                 });
    return found;
}
