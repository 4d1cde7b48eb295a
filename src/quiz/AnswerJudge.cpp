#include "quiz/AnswerJudge.h"

namespace {

/** Stands for no answer: too far off to be right or misspelled. */
constexpr qint64 distanceOfNoAnswer = 8;

qint64 distanceOfAnswer(const QString &expected, const QString &answer)
{
    if (AnswerJudge::isNoAnswer(answer))
        return distanceOfNoAnswer;
    // Each missing letter costs one at least. Endless texts out of a file need not be compared to tell that.
    const qint64 missing = std::abs(expected.size() - answer.size());
    return missing >= 2 ? missing : TAVQuizInterface::distanceBetween(expected, answer);
}

} // namespace

void AnswerJudge::beginRun()
{
    m_lastWord.reset();
    m_lastWordOriginLevel = 0;
    m_lastWrongWasJustMisspelled = false;
    m_numberOfCorrect = 0;
    m_numberOfWrong = 0;
    m_numberOfMisspelled = 0;
    m_wrongAnsweredWords.clear();
}

Verdict AnswerJudge::judge(const TAVWordRef &asked, const QString &answer, bool askedForeign)
{
    m_lastWord = asked;
    const qint64 distance = distanceOfAnswer(expectedText(*asked, askedForeign), answer);
    Verdict verdict = Verdict::wrong;
    if (distance == 0) {
        verdict = Verdict::correct;
    } else if (const TAVWordRef synonym = synonymWithText(*asked, answer, askedForeign)) {
        putInFrontOfAskedWord(synonym);
        m_lastWord = synonym;
        verdict = Verdict::correctBySynonym;
    } else if (distance == 1 && !m_run.vocabulary()->isDisableMisspellRecognition()) {
        verdict = Verdict::misspelled;
    }
    m_lastWordOriginLevel = m_lastWord->level();
    book(verdict);
    return verdict;
}

TAVWordRef AnswerJudge::synonymWithText(const TAVWord &asked, const QString &answer, bool askedForeign) const
{
    for (const TAVWordRef &synonym : m_run.vocabulary()->synonymsForWord(asked)) {
        // A near miss of a synonym counts for nothing.
        if (expectedText(*synonym, askedForeign) != answer)
            continue;
        // One that was asked already is no hit, and none behind it is looked for.
        const qsizetype index = m_run.wordsToAsk().indexOf(synonym);
        return index < 0 || index > m_run.askIndex() ? synonym : nullptr;
    }
    return nullptr;
}

void AnswerJudge::putInFrontOfAskedWord(const TAVWordRef &synonym)
{
    TAVWordList &words = m_run.mutableWordsToAsk();
    // A word from outside makes the list longer than was promised, so its answer must not move the progress.
    if (words.removeAll(synonym) == 0)
        --m_numberOfCorrect;
    words.insert(m_run.askIndex(), synonym);
}

void AnswerJudge::book(Verdict verdict)
{
    m_lastWrongWasJustMisspelled = verdict == Verdict::misspelled;
    switch (verdict) {
    case Verdict::correct:
    case Verdict::correctBySynonym:
        m_run.vocabulary()->answeredWord(m_lastWord, 1);
        ++m_numberOfCorrect;
        return;
    case Verdict::misspelled:
        m_run.vocabulary()->answeredWord(m_lastWord, 0);
        ++m_numberOfMisspelled;
        break;
    case Verdict::wrong:
        m_run.vocabulary()->answeredWord(m_lastWord, -1);
        ++m_numberOfWrong;
        break;
    }
    m_wrongAnsweredWords.append(m_lastWord);
}

void AnswerJudge::takeOverrule()
{
    if (m_lastWrongWasJustMisspelled) {
        --m_numberOfMisspelled;
    } else {
        m_lastWord->setLevel(m_lastWordOriginLevel);
        --m_numberOfWrong;
    }
    m_run.vocabulary()->answeredWord(m_lastWord, 1);
    ++m_numberOfCorrect;
    m_wrongAnsweredWords.removeAll(m_lastWord);
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
