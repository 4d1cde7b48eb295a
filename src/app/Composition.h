#pragma once

#include "app/AppDelegate.h"
#include "app/Program.h"
#include "app/Registered.h"
#include "document/VocabularyDocument.h"
#include "sync/DropBoxController.h"
#include "sync/TAVSyncLog.h"
#include "usage/KeenClient.h"
#include "usage/RatingPrompt.h"

/**
 * Builds the program in one order, which is that of the members below, and takes it down in the opposite one.
 * What is shared by name is registered before anybody can ask for it. The services must be installed, and
 * outlive this object.
 */
class Composition
{
public:
    /** All but the window: the log and the folders stand when this returns. */
    Composition();

    AppDelegate &delegate() { return *m_delegate; }
    /** Makes the main window, once the start has come so far. */
    Program &makeProgram();

private:
    static std::unique_ptr<AppDelegate> makeDelegate();

    Registered<RatingPrompt> m_ratingPrompt;
    std::unique_ptr<AppDelegate> m_delegate;
    Registered<TAVSyncLog> m_syncLog;
    Registered<DropBoxController> m_sync;
    Registered<KeenClient> m_usage;
    VocabularyDocument m_document;
    std::unique_ptr<Program> m_program;
};
