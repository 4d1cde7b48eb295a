#include "model/TAVLexicon.h"
#include "model/TextKeys.h"
#include "model/WordSorting.h"
#include "model/WordWalk.h"
#include "platform/DiagnosticLog.h"

void TAVLexicon::indexTags() const
{
    m_tagsIndexDict.emplace(m_allWords);
    m_allTags = m_tagsIndexDict->allTags();
}

const TAVTextSet &TAVLexicon::allTags() const
{
    if (!m_allTags)
        indexTags();
    return *m_allTags;
}

std::optional<QStringList> TAVLexicon::completionTagsForPrefix(const QString &prefix) const
{
    platform::diagnosticLog(QStringLiteral("completionTagsForPrefix: %1").arg(prefix));
    if (!m_tagsIndexDict)
        indexTags();
    return m_tagsIndexDict->completions(prefix);
}

const TAVWordSet &TAVLexicon::synonyms()
{
    if (!m_synonyms)
        buildSynonyms();
    return *m_synonyms;
}

void TAVLexicon::buildSynonyms()
{
    m_synonyms.emplace();
    if (m_allWords.size() < 2)
        return;

    // Adding a word by hand waits for this, and most of its time goes into fetching words from memory. So
    // each word is visited once, for both sorts and for hashes that tell most unequal texts apart.
    TextKeys yourKeys(m_allWords.size());
    TextKeys foreignKeys(m_allWords.size());
    std::vector<size_t> yourHashes;
    std::vector<size_t> foreignHashes;
    walkWords(m_allWords, [&](const TAVWordRef &word) {
        yourKeys.append(word->yourWordWithoutFacultatives());
        foreignKeys.append(word->foreignWordWithoutFacultatives());
        yourHashes.push_back(qHash(word->yourWord()));
        foreignHashes.push_back(qHash(word->foreignWord()));
    });

    // Once sorted, words of one text are neighbours: no need to compare all pairs.
    const auto addEqualNeighbours = [this](const std::vector<qsizetype> &order,
                                           const std::vector<size_t> &hashes,
                                           const QString &(TAVWord::*text)() const) {
        for (size_t i = 1; i < order.size(); ++i) {
            if (hashes[size_t(order[i - 1])] != hashes[size_t(order[i])])
                continue;
            const TAVWordRef &previous = m_allWords.at(order[i - 1]);
            const TAVWordRef &word = m_allWords.at(order[i]);
            if (((*previous).*text)() == ((*word).*text)()) {
                m_synonyms->insert(previous);
                m_synonyms->insert(word);
            }
        }
    };
    const std::vector<qsizetype> yourOrder = yourKeys.sorted();
    addEqualNeighbours(yourOrder, yourHashes, &TAVWord::yourWord);
    foreignKeys.setPreviousOrder(yourOrder);
    const std::vector<qsizetype> foreignOrder = foreignKeys.sorted();
    addEqualNeighbours(foreignOrder, foreignHashes, &TAVWord::foreignWord);
    arrangeWords(m_allWords, foreignOrder);
}

void TAVLexicon::updateSynonymsWithWord(const TAVWordRef &word)
{
    if (!word || (word->yourWord().isEmpty() && word->foreignWord().isEmpty()))
        return;
    if (!m_synonyms)
        buildSynonyms();
    walkWords(m_allWords, [this, &word](const TAVWordRef &other) {
        if (other->yourWord() == word->yourWord() || other->foreignWord() == word->foreignWord()) {
            m_synonyms->insert(other);
            m_synonyms->insert(word);
        }
    });
}

TAVWordSet TAVLexicon::synonymsForWord(const TAVWord &word)
{
    TAVWordSet found;
    for (const TAVWordRef &other : synonyms()) {
        const bool sameYourWord = other->yourWord() == word.yourWord();
        const bool sameForeignWord = other->foreignWord() == word.foreignWord();
        if (sameYourWord != sameForeignWord)
            found.insert(other);
    }
    return found;
}

TAVWordList TAVLexicon::wordsWithTags(const TAVTextSet &tags, bool mustHaveAll) const
{
    return filteredWords(m_allWords, tags, mustHaveAll);
}

TAVWordList TAVLexicon::filterWords(const TAVWordList &words, const std::optional<QString> &searchTerm)
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

TAVWordList TAVLexicon::filteredWords(const TAVWordList &words, const TAVTextSet &tags, bool mustHaveAll)
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
