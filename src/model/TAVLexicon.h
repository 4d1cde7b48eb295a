#pragma once

#include "model/LanguageSettings.h"
#include "model/LevelLists.h"
#include "model/Rehearsal.h"
#include "model/SynonymSet.h"
#include "model/TAVRandom.h"
#include "model/TAVWord.h"
#include "model/TagsIndex.h"
#include "model/WordFilter.h"
#include "model/WordIds.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class ArchiveDecoder;
class ArchiveEncoder;
class TAVStatistics;
struct VocabularyFields;

/**
 * One language pair: its words, settings, statistics, and what the sync needs of it. Here the parts meet; the
 * rules of each stand in its own header.
 *
 * allWords() is the truth; the level lists, tags and synonyms are caches of what the words hold. Nothing here
 * saves a file or sets needsSync; the callers do. Always held by a shared pointer, and used by one thread at
 * a time.
 */
class TAVLexicon : public std::enable_shared_from_this<TAVLexicon>, public LanguageSettings
{
public:
    static constexpr int numberOfLevels = levels::number;

    TAVLexicon();
    ~TAVLexicon();
    TAVLexicon(const TAVLexicon &) = delete;
    TAVLexicon &operator=(const TAVLexicon &) = delete;

    // File forms (VocabularyFields.h). Unreadable values read as absent ones; nothing fails.

    /** Absent: a fresh vocabulary. */
    static std::shared_ptr<TAVLexicon> initWithDictionary(const std::optional<QJsonObject> &dictionary);
    QJsonObject dictionaryRepresentation() const;
    /** The same from JSON in UTF-8, in a fraction of the time. What is no JSON makes a fresh vocabulary. */
    static std::shared_ptr<TAVLexicon> initWithJson(QByteArrayView json);
    /** The same as compact JSON in UTF-8. */
    QByteArray jsonRepresentation() const;
    static std::shared_ptr<TAVLexicon> initWithCoder(const ArchiveDecoder &decoder);
    void encodeWithCoder(ArchiveEncoder &encoder) const;

    // Words

    /** In no lasting order: buildSynonyms() sorts it. */
    const TAVWordList &allWords() const { return m_allWords; }
    qint64 countAllWords() const { return m_allWords.size(); }
    /** Gives the word a new id and takes it in. Absent is ignored. */
    void addWord(const TAVWordRef &word);
    void addWordWithID(const TAVWordRef &word, qint64 creationID);
    /** Takes in words that have their ids, without a test for duplicates. */
    void batchAddWords(const TAVWordList &words);
    /** Removes that very object. Absent is ignored. */
    void removeWord(const TAVWordRef &word);
    /** The same for many at once, at the cost of one. */
    void removeWords(const TAVWordList &words);
    /**
     * Puts words back that were removed, the same objects with all their fields, ids included. Leaves out
     * those that have come back meanwhile, as after a sync.
     */
    void restoreWords(const TAVWordList &words);

    /** The first in the present order, or absent. */
    TAVWordRef findWordEqualTo(const TAVWord &word) const;
    bool containsWordEqualTo(const TAVWord &word) const { return findWordEqualTo(word) != nullptr; }
    TAVWordRef findWordByID(qint64 creationID) const;
    bool containsWordWithID(qint64 creationID) const { return findWordByID(creationID) != nullptr; }

    static qint64 currentTime() { return wordids::fromClock(); }
    static qint64 batchImportIdForRange(qint64 range) { return wordids::firstOfBlock(range); }

    // Level lists (LevelLists.h), in the order of allWords() when they were built

    const TAVWordList &level0Words() const { return wordsOfLevel(0); }
    const TAVWordList &level1Words() const { return wordsOfLevel(1); }
    const TAVWordList &level2Words() const { return wordsOfLevel(2); }
    const TAVWordList &level3Words() const { return wordsOfLevel(3); }
    const TAVWordList &level4Words() const { return wordsOfLevel(4); }
    const TAVWordList &level5Words() const { return wordsOfLevel(5); }
    /** One of the six lists above; a level above 5 means 5. */
    const TAVWordList &wordsOfLevel(quint64 level) const
    {
        return m_levelLists.wordsOfLevel(level, m_allWords);
    }
    const TAVWordList &nativeWithoutDontAsk() const { return m_levelLists.nativeWithoutDontAsk(m_allWords); }
    /** To be called after any change of a word's level or dontAskAgain that is not made by this class. */
    void invalidateCachedWordLists() { m_levelLists.drop(); }

    // Learning (Rehearsal.h)

    /** Books an answer: 1 correct, -1 wrong, anything else misspelled. */
    void answeredWord(const TAVWordRef &word, int correct);
    /** Due words of the level, the longest waiting first. A level above 4 means 5. */
    TAVWordList wordsOverDueFromLevel(quint64 level, const TAVTextSet &tags, bool mustHaveAll) const;
    /** Up to count distinct words of the level, due or not. */
    TAVWordList randomlyPick(qint64 count, quint64 level, const TAVTextSet &tags, bool mustHaveAll) const;
    static quint64 rehearseTimeInSecLevel0() { return rehearsal::secondsOfLevel(0); }
    static quint64 rehearseTimeInSecLevel1() { return rehearsal::secondsOfLevel(1); }
    static quint64 rehearseTimeInSecLevel2() { return rehearsal::secondsOfLevel(2); }
    static quint64 rehearseTimeInSecLevel3() { return rehearsal::secondsOfLevel(3); }
    static quint64 rehearseTimeInSecLevel4() { return rehearsal::secondsOfLevel(4); }
    static quint64 rehearseTimeInSecLevel5() { return rehearsal::secondsOfLevel(5); }
    const std::shared_ptr<TAVStatistics> &statistics() const { return m_statistics; }
    void setStatistics(const std::shared_ptr<TAVStatistics> &statistics) { m_statistics = statistics; }
    /** Brings today's entry of the statistics up to the present counts. */
    void makeDailyStatisticsSnapshot();
    const TAVRandom &random() const { return m_random; }

    // Tags (TagsIndex.h), synonyms (SynonymSet.h), filters (WordFilter.h)

    const TAVTextSet &allTags() const { return tagsIndex().allTags(); }
    /** To be called after any change of a word's tags that is not made by this class. */
    void buildTagsIndex() { m_tagsIndex.emplace(m_allWords); }
    /** Tags that begin with exactly this prefix and are longer, the most used first; absent if none. */
    std::optional<QStringList> completionTagsForPrefix(const QString &prefix) const;
    const TAVWordSet &synonyms();
    /** To be called after any change of a word's texts. Leaves allWords() sorted by the foreign words. */
    void buildSynonyms() { m_synonyms = SynonymSet::builtFrom(m_allWords); }
    /** Brings the synonyms up to date with one new word. Absent, or without any text, it is ignored. */
    void updateSynonymsWithWord(const TAVWordRef &word);
    /** Words that share exactly one of the two texts with this word. */
    TAVWordSet synonymsForWord(const TAVWord &word);
    TAVWordList wordsWithTags(const TAVTextSet &tags, bool mustHaveAll) const;
    static TAVWordList filterWords(const TAVWordList &words, const std::optional<QString> &searchTerm);
    static TAVWordList filteredWords(const TAVWordList &words, const TAVTextSet &tags, bool mustHaveAll);

    // Bringing words together (WordMerging.h). The other vocabulary must not be used afterwards: its words
    // may have moved.

    /** Merges another version of this vocabulary, word by word, by id. */
    void mergeWithOtherVersion(TAVLexicon &other);
    /** Takes in the words that are not here yet by their two texts, with new ids. */
    void joinWithVocabulary(TAVLexicon &other, bool addAllToUnknown);
    /** Of words with the same two texts, keeps the best. Returns the number of removed words. */
    qint64 deleteDuplicates();

    // Sync

    bool needsSync() const { return m_needsSync; }
    void setNeedsSync(bool flag) { m_needsSync = flag; }
    /** Raised by the sync alone; never negative. */
    qint64 version() const { return m_version; }
    void setVersion(qint64 version) { m_version = version; }
    std::optional<QString> fileNameWhereLoadedFrom() const { return m_fileNameWhereLoadedFrom; }
    void setFileNameWhereLoadedFrom(const std::optional<QString> &name) { m_fileNameWhereLoadedFrom = name; }

private:
    static std::shared_ptr<TAVLexicon> initWithFields(VocabularyFields fields);
    VocabularyFields fields() const;
    void takeIn(const TAVWordRef &word);
    /** Drops the words from the list alone. */
    void takeOut(const TAVWordSet &words);
    void rebuildAfterBatch();
    /** Drops words that another vocabulary owns from now on. */
    void handOver(const TAVWordList &words);
    const TagsIndex &tagsIndex() const;

    TAVWordList m_allWords;
    mutable LevelLists m_levelLists;
    mutable std::optional<TagsIndex> m_tagsIndex;
    std::optional<SynonymSet> m_synonyms;
    TAVRandom m_random;
    std::shared_ptr<TAVStatistics> m_statistics;
    bool m_needsSync = false;
    qint64 m_version = 0;
    std::optional<QString> m_fileNameWhereLoadedFrom;
};

using TAVLexiconRef = std::shared_ptr<TAVLexicon>;

/** Whoever holds the one current vocabulary. */
class VocabularySource
{
public:
    virtual ~VocabularySource() = default;
    /** Absent before the first language was loaded. */
    virtual TAVLexiconRef vocabulary() const = 0;
};
