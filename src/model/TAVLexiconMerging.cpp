#include "model/TAVLexicon.h"
#include "model/WordSorting.h"

namespace {

using Texts = std::pair<QString, QString>;

Texts textsOf(const TAVWord &word)
{
    return {word.foreignWord(), word.yourWord()};
}

/** Finds words of a growing and shrinking list by id, always the first one that the list holds. */
class WordsByID
{
public:
    explicit WordsByID(const TAVWordList &words)
    {
        m_words.reserve(words.size());
        for (const TAVWordRef &word : words)
            append(word);
    }
    TAVWordRef first(qint64 creationID) const
    {
        const auto found = m_words.constFind(creationID);
        return found != m_words.constEnd() && !found->isEmpty() ? found->first() : nullptr;
    }
    void removeFirst(qint64 creationID) { m_words[creationID].removeFirst(); }
    void append(const TAVWordRef &word) { m_words[word->creationID()].append(word); }

private:
    QHash<qint64, TAVWordList> m_words;
};

/** Brings over what a merge takes from a version of the word that it doesn't take whole. */
void mergeSameLevel(TAVWord &local, const TAVWord &other)
{
    local.setDontAskAgain(local.dontAskAgain() || other.dontAskAgain());
    const QDateTime date = other.lastAsked();
    if (local.lastAsked().isValid() && date.isValid() && local.lastAsked() < date)
        local.setLastAsked(date);
}

/** Of words with the same texts, in order: all but the one that is worth most to the user. */
TAVWordList losersAmong(const TAVWordList &group)
{
    TAVWordList losers;
    TAVWordRef keeper = group.first();
    for (qsizetype i = 1; i < group.size(); ++i) {
        TAVWordRef loser = group.at(i);
        if (loser->level() > keeper->level())
            std::swap(keeper, loser);
        const bool lacksComment = keeper->comment().isEmpty() && !loser->comment().isEmpty();
        const bool lacksTags = keeper->tags().isEmpty() && !loser->tags().isEmpty();
        if (loser->level() == keeper->level() && (lacksComment || lacksTags))
            std::swap(keeper, loser);
        losers.append(loser);
    }
    return losers;
}

} // namespace

void TAVLexicon::handOver(const TAVWordList &words)
{
    const TAVWordSet leaving(words);
    m_allWords.removeIf([&leaving](const TAVWordRef &word) { return leaving.contains(word); });
    m_synonyms.reset();
    m_allTags.reset();
    m_tagsIndexDict.reset();
    invalidateCachedWordLists();
}

void TAVLexicon::mergeWithOtherVersion(TAVLexicon &other)
{
    Q_ASSERT(&other != this);
    WordsByID present(m_allWords);
    TAVWordSet replaced;
    TAVWordList taken;
    // Stays set for all further words once it is set: a version that is ahead in one word wins from there on.
    bool takeOther = false;
    for (const TAVWordRef &otherWord : std::as_const(other.m_allWords)) {
        const TAVWordRef local = present.first(otherWord->creationID());
        if (!local)
            takeOther = true;
        else if (otherWord->modificationID() > 0 && otherWord->modificationID() > local->modificationID())
            takeOther = true;
        else if (otherWord->level() > local->level())
            takeOther = true;
        else if (otherWord->level() == local->level())
            mergeSameLevel(*local, *otherWord);

        if (takeOther) {
            if (local) {
                present.removeFirst(local->creationID());
                replaced.insert(local);
            }
            present.append(otherWord);
            taken.append(otherWord);
        }
    }

    for (const TAVWordRef &word : std::as_const(taken))
        takeIn(word);
    m_allWords.removeIf([&replaced](const TAVWordRef &word) { return replaced.contains(word); });
    rebuildAfterBatch();
    other.handOver(taken);
}

void TAVLexicon::joinWithVocabulary(TAVLexicon &other, bool addAllToUnknown)
{
    Q_ASSERT(&other != this);
    qint64 nextID = batchImportIdForRange(other.countAllWords());
    QSet<Texts> present;
    present.reserve(m_allWords.size() + other.m_allWords.size());
    for (const TAVWordRef &word : std::as_const(m_allWords))
        present.insert(textsOf(*word));

    TAVWordList taken;
    for (const TAVWordRef &word : std::as_const(other.m_allWords)) {
        if (addAllToUnknown)
            word->setLevel(0);
        const Texts texts = textsOf(*word);
        if (present.contains(texts))
            continue;
        present.insert(texts);
        word->setCreationID(nextID++);
        takeIn(word);
        taken.append(word);
    }
    rebuildAfterBatch();
    other.handOver(taken);
}

void TAVLexicon::batchAddWords(const TAVWordList &words)
{
    for (const TAVWordRef &word : words) {
        if (word->creationID() < 0)
            word->setCreationID(currentTime());
        takeIn(word);
    }
    rebuildAfterBatch();
}

qint64 TAVLexicon::deleteDuplicates()
{
    TAVWordList candidates = synonyms().values();
    sortWords(candidates, WordOrder::YourLang);
    QHash<QString, TAVWordList> groups;
    for (const TAVWordRef &word : std::as_const(candidates))
        groups[word->foreignWord() + u'-' + word->yourWord()].append(word);

    TAVWordSet leaving;
    for (const TAVWordList &group : std::as_const(groups)) {
        for (const TAVWordRef &word : losersAmong(group))
            leaving.insert(word);
    }
    m_allWords.removeIf([&leaving](const TAVWordRef &word) { return leaving.contains(word); });
    rebuildAfterBatch();
    return leaving.size();
}
