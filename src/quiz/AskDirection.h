#pragma once

/** Which side of a word pair the user is asked to produce; both: drawn for each question. Kept in the
 * settings. */
struct AskDirection
{
    bool foreignWord = true;
    bool yourWord = false;

    /** Neither stored: the foreign word. */
    static AskDirection fromSettings();
    void store() const;
};
