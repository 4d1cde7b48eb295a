#include "quiz/AnswerJudge.h"

namespace {

/** Stands for no answer: too far off to be right or misspelled. */
constexpr qint64 distanceOfNoAnswer = 8;

qint64 distanceOfAnswer(const QString &expected, const QString &answer)
{
    if (AnswerJudge::isNoAnswer(answer))
        return distanceOfNoAnswer;
    // No distance is less than the difference in length. That spares comparing endless texts out of a file.
    const qint64 missing = std::abs(expected.size() - answer.size());
    return missing >= 2 ? missing : TAVQuizInterface::distanceBetween(expected, answer);
}

TAVWordRef namedSynonym(const TAVQuizInterface &quiz, const TAVWord &asked, const QString &answer,
                        bool askedForeign)
{
    for (const TAVWordRef &synonym : quiz.vocabulary()->synonymsForWord(asked)) {
        // A near miss of a synonym counts for nothing.
        if (AnswerJudge::expectedText(*synonym, askedForeign) != answer)
            continue;
        // The first one with this text decides: if it was asked already, the answer is no hit.
        const qsizetype index = quiz.wordsToAsk().indexOf(synonym);
        return index < 0 || index > quiz.askIndex() ? synonym : nullptr;
    }
    return nullptr;
}

} // namespace

AnswerJudge::Judgement AnswerJudge::judge(const TAVQuizInterface &quiz, const TAVWordRef &asked,
                                          const QString &answer, bool askedForeign)
{
    const qint64 distance = distanceOfAnswer(expectedText(*asked, askedForeign), answer);
    if (distance == 0)
        return {Verdict::correct, asked};
    if (const TAVWordRef synonym = namedSynonym(quiz, *asked, answer, askedForeign))
        return {Verdict::correctBySynonym, synonym};
    const bool isTolerant = !quiz.vocabulary()->isDisableMisspellRecognition();
    return {distance == 1 && isTolerant ? Verdict::misspelled : Verdict::wrong, asked};
}

const QString &AnswerJudge::expectedText(const TAVWord &word, bool askedForeign)
{
    return askedForeign ? word.foreignWord() : word.yourWord();
}

const QString &AnswerJudge::questionText(const TAVWord &word, bool askedForeign)
{
    return askedForeign ? word.yourWord() : word.foreignWord();
}

bool AnswerJudge::isNoAnswer(const QString &answer)
{
    return answer.isEmpty() || answer == QLatin1String(" ");
}
