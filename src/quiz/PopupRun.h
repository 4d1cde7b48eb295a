#pragma once

#include "quiz/TypedRun.h"

/**
 * The run of the popup quiz: questions come one by one with minutes between them, and an answer waits for the
 * user to go on before it is written. Every way out of the run writes it.
 */
class PopupRun : public TypedRun
{
public:
    static constexpr qint64 wordsOfAList = 10;

    using TypedRun::TypedRun;

    /** Writes what is pending, and makes the run ready; the first word comes with the first ask(). */
    void begin() override;
    bool isRunning() const { return m_isRunning; }
    /**
     * Asks the next word, or once more one that was put off, and drops the decisions about the last. Makes a
     * new list if there is none. False if all words are answered.
     */
    bool ask();
    /** Puts the question off: the next ask() brings the same word, the same way round. */
    void postpone() { m_isPostponed = askedWord() != nullptr; }
    /** Whether a question waits for its answer, and isn't put off. */
    bool isAsking() const { return askedWord() && !m_isPostponed; }
    /** Reached is the question that stands, is put off or was answered last. */
    RunProgress questionProgress() const;
    /** The word on the panel: the asked one, or after an answer the judged one. Absent without a run. */
    const TAVWordRef &currentWord() const { return askedWord() ? askedWord() : m_lastWord; }
    /** Judges the answer, which is pending from then on. */
    Verdict check(const QString &answer);
    bool hasPendingAnswer() const { return m_hasPendingAnswer; }
    /** Takes the decisions about the pending answer and writes it; without one, does nothing. */
    void savePendingAnswer();
    /** Ends the run for its result, in any case with a save. */
    void end();
    /** Ends the run without a result; saves only a pending answer. */
    void leave();

    /** Of the answers that were given, not of the whole list. */
    RunResult result() const override;

private:
    bool isAtTop() const override { return presentLevel() == maxLevel; }
    ShownLevels overruledLevels() const override;

    bool m_isRunning = false;
    bool m_hasCreatedCorrectWordsToAsk = false;
    bool m_hasPendingAnswer = false;
    bool m_isPostponed = false;
    quint64 m_askedWordOriginLevel = 0;
};
