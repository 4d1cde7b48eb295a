#include "platform/MainInbox.h"

#include <QCoreApplication>
#include <QEvent>

namespace platform {

void MainInbox::post(std::function<void()> task)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
    QCoreApplication::postEvent(this, std::make_unique<QEvent>(QEvent::User).release());
}

void MainInbox::customEvent(QEvent *)
{
    std::function<void()> task;
    {
        const std::lock_guard lock(m_mutex);
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
    }
    task();
}

} // namespace platform
