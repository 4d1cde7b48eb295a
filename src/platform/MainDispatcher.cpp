#include "platform/MainDispatcher.h"

namespace platform {

void MainDispatcher::post(std::function<void()> task)
{
    m_inbox.post([this, call = std::make_shared<Call>(Call{std::move(task)})] { fallDue(call); });
}

void MainDispatcher::fallDue(const std::shared_ptr<Call> &call)
{
    if (m_closings == 0 && m_waiting.empty()) {
        if (call->isAlive)
            call->run();
    } else if (!call->isWaiting) {
        // However often a repeating timer fell due meanwhile, it fires once.
        call->isWaiting = true;
        m_waiting.push_back(call);
    }
}

void MainDispatcher::runWaiting()
{
    while (m_closings == 0 && !m_waiting.empty()) {
        const std::shared_ptr<Call> call = m_waiting.front();
        m_waiting.pop_front();
        call->isWaiting = false;
        if (call->isAlive)
            call->run();
    }
}

void MainDispatcher::openGate()
{
    // Later, as whoever showed the alert must first get its answer and come to an end.
    if (--m_closings == 0 && !m_waiting.empty())
        m_inbox.post([this] { runWaiting(); });
}

} // namespace platform
