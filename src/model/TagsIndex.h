#pragma once

#include "model/TAVWord.h"

#include <optional>
#include <vector>

/**
 * The tags of a list of words, for completion while a tag is typed. The tags stand sorted and a prefix picks
 * its range at the moment it is asked for: a list for each prefix would take room in the square of a tag's
 * length.
 */
class TagsIndex
{
public:
    explicit TagsIndex(const TAVWordList &words);

    /** All tags, in the order in which the words brought them. */
    const TAVTextSet &allTags() const { return m_allTags; }
    /** Tags that begin with exactly this prefix and are longer, the most used first; absent if none. */
    std::optional<QStringList> completions(const QString &prefix) const;

private:
    struct Entry
    {
        QString tag;
        qsizetype uses;
        /** Place among all tags by first use; settles ties. */
        qsizetype place;
    };
    TAVTextSet m_allTags;
    /** By tag, in the order of code units. */
    std::vector<Entry> m_entries;
};
