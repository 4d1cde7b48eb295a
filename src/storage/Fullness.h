#pragma once

#include "model/TAVLexicon.h"

namespace storage {

/**
 * How much of the file of a language is taken. Beyond its upper end the file is still saved, but can't be
 * opened again; without a word beforehand, its user would notice only then.
 */
class Fullness
{
public:
    explicit Fullness(qsizetype jsonSize)
        : m_jsonSize(jsonSize)
    {
    }

    /** Near the upper end, or beyond. */
    bool isWorthTelling() const;
    bool isBeyond() const;
    /** In MiB to one digit, rounded away from the end, so that the number is on the same side of it. */
    double mebibytes() const;
    static int maxMebibytes();

private:
    qsizetype m_jsonSize;
};

/** As of the last time in this run that the file was loaded or saved; nothing is read or measured. */
Fullness fullnessOf(const TAVLexicon &vocabulary);

} // namespace storage
