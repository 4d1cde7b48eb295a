#pragma once

#include "model/TAVLexicon.h"

#include <benchmark/benchmark.h>

/**
 * A vocabulary as a diligent learner has it: all levels, tags, comments, articles, synonyms. The same for the
 * same number and variant; two variants share their ids, and every second pair of texts.
 */
TAVLexiconRef makeLearnersVocabulary(qint64 numberOfWords, int variant = 0);

/** Runs a benchmark for a small, a large and the largest vocabulary that a file can hold. */
inline void vocabularySizes(benchmark::internal::Benchmark *bench)
{
    bench->Arg(1000)->Arg(10000)->Arg(33000)->Unit(benchmark::kMillisecond);
}
