#include "Vocabularies.h"

#include "app/ground/AppGround.h"
#include "storage/TAVStorageManager.h"
#include "storage/VocabularyFiles.h"

#include <QFile>

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
    for (auto _ : state)
        benchmark::DoNotOptimize(TAVStorageManager::vocabularyFromFile(saved.path));
    state.counters["jsonBytes"] = double(saved.json.size());
}

/** Both tries for what is larger than the first buffer. */
void decompressionAlone(benchmark::State &state)
{
    const SavedVocabulary saved(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(storage::decompressed(saved.packed));
}

BENCHMARK(save)->Apply(vocabularySizes);
BENCHMARK(compressionAlone)->Apply(vocabularySizes);
BENCHMARK(load)->Apply(vocabularySizes);
BENCHMARK(decompressionAlone)->Apply(vocabularySizes);

} // namespace
