#pragma once

/** How long question and solution stay in autoplay, by a position of the speed slider. Kept in the settings.
 */
struct FlashCardPace
{
    /** From 0, which is off, to 3, the fastest. */
    int position = 0;
    /** Seconds that the solution stays. */
    int flipTimeout = 0;
    /** Seconds that the question stays. */
    int showAnswerTimeout = 0;

    static FlashCardPace ofPosition(int position);
    /** The usual pace as long as none is stored. */
    static FlashCardPace fromSettings();
    void store() const;
};
