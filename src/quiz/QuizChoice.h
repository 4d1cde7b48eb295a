#pragma once

#include "model/TAVLexicon.h"

#include <array>

/** What the user has chosen on the setup page. */
struct QuizChoice
{
    std::array<bool, TAVLexicon::numberOfLevels> levels = {};
    qint64 numberOfWords = 0;
    /** Empty: no filter. */
    TAVTextSet tags;
    bool mustHaveAllTags = true;
    /** How many words of the chosen levels were due when last counted. */
    qint64 wordsOverDue = 0;

    struct Check
    {
        bool isOK = false;
        bool canStart = false;
        /** Key in the table Quiz of what to tell the user; null if all is well. */
        const char *message = nullptr;
    };
    /** The first thing that stands in the way of a quiz on the vocabulary, which may be absent. */
    Check check(const TAVLexicon *vocabulary) const;
};
