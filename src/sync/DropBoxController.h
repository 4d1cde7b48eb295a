#pragma once

#include "model/TAVLexicon.h"
#include "platform/SharedObject.h"

class QWidget;

/** Who hears of the sync's events, all on the main thread. */
class DropboxControllerDelegate
{
public:
    virtual ~DropboxControllerDelegate() = default;
    virtual void dropboxControllerDidFinishSync() = 0;
    virtual void dropboxControllerDidLinkSuccessfully() = 0;
    virtual void dropboxControllerFailedToLink() = 0;
    virtual void dropboxControllerDidDownloadNewFiles() = 0;
};

/**
 * Keeps the vocabulary files in step with one shared folder. This base does nothing, so that every caller can
 * ask freely; the engine derives from it. The shared instance is registered by the composition.
 */
class DropBoxController
{
public:
    virtual ~DropBoxController() = default;

    /** Never null; an idle one as long as none is registered. */
    static DropBoxController *sharedManager() { return platform::SharedObject<DropBoxController>::get(); }
    /** Not owned; null brings the idle one back. */
    static void setSharedManager(DropBoxController *manager)
    {
        platform::SharedObject<DropBoxController>::registerObject(manager);
    }

    /** The vocabulary's file is to be written to the shared folder at the next sync. */
    virtual void markFileAsNeedsSync(const TAVLexicon &vocabulary) { Q_UNUSED(vocabulary) }
    /** Asks for a sync; only queues the work. */
    virtual void syncWithDropbox() {}
    /** Uploads the saved logs. Called in the background. */
    virtual void syncSyncLogToDropbox() {}

    virtual bool isEnabled() const { return false; }
    virtual void setIsEnabled(bool enabled) { Q_UNUSED(enabled) }
    virtual bool isLinked() const { return false; }
    virtual void setDelegate(DropboxControllerDelegate *delegate) { Q_UNUSED(delegate) }
    /** The window over which a sign-in opens. */
    virtual void setWindow(QWidget *window) { Q_UNUSED(window) }
};
