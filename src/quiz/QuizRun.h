#pragma once

#include "document/VocabularyDocument.h"
#include "quiz/TAVQuizInterface.h"

/** How far a run has come. */
struct RunProgress
{
    /** Number of the question that is reached, from 1; one more than the total when all are answered. */
    qint64 reached = 1;
    qint64 total = 0;
    qint64 correct = 0;
};

/** What a run came to. */
struct RunResult
{
    qint64 correct = 0;
    /** Misspelled, or skipped: what is neither right nor wrong. */
    qint64 between = 0;
    qint64 wrong = 0;
    /** What the percentages are taken of. */
    qint64 total = 0;
    bool canRestartWithWrong = false;

    double correctPercent() const { return percentOf(correct); }
    double betweenPercent() const { return percentOf(between); }

private:
    double percentOf(qint64 number) const
    {
        return double(number) / double(std::max<qint64>(total, 1)) * 100.0;
    }
};

/**
 * One pass through the words of a quiz, without a screen: which word is asked and in which direction, what
 * the user's answers and decisions do to the words and to the figures, and which change goes to the document
 * when. The forms show it. Each kind of run derives from this one.
 *
 * Words, options and vocabulary stand in the form's TAVQuizInterface; a run stays on the vocabulary that it
 * finds there. An answer and its commit are two calls, so that the card shows the verdict before the file
 * is written. Main thread only.
 */
class QuizRun
{
public:
    static constexpr quint64 maxLevel = TAVLexicon::numberOfLevels - 1;

    /** Both must outlive the run. */
    QuizRun(TAVQuizInterface &quiz, VocabularyDocument &document);
    virtual ~QuizRun() = default;
    QuizRun(const QuizRun &) = delete;
    QuizRun &operator=(const QuizRun &) = delete;

    /** Starts over with the words that stand ready, and asks the first. */
    virtual void begin();
    /** The same with the words that were wrong, in the order of their answers; there must be any. */
    void beginWithWrongWords();
    /** Goes on to the next word, which may be none, and draws the direction of its question. */
    void askNext();

    /** The word that waits for its answer; absent when none does. */
    const TAVWordRef &askedWord() const { return m_askedWord; }
    /** Direction of the question asked last: true if the answer must be the foreign word. */
    bool lastAskedForeign() const { return m_lastAskedForeign; }
    /** By that direction: the side of a word that the question shows, and the side to answer. */
    const QString &questionText(const TAVWord &word) const;
    const QString &expectedText(const TAVWord &word) const;

    /** The user doesn't want to be asked this word any more. Takes effect with the next step. */
    void setIsExcluded(bool flag) { m_isExcluded = flag; }
    /** Of these words those that the run's vocabulary holds no more, as when an edit made several of one. */
    TAVWordList goneWords(TAVWordList words) const;
    /** Words were deleted: leaves them out of this run and of its next round. */
    void forgetWords(const TAVWordList &words);

    qint64 numberOfCorrect() const { return m_counts.correct; }
    qint64 numberOfWrong() const { return m_counts.wrong; }
    qint64 numberOfAnswers() const { return m_counts.correct + m_counts.between + m_counts.wrong; }
    /** In the order of their answers; misspelled ones too. */
    const TAVWordList &wrongAnsweredWords() const { return m_wrongAnsweredWords; }
    RunProgress progress() const;
    virtual RunResult result() const;

    const TAVLexiconRef &vocabulary() const { return m_quiz.vocabulary(); }
    const TAVQuizInterface &quiz() const { return m_quiz; }

    /** The level that a correct answer lifts this level to. */
    static quint64 levelAbove(quint64 level) { return level < maxLevel ? level + 1 : maxLevel; }

protected:
    struct Counts
    {
        qint64 correct = 0;
        qint64 between = 0;
        qint64 wrong = 0;
    };

    /** Forgets answers, words and decisions. */
    virtual void reset();
    void takeExclusion(const TAVWordRef &word);
    void commit(Change change) { m_document.commit(change, vocabulary()); }

    TAVQuizInterface &m_quiz;
    TAVWordRef m_askedWord;
    Counts m_counts;
    TAVWordList m_wrongAnsweredWords;

private:
    VocabularyDocument &m_document;
    bool m_lastAskedForeign = true;
    bool m_isExcluded = false;
};
