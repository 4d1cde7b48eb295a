#include "document/DeletionHistory.h"

void DeletionHistory::follow(const QString &language)
{
    if (m_language != language)
        m_entries.clear();
    m_language = language;
}

void DeletionHistory::remember(const TAVWordList &words)
{
    TAVWordList kept = words;
    kept.removeIf(
        [](const TAVWordRef &word) { return word->yourWord().isEmpty() && word->foreignWord().isEmpty(); });
    if (kept.isEmpty())
        return;
    m_entries.append(kept);
    if (m_entries.size() > maxEntries)
        m_entries.removeFirst();
}
