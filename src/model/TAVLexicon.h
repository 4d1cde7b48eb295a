#pragma once

#include "model/TAVRandom.h"
#include "model/TAVWord.h"
#include "model/TagsIndex.h"
#include "platform/InputSources.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>

class ArchiveDecoder;
class ArchiveEncoder;
class FieldSink;
class FieldSource;
class TAVStatistics;

/**
 * One language pair: its words, names, settings, statistics, and what the sync needs of it.
 *
 * allWords() is the truth; the level lists are caches. Nothing here saves a file or sets needsSync; the
 * callers do. Always held by a shared pointer, and used by one thread at a time.
 */
class TAVLexicon : public std::enable_shared_from_this<TAVLexicon>
{
public:
    static constexpr int numberOfLevels = 6;

    TAVLexicon();
    ~TAVLexicon();
    TAVLexicon(const TAVLexicon &) = delete;
    TAVLexicon &operator=(const TAVLexicon &) = delete;

    // File forms. Unreadable values read as absent ones; nothing fails.

    /** Absent: a fresh vocabulary. */
    static std::shared_ptr<TAVLexicon> initWithDictionary(const std::optional<QJsonObject> &dictionary);
    QJsonObject dictionaryRepresentation() const;
    /** The same from JSON in UTF-8, in a fraction of the time. What is no JSON gives a fresh vocabulary. */
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
     * Puts words back that were removed, the same objects with all their fields, ids included, and rebuilds
     * what is derived. Leaves out a word that has come back meanwhile, as after a sync: one that stands here
     * itself, or as another object with its id and its two texts.
     */
    void restoreWords(const TAVWordList &words);

    /** The first in the present order, or absent. */
    TAVWordRef findWordEqualTo(const TAVWord &word) const;
    bool containsWordEqualTo(const TAVWord &word) const { return findWordEqualTo(word) != nullptr; }
    TAVWordRef findWordByID(qint64 creationID) const;
    bool containsWordWithID(qint64 creationID) const { return findWordByID(creationID) != nullptr; }

    /** Whole seconds since 2001-01-01 00:00:00 UTC. */
    static qint64 currentTime();
    /** First id of a block for so many words; the caller counts up by one. */
    static qint64 batchImportIdForRange(qint64 range);

    // Level lists: caches, in the order of allWords() when they were built

    const TAVWordList &level0Words() const { return wordsOfLevel(0); }
    const TAVWordList &level1Words() const { return wordsOfLevel(1); }
    const TAVWordList &level2Words() const { return wordsOfLevel(2); }
    const TAVWordList &level3Words() const { return wordsOfLevel(3); }
    const TAVWordList &level4Words() const { return wordsOfLevel(4); }
    const TAVWordList &level5Words() const { return wordsOfLevel(5); }
    /** One of the six lists above; a level above 5 means 5. */
    const TAVWordList &wordsOfLevel(quint64 level) const;
    const TAVWordList &nativeWithoutDontAsk() const;
    /** To be called after any change of a word's level or dontAskAgain that is not made by this class. */
    void invalidateCachedWordLists();

    // Learning

    /** Books an answer: 1 correct, -1 wrong, anything else misspelled. */
    void answeredWord(const TAVWordRef &word, int correct);
    /** Due words of the level, the longest waiting first. A level above 4 means 5. */
    TAVWordList wordsOverDueFromLevel(quint64 level, const TAVTextSet &tags, bool mustHaveAll) const;
    /** Up to count distinct words of the level, due or not. */
    TAVWordList randomlyPick(qint64 count, quint64 level, const TAVTextSet &tags, bool mustHaveAll) const;
    static quint64 rehearseTimeInSecLevel0() { return 0; }
    static quint64 rehearseTimeInSecLevel1() { return 900; }
    static quint64 rehearseTimeInSecLevel2() { return 10800; }
    static quint64 rehearseTimeInSecLevel3() { return 86400; }
    static quint64 rehearseTimeInSecLevel4() { return 259200; }
    static quint64 rehearseTimeInSecLevel5() { return 604800; }
    /** The above by number; a level above 5 means 5. */
    static quint64 rehearseTimeInSec(quint64 level);
    /** Brings today's entry of the statistics up to the present counts. */
    void makeDailyStatisticsSnapshot();

    // Tags and synonyms

    const TAVTextSet &allTags() const;
    /** To be called after any change of a word's tags that is not made by this class. */
    void buildTagsIndex() { indexTags(); }
    /** Tags that begin with exactly this prefix and are longer, the most used first; absent if none. */
    std::optional<QStringList> completionTagsForPrefix(const QString &prefix) const;
    /** Words that share a text with another word, as far as the set was last brought up to date. */
    const TAVWordSet &synonyms();
    /** To be called after any change of a word's texts. Leaves allWords() sorted by the foreign words. */
    void buildSynonyms();
    void updateSynonymsWithWord(const TAVWordRef &word);
    /** Words that share exactly one of the two texts with this word. */
    TAVWordSet synonymsForWord(const TAVWord &word);
    TAVWordList wordsWithTags(const TAVTextSet &tags, bool mustHaveAll) const;
    static TAVWordList filterWords(const TAVWordList &words, const std::optional<QString> &searchTerm);
    static TAVWordList filteredWords(const TAVWordList &words, const TAVTextSet &tags, bool mustHaveAll);

    // Bringing words together. The other vocabulary must not be used afterwards: its words may have moved.

    /**
     * Merges another version of this vocabulary, word by word, by id. The first word of the other that is new
     * here, edited later or higher lets all words behind it win too.
     */
    void mergeWithOtherVersion(TAVLexicon &other);
    /** Takes in the words that are not here yet by their two texts, with new ids. */
    void joinWithVocabulary(TAVLexicon &other, bool addAllToUnknown);
    /** Of words with the same two texts, keeps the one of highest level. Gives the number of removed words.
     */
    qint64 deleteDuplicates();

    // State and settings

    bool needsSync() const { return m_needsSync; }
    void setNeedsSync(bool flag) { m_needsSync = flag; }
    bool isDisableMisspellRecognition() const { return m_isDisableMisspellRecognition; }
    void setIsDisableMisspellRecognition(bool flag) { m_isDisableMisspellRecognition = flag; }
    bool isAutoSelectInputSource() const { return m_isAutoSelectInputSource; }
    void setIsAutoSelectInputSource(bool flag) { m_isAutoSelectInputSource = flag; }
    /** Raised by the sync alone; never negative. */
    qint64 version() const { return m_version; }
    void setVersion(qint64 version) { m_version = version; }

    /** The foreign language's name, always the same in both fields; absent only from an old archive. */
    std::optional<QString> language() const { return m_language; }
    QString foreignLanguageName() const { return m_foreignLanguageName.value_or(QString()); }
    std::optional<QString> yourLanguageNameIfAny() const { return m_yourLanguageName; }
    QString yourLanguageName() const { return m_yourLanguageName.value_or(QString()); }
    void setLanguage(const std::optional<QString> &name) { m_language = m_foreignLanguageName = name; }
    void setForeignLanguageName(const std::optional<QString> &name) { setLanguage(name); }
    void setYourLanguageName(const std::optional<QString> &name) { m_yourLanguageName = name; }

    std::optional<QString> fileNameWhereLoadedFrom() const { return m_fileNameWhereLoadedFrom; }
    void setFileNameWhereLoadedFrom(const std::optional<QString> &name) { m_fileNameWhereLoadedFrom = name; }
    const std::shared_ptr<TAVStatistics> &statistics() const { return m_statistics; }
    void setStatistics(const std::shared_ptr<TAVStatistics> &statistics) { m_statistics = statistics; }

    const TAVTextSet &yourFacultativeWords() const { return m_yourFacultativeWords; }
    void setYourFacultativeWords(const TAVTextSet &words) { m_yourFacultativeWords = words; }
    const TAVTextSet &foreignFacultativeWords() const { return m_foreignFacultativeWords; }
    void setForeignFacultativeWords(const TAVTextSet &words) { m_foreignFacultativeWords = words; }

    std::optional<QString> yourTextInputSourceId() const { return m_yourTextInputSourceId; }
    /** Also finds the live source; one that is not installed here leaves the live source as it was. */
    void setYourTextInputSourceId(const std::optional<QString> &sourceId);
    std::optional<QString> foreignTextInputSourceId() const { return m_foreignTextInputSourceId; }
    void setForeignTextInputSourceId(const std::optional<QString> &sourceId);
    /** Looks both ids up again. One that isn't installed here leaves its source as it is. */
    void resolveInputSources();
    platform::InputSourceRef yourTextInputSource() const { return m_yourTextInputSource; }
    platform::InputSourceRef foreignTextInputSource() const { return m_foreignTextInputSource; }

    const TAVRandom &random() const { return m_random; }

private:
    using LevelLists = std::array<std::optional<TAVWordList>, numberOfLevels>;

    void buildLevelLists() const;
    void indexTags() const;
    void takeIn(const TAVWordRef &word);
    void rebuildAfterBatch();
    /** Drops words that another vocabulary owns from now on. */
    void handOver(const TAVWordList &words);
    static std::shared_ptr<TAVLexicon> initWithFields(FieldSource &source);
    void readSetting(QLatin1StringView key, FieldSource &source);
    void writeFields(FieldSink &sink) const;
    /**
     * The common middle of both readers: sets what a word's level list says of it, joins the lists, and gives
     * ids where none are. From the given level on, words keep dontAskAgain.
     */
    void adoptReadLists(LevelLists lists, int firstLevelKeepingDontAskAgain);

    mutable std::optional<TagsIndex> m_tagsIndexDict;
    TAVWordList m_allWords;
    mutable LevelLists m_wordsByLevel;
    mutable std::optional<TAVWordList> m_wordsLevel5WithoutDontAsk;
    std::optional<TAVWordSet> m_synonyms;
    mutable std::optional<TAVTextSet> m_allTags;
    TAVRandom m_random;
    bool m_needsSync = false;
    bool m_isDisableMisspellRecognition = false;
    bool m_isAutoSelectInputSource = true;
    qint64 m_version = 0;
    std::optional<QString> m_language;
    std::optional<QString> m_foreignLanguageName;
    std::optional<QString> m_yourLanguageName;
    std::optional<QString> m_fileNameWhereLoadedFrom;
    std::shared_ptr<TAVStatistics> m_statistics;
    std::optional<QString> m_yourTextInputSourceId;
    std::optional<QString> m_foreignTextInputSourceId;
    TAVTextSet m_foreignFacultativeWords;
    TAVTextSet m_yourFacultativeWords;
    platform::InputSourceRef m_yourTextInputSource;
    platform::InputSourceRef m_foreignTextInputSource;
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
