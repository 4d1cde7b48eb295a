#include "model/TAVLexicon.h"

#include "model/FieldSink.h"
#include "model/FieldSource.h"
#include "model/JsonTextSource.h"
#include "model/TAVStatistics.h"
#include "model/VocabularyFields.h"
#include "model/WordMerging.h"
#include "platform/DiagnosticLog.h"
#include "platform/Services.h"

TAVLexicon::TAVLexicon()
    : m_statistics(std::make_shared<TAVStatistics>())
{
    m_allWords.reserve(512);
    makeDailyStatisticsSnapshot();
}

TAVLexicon::~TAVLexicon() = default;

std::shared_ptr<TAVLexicon> TAVLexicon::initWithDictionary(const std::optional<QJsonObject> &dictionary)
{
    if (!dictionary)
        return std::make_shared<TAVLexicon>();
    MapSource source(*dictionary);
    return initWithFields(VocabularyFields::readFrom(source));
}

std::shared_ptr<TAVLexicon> TAVLexicon::initWithJson(QByteArrayView json)
{
    VocabularyFields fields;
    const bool isRead = JsonTextSource::readRecord(
        json, [&fields](FieldSource &source) { fields = VocabularyFields::readFrom(source); });
    return isRead ? initWithFields(std::move(fields)) : std::make_shared<TAVLexicon>();
}

std::shared_ptr<TAVLexicon> TAVLexicon::initWithCoder(const ArchiveDecoder &decoder)
{
    return initWithFields(VocabularyFields::readFrom(decoder));
}

std::shared_ptr<TAVLexicon> TAVLexicon::initWithFields(VocabularyFields fields)
{
    // The size of the block of ids, however many words lack theirs. More than 10,000 run on into the blocks
    // of the next seconds, which is harmless: all of them get their ids here, at once.
    constexpr qint64 rangeOfMissingIds = 9999;

    const auto lexicon = std::make_shared<TAVLexicon>();
    qint64 nextID = batchImportIdForRange(rangeOfMissingIds);
    for (const TAVWordList &words : std::as_const(fields.words)) {
        for (const TAVWordRef &word : words) {
            if (word->creationID() < 1)
                word->setCreationID(nextID++);
            lexicon->takeIn(word);
        }
    }
    lexicon->m_levelLists.adopt(std::move(fields.words));
    lexicon->setLanguageFields(fields.languages);
    lexicon->m_statistics = fields.statistics;
    lexicon->m_needsSync = fields.needsSync;
    lexicon->m_version = fields.version;
    return lexicon;
}

VocabularyFields TAVLexicon::fields() const
{
    LevelLists::Lists words;
    for (size_t level = 0; level < words.size(); ++level)
        words[level] = wordsOfLevel(level);
    return {words, languageFields(), m_statistics, m_needsSync, m_version};
}

QJsonObject TAVLexicon::dictionaryRepresentation() const
{
    return MapSink::mapOf([this](FieldSink &sink) { fields().writeTo(sink); });
}

QByteArray TAVLexicon::jsonRepresentation() const
{
    return JsonTextSink::textOf([this](FieldSink &sink) { fields().writeTo(sink); });
}

void TAVLexicon::encodeWithCoder(ArchiveEncoder &encoder) const
{
    fields().writeTo(encoder);
}

void TAVLexicon::takeIn(const TAVWordRef &word)
{
    word->setWeakVocForSort(weak_from_this());
    m_allWords.append(word);
}

void TAVLexicon::takeOut(const TAVWordSet &words)
{
    m_allWords.removeIf([&words](const TAVWordRef &word) { return words.contains(word); });
}

void TAVLexicon::addWord(const TAVWordRef &word)
{
    if (word)
        addWordWithID(word, currentTime());
}

void TAVLexicon::addWordWithID(const TAVWordRef &word, qint64 creationID)
{
    word->setCreationID(creationID);
    takeIn(word);
    invalidateCachedWordLists();
    if (!word->tags().isEmpty())
        buildTagsIndex();
    updateSynonymsWithWord(word);
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

void TAVLexicon::removeWord(const TAVWordRef &word)
{
    if (word)
        removeWords({word});
}

void TAVLexicon::removeWords(const TAVWordList &words)
{
    const TAVWordSet leaving(words);
    takeOut(leaving);
    invalidateCachedWordLists();
    if (std::any_of(words.begin(), words.end(),
                    [](const TAVWordRef &word) { return !word->tags().isEmpty(); }))
        buildTagsIndex();
    if (m_synonyms)
        m_synonyms->remove(leaving);
}

void TAVLexicon::restoreWords(const TAVWordList &words)
{
    for (const TAVWordRef &word : merging::notReturned(m_allWords, words))
        takeIn(word);
    rebuildAfterBatch();
}

void TAVLexicon::rebuildAfterBatch()
{
    invalidateCachedWordLists();
    buildSynonyms();
    buildTagsIndex();
}

TAVWordRef TAVLexicon::findWordEqualTo(const TAVWord &word) const
{
    const auto found =
        std::find_if(m_allWords.begin(), m_allWords.end(),
                     [&word](const TAVWordRef &candidate) { return candidate->isEqualToWord(word); });
    return found != m_allWords.end() ? *found : nullptr;
}

TAVWordRef TAVLexicon::findWordByID(qint64 creationID) const
{
    const auto found =
        std::find_if(m_allWords.begin(), m_allWords.end(), [creationID](const TAVWordRef &candidate) {
            return candidate->creationID() == creationID;
        });
    return found != m_allWords.end() ? *found : nullptr;
}

void TAVLexicon::answeredWord(const TAVWordRef &word, int correct)
{
    rehearsal::bookAnswer(*word, correct, platform::clock().now());
    invalidateCachedWordLists();
    makeDailyStatisticsSnapshot();
}

TAVWordList TAVLexicon::wordsOverDueFromLevel(quint64 level, const TAVTextSet &tags, bool mustHaveAll) const
{
    return rehearsal::dueWords(wordsTagged(wordsOfLevel(level), tags, mustHaveAll), level,
                               platform::clock().now());
}

TAVWordList TAVLexicon::randomlyPick(qint64 count, quint64 level, const TAVTextSet &tags,
                                     bool mustHaveAll) const
{
    return rehearsal::randomWords(wordsTagged(wordsOfLevel(level), tags, mustHaveAll), count, m_random);
}

void TAVLexicon::makeDailyStatisticsSnapshot()
{
    m_statistics->addDailySnapshot(std::make_shared<TAVDailyStatisticsSnapshot>(*this));
}

const TagsIndex &TAVLexicon::tagsIndex() const
{
    if (!m_tagsIndex)
        m_tagsIndex.emplace(m_allWords);
    return *m_tagsIndex;
}

std::optional<QStringList> TAVLexicon::completionTagsForPrefix(const QString &prefix) const
{
    platform::diagnosticLog(QStringLiteral("completionTagsForPrefix: %1").arg(prefix));
    return tagsIndex().completions(prefix);
}

const TAVWordSet &TAVLexicon::synonyms()
{
    if (!m_synonyms)
        buildSynonyms();
    return m_synonyms->words();
}

void TAVLexicon::updateSynonymsWithWord(const TAVWordRef &word)
{
    if (!word || (word->yourWord().isEmpty() && word->foreignWord().isEmpty()))
        return;
    if (!m_synonyms)
        buildSynonyms();
    m_synonyms->update(word, m_allWords);
}

TAVWordSet TAVLexicon::synonymsForWord(const TAVWord &word)
{
    if (!m_synonyms)
        buildSynonyms();
    return m_synonyms->partnersOf(word);
}

TAVWordList TAVLexicon::wordsWithTags(const TAVTextSet &tags, bool mustHaveAll) const
{
    return wordsTagged(m_allWords, tags, mustHaveAll);
}

TAVWordList TAVLexicon::filterWords(const TAVWordList &words, const std::optional<QString> &searchTerm)
{
    return wordsMatching(words, searchTerm);
}

TAVWordList TAVLexicon::filteredWords(const TAVWordList &words, const TAVTextSet &tags, bool mustHaveAll)
{
    return wordsTagged(words, tags, mustHaveAll);
}

void TAVLexicon::handOver(const TAVWordList &words)
{
    takeOut(TAVWordSet(words));
    m_synonyms.reset();
    m_tagsIndex.reset();
    invalidateCachedWordLists();
}

void TAVLexicon::mergeWithOtherVersion(TAVLexicon &other)
{
    Q_ASSERT(&other != this);
    const merging::Versions versions = merging::mergedVersions(m_allWords, other.m_allWords);
    for (const TAVWordRef &word : versions.taken)
        takeIn(word);
    takeOut(versions.replaced);
    rebuildAfterBatch();
    other.handOver(versions.taken);
}

void TAVLexicon::joinWithVocabulary(TAVLexicon &other, bool addAllToUnknown)
{
    Q_ASSERT(&other != this);
    qint64 nextID = batchImportIdForRange(other.countAllWords());
    // Also those that are refused below.
    if (addAllToUnknown) {
        for (const TAVWordRef &word : std::as_const(other.m_allWords))
            word->setLevel(0);
    }
    const TAVWordList taken = merging::newByTexts(m_allWords, other.m_allWords);
    for (const TAVWordRef &word : taken) {
        word->setCreationID(nextID++);
        takeIn(word);
    }
    rebuildAfterBatch();
    other.handOver(taken);
}

qint64 TAVLexicon::deleteDuplicates()
{
    const TAVWordSet leaving = merging::worseDuplicates(synonyms().values());
    takeOut(leaving);
    rebuildAfterBatch();
    return leaving.size();
}
