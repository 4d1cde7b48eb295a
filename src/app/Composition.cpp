#include "app/Composition.h"

Composition::Composition()
    : m_ratingPrompt(std::make_unique<RatingPrompt>())
    , m_delegate(makeDelegate())
    , m_syncLog(std::make_unique<TAVSyncLog>())
    , m_sync(std::make_unique<DropBoxController>())
    , m_usage(std::make_unique<KeenClient>())
{
}

std::unique_ptr<AppDelegate> Composition::makeDelegate()
{
    AppDelegate::load();
    return std::make_unique<AppDelegate>();
}

Program &Composition::makeProgram()
{
    m_program = std::make_unique<Program>(*m_delegate, m_document);
    return *m_program;
}
