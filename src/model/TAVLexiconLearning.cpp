#include "model/TAVLexicon.h"
#include "model/TAVStatistics.h"
#include "model/WordSorting.h"
#include "platform/Services.h"

void TAVLexicon::answeredWord(const TAVWordRef &word, int correct)
{
    constexpr quint64 highestLevel = numberOfLevels - 1;
    constexpr quint64 levelAfterDeepFall = 2;

    word->setLastAsked(platform::clock().now());
    const quint64 level = word->level();
    if (correct == 1) {
        word->setLevel(std::min(level, highestLevel - 1) + 1);
    } else if (correct == -1 && level > 0) {
        word->setFallenDownCounter(word->fallenDownCounter() + 1);
        word->setLevel(level >= highestLevel - 1 ? levelAfterDeepFall : level - 1);
    }
    invalidateCachedWordLists();
    makeDailyStatisticsSnapshot();
}

TAVWordList TAVLexicon::wordsOverDueFromLevel(quint64 level, const TAVTextSet &tags, bool mustHaveAll) const
{
    const qint64 now = platform::clock().now().toMSecsSinceEpoch();
    const qint64 rehearseTime = qint64(rehearseTimeInSec(level)) * 1000;
    TAVWordList due = filteredWords(wordsOfLevel(level), tags, mustHaveAll);
    due.removeIf([now, rehearseTime](const TAVWordRef &word) {
        const QDateTime lastAsked = word->lastAsked();
        return word->dontAskAgain() ||
               (lastAsked.isValid() && now - lastAsked.toMSecsSinceEpoch() <= rehearseTime);
    });
    sortWords(due, WordOrder::LastAsked);
    return due;
}

TAVWordList TAVLexicon::randomlyPick(qint64 count, quint64 level, const TAVTextSet &tags,
                                     bool mustHaveAll) const
{
    const TAVWordList candidates = filteredWords(wordsOfLevel(level), tags, mustHaveAll);
    const qint64 wanted = std::min<qint64>(count, candidates.size());
    TAVWordSet picked;
    while (picked.size() < wanted)
        picked.insert(candidates.at(m_random.randomIntBetween(0, candidates.size() - 1)));
    return picked.values();
}

quint64 TAVLexicon::rehearseTimeInSec(quint64 level)
{
    static constexpr quint64 (*times[numberOfLevels])() = {rehearseTimeInSecLevel0, rehearseTimeInSecLevel1,
                                                           rehearseTimeInSecLevel2, rehearseTimeInSecLevel3,
                                                           rehearseTimeInSecLevel4, rehearseTimeInSecLevel5};
    return times[std::min<quint64>(level, numberOfLevels - 1)]();
}

void TAVLexicon::makeDailyStatisticsSnapshot()
{
    m_statistics->addDailySnapshot(std::make_shared<TAVDailyStatisticsSnapshot>(*this));
}
