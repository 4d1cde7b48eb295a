#include "Vocabularies.h"

#include "app/ground/AppGround.h"
#include "storage/SafeSaves.h"
#include "storage/TAVStorageManager.h"
#include "storage/VocabularyFiles.h"
#include "support/UnsyncedOperations.h"

#include <QFile>
#include <QFileInfo>

#include <bzlib.h>

using namespace Qt::StringLiterals;

namespace {

/** A vocabulary, its file, and the file's bytes packed and unpacked. */
struct SavedVocabulary
{
    explicit SavedVocabulary(qint64 numberOfWords)
        : vocabulary(makeLearnersVocabulary(numberOfWords))
    {
        AppGround::applicationSupportFolder();
        path = TAVStorageManager::savePathForVocabulary(*vocabulary);
        TAVStorageManager::saveVocabulary(vocabulary);
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            packed = file.readAll();
        json = storage::decompressed(packed).value_or(QByteArray());
    }

    TAVLexiconRef vocabulary;
    QString path;
    QByteArray packed;
    QByteArray json;
};

void save(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(TAVStorageManager::saveVocabulary(saved.vocabulary));
}

/** As a save was before it was made safe: opened, emptied, written, closed. */
void plainWriteAlone(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    for (auto _ : state) {
        QFile file(saved.path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(saved.packed) < 0)
            state.SkipWithError("can't be written");
    }
    state.counters["fileBytes"] = double(saved.packed.size());
}

void safeWriteAlone(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    for (auto _ : state) {
        if (!storage::writeVocabularyFile(saved.path, saved.packed))
            state.SkipWithError("can't be written");
    }
}

/** With everything but the wait for the disk. */
void safeWriteWithoutSyncs(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    const UnsyncedOperations operations;
    for (auto _ : state) {
        if (!storage::writeVocabularyFile(saved.path, saved.packed))
            state.SkipWithError("can't be written");
    }
}

void compressionAlone(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(storage::compressed(saved.json));
}

void load(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    TAVLexiconRef loaded;
    for (auto _ : state) {
        loaded = TAVStorageManager::vocabularyFromFile(saved.path);
        state.PauseTiming();
        loaded.reset();
        state.ResumeTiming();
    }
    state.counters["jsonBytes"] = double(saved.json.size());
}

/** Both tries for what is larger than the first buffer. */
void decompressionAlone(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(storage::decompressed(saved.packed));
}

/** What it would cost if the size were known beforehand. */
void decompressionInOneTry(benchmark::State &state)
{
    SavedVocabulary saved(state.range(0));
    for (auto _ : state) {
        QByteArray buffer(storage::maxReadableJson, '\0');
        auto length = unsigned(buffer.size());
        benchmark::DoNotOptimize(BZ2_bzBuffToBuffDecompress(buffer.data(), &length, saved.packed.data(),
                                                            unsigned(saved.packed.size()), 0, 0));
    }
}

/** The older form. */
struct SavedArchive
{
    explicit SavedArchive(qint64 numberOfWords)
        : vocabulary(makeLearnersVocabulary(numberOfWords))
        , path(AppGround::applicationSupportFolder() + u"/bench.lxa"_s)
    {
        TAVStorageManager::saveVocabularyToLXAFile(vocabulary, path);
    }

    TAVLexiconRef vocabulary;
    QString path;
};

void saveArchive(benchmark::State &state)
{
    const SavedArchive saved(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(TAVStorageManager::saveVocabularyToLXAFile(saved.vocabulary, saved.path));
    state.counters["bytes"] = double(QFileInfo(saved.path).size());
}

void loadArchive(benchmark::State &state)
{
    const SavedArchive saved(state.range(0));
    TAVLexiconRef loaded;
    for (auto _ : state) {
        loaded = TAVStorageManager::vocabularyFromFile(saved.path);
        state.PauseTiming();
        loaded.reset();
        state.ResumeTiming();
    }
}

/** Loads, indexes and sorts, as a start does. */
void loadWhole(benchmark::State &state, const TAVLexiconRef &vocabulary)
{
    AppGround::applicationSupportFolder();
    TAVStorageManager::saveVocabulary(vocabulary);
    const QString path = TAVStorageManager::savePathForVocabulary(*vocabulary);
    for (auto _ : state) {
        const TAVLexiconRef loaded = TAVStorageManager::vocabularyFromFile(path);
        loaded->buildSynonyms();
        loaded->buildTagsIndex();
        benchmark::DoNotOptimize(loaded->allTags().size());
    }
}

/** So many words, and half as many facultative ones. */
void loadManyFacultatives(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    TAVTextSet facultatives;
    for (qint64 i = 0; i < state.range(0) / 2; ++i)
        facultatives.insert(u"f"_s + QString::number(i));
    vocabulary->setYourFacultativeWords(facultatives);
    vocabulary->setForeignFacultativeWords(facultatives);
    loadWhole(state, vocabulary);
}

/** All on one word. */
void loadManyTags(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(1);
    TAVTextSet tags;
    for (qint64 i = 0; i < state.range(0) * 10; ++i)
        tags.insert(u"t"_s + QString::number(i));
    vocabulary->allWords().first()->setTags(tags);
    loadWhole(state, vocabulary);
}

// The time that passes, as a wait for the disk takes none of the processor's.
BENCHMARK(save)->Apply(vocabularySizes)->UseRealTime();
BENCHMARK(plainWriteAlone)->Apply(vocabularySizes)->UseRealTime();
BENCHMARK(safeWriteAlone)->Apply(vocabularySizes)->UseRealTime();
BENCHMARK(safeWriteWithoutSyncs)->Apply(vocabularySizes)->UseRealTime();
BENCHMARK(compressionAlone)->Apply(vocabularySizes);
BENCHMARK(load)->Apply(vocabularySizes);
BENCHMARK(decompressionAlone)->Apply(vocabularySizes);
BENCHMARK(decompressionInOneTry)->Apply(vocabularySizes);
BENCHMARK(saveArchive)->Apply(vocabularySizes);
BENCHMARK(loadArchive)->Apply(vocabularySizes);
BENCHMARK(loadManyFacultatives)->Apply(vocabularySizes);
BENCHMARK(loadManyTags)->Apply(vocabularySizes);

} // namespace
