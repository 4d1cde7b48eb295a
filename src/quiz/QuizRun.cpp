#include "quiz/QuizRun.h"

#include "quiz/AnswerJudge.h"

QuizRun::QuizRun(TAVQuizInterface &quiz, VocabularyDocument &document)
    : m_quiz(quiz)
    , m_document(document)
{
}

void QuizRun::reset()
{
    m_askedWord.reset();
    m_counts = {};
    m_wrongAnsweredWords.clear();
    m_isExcluded = false;
}

void QuizRun::begin()
{
    reset();
    askNext();
}

void QuizRun::beginWithWrongWords()
{
    m_quiz.mutableWordsToAsk() = m_wrongAnsweredWords;
    m_quiz.setNumberOfWordsToAsk(m_wrongAnsweredWords.size());
    m_quiz.setAskIndex(-1);
    begin();
}

void QuizRun::askNext()
{
    m_askedWord = m_quiz.nextWordToAsk();
    if (m_askedWord)
        m_lastAskedForeign = m_quiz.drawDirection();
}

const QString &QuizRun::questionText(const TAVWord &word) const
{
    return AnswerJudge::questionText(word, m_lastAskedForeign);
}

const QString &QuizRun::expectedText(const TAVWord &word) const
{
    return AnswerJudge::expectedText(word, m_lastAskedForeign);
}

void QuizRun::takeExclusion(const TAVWordRef &word)
{
    if (!std::exchange(m_isExcluded, false) || !word || word->dontAskAgain())
        return;
    word->setDontAskAgain(true);
    vocabulary()->invalidateCachedWordLists();
    commit(Change::DecisionTaken);
}

TAVWordList QuizRun::goneWords(TAVWordList words) const
{
    words.removeIf([this](const TAVWordRef &word) { return vocabulary()->allWords().contains(word); });
    return words;
}

void QuizRun::forgetWords(const TAVWordList &words)
{
    for (const TAVWordRef &word : words) {
        m_wrongAnsweredWords.removeAll(word);
        const qsizetype index = m_quiz.wordsToAsk().indexOf(word);
        if (index < 0)
            continue;
        m_quiz.mutableWordsToAsk().removeAt(index);
        if (index <= m_quiz.askIndex())
            m_quiz.setAskIndex(m_quiz.askIndex() - 1);
    }
}

RunProgress QuizRun::progress() const
{
    return {numberOfAnswers() + 1, m_quiz.numberOfWordsToAsk(), m_counts.correct};
}

RunResult QuizRun::result() const
{
    RunResult result;
    result.correct = m_counts.correct;
    result.between = m_counts.between;
    result.wrong = m_counts.wrong;
    result.total = m_quiz.numberOfWordsToAsk();
    // Misspelled words alone offer no restart, and words that were deleted since can't be asked again.
    result.canRestartWithWrong = m_counts.wrong > 0 && !m_wrongAnsweredWords.isEmpty();
    return result;
}
