#include "model/CodingNumbers.h"
#include "model/FieldSink.h"
#include "model/FieldSource.h"
#include "model/JsonTextSource.h"
#include "model/TAVLexicon.h"
#include "model/TAVStatistics.h"
#include "platform/Texts.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QLatin1StringView, TAVLexicon::numberOfLevels> levelKeys = {
    "unknownWords"_L1, "ultraShortTermWords"_L1, "shortTermWords"_L1,
    "midTermWords"_L1, "longTermWords"_L1,       "nativeWords"_L1};

/** More words than a vocabulary can hold whose file can be opened again. */
constexpr qint64 repairedIdsRange = 9999;

QString defaultName()
{
    return QStringLiteral("No name");
}

TAVWordList wordsFrom(FieldSource &source)
{
    TAVWordList words;
    source.record([&words](FieldSource &level) {
        while (level.next()) {
            if (level.key() != "words")
                continue;
            words.clear();
            level.records([&words](FieldSource &word) { words.append(TAVWord::initWithFields(word)); });
        }
    });
    return words;
}

} // namespace

std::shared_ptr<TAVLexicon> TAVLexicon::initWithDictionary(const std::optional<QJsonObject> &dictionary)
{
    if (!dictionary)
        return std::make_shared<TAVLexicon>();
    MapSource source(*dictionary);
    return initWithFields(source);
}

std::shared_ptr<TAVLexicon> TAVLexicon::initWithJson(QByteArrayView json)
{
    std::shared_ptr<TAVLexicon> lexicon;
    const bool isRead = JsonTextSource::readRecord(
        json, [&lexicon](FieldSource &source) { lexicon = initWithFields(source); });
    return isRead ? lexicon : std::make_shared<TAVLexicon>();
}

std::shared_ptr<TAVLexicon> TAVLexicon::initWithFields(FieldSource &source)
{
    const auto lexicon = std::make_shared<TAVLexicon>();
    lexicon->m_isAutoSelectInputSource = false;
    lexicon->m_statistics = std::make_shared<TAVStatistics>();
    LevelLists lists;
    lists.fill(TAVWordList());
    std::optional<QString> language;
    std::optional<QString> foreignName;
    std::optional<QString> yourName;
    while (source.next()) {
        const QLatin1StringView key(source.key());
        if (const auto *const level = std::find(levelKeys.begin(), levelKeys.end(), key);
            level != levelKeys.end())
            lists[size_t(level - levelKeys.begin())] = wordsFrom(source);
        else if (key == "language"_L1)
            language = source.text();
        else if (key == "foreignLanguageName"_L1)
            foreignName = source.text();
        else if (key == "yourLanguageName"_L1)
            yourName = source.text();
        else if (key == "statistics"_L1)
            source.record([&lexicon](FieldSource &statistics) {
                lexicon->m_statistics = TAVStatistics::initWithFields(statistics);
            });
        else
            lexicon->readSetting(key, source);
    }
    lexicon->setForeignLanguageName(foreignName.value_or(language.value_or(defaultName())));
    lexicon->setYourLanguageName(yourName ? *yourName : platform::localized("yourLanguageName"));
    lexicon->adoptReadLists(std::move(lists), 4);
    lexicon->resolveInputSources();
    return lexicon;
}

void TAVLexicon::readSetting(QLatin1StringView key, FieldSource &source)
{
    if (key == "yourFacultativeWords"_L1)
        m_yourFacultativeWords = source.texts();
    else if (key == "foreignFacultativeWords"_L1)
        m_foreignFacultativeWords = source.texts();
    else if (key == "yourTextInputSourceName"_L1)
        m_yourTextInputSourceId = source.text();
    else if (key == "foreignTextInputSourceName"_L1)
        m_foreignTextInputSourceId = source.text();
    else if (key == "isAutoSelectInputSource"_L1)
        m_isAutoSelectInputSource = source.flag();
    else if (key == "isDisableMisspellRecognition"_L1)
        m_isDisableMisspellRecognition = source.flag();
    else if (key == "isDirty"_L1)
        m_needsSync = source.flag();
    else if (key == "version"_L1)
        m_version = std::max<qint64>(0, coding::plausibleCount(source.integer()));
}

QJsonObject TAVLexicon::dictionaryRepresentation() const
{
    return MapSink::mapOf([this](FieldSink &sink) { writeFields(sink); });
}

QByteArray TAVLexicon::jsonRepresentation() const
{
    return JsonTextSink::textOf([this](FieldSink &sink) { writeFields(sink); });
}

void TAVLexicon::writeFields(FieldSink &sink) const
{
    for (size_t level = 0; level < levelKeys.size(); ++level) {
        const TAVWordList &words = wordsOfLevel(level);
        sink.record(levelKeys[level], [&words](FieldSink &list) {
            list.records("words"_L1, words.size(),
                         [&words](FieldSink &word, qsizetype i) { words.at(i)->writeFields(word); });
        });
    }
    sink.text("language"_L1, m_language.value_or(defaultName()));
    sink.text("foreignLanguageName"_L1, m_foreignLanguageName.value_or(defaultName()));
    sink.text("yourLanguageName"_L1,
              m_yourLanguageName ? *m_yourLanguageName : platform::localized("yourLanguageName"));
    sink.texts("yourFacultativeWords"_L1, m_yourFacultativeWords);
    sink.texts("foreignFacultativeWords"_L1, m_foreignFacultativeWords);
    sink.record("statistics"_L1, [this](FieldSink &statistics) { m_statistics->writeFields(statistics); });
    sink.text("yourTextInputSourceName"_L1, m_yourTextInputSourceId.value_or(QString()));
    sink.text("foreignTextInputSourceName"_L1, m_foreignTextInputSourceId.value_or(QString()));
    sink.flag("isAutoSelectInputSource"_L1, m_isAutoSelectInputSource);
    sink.flag("isDisableMisspellRecognition"_L1, m_isDisableMisspellRecognition);
    sink.flag("isDirty"_L1, m_needsSync);
    sink.integer("version"_L1, m_version);
}

std::shared_ptr<TAVLexicon> TAVLexicon::initWithCoder(const ArchiveDecoder &decoder)
{
    const auto lexicon = std::make_shared<TAVLexicon>();
    LevelLists lists;
    for (size_t level = 0; level < lists.size(); ++level) {
        TAVWordList &list = lists[level].emplace();
        decoder.objects(levelKeys[level], "TAVWord"_L1,
                        [&list](const ArchiveDecoder &word) { list.append(TAVWord::initWithCoder(word)); });
    }

    const std::optional<QString> language = decoder.text("language"_L1);
    const std::optional<QString> foreignName = decoder.text("foreignLanguageName"_L1);
    lexicon->setForeignLanguageName(foreignName ? foreignName : language);
    lexicon->setYourLanguageName(
        decoder.text("yourLanguageName"_L1).value_or(platform::localized("yourLanguageName")));
    lexicon->adoptReadLists(std::move(lists), 5);

    lexicon->m_statistics = std::make_shared<TAVStatistics>();
    decoder.object("statistics"_L1, "TAVStatistics"_L1, [&lexicon](const ArchiveDecoder &statistics) {
        lexicon->m_statistics = TAVStatistics::initWithCoder(statistics);
    });
    lexicon->m_yourFacultativeWords =
        TAVTextSet(decoder.textSet("yourFacultativeWords"_L1).value_or(QStringList()));
    lexicon->m_foreignFacultativeWords =
        TAVTextSet(decoder.textSet("foreignFacultativeWords"_L1).value_or(QStringList()));
    lexicon->m_yourTextInputSourceId = decoder.text("yourTextInputSourceName"_L1);
    lexicon->m_foreignTextInputSourceId = decoder.text("foreignTextInputSourceName"_L1);
    lexicon->resolveInputSources();
    lexicon->m_isAutoSelectInputSource = decoder.flag("isAutoSelectInputSource"_L1);
    lexicon->m_isDisableMisspellRecognition = decoder.flag("isDisableMisspellRecognition"_L1);
    lexicon->m_needsSync = decoder.flag("isDirty"_L1);
    lexicon->m_version = std::max<qint64>(0, coding::plausibleCount(decoder.integer("version"_L1)));
    return lexicon;
}

void TAVLexicon::encodeWithCoder(ArchiveEncoder &encoder) const
{
    for (size_t level = 0; level < levelKeys.size(); ++level) {
        const TAVWordList &words = wordsOfLevel(level);
        encoder.objects(levelKeys[level], "TAVWord"_L1, words.size(),
                        [&words](ArchiveEncoder &word, qsizetype i) { words.at(i)->encodeWithCoder(word); });
    }
    encoder.text("language"_L1, m_language);
    encoder.text("foreignLanguageName"_L1, m_foreignLanguageName);
    encoder.text("yourLanguageName"_L1, m_yourLanguageName);
    encoder.object("statistics"_L1, "TAVStatistics"_L1,
                   [this](ArchiveEncoder &statistics) { m_statistics->encodeWithCoder(statistics); });
    encoder.textSet("yourFacultativeWords"_L1, m_yourFacultativeWords.values());
    encoder.textSet("foreignFacultativeWords"_L1, m_foreignFacultativeWords.values());
    encoder.text("yourTextInputSourceName"_L1, m_yourTextInputSourceId);
    encoder.text("foreignTextInputSourceName"_L1, m_foreignTextInputSourceId);
    encoder.flag("isAutoSelectInputSource"_L1, m_isAutoSelectInputSource);
    encoder.flag("isDisableMisspellRecognition"_L1, m_isDisableMisspellRecognition);
    encoder.flag("isDirty"_L1, m_needsSync);
    encoder.integer("version"_L1, m_version);
}

void TAVLexicon::adoptReadLists(LevelLists lists, int firstLevelKeepingDontAskAgain)
{
    qint64 nextId = batchImportIdForRange(repairedIdsRange);
    for (size_t level = 0; level < lists.size(); ++level) {
        for (const TAVWordRef &word : std::as_const(*lists[level])) {
            word->setLevel(level);
            if (int(level) < firstLevelKeepingDontAskAgain)
                word->setDontAskAgain(false);
            if (word->creationID() < 1)
                word->setCreationID(nextId++);
            takeIn(word);
        }
    }
    m_wordsByLevel = std::move(lists);
}
