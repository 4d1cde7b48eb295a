#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace platform {

/**
 * Takes tasks from any thread and runs them, one for each event, on the thread on which it was made.
 * Everything is handed over under its lock, so that a thread sanitizer can follow it without seeing into Qt.
 */
class MainInbox : public QObject
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
