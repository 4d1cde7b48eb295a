#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace platform {

/** The task, which does nothing if the context is gone by then. Without a context it always runs. */
std::function<void()> unlessGone(QObject *context, std::function<void()> task);

/**
 * Takes tasks from any thread and runs them, one for each event, on the thread to which it belongs.
 * Everything is handed over under its lock, so that a thread sanitizer can follow it without seeing into Qt.
 */
class Dispatcher : public QObject
{
public:
    void post(std::function<void()> task);

protected:
    void customEvent(QEvent *event) override;

private:
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_tasks;
};

} // namespace platform
