#include "model/TAVLexicon.h"

#include "app/ground/AppGround.h"
#include "model/TAVStatistics.h"
#include "platform/Services.h"
#include "platform/Texts.h"

namespace {

/** 2001-01-01 00:00:00 UTC, from which ids are counted, in the reckoning of the clock. */
constexpr qint64 millisecondsTo2001 = 978307200000;

/** Leaves the live source as it is if the one of that id isn't installed here. */
void findSource(const QList<platform::InputSourceRef> &sources, const QString &sourceId,
                platform::InputSourceRef &liveSource)
{
    for (const platform::InputSourceRef &source : sources) {
        if (source->id == sourceId) {
            liveSource = source;
            return;
        }
    }
}

} // namespace

TAVLexicon::TAVLexicon()
    : m_language(platform::localized("unknownLanguage"))
    , m_foreignLanguageName(m_language)
    , m_yourLanguageName(platform::localized("yourLanguageName"))
    , m_statistics(std::make_shared<TAVStatistics>())
{
    m_allWords.reserve(512);
    makeDailyStatisticsSnapshot();
}

TAVLexicon::~TAVLexicon() = default;

void TAVLexicon::takeIn(const TAVWordRef &word)
{
    word->setWeakVocForSort(weak_from_this());
    m_allWords.append(word);
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

void TAVLexicon::removeWord(const TAVWordRef &word)
{
    if (word)
        removeWords({word});
}

void TAVLexicon::removeWords(const TAVWordList &words)
{
    const TAVWordSet leaving(words);
    const auto isLeaving = [&leaving](const TAVWordRef &word) { return leaving.contains(word); };
    m_allWords.removeIf(isLeaving);
    invalidateCachedWordLists();
    if (std::any_of(words.begin(), words.end(),
                    [](const TAVWordRef &word) { return !word->tags().isEmpty(); }))
        buildTagsIndex();
    if (m_synonyms)
        m_synonyms->removeIf(isLeaving);
}

void TAVLexicon::restoreWords(const TAVWordList &words)
{
    TAVWordSet present(m_allWords);
    QMultiHash<qint64, TAVWordRef> presentByID;
    presentByID.reserve(m_allWords.size());
    for (const TAVWordRef &word : std::as_const(m_allWords))
        presentByID.insert(word->creationID(), word);

    for (const TAVWordRef &word : words) {
        const auto [first, end] = presentByID.equal_range(word->creationID());
        const bool isBack =
            word->creationID() > 0 &&
            std::any_of(first, end, [&word](const TAVWordRef &other) { return other->isEqualToWord(*word); });
        if (!isBack && present.insert(word))
            takeIn(word);
    }
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

qint64 TAVLexicon::currentTime()
{
    return (platform::clock().now().toMSecsSinceEpoch() - millisecondsTo2001) / 1000;
}

qint64 TAVLexicon::batchImportIdForRange(qint64 range)
{
    const qint64 time = currentTime();
    if (range < 100)
        return time * 100;
    if (range < 1000)
        return time * 1000;
    return range < 10000 ? time * 10000 : time * 100000;
}

void TAVLexicon::buildLevelLists() const
{
    m_wordsByLevel.fill(TAVWordList());
    for (const TAVWordRef &word : m_allWords)
        m_wordsByLevel[std::min<size_t>(word->level(), numberOfLevels - 1)]->append(word);
}

const TAVWordList &TAVLexicon::wordsOfLevel(quint64 level) const
{
    const std::optional<TAVWordList> &list = m_wordsByLevel[std::min<size_t>(level, numberOfLevels - 1)];
    if (!list)
        buildLevelLists();
    return *list;
}

const TAVWordList &TAVLexicon::nativeWithoutDontAsk() const
{
    if (!m_wordsLevel5WithoutDontAsk) {
        m_wordsLevel5WithoutDontAsk.emplace();
        for (const TAVWordRef &word : m_allWords) {
            if (word->level() >= numberOfLevels - 1 && !word->dontAskAgain())
                m_wordsLevel5WithoutDontAsk->append(word);
        }
    }
    return *m_wordsLevel5WithoutDontAsk;
}

void TAVLexicon::invalidateCachedWordLists()
{
    m_wordsByLevel.fill(std::nullopt);
    m_wordsLevel5WithoutDontAsk.reset();
}

void TAVLexicon::setYourTextInputSourceId(const std::optional<QString> &sourceId)
{
    m_yourTextInputSourceId = sourceId;
    if (sourceId)
        findSource(AppGround::allInputSources(false), *sourceId, m_yourTextInputSource);
}

void TAVLexicon::setForeignTextInputSourceId(const std::optional<QString> &sourceId)
{
    m_foreignTextInputSourceId = sourceId;
    if (sourceId)
        findSource(AppGround::allInputSources(false), *sourceId, m_foreignTextInputSource);
}

void TAVLexicon::resolveInputSources()
{
    const QString yourId = m_yourTextInputSourceId.value_or(QString());
    const QString foreignId = m_foreignTextInputSourceId.value_or(QString());
    if (yourId.isEmpty() && foreignId.isEmpty())
        return;
    const QList<platform::InputSourceRef> sources = AppGround::selectableInputSources(false);
    findSource(sources, yourId, m_yourTextInputSource);
    findSource(sources, foreignId, m_foreignTextInputSource);
}
