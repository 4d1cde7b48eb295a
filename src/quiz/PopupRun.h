#pragma once

#include "quiz/TypedRun.h"

/**
 * The run of the popup quiz: questions come one by one with minutes between them, and an answer waits for the
 * user to go on before it is written. Each way out writes it.
 */
class PopupRun : public TypedRun
{
public:
    static constexpr qint64 wordsOfAList = 10;

    using TypedRun::TypedRun;

    /** Makes the run ready; the first word comes with the first ask(). */
    void begin() override;
    bool isRunning() const { return m_isRunning; }
    /** Asks the next word, of a new list if there is none; false if all are answered. Drops decisions. */
    bool ask();
    /** The word on the panel: the one that is asked, then the one that was judged. Absent without a run. */
    const TAVWordRef &currentWord() const { return askedWord() ? askedWord() : m_lastWord; }
    /** Judges the answer, which is pending from then on. */
    Verdict check(const QString &answer);
    bool hasPendingAnswer() const { return m_hasPendingAnswer; }
    /** Takes the decisions about the pending answer and writes it; without one, does nothing. */
    void savePendingAnswer();
    /** Ends the run with a save, for its result. */
    void end();
    /** Ends the run; only a pending answer is saved. */
    void leave();

    /** Counts over the answers that were given. */
    RunResult result() const override;

private:
    bool isAtTop() const override { return presentLevel() == maxLevel; }
    ShownLevels overruledLevels() const override;

    bool m_isRunning = false;
    bool m_hasCreatedCorrectWordsToAsk = false;
    bool m_hasPendingAnswer = false;
    quint64 m_askedWordOriginLevel = 0;
};
