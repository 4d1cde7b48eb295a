#include "platform/Dispatcher.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace platform {

std::function<void()> unlessGone(QObject *context, std::function<void()> task)
{
    if (!context)
        return task;
    return [guard = QPointer<QObject>(context), run = std::move(task)] {
        if (guard)
            run();
    };
}

void Dispatcher::post(std::function<void()> task)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
    QCoreApplication::postEvent(this, std::make_unique<QEvent>(QEvent::User).release());
}

void Dispatcher::customEvent(QEvent *)
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
