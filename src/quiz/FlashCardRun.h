#pragma once

#include "quiz/QuizRun.h"

/** What the user says of a card. */
enum class CardMark { none, known, notKnown };

/** The run of the flash cards, which are marked and not answered. */
class FlashCardRun : public QuizRun
{
public:
    using QuizRun::QuizRun;

    qint64 numberOfSkipped() const { return m_counts.between; }
    /** Books the asked word by its mark, or as skipped if it has none; then takes the exclusion. */
    void book(CardMark mark);
    /** To be called when the screen shows where the run stands. */
    void saveCard() { commit(Change::CardBooked); }
    /** Ends the run: takes the exclusion of a card that is still asked, books it if it is marked, and saves.
     */
    void end(CardMark mark);
    bool offersExclusion() const { return askedWord()->level() >= maxLevel; }

    /** The preview of a fall. It shows one level less even where a wrong answer pulls a word further down. */
    static quint64 levelBelow(quint64 level) { return level >= 4 ? 3 : level > 0 ? level - 1 : 0; }

private:
    void bookMark(CardMark mark);
};
