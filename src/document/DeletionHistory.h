#pragma once

#include "model/TAVWord.h"

#include <QString>

/** What was deleted in one language, so that it can come back; each entry is one action of the user. */
class DeletionHistory
{
public:
    static constexpr qsizetype maxEntries = 100;

    /** Another language has nothing to bring back; the same one, loaded anew, keeps its history. */
    void follow(const QString &language);
    /** Words without any text are not kept, and beyond the limit the oldest entry is forgotten. */
    void remember(const TAVWordList &words);
    bool isEmpty() const { return m_entries.isEmpty(); }
    /** The latest entry, which is then forgotten. Not while empty. */
    TAVWordList takeLast() { return m_entries.takeLast(); }

private:
    QString m_language;
    QList<TAVWordList> m_entries;
};
