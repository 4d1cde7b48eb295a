#include "model/TagsIndex.h"

TagsIndex::TagsIndex(const TAVWordList &words)
{
    QHash<QString, size_t> places;
    for (const TAVWordRef &word : words) {
        for (const QString &tag : word->tags()) {
            const auto found = places.constFind(tag);
            if (found != places.constEnd()) {
                ++m_entries[*found].uses;
            } else {
                places.insert(tag, m_entries.size());
                m_entries.push_back({tag, 1, qsizetype(m_entries.size())});
            }
        }
    }
    for (const Entry &entry : m_entries)
        m_allTags.insert(entry.tag);
    std::sort(m_entries.begin(), m_entries.end(),
              [](const Entry &a, const Entry &b) { return a.tag < b.tag; });
}

std::optional<QStringList> TagsIndex::completions(const QString &prefix) const
{
    if (prefix.isEmpty())
        return std::nullopt;
    std::vector<Entry> found;
    auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), prefix,
                                  [](const Entry &a, const QString &text) { return a.tag < text; });
    for (; entry != m_entries.end() && entry->tag.startsWith(prefix); ++entry) {
        if (entry->tag.size() > prefix.size())
            found.push_back(*entry);
    }
    if (found.empty())
        return std::nullopt;
    std::sort(found.begin(), found.end(), [](const Entry &a, const Entry &b) {
        return a.uses != b.uses ? a.uses > b.uses : a.place < b.place;
    });
    QStringList tags;
    for (const Entry &match : found)
        tags.append(match.tag);
    return tags;
}
