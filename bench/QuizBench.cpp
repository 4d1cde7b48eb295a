#include "Vocabularies.h"
#include "quiz/TAVQuizInterface.h"

using namespace Qt::StringLiterals;

namespace {

void createWordsToAsk(benchmark::State &state)
{
    TAVQuizInterface quiz(makeLearnersVocabulary(state.range(0)));
    for (auto _ : state) {
        quiz.setNumberOfWordsToAsk(30);
        quiz.createWordsToAsk();
    }
}
BENCHMARK(createWordsToAsk)->Apply(vocabularySizes);

/** One answer against every word of the vocabulary. */
void distanceBetween(benchmark::State &state)
{
    const TAVLexiconRef vocabulary = makeLearnersVocabulary(state.range(0));
    for (auto _ : state) {
        for (const TAVWordRef &word : vocabulary->allWords())
            benchmark::DoNotOptimize(TAVQuizInterface::distanceBetween(u"kalimero"_s, word->foreignWord()));
    }
}
BENCHMARK(distanceBetween)->Apply(vocabularySizes);

} // namespace
