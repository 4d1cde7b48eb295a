#include "quiz/QuizChoice.h"

#include <QtGlobal>

#include <algorithm>

namespace {

qint64 sizeOfLevel(const TAVLexicon &vocabulary, quint64 level)
{
    return level < 5 ? vocabulary.wordsOfLevel(level).size() : vocabulary.nativeWithoutDontAsk().size();
}

} // namespace

QuizChoice::Check QuizChoice::check(const TAVLexicon *vocabulary) const
{
    if (std::find(levels.begin(), levels.end(), true) == levels.end()) {
        return {false, false,
                wordsOverDue != 0 ? QT_TRANSLATE_NOOP("Quiz", "nothingSelected")
                                  : QT_TRANSLATE_NOOP("Quiz", "noWordsOverDue")};
    }
    if (!vocabulary || vocabulary->countAllWords() < 1)
        return {false, false, QT_TRANSLATE_NOOP("Quiz", "noWords")};
    qint64 words = 0;
    for (size_t level = 0; level < levels.size(); ++level)
        words += levels[level] ? sizeOfLevel(*vocabulary, level) : 0;
    if (words <= 0)
        return {false, false, QT_TRANSLATE_NOOP("Quiz", "noWordsInList")};
    if (numberOfWords <= 0)
        return {false, true, QT_TRANSLATE_NOOP("Quiz", "zeroEntered")};
    if (!tags.isEmpty() && vocabulary->wordsWithTags(tags, mustHaveAllTags).isEmpty())
        return {false, true, QT_TRANSLATE_NOOP("Quiz", "noWordsWithTags")};
    return {true, true, nullptr};
}
