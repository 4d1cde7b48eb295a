#pragma once

#include "app/AppDelegate.h"
#include "app/Program.h"
#include "app/Registered.h"
#include "document/VocabularyDocument.h"
#include "sync/DropBoxController.h"
#include "sync/TAVSyncLog.h"
#include "usage/KeenClient.h"
#include "usage/RatingPrompt.h"

/** What the whole program shares by name; idle where nothing else is put in. */
struct SharedObjects
{
    std::unique_ptr<RatingPrompt> ratingPrompt = std::make_unique<RatingPrompt>();
    std::unique_ptr<TAVSyncLog> syncLog = std::make_unique<TAVSyncLog>();
    std::unique_ptr<DropBoxController> sync = std::make_unique<DropBoxController>();
    std::unique_ptr<KeenClient> usage = std::make_unique<KeenClient>();
};

/**
 * Builds the program in one order, which is that of the members below, and takes it down in the opposite one.
 * What is shared by name is registered before anybody can ask for it. The services must be installed, and
 * outlive this object.
 */
class Composition
{
public:
    /** All but the window: the log and the folders stand when this returns. */
    explicit Composition(SharedObjects shared = {});

    AppDelegate &delegate() { return *m_delegate; }
    VocabularyDocument &document() { return m_document; }
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
