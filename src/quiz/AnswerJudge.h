#pragma once

#include "quiz/TAVQuizInterface.h"

enum class Verdict { correct, correctBySynonym, misspelled, wrong };

inline bool isRight(Verdict verdict)
{
    return verdict == Verdict::correct || verdict == Verdict::correctBySynonym;
}

/** Judges typed answers, without changing a word or a list. */
namespace AnswerJudge {

struct Judgement
{
    Verdict verdict;
    /** The word to book the answer for: the asked one, or the synonym that was named instead. */
    TAVWordRef word;
};

/**
 * Judges the answer, exactly as typed, to the word that was handed out last. A synonym counts if it is still
 * to come, or is none of the words to ask.
 */
Judgement judge(const TAVQuizInterface &quiz, const TAVWordRef &asked, const QString &answer,
                bool askedForeign);
const QString &expectedText(const TAVWord &word, bool askedForeign);
const QString &questionText(const TAVWord &word, bool askedForeign);
/** Empty, or the one blank with which a user passes on a word. */
bool isNoAnswer(const QString &answer);

} // namespace AnswerJudge
