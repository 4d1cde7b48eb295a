#pragma once

#include "platform/OrderedSet.h"

#include <QHash>
#include <QString>

#include <vector>

/**
 * The facultative words of a language, prepared for removing them from many entries: sorting asks once for
 * each word, and a list of thousands of them must not be walked through each time.
 */
class FacultativeWords
{
public:
    FacultativeWords() = default;
    explicit FacultativeWords(const platform::TextSet &words);

    /** The entry without the one facultative word, and the blank behind it, with which it begins. If several
     * fit, the first of the set counts; if none does, the entry comes back as it is. */
    QString removedFrom(const QString &entry) const;

private:
    /** Holds the texts that the keys below are part of. */
    platform::TextSet m_words;
    /** The place in the set by the trimmed word. */
    QHash<QStringView, qsizetype> m_places;
    /** Of the trimmed words, each once, the shortest first. */
    std::vector<qsizetype> m_lengths;
};
