#include "document/UndoStep.h"

#include <QMultiHash>
#include <QSet>

#include <algorithm>

namespace {

/** Finds the words of steps again. */
class WordFinder
{
public:
    explicit WordFinder(const TAVLexicon &vocabulary)
    {
        m_wordsByID.reserve(vocabulary.countAllWords());
        for (const TAVWordRef &word : vocabulary.allWords())
            m_wordsByID.insert(word->creationID(), word);
    }

    TAVWordRef find(const WordIdentity &identity) const
    {
        const auto [first, end] = m_wordsByID.equal_range(identity.creationID);
        const auto found = std::find_if(
            first, end, [&identity](const TAVWordRef &word) { return WordIdentity::of(*word) == identity; });
        return found != end ? *found : nullptr;
    }

private:
    QMultiHash<qint64, TAVWordRef> m_wordsByID;
};

/** Brings in what was typed for a new word, unless such words are there by now. */
bool addTyped(TAVLexicon &vocabulary, const TAVWordList &words)
{
    bool isAnyAdded = false;
    for (const TAVWordRef &word : words) {
        if (vocabulary.containsWordEqualTo(*word))
            continue;
        vocabulary.addWord(word);
        isAnyAdded = true;
    }
    return isAnyAdded;
}

} // namespace

bool UndoStep::takeBack(TAVLexicon &vocabulary) const
{
    const bool isTyped = kind == Kind::UnsavedTexts;
    const WordFinder finder(vocabulary);
    bool isAnythingDone = false;
    TAVWordList going;
    for (const WordIdentity &identity : added) {
        if (const TAVWordRef word = finder.find(identity))
            going.append(word);
    }
    for (const auto &[identity, content] : changed) {
        const TAVWordRef word = finder.find(identity);
        if (!word)
            continue;
        // Only what a user types separates several words; a word of a file may hold that sign.
        if (isTyped && WordEdits::holdsSeveral(content))
            WordEdits::applyPairs(vocabulary, word, content);
        else
            WordEdits::applyToWord(*word, content);
        isAnythingDone = true;
    }
    if (!going.isEmpty()) {
        vocabulary.removeWords(going);
        isAnythingDone = true;
    }
    if (isTyped)
        isAnythingDone = addTyped(vocabulary, removed) || isAnythingDone;
    const qsizetype before = vocabulary.countAllWords();
    // Without words this still brings what the changes touched up to date.
    vocabulary.restoreWords(isTyped ? TAVWordList() : removed);
    return isAnythingDone || vocabulary.countAllWords() != before;
}

EditRecorder::EditRecorder(const TAVLexicon &vocabulary, TAVWordList words)
    : m_vocabulary(vocabulary)
    , m_words(std::move(words))
    , m_allWords(vocabulary.allWords())
{
    m_contents.reserve(m_words.size());
    for (const TAVWordRef &word : std::as_const(m_words))
        m_contents.append(WordEdits::contentOf(*word));
}

UndoStep EditRecorder::step(UndoStep::Kind kind) const
{
    UndoStep step{kind};
    const bool isSameList = m_vocabulary.allWords() == m_allWords;
    const QSet<TAVWordRef> present =
        isSameList ? QSet<TAVWordRef>()
                   : QSet<TAVWordRef>(m_vocabulary.allWords().begin(), m_vocabulary.allWords().end());
    for (qsizetype i = 0; i < m_words.size(); ++i) {
        const TAVWordRef &word = m_words.at(i);
        if (!isSameList && !present.contains(word))
            step.removed.append(word);
        else if (WordEdits::contentOf(*word) != m_contents.at(i))
            step.changed.append({WordIdentity::of(*word), m_contents.at(i)});
    }
    if (isSameList)
        return step;
    const QSet<TAVWordRef> before(m_allWords.begin(), m_allWords.end());
    for (const TAVWordRef &word : m_vocabulary.allWords()) {
        if (!before.contains(word))
            step.added.append(WordIdentity::of(*word));
    }
    return step;
}
