#pragma once

/** Which side of a word pair the user is asked for; with both on, each question draws one. Kept in the
 * settings. */
struct AskDirection
{
    bool foreignWord = true;
    bool yourWord = false;

    /** The foreign word if neither is stored. */
    static AskDirection fromSettings();
    void store() const;
};
