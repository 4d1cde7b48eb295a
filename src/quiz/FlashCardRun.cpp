#include "quiz/FlashCardRun.h"

void FlashCardRun::book(CardMark mark)
{
    bookMark(mark);
    takeExclusion(askedWord());
}

void FlashCardRun::end(CardMark mark)
{
    if (askedWord()) {
        takeExclusion(askedWord());
        if (mark != CardMark::none) {
            bookMark(mark);
            commit(Change::LastCardBooked);
        }
    }
    m_askedWord.reset();
    commit(Change::CardRunEnded);
}

void FlashCardRun::bookMark(CardMark mark)
{
    switch (mark) {
    case CardMark::known:
        ++m_counts.correct;
        return vocabulary()->answeredWord(askedWord(), 1);
    case CardMark::notKnown:
        ++m_counts.wrong;
        m_wrongAnsweredWords.append(askedWord());
        return vocabulary()->answeredWord(askedWord(), -1);
    case CardMark::none:
        ++m_counts.between;
        return vocabulary()->answeredWord(askedWord(), 0);
    }
}
