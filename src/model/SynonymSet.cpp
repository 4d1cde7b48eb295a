#include "model/SynonymSet.h"

#include "model/TextKeys.h"
#include "model/WordSorting.h"
#include "model/WordWalk.h"

SynonymSet SynonymSet::builtFrom(TAVWordList &allWords)
{
    SynonymSet synonyms;
    if (allWords.size() < 2)
        return synonyms;

    // Adding a word by hand waits for this, and most of its time goes into fetching words from memory. So
    // each word is visited once, for both sorts and for hashes that tell most unequal texts apart.
    TextKeys yourKeys(allWords.size());
    TextKeys foreignKeys(allWords.size());
    std::vector<size_t> yourHashes;
    std::vector<size_t> foreignHashes;
    walkWords(allWords, [&](const TAVWordRef &word) {
        yourKeys.append(word->yourWordWithoutFacultatives());
        foreignKeys.append(word->foreignWordWithoutFacultatives());
        yourHashes.push_back(qHash(word->yourWord()));
        foreignHashes.push_back(qHash(word->foreignWord()));
    });

    // Once sorted, words of one text are neighbours: no need to compare all pairs.
    const auto addEqualNeighbours = [&allWords, &synonyms](const std::vector<qsizetype> &order,
                                                           const std::vector<size_t> &hashes,
                                                           const QString &(TAVWord::*text)() const) {
        for (size_t i = 1; i < order.size(); ++i) {
            if (hashes[size_t(order[i - 1])] != hashes[size_t(order[i])])
                continue;
            const TAVWordRef &previous = allWords.at(order[i - 1]);
            const TAVWordRef &word = allWords.at(order[i]);
            if (((*previous).*text)() == ((*word).*text)()) {
                synonyms.m_words.insert(previous);
                synonyms.m_words.insert(word);
            }
        }
    };
    const std::vector<qsizetype> yourOrder = yourKeys.sorted();
    addEqualNeighbours(yourOrder, yourHashes, &TAVWord::yourWord);
    foreignKeys.setPreviousOrder(yourOrder);
    const std::vector<qsizetype> foreignOrder = foreignKeys.sorted();
    addEqualNeighbours(foreignOrder, foreignHashes, &TAVWord::foreignWord);
    arrangeWords(allWords, foreignOrder);
    return synonyms;
}

void SynonymSet::update(const TAVWordRef &word, const TAVWordList &allWords)
{
    walkWords(allWords, [this, &word](const TAVWordRef &other) {
        if (other->yourWord() == word->yourWord() || other->foreignWord() == word->foreignWord()) {
            m_words.insert(other);
            m_words.insert(word);
        }
    });
}

void SynonymSet::remove(const TAVWordSet &words)
{
    m_words.removeIf([&words](const TAVWordRef &word) { return words.contains(word); });
}

TAVWordSet SynonymSet::partnersOf(const TAVWord &word) const
{
    TAVWordSet partners;
    for (const TAVWordRef &other : m_words) {
        const bool sameYourWord = other->yourWord() == word.yourWord();
        const bool sameForeignWord = other->foreignWord() == word.foreignWord();
        if (sameYourWord != sameForeignWord)
            partners.insert(other);
    }
    return partners;
}
