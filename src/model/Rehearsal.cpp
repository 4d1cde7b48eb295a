#include "model/Rehearsal.h"

#include "model/TAVRandom.h"
#include "model/WordSorting.h"

namespace rehearsal {

void bookAnswer(TAVWord &word, int answer, const QDateTime &now)
{
    constexpr quint64 levelAfterDeepFall = 2;

    word.setLastAsked(now);
    const quint64 level = word.level();
    if (answer == 1) {
        word.setLevel(std::min(level, levels::highest - 1) + 1);
    } else if (answer == -1 && level > 0) {
        word.setFallenDownCounter(word.fallenDownCounter() + 1);
        word.setLevel(level >= levels::highest - 1 ? levelAfterDeepFall : level - 1);
    }
}

TAVWordList dueWords(TAVWordList words, quint64 level, const QDateTime &now)
{
    const qint64 millisecondsNow = now.toMSecsSinceEpoch();
    const qint64 span = qint64(secondsOfLevel(level)) * 1000;
    words.removeIf([millisecondsNow, span](const TAVWordRef &word) {
        const QDateTime lastAsked = word->lastAsked();
        return word->dontAskAgain() ||
               (lastAsked.isValid() && millisecondsNow - lastAsked.toMSecsSinceEpoch() <= span);
    });
    sortWords(words, WordOrder::LastAsked);
    return words;
}

TAVWordList randomWords(const TAVWordList &words, qint64 count, const TAVRandom &random)
{
    const qint64 wanted = std::min<qint64>(count, words.size());
    TAVWordSet picked;
    while (picked.size() < wanted)
        picked.insert(words.at(random.randomIntBetween(0, words.size() - 1)));
    return picked.values();
}

} // namespace rehearsal
