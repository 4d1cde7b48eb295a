#include "Vocabularies.h"

#include "app/ground/AppGround.h"
#include "storage/TAVStorageManager.h"
#include "storage/VocabularyFiles.h"

#include <QFile>

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

BENCHMARK(save)->Apply(vocabularySizes);
BENCHMARK(compressionAlone)->Apply(vocabularySizes);
BENCHMARK(load)->Apply(vocabularySizes);
BENCHMARK(decompressionAlone)->Apply(vocabularySizes);
BENCHMARK(decompressionInOneTry)->Apply(vocabularySizes);

} // namespace
