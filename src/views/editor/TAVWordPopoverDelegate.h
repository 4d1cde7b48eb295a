#pragma once

#include "model/TAVWord.h"

/** Who is told how the word editor ended. */
class TAVWordPopoverDelegate
{
public:
    virtual ~TAVWordPopoverDelegate() = default;
    virtual void wordPopoverDidDeleteWords(const TAVWordList &words) = 0;
    virtual void wordPopoverDidCancelEditWords(const TAVWordList &words) = 0;
    virtual void wordPopoverDidEditWords(const TAVWordList &words) = 0;
    /** shallAddMore: the user wants the next empty word. */
    virtual void wordPopoverDidAddWords(const TAVWordList &words, bool shallAddMore)
    {
        Q_UNUSED(words)
        Q_UNUSED(shallAddMore)
    }
    virtual void wordPopoverDidCancelAddingWords(const TAVWordList &words) { Q_UNUSED(words) }
    /** Up or Down was pressed in a single-line field while nothing had been changed: -1 or 1. */
    virtual void wordPopoverDidMoveSelection(int direction) { Q_UNUSED(direction) }
};
