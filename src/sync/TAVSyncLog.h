#pragma once

#include "model/TAVLexicon.h"
#include "platform/SharedObject.h"

#include <optional>

/** The record of what syncs did. This base holds nothing. */
class TAVSyncLog
{
public:
    virtual ~TAVSyncLog() = default;

    /** Never null. */
    static TAVSyncLog *sharedManager() { return platform::SharedObject<TAVSyncLog>::get(); }
    /** Not owned; null brings the empty one back. */
    static void setSharedManager(TAVSyncLog *log) { platform::SharedObject<TAVSyncLog>::registerObject(log); }

    /** Writes the log to disk and empties it. */
    virtual void saveLogAndClear() {}
    /** When and how the vocabulary was last synced; absent if a sync is under way, empty while none has run.
     */
    virtual std::optional<QString> syncStatusForVocabulary(const TAVLexicon &vocabulary)
    {
        Q_UNUSED(vocabulary)
        return QString();
    }
};
