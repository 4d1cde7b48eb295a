#include "Vocabularies.h"
#include "model/WordSorting.h"

using namespace Qt::StringLiterals;

namespace {

void answeredWord(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    const TAVWordRef word = vocabulary->allWords().at(state.range(0) / 2);
    int answer = 1;
    for (auto _ : state) {
        vocabulary->answeredWord(word, answer);
        answer = -answer;
    }
}
BENCHMARK(answeredWord)->Apply(vocabularySizes);

void buildSynonyms(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state)
        vocabulary->buildSynonyms();
}
BENCHMARK(buildSynonyms)->Apply(vocabularySizes);

void buildTagsIndex(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state)
        vocabulary->buildTagsIndex();
}
BENCHMARK(buildTagsIndex)->Apply(vocabularySizes);

void filterWords(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(TAVLexicon::filterWords(vocabulary->allWords(), u"mano"_s));
}
BENCHMARK(filterWords)->Apply(vocabularySizes);

void filteredWordsByTags(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(vocabulary->wordsWithTags({u"lesson 1"_s, u"lesson 2"_s}, false));
}
BENCHMARK(filteredWordsByTags)->Apply(vocabularySizes);

void sortByYourLang(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state) {
        TAVWordList words = vocabulary->allWords();
        sortWords(words, WordOrder::YourLang);
    }
}
BENCHMARK(sortByYourLang)->Apply(vocabularySizes);

void sortByTags(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state) {
        TAVWordList words = vocabulary->allWords();
        sortWords(words, WordOrder::Tags);
    }
}
BENCHMARK(sortByTags)->Apply(vocabularySizes);

void addWord(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state) {
        const auto word = std::make_shared<TAVWord>(u"neu"_s, u"new"_s, std::nullopt);
        word->addTag(u"lesson 1"_s);
        vocabulary->addWord(word);
        state.PauseTiming();
        vocabulary->removeWord(word);
        state.ResumeTiming();
    }
}
BENCHMARK(addWord)->Apply(vocabularySizes);

/** Takes out half of the words and puts them back, as a deletion and its undo do. */
void removeAndRestoreWords(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state) {
        const TAVWordList words = vocabulary->allWords().first(state.range(0) / 2);
        vocabulary->removeWords(words);
        vocabulary->restoreWords(words);
    }
}
BENCHMARK(removeAndRestoreWords)->Apply(vocabularySizes);

/** Two vocabularies of the full size; the other one's first word is ahead, so that all its words are taken.
 */
void mergeWithOtherVersion(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0), 0);
        TAVLexiconRef other = makeLearnersVocabulary(state.range(0), 1);
        other->allWords().first()->setModificationID(1);
        state.ResumeTiming();
        vocabulary->mergeWithOtherVersion(*other);
        state.PauseTiming();
        vocabulary.reset();
        other.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(mergeWithOtherVersion)->Apply(vocabularySizes);

void joinWithVocabulary(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0), 0);
        TAVLexiconRef other = makeLearnersVocabulary(state.range(0), 1);
        state.ResumeTiming();
        vocabulary->joinWithVocabulary(*other, true);
        state.PauseTiming();
        vocabulary.reset();
        other.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(joinWithVocabulary)->Apply(vocabularySizes);

/** Every word stands twice. */
void deleteDuplicates(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
        vocabulary->batchAddWords(makeLearnersVocabulary(state.range(0))->allWords());
        state.ResumeTiming();
        benchmark::DoNotOptimize(vocabulary->deleteDuplicates());
        state.PauseTiming();
        vocabulary.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(deleteDuplicates)->Apply(vocabularySizes);

} // namespace
