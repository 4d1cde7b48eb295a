#pragma once

#include "quiz/TAVQuizInterface.h"

enum class Verdict { correct, correctBySynonym, misspelled, wrong };

inline bool isRight(Verdict verdict)
{
    return verdict == Verdict::correct || verdict == Verdict::correctBySynonym;
}

/**
 * Judges typed answers, books them, and keeps the counters of a run. What the user sees of a verdict is left
 * to the forms.
 */
class AnswerJudge
{
public:
    /** The run holds the vocabulary and the list of words; it must outlive the judge. */
    explicit AnswerJudge(TAVQuizInterface &run)
        : m_run(run)
    {
    }

    /** Counters to 0, no word, no wrong answers. */
    void beginRun();
    /**
     * Judges the answer exactly as typed and books it. A synonym that is still to come, or that is no part of
     * the run, takes the place of the asked word, which then is asked again as the very next one.
     */
    Verdict judge(const TAVWordRef &asked, const QString &answer, bool askedForeign);
    /** The user knew it all the same: takes the last misspelled or wrong verdict back and books a correct
     * one. */
    void takeOverrule();

    /** The word that was judged; after a synonym hit, that synonym. */
    const TAVWordRef &lastWord() const { return m_lastWord; }
    void setLastWord(const TAVWordRef &word) { m_lastWord = word; }
    /** Its level before the answer. */
    quint64 lastWordOriginLevel() const { return m_lastWordOriginLevel; }
    void setLastWordOriginLevel(quint64 level) { m_lastWordOriginLevel = level; }
    bool lastWrongWasJustMisspelled() const { return m_lastWrongWasJustMisspelled; }
    qint64 numberOfCorrect() const { return m_numberOfCorrect; }
    qint64 numberOfWrong() const { return m_numberOfWrong; }
    qint64 numberOfMisspelled() const { return m_numberOfMisspelled; }
    qint64 numberOfAnswers() const { return m_numberOfCorrect + m_numberOfWrong + m_numberOfMisspelled; }
    /** Wrong and misspelled words in the order of their answers. */
    const TAVWordList &wrongAnsweredWords() const { return m_wrongAnsweredWords; }
    void removeFromWrongAnsweredWords(const TAVWordRef &word) { m_wrongAnsweredWords.removeAll(word); }

    static const QString &expectedText(const TAVWord &word, bool askedForeign);
    static const QString &questionText(const TAVWord &word, bool askedForeign);
    /** Empty, or the one blank with which a user passes on a word. */
    static bool isNoAnswer(const QString &answer);
    /** The level that a correct answer lifts this level to. */
    static quint64 levelAbove(quint64 level) { return level < 4 ? level + 1 : 5; }

private:
    TAVWordRef synonymWithText(const TAVWord &asked, const QString &answer, bool askedForeign) const;
    void putInFrontOfAskedWord(const TAVWordRef &synonym);
    void book(Verdict verdict);

    TAVQuizInterface &m_run;
    TAVWordRef m_lastWord;
    quint64 m_lastWordOriginLevel = 0;
    bool m_lastWrongWasJustMisspelled = false;
    qint64 m_numberOfCorrect = 0;
    qint64 m_numberOfWrong = 0;
    qint64 m_numberOfMisspelled = 0;
    TAVWordList m_wrongAnsweredWords;
};
