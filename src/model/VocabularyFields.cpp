#include "model/VocabularyFields.h"

#include "model/FieldSink.h"
#include "model/FieldSource.h"
#include "model/TAVStatistics.h"
#include "platform/Texts.h"
#include "storage/archive/ArchiveDecoder.h"
#include "storage/archive/ArchiveEncoder.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QLatin1StringView, levels::number> levelKeys = {
    "unknownWords"_L1, "ultraShortTermWords"_L1, "shortTermWords"_L1,
    "midTermWords"_L1, "longTermWords"_L1,       "nativeWords"_L1};

QString defaultName()
{
    return QStringLiteral("No name");
}

qint64 versionFrom(qint64 number)
{
    return std::max<qint64>(0, number);
}

/** None if the value is no record. */
std::shared_ptr<TAVStatistics> statisticsFrom(FieldSource &source)
{
    auto statistics = std::make_shared<TAVStatistics>();
    source.record([&statistics](FieldSource &record) { statistics = TAVStatistics::initWithFields(record); });
    return statistics;
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

void readSetting(VocabularyFields &fields, QLatin1StringView key, FieldSource &source)
{
    LanguageFields &languages = fields.languages;
    if (key == "yourFacultativeWords"_L1)
        languages.yourFacultativeWords = source.texts();
    else if (key == "foreignFacultativeWords"_L1)
        languages.foreignFacultativeWords = source.texts();
    else if (key == "yourTextInputSourceName"_L1)
        languages.yourTextInputSourceId = source.text();
    else if (key == "foreignTextInputSourceName"_L1)
        languages.foreignTextInputSourceId = source.text();
    else if (key == "isAutoSelectInputSource"_L1)
        languages.isAutoSelectInputSource = source.flag();
    else if (key == "isDisableMisspellRecognition"_L1)
        languages.isDisableMisspellRecognition = source.flag();
    else if (key == "isDirty"_L1)
        fields.needsSync = source.flag();
    else if (key == "version"_L1)
        fields.version = versionFrom(source.integer());
}

/** A word's place in the lists counts, not what it says of itself. */
void applyLists(const LevelLists::Lists &lists, size_t lowestLevelKeepingDontAskAgain)
{
    for (size_t level = 0; level < lists.size(); ++level) {
        for (const TAVWordRef &word : lists[level]) {
            word->setLevel(level);
            if (level < lowestLevelKeepingDontAskAgain)
                word->setDontAskAgain(false);
        }
    }
}

} // namespace

VocabularyFields VocabularyFields::readFrom(FieldSource &source)
{
    VocabularyFields fields;
    fields.statistics = std::make_shared<TAVStatistics>();
    std::optional<QString> language;
    LanguageFields &languages = fields.languages;
    while (source.next()) {
        const QLatin1StringView key(source.key());
        if (const auto *const level = std::find(levelKeys.begin(), levelKeys.end(), key);
            level != levelKeys.end())
            fields.words[size_t(level - levelKeys.begin())] = wordsFrom(source);
        else if (key == "language"_L1)
            language = source.text();
        else if (key == "foreignLanguageName"_L1)
            languages.foreignLanguageName = source.text();
        else if (key == "yourLanguageName"_L1)
            languages.yourLanguageName = source.text();
        else if (key == "statistics"_L1)
            fields.statistics = statisticsFrom(source);
        else
            readSetting(fields, key, source);
    }
    if (!languages.foreignLanguageName)
        languages.foreignLanguageName = language.value_or(defaultName());
    if (!languages.yourLanguageName)
        languages.yourLanguageName = platform::localized("yourLanguageName");
    applyLists(fields.words, 4);
    return fields;
}

void VocabularyFields::writeTo(FieldSink &sink) const
{
    for (size_t level = 0; level < levelKeys.size(); ++level) {
        const TAVWordList &list = words[level];
        sink.record(levelKeys[level], [&list](FieldSink &record) {
            record.records("words"_L1, list.size(),
                           [&list](FieldSink &word, qsizetype i) { list.at(i)->writeFields(word); });
        });
    }
    const QString foreignName = languages.foreignLanguageName.value_or(defaultName());
    sink.text("language"_L1, foreignName);
    sink.text("foreignLanguageName"_L1, foreignName);
    sink.text("yourLanguageName"_L1, languages.yourLanguageName ? *languages.yourLanguageName
                                                                : platform::localized("yourLanguageName"));
    sink.texts("yourFacultativeWords"_L1, languages.yourFacultativeWords);
    sink.texts("foreignFacultativeWords"_L1, languages.foreignFacultativeWords);
    sink.record("statistics"_L1, [this](FieldSink &record) { statistics->writeFields(record); });
    sink.text("yourTextInputSourceName"_L1, languages.yourTextInputSourceId.value_or(QString()));
    sink.text("foreignTextInputSourceName"_L1, languages.foreignTextInputSourceId.value_or(QString()));
    sink.flag("isAutoSelectInputSource"_L1, languages.isAutoSelectInputSource);
    sink.flag("isDisableMisspellRecognition"_L1, languages.isDisableMisspellRecognition);
    sink.flag("isDirty"_L1, needsSync);
    sink.integer("version"_L1, version);
}

VocabularyFields VocabularyFields::readFrom(const ArchiveDecoder &decoder)
{
    VocabularyFields fields;
    for (size_t level = 0; level < levelKeys.size(); ++level) {
        TAVWordList &list = fields.words[level];
        decoder.objects(levelKeys[level], "TAVWord"_L1,
                        [&list](const ArchiveDecoder &word) { list.append(TAVWord::initWithCoder(word)); });
    }
    applyLists(fields.words, 5);

    LanguageFields &languages = fields.languages;
    const std::optional<QString> language = decoder.text("language"_L1);
    const std::optional<QString> foreignName = decoder.text("foreignLanguageName"_L1);
    languages.foreignLanguageName = foreignName ? foreignName : language;
    languages.yourLanguageName =
        decoder.text("yourLanguageName"_L1).value_or(platform::localized("yourLanguageName"));
    fields.statistics = std::make_shared<TAVStatistics>();
    decoder.object("statistics"_L1, "TAVStatistics"_L1, [&fields](const ArchiveDecoder &object) {
        fields.statistics = TAVStatistics::initWithCoder(object);
    });
    languages.yourFacultativeWords =
        TAVTextSet(decoder.textSet("yourFacultativeWords"_L1).value_or(QStringList()));
    languages.foreignFacultativeWords =
        TAVTextSet(decoder.textSet("foreignFacultativeWords"_L1).value_or(QStringList()));
    languages.yourTextInputSourceId = decoder.text("yourTextInputSourceName"_L1);
    languages.foreignTextInputSourceId = decoder.text("foreignTextInputSourceName"_L1);
    languages.isAutoSelectInputSource = decoder.flag("isAutoSelectInputSource"_L1);
    languages.isDisableMisspellRecognition = decoder.flag("isDisableMisspellRecognition"_L1);
    fields.needsSync = decoder.flag("isDirty"_L1);
    fields.version = versionFrom(decoder.integer("version"_L1));
    return fields;
}

void VocabularyFields::writeTo(ArchiveEncoder &encoder) const
{
    for (size_t level = 0; level < levelKeys.size(); ++level) {
        const TAVWordList &list = words[level];
        encoder.objects(levelKeys[level], "TAVWord"_L1, list.size(),
                        [&list](ArchiveEncoder &word, qsizetype i) { list.at(i)->encodeWithCoder(word); });
    }
    encoder.text("language"_L1, languages.foreignLanguageName);
    encoder.text("foreignLanguageName"_L1, languages.foreignLanguageName);
    encoder.text("yourLanguageName"_L1, languages.yourLanguageName);
    encoder.object("statistics"_L1, "TAVStatistics"_L1,
                   [this](ArchiveEncoder &object) { statistics->encodeWithCoder(object); });
    encoder.textSet("yourFacultativeWords"_L1, languages.yourFacultativeWords.values());
    encoder.textSet("foreignFacultativeWords"_L1, languages.foreignFacultativeWords.values());
    encoder.text("yourTextInputSourceName"_L1, languages.yourTextInputSourceId);
    encoder.text("foreignTextInputSourceName"_L1, languages.foreignTextInputSourceId);
    encoder.flag("isAutoSelectInputSource"_L1, languages.isAutoSelectInputSource);
    encoder.flag("isDisableMisspellRecognition"_L1, languages.isDisableMisspellRecognition);
    encoder.flag("isDirty"_L1, needsSync);
    encoder.integer("version"_L1, version);
}
