#include "support/ThreadedTestQueues.h"

#include "support/WaitUntil.h"

ThreadedTestQueues::ThreadedTestQueues(TestServices &services)
    : m_services(services)
    , m_queues(platform::makeSystemQueues(services.mainDispatcher))
{
    platform::Services installed = platform::services();
    installed.queues = this;
    platform::installServices(installed);
}

ThreadedTestQueues::~ThreadedTestQueues()
{
    EXPECT_TRUE(ThreadedTestQueues::finish(std::chrono::seconds(20))) << "a background task hangs";
    platform::Services installed = platform::services();
    installed.queues = &m_services.queues;
    platform::installServices(installed);
}

platform::Task ThreadedTestQueues::counted(platform::Task task)
{
    ++*m_count;
    const std::shared_ptr<void> token(nullptr, [count = m_count](void *) { --*count; });
    return [token, run = std::move(task)] { run(); };
}

void ThreadedTestQueues::mainAsync(QObject *context, platform::Task task)
{
    m_queues->mainAsync(nullptr, counted(platform::unlessGone(context, std::move(task))));
}

void ThreadedTestQueues::globalAsync(platform::Task task)
{
    m_queues->globalAsync(counted(std::move(task)));
}

void ThreadedTestQueues::globalAsyncAfter(std::chrono::milliseconds delay, platform::Task task)
{
    const auto arm = [this, delay, run = std::move(task)] {
        m_services.clock.callAfterInBackground(delay, [this, run] { globalAsync(run); });
    };
    m_services.mainDispatcher.postPastGate(counted(arm));
}

std::unique_ptr<platform::SerialQueue> ThreadedTestQueues::makeSerialQueue(const QString &label)
{
    return m_queues->makeSerialQueue(label);
}

bool ThreadedTestQueues::drain()
{
    return waitUntil([this] { return *m_count == 0; });
}
