#include "app/Composition.h"

Composition::Composition(SharedObjects shared)
    : m_ratingPrompt(std::move(shared.ratingPrompt))
    , m_delegate(makeDelegate())
    , m_syncLog(std::move(shared.syncLog))
    , m_sync(std::move(shared.sync))
    , m_usage(std::move(shared.usage))
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
