#include "model/WordMerging.h"

#include "model/WordSorting.h"

#include <QHash>
#include <QSet>

namespace merging {

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

Versions mergedVersions(const TAVWordList &present, const TAVWordList &others)
{
    WordsByID locals(present);
    Versions versions;
    // Stays set for all further words once it is set: a version that is ahead in one word wins from there on.
    bool takeOther = false;
    for (const TAVWordRef &other : others) {
        const TAVWordRef local = locals.first(other->creationID());
        if (!local || (other->modificationID() > 0 && other->modificationID() > local->modificationID()) ||
            other->level() > local->level())
            takeOther = true;
        else if (other->level() == local->level())
            mergeSameLevel(*local, *other);

        if (takeOther) {
            if (local) {
                locals.removeFirst(local->creationID());
                versions.replaced.insert(local);
            }
            locals.append(other);
            versions.taken.append(other);
        }
    }
    return versions;
}

TAVWordList newByTexts(const TAVWordList &present, const TAVWordList &others)
{
    QSet<Texts> known;
    known.reserve(present.size() + others.size());
    for (const TAVWordRef &word : present)
        known.insert(textsOf(*word));
    TAVWordList newWords;
    for (const TAVWordRef &word : others) {
        const Texts texts = textsOf(*word);
        if (known.contains(texts))
            continue;
        known.insert(texts);
        newWords.append(word);
    }
    return newWords;
}

TAVWordList notReturned(const TAVWordList &present, const TAVWordList &removed)
{
    TAVWordSet known(present);
    QMultiHash<qint64, TAVWordRef> knownByID;
    knownByID.reserve(present.size());
    for (const TAVWordRef &word : present)
        knownByID.insert(word->creationID(), word);

    TAVWordList words;
    for (const TAVWordRef &word : removed) {
        const auto [first, end] = knownByID.equal_range(word->creationID());
        const bool isBack =
            word->creationID() > 0 &&
            std::any_of(first, end, [&word](const TAVWordRef &other) { return other->isEqualToWord(*word); });
        if (!isBack && known.insert(word))
            words.append(word);
    }
    return words;
}

TAVWordSet worseDuplicates(TAVWordList candidates)
{
    sortWords(candidates, WordOrder::YourLang);
    QHash<QString, TAVWordList> groups;
    for (const TAVWordRef &word : std::as_const(candidates))
        groups[word->foreignWord() + u'-' + word->yourWord()].append(word);

    TAVWordSet leaving;
    for (const TAVWordList &group : std::as_const(groups)) {
        for (const TAVWordRef &word : losersAmong(group))
            leaving.insert(word);
    }
    return leaving;
}

} // namespace merging
