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
    /** Books the asked word by its mark, without one as skipped, and takes the exclusion. */
    void book(CardMark mark);
    /** To be called once the card has begun to move on. */
    void saveCard() { commit(Change::CardBooked); }
    /** Takes what was decided about a last card, books it if it is marked, and makes the save that ends a
     * run.
     */
    void end(CardMark mark);
    bool offersExclusion() const { return askedWord()->level() >= maxLevel; }

    /** The preview of a fall. It shows one level less even where a wrong answer pulls a word further down. */
    static quint64 levelBelow(quint64 level) { return level >= 4 ? 3 : level > 0 ? level - 1 : 0; }

private:
    void bookMark(CardMark mark);
};
